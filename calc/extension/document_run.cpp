#include "calc/extension/document_run.h"

#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/frame/XTitle.hpp>

#include <mutex>
#include <optional>

#include "calc/calc_application.h"
#include "support/host_session.h"

namespace orv::extension {
namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY;

std::mutex runLock;

// The workbook's name: the document's title ("data.xlsx", "Untitled 1").
std::string titleOf(const Reference<css::frame::XModel>& document) {
  const Reference<css::frame::XTitle> titled(document, UNO_QUERY);
  const std::string title = titled.is() ? calc::fromUno(titled->getTitle()) : std::string();
  return title.empty() ? "Book1" : title;
}

// Everything the run does to the document, as one undo action.
class UndoStep {
 public:
  UndoStep(const Reference<css::frame::XModel>& document, std::string_view title) {
    const Reference<css::document::XUndoManagerSupplier> supplier(document, UNO_QUERY);
    if (supplier.is()) manager_ = supplier->getUndoManager();
    if (manager_.is()) manager_->enterUndoContext(calc::toUno(title));
  }
  ~UndoStep() {
    try {
      if (manager_.is()) manager_->leaveUndoContext();
    } catch (const css::uno::Exception&) {
      // The document went away during the run: nothing left to undo.
    }
  }
  UndoStep(const UndoStep&) = delete;
  UndoStep& operator=(const UndoStep&) = delete;

 private:
  Reference<css::document::XUndoManager> manager_;
};

class HostAttachment {
 public:
  explicit HostAttachment(Application& app) { HostSession::Attach(&app); }
  ~HostAttachment() { HostSession::Attach(nullptr); }
  HostAttachment(const HostAttachment&) = delete;
  HostAttachment& operator=(const HostAttachment&) = delete;
};

RunOutcome runAttached(const Reference<css::uno::XComponentContext>& context,
                       const Reference<css::frame::XModel>& document, Command command, const OptionValues& values) {
  calc::CalcApplication app(context);
  app.openWorkbook(Reference<css::lang::XComponent>(document, css::uno::UNO_QUERY_THROW), titleOf(document));
  RunOutcome outcome;
  {
    HostAttachment attached(app);
    outcome = runCommand(command, values);
  }
  app.finishCall();
  return outcome;
}

}  // namespace

RunOutcome runOnDocument(const Reference<css::uno::XComponentContext>& context,
                         const Reference<css::frame::XModel>& document, Command command, const OptionValues& values) {
  const std::unique_lock lock(runLock, std::try_to_lock);
  if (!lock.owns_lock()) {
    return {false, "Another Orvella command is still running; try again when it has finished.", {}};
  }
  const UndoStep undo(document, commandInfo(command).title);
  try {
    return runAttached(context, document, command, values);
  } catch (const ComponentError& e) {
    // The host itself failed (the office refused a call), outside the analysis.
    return {false, e.description(), {}};
  }
}

}  // namespace orv::extension
