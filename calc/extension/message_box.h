#pragma once
// Message boxes over a frame's window, with an OK button; each returns once the user closed it.

#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include <string>

namespace orv::extension {

// Why a command failed.
void showErrorBox(const css::uno::Reference<css::uno::XComponentContext>& context,
                  const css::uno::Reference<css::frame::XFrame>& frame, const std::string& title,
                  const std::string& message);

// Something the user should know about a run that succeeded.
void showInfoBox(const css::uno::Reference<css::uno::XComponentContext>& context,
                 const css::uno::Reference<css::frame::XFrame>& frame, const std::string& title,
                 const std::string& message);

}  // namespace orv::extension
