#include "calc/extension/protocol_handler.h"

#include <com/sun/star/frame/DispatchResultState.hpp>
#include <com/sun/star/frame/FeatureStateEvent.hpp>
#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/frame/XDispatchResultListener.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStatusListener.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <cppuhelper/supportsservice.hxx>

#include <optional>
#include <string>
#include <vector>

#include "calc/extension/dispatch_arguments.h"
#include "calc/extension/document_run.h"
#include "calc/extension/extension_identity.h"
#include "calc/extension/message_box.h"
#include "calc/extension/options_dialog.h"
#include "calc/extension/selection_reference.h"
#include "calc/extension/uno_arguments.h"
#include "calc/uno_support.h"

namespace orv::extension {

using ::rtl::OUString;

namespace {

using css::frame::DispatchResultState::DONTKNOW;
using css::frame::DispatchResultState::FAILURE;
using css::frame::DispatchResultState::SUCCESS;
using css::uno::Reference;
using css::uno::UNO_QUERY;

// How a dispatch ended: a DispatchResultState and the texts given as its result (protocol_handler.h).
struct Finish {
  sal_Int16 state;
  std::vector<std::string> texts;
};

Finish failure(std::string text) { return {FAILURE, {std::move(text)}}; }

Finish finishOf(const RunOutcome& outcome) {
  if (!outcome.succeeded) return failure(outcome.text);
  Finish done{SUCCESS, {outcome.text}};
  done.texts.insert(done.texts.end(), outcome.notes.begin(), outcome.notes.end());
  return done;
}

// The notes of a run, one paragraph each.
std::string paragraphs(const std::vector<std::string>& notes) {
  std::string text;
  for (const std::string& note : notes) text += (text.empty() ? "" : "\n\n") + note;
  return text;
}

css::uno::Sequence<OUString> unoTexts(const std::vector<std::string>& texts) {
  css::uno::Sequence<OUString> out(static_cast<sal_Int32>(texts.size()));
  for (std::size_t i = 0; i < texts.size(); ++i) out.getArray()[i] = calc::toUno(texts[i]);
  return out;
}

// "vnd.orvella:Describe" -> "Describe"; anything after a "?" is no part of the command.
std::optional<std::string> commandPath(const css::util::URL& url) {
  const std::string complete = calc::fromUno(url.Complete);
  if (!complete.starts_with(kProtocol)) return std::nullopt;
  const std::string rest = complete.substr(kProtocol.size());
  return rest.substr(0, rest.find('?'));
}

Finish throughDialog(const Reference<css::uno::XComponentContext>& context, const Reference<css::frame::XFrame>& frame,
                     const Reference<css::frame::XModel>& document, const CommandInfo& command) {
  OptionsDialog dialog(context, frame, command);
  OptionValues values = initialValues(command);
  values["InputRange"] = selectionReference(document);
  dialog.fill(values);
  while (dialog.execute()) {
    const RunOutcome outcome = runOnDocument(context, document, command.command, dialog.values());
    if (outcome.succeeded) {
      if (!outcome.notes.empty()) showInfoBox(context, frame, std::string(command.title), paragraphs(outcome.notes));
      return finishOf(outcome);
    }
    showErrorBox(context, frame, std::string(command.title), outcome.text);
  }
  return {DONTKNOW, {}};
}

Finish handle(const Reference<css::uno::XComponentContext>& context, const Reference<css::frame::XFrame>& frame,
              const css::util::URL& url, const css::uno::Sequence<css::beans::PropertyValue>& arguments) {
  const std::string path = commandPath(url).value_or(calc::fromUno(url.Complete));
  const std::optional<Command> command = commandNamed(path);
  if (!command) {
    return failure("vnd.orvella: has no command \"" + path + "\"; its commands are Describe, Circular and Frequency.");
  }
  const CommandInfo& info = commandInfo(*command);
  const Reference<css::frame::XController> controller = frame.is() ? frame->getController() : nullptr;
  const Reference<css::frame::XModel> document = controller.is() ? controller->getModel() : nullptr;
  if (!Reference<css::sheet::XSpreadsheetDocument>(document, UNO_QUERY).is()) {
    return failure("vnd.orvella:" + path + " works on a spreadsheet document, and the window it was given shows none.");
  }
  const std::vector<Argument> given = withoutFrameArguments(argumentsOf(arguments));
  if (given.empty()) return throughDialog(context, frame, document, info);
  try {
    return finishOf(runOnDocument(context, document, *command, optionValuesOf(info, given)));
  } catch (const ArgumentError& e) {
    return failure(e.what());
  }
}

}  // namespace

ProtocolHandler::ProtocolHandler(Reference<css::uno::XComponentContext> context) : context_(std::move(context)) {}

OUString ProtocolHandler::implementationName() { return calc::toUno(kImplementationName); }

css::uno::Sequence<OUString> ProtocolHandler::serviceNames() {
  const OUString name("com.sun.star.frame.ProtocolHandler");
  return css::uno::Sequence<OUString>(&name, 1);
}

void ProtocolHandler::initialize(const css::uno::Sequence<css::uno::Any>& arguments) {
  for (const css::uno::Any& a : arguments) {
    if (const Reference<css::frame::XFrame> frame(a, UNO_QUERY); frame.is()) frame_ = frame;
  }
}

Reference<css::frame::XDispatch> ProtocolHandler::queryDispatch(const css::util::URL& url, const OUString&, sal_Int32) {
  const std::optional<std::string> path = commandPath(url);
  if (!path || !commandNamed(*path)) return nullptr;
  return this;
}

css::uno::Sequence<Reference<css::frame::XDispatch>> ProtocolHandler::queryDispatches(
    const css::uno::Sequence<css::frame::DispatchDescriptor>& requests) {
  css::uno::Sequence<Reference<css::frame::XDispatch>> dispatches(requests.getLength());
  for (sal_Int32 i = 0; i < requests.getLength(); ++i) {
    dispatches.getArray()[i] = queryDispatch(requests[i].FeatureURL, requests[i].FrameName, requests[i].SearchFlags);
  }
  return dispatches;
}

void ProtocolHandler::dispatch(const css::util::URL& url,
                               const css::uno::Sequence<css::beans::PropertyValue>& arguments) {
  dispatchWithNotification(url, arguments, nullptr);
}

// The menu asks whether its entries are enabled; the commands always are (a document that is no
// spreadsheet never shows them).
void ProtocolHandler::addStatusListener(const Reference<css::frame::XStatusListener>& listener,
                                        const css::util::URL& url) {
  if (!listener.is()) return;
  css::frame::FeatureStateEvent state;
  state.Source = static_cast<cppu::OWeakObject*>(this);
  state.FeatureURL = url;
  state.IsEnabled = true;
  listener->statusChanged(state);
}

void ProtocolHandler::removeStatusListener(const Reference<css::frame::XStatusListener>&, const css::util::URL&) {}

void ProtocolHandler::dispatchWithNotification(const css::util::URL& url,
                                               const css::uno::Sequence<css::beans::PropertyValue>& arguments,
                                               const Reference<css::frame::XDispatchResultListener>& listener) {
  // Keeps this handler alive until the listener has heard the end, whoever else lets go of it.
  const Reference<css::frame::XNotifyingDispatch> self(this);
  Finish finish{FAILURE, {}};
  try {
    finish = handle(context_, Reference<css::frame::XFrame>(frame_), url, arguments);
  } catch (const css::uno::Exception& e) {
    finish = failure("The office refused the command: " + calc::fromUno(e.Message));
  } catch (const std::exception& e) {
    finish = failure(e.what());
  } catch (...) {
    finish = failure("The command failed for an unknown reason.");
  }
  if (!listener.is()) return;
  css::frame::DispatchResultEvent event;
  event.Source = static_cast<cppu::OWeakObject*>(this);
  event.State = finish.state;
  event.Result <<= unoTexts(finish.texts);
  listener->dispatchFinished(event);
}

OUString ProtocolHandler::getImplementationName() { return implementationName(); }

sal_Bool ProtocolHandler::supportsService(const OUString& name) { return cppu::supportsService(this, name); }

css::uno::Sequence<OUString> ProtocolHandler::getSupportedServiceNames() { return serviceNames(); }

}  // namespace orv::extension
