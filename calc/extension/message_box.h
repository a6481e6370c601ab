#pragma once
// An error message over a frame's window, with an OK button; returns once the user closed it.

#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include <string>

namespace orv::extension {

void showErrorBox(const css::uno::Reference<css::uno::XComponentContext>& context,
                  const css::uno::Reference<css::frame::XFrame>& frame, const std::string& title,
                  const std::string& message);

}  // namespace orv::extension
