#include "calc/extension/message_box.h"

#include <com/sun/star/awt/MessageBoxButtons.hpp>
#include <com/sun/star/awt/MessageBoxType.hpp>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XMessageBox.hpp>
#include <com/sun/star/awt/XMessageBoxFactory.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>

#include "calc/uno_support.h"

namespace orv::extension {
namespace {

void showBox(const css::uno::Reference<css::uno::XComponentContext>& context,
             const css::uno::Reference<css::frame::XFrame>& frame, css::awt::MessageBoxType type,
             const std::string& title, const std::string& message) {
  const css::uno::Reference<css::awt::XMessageBoxFactory> factory(css::awt::Toolkit::create(context),
                                                                  css::uno::UNO_QUERY_THROW);
  const css::uno::Reference<css::awt::XWindowPeer> parent(frame->getContainerWindow(), css::uno::UNO_QUERY_THROW);
  const css::uno::Reference<css::awt::XMessageBox> box = factory->createMessageBox(
      parent, type, css::awt::MessageBoxButtons::BUTTONS_OK, calc::toUno(title), calc::toUno(message));
  box->execute();
}

}  // namespace

void showErrorBox(const css::uno::Reference<css::uno::XComponentContext>& context,
                  const css::uno::Reference<css::frame::XFrame>& frame, const std::string& title,
                  const std::string& message) {
  showBox(context, frame, css::awt::MessageBoxType_ERRORBOX, title, message);
}

void showInfoBox(const css::uno::Reference<css::uno::XComponentContext>& context,
                 const css::uno::Reference<css::frame::XFrame>& frame, const std::string& title,
                 const std::string& message) {
  showBox(context, frame, css::awt::MessageBoxType_INFOBOX, title, message);
}

}  // namespace orv::extension
