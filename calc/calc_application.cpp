#include "calc/calc_application.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/util/XCloseable.hpp>

#include "frame/errors.h"

namespace orv::calc {
namespace {

using css::uno::UNO_QUERY_THROW;

// The cells of the in-memory host have an 11-point font by default.
constexpr float kDefaultFontSize = 11;

// The add-in document: its one sheet renamed "Results", its default cell style at the font size
// the component's model has.
Reference<css::lang::XComponent> addInDocument(const Reference<css::uno::XComponentContext>& context) {
  Reference<css::lang::XComponent> document = newHiddenSpreadsheet(context);
  remote("prepare the add-in workbook", [&] {
    const Reference<css::sheet::XSpreadsheetDocument> spreadsheet(document, UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> sheets(spreadsheet->getSheets(), UNO_QUERY_THROW);
    Reference<css::container::XNamed>(sheets->getByIndex(0), UNO_QUERY_THROW)->setName(toUno(kResultsSheetName));
    const Reference<css::style::XStyleFamiliesSupplier> styles(document, UNO_QUERY_THROW);
    const Reference<css::container::XNameAccess> cellStyles(styles->getStyleFamilies()->getByName("CellStyles"),
                                                            UNO_QUERY_THROW);
    const Reference<css::beans::XPropertySet> standard(cellStyles->getByName("Default"), UNO_QUERY_THROW);
    standard->setPropertyValue("CharHeight", css::uno::Any(kDefaultFontSize));
  });
  return document;
}

}  // namespace

CalcApplication::CalcApplication(Reference<css::uno::XComponentContext> context) : context_(std::move(context)) {
  functions_ = std::make_unique<CalcWorksheetFunctions>(Reference<css::sheet::XFunctionAccess>(
      createService(context_, "com.sun.star.sheet.FunctionAccess"), UNO_QUERY_THROW));
  workbooks_.push_back(
      std::make_unique<CalcWorkbook>(*this, addInDocument(context_), std::string(kAddInWorkbookName), true));
  active_ = workbooks_.back().get();
}

// The add-in document belongs to the session and goes with it; user documents belong to whoever
// opened them. Nothing here may throw: the office may already be gone.
CalcApplication::~CalcApplication() {
  try {
    SetScreenUpdating(true);
    const Reference<css::util::XCloseable> closeable(workbooks_.front()->component(), UNO_QUERY_THROW);
    workbooks_.clear();
    closeable->close(true);
  } catch (...) {
  }
}

CalcWorkbook& CalcApplication::Workbooks(std::string_view name) {
  for (const auto& book : workbooks_) {
    if (sameSheetName(book->Name(), name)) return *book;
  }
  raise(err::kSubscriptOutOfRange);
}

CalcWorksheet& CalcApplication::ActiveSheet() {
  CalcWorksheet* sheet = active_->activeSheet();
  if (sheet == nullptr) raise(91, "Object variable or With block variable not set");
  return *sheet;
}

CalcWorksheet& CalcApplication::AddWorksheet() { return active_->addNewSheet(); }

// The component turns screen updating off before drawing and never back on; the office's view
// of the document stays locked until finishCall.
void CalcApplication::SetScreenUpdating(bool on) {
  if (on == screenUpdating_) return;
  screenUpdating_ = on;
  remote("lock or unlock the document's view", [&] {
    if (!on) {
      const Reference<css::frame::XModel> model(active_->component(), UNO_QUERY_THROW);
      model->lockControllers();
      locked_.push_back(active_);
      return;
    }
    for (CalcWorkbook* book : locked_) {
      Reference<css::frame::XModel>(book->component(), UNO_QUERY_THROW)->unlockControllers();
    }
    locked_.clear();
  });
}

CalcWorkbook& CalcApplication::openWorkbook(Reference<css::lang::XComponent> document, std::string name) {
  for (const auto& book : workbooks_) {
    if (sameSheetName(book->Name(), name)) raiseHost("A workbook named \"" + name + "\" is already open");
  }
  workbooks_.push_back(std::make_unique<CalcWorkbook>(*this, std::move(document), std::move(name), false));
  active_ = workbooks_.back().get();
  return *active_;
}

void CalcApplication::activateWorkbook(CalcWorkbook& workbook) {
  if (workbook.isAddIn() && workbooks_.size() > 1) return;
  active_ = &workbook;
}

void CalcApplication::finishCall() {
  for (const auto& book : workbooks_) book->flush();
  SetScreenUpdating(true);
}

}  // namespace orv::calc
