#pragma once
// The application of the live host: the office documents the session has open as workbooks,
// the active one, the office's worksheet functions and the screen-updating flag.
//
// The add-in workbook "Orvella.xla" with its sheet "Results" is a hidden document of the session,
// made at construction, never saved, never shown, and closed with the application. Its cells'
// default font is 11 points, the size the in-memory host's cells have, so that a pasted results
// block carries the same formats on both hosts. User workbooks are the documents handed to
// openWorkbook; the active workbook is the one opened or activated last, the add-in workbook
// only while no other is open.
//
// The component's calls are buffered (calc_worksheet.h). finishCall() sends everything pending,
// brings the charts up to date and turns screen updating back on, as the spreadsheet does when a
// macro ends: call it after Results, before the document is saved or shown.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "calc/calc_functions.h"
#include "calc/calc_workbook.h"
#include "calc/office_services.h"
#include "frame/host.h"

namespace orv::calc {

inline constexpr std::string_view kAddInWorkbookName = "Orvella.xla";
inline constexpr std::string_view kResultsSheetName = "Results";

class CalcApplication final : public Application {
 public:
  // `context` is the office's component context, remote or the office's own.
  explicit CalcApplication(Reference<css::uno::XComponentContext> context);
  ~CalcApplication() override;
  CalcApplication(const CalcApplication&) = delete;
  CalcApplication& operator=(const CalcApplication&) = delete;

  CalcWorkbook& Workbooks(std::string_view name) override;
  CalcWorkbook& ActiveWorkbook() override { return *active_; }
  CalcWorksheet& ActiveSheet() override;
  CalcWorksheet& AddWorksheet() override;
  WorksheetFunction& worksheetFunction() override { return *functions_; }

  bool ScreenUpdating() const override { return screenUpdating_; }
  void SetScreenUpdating(bool on) override;

  // A user workbook over an open document, named `name` (a file name, "data.xlsx"), made the
  // active workbook. A name already open is a host failure (1004).
  CalcWorkbook& openWorkbook(Reference<css::lang::XComponent> document, std::string name);
  CalcWorkbook& addInWorkbook() { return *workbooks_.front(); }
  // Called by CalcWorkbook::Activate.
  void activateWorkbook(CalcWorkbook& workbook);

  void finishCall();

  const Reference<css::uno::XComponentContext>& context() const { return context_; }

 private:
  Reference<css::uno::XComponentContext> context_;
  std::vector<std::unique_ptr<CalcWorkbook>> workbooks_;
  CalcWorkbook* active_ = nullptr;
  std::unique_ptr<CalcWorksheetFunctions> functions_;
  bool screenUpdating_ = true;
  // Documents whose views were locked while screen updating was off.
  std::vector<CalcWorkbook*> locked_;
};

}  // namespace orv::calc
