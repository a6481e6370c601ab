#pragma once
// A workbook of the live host: an office spreadsheet document, its sheets in the document's
// order, one of them active.
//
// The host keeps the list and the active sheet itself and tells the office of every change (the
// document's view shows the active sheet and the selection, and a saved file keeps them). New
// sheets from Worksheets.Add are named as in the in-memory host, "Sheet" + n with n counting on
// from the highest "SheetN" the workbook has held, and stand before the active sheet.
//
// Sheets the host keeps for itself (the hidden sheet of chart data, chart_data_sheet.h) are not
// among the workbook's worksheets.

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calc/calc_worksheet.h"
#include "calc/cell_format_properties.h"
#include "frame/host.h"
#include "frame/sheet_name.h"

namespace orv::calc {

class CalcApplication;
class ChartDataSheet;

class CalcWorkbook final : public Workbook {
 public:
  // The document's sheets become the workbook's; the document's active sheet is the active one.
  CalcWorkbook(CalcApplication& application, Reference<css::lang::XComponent> document, std::string name, bool addIn);
  ~CalcWorkbook() override;
  CalcWorkbook(const CalcWorkbook&) = delete;
  CalcWorkbook& operator=(const CalcWorkbook&) = delete;

  std::string Name() const override { return name_; }
  Application& application() override;
  CalcApplication& calcApplication() { return *application_; }
  bool isAddIn() const { return addIn_; }

  std::int32_t WorksheetsCount() const override { return static_cast<std::int32_t>(sheets_.size()); }
  CalcWorksheet& Worksheets(std::int32_t index) override;
  CalcWorksheet& Worksheets(std::string_view name) override;
  void Activate() override;
  // The document's named ranges (NamedRanges of the document, and of each sheet for its own).
  std::optional<std::string> nameReference(std::string_view name, std::string_view sheet,
                                           bool sheetOnly) const override;

  CalcWorksheet* activeSheet() { return active_; }
  void activateSheet(CalcWorksheet& sheet);
  CalcWorksheet& addNewSheet();
  void moveAfter(CalcWorksheet& moved, CalcWorksheet& after);
  // Selects the areas in the document's view.
  void select(CalcWorksheet& sheet, const std::vector<CellBlock>& areas);

  // Sends what every sheet holds pending, and brings the charts up to date.
  void flush();
  // Sends the values every sheet holds pending (what the office's charts and functions read).
  void flushValues();

  const Reference<css::lang::XComponent>& component() const { return component_; }
  const Reference<css::sheet::XSpreadsheetDocument>& document() const { return document_; }
  Reference<css::lang::XMultiServiceFactory> factory() const;
  NumberFormatTable& numberFormats() { return numbers_; }
  ChartDataSheet& chartData();

 private:
  std::vector<std::unique_ptr<CalcWorksheet>>::iterator find(const CalcWorksheet& sheet);
  Reference<css::sheet::XSpreadsheetView> view() const;

  CalcApplication* application_;
  Reference<css::lang::XComponent> component_;
  Reference<css::sheet::XSpreadsheetDocument> document_;
  std::string name_;
  bool addIn_;
  NumberFormatTable numbers_;
  std::vector<std::unique_ptr<CalcWorksheet>> sheets_;
  CalcWorksheet* active_ = nullptr;
  std::int64_t sheetCounter_ = 0;  // the n of the last default name handed out
  std::unique_ptr<ChartDataSheet> chartData_;
};

}  // namespace orv::calc
