#pragma once
// The spreadsheet host as the component sees it. A host (the in-memory workbook model, or a live
// spreadsheet) implements only these primitives; Range and reference resolution are built on
// them in frame/ once for all hosts.
//
// Threads: every host object (the application, workbooks, worksheets, the ranges on them, the
// charts, the worksheet functions) is touched only by the thread that called Results. A live
// spreadsheet's object model is not thread-safe, so the drivers read each column's values on that
// thread and hand helper threads plain arrays. The one exception is the distribution functions
// of WorksheetFunction, when the host declares them callable from any thread
// (DistributionFunctions::callableFromAnyThread); otherwise the drivers compute column by column
// on the calling thread.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/cell_format.h"
#include "frame/cell_value.h"
#include "frame/distribution_functions.h"
#include "frame/range.h"
#include "frame/reference.h"
#include "frame/value_array.h"

namespace orv {

class Application;
class ChartObjects;
class Shape;
class Workbook;

class Worksheet {
 public:
  virtual ~Worksheet() = default;

  virtual std::string Name() const = 0;
  virtual Workbook& Parent() = 0;

  virtual CellValue cellValue(std::int32_t row, std::int32_t column) const = 0;
  // Assignment as a program assigns: a text that reads as a plain number is stored as that number.
  virtual void assignValue(std::int32_t row, std::int32_t column, const CellValue& value) = 0;
  // Stores a value as it stands (a pasted text stays a text).
  virtual void pasteValue(std::int32_t row, std::int32_t column, const CellValue& value) = 0;
  // Fills `out`, sized block.rows() x block.columns(), with the block's values.
  virtual void readBlock(const CellBlock& block, ValueArray2D& out) const = 0;

  virtual CellFormat cellFormat(std::int32_t row, std::int32_t column) const = 0;
  virtual void setCellFormat(std::int32_t row, std::int32_t column, const CellFormat& format) = 0;
  virtual void applyFormat(const CellBlock& block, const FormatPatch& patch) = 0;
  // Removes values and formats of the block.
  virtual void clear(const CellBlock& block) = 0;
  // The smallest block that holds every non-empty cell; none for an empty sheet.
  virtual std::optional<CellBlock> usedBlock() const = 0;

  // Geometry in points: the top edge of a row below the top of row 1, the left edge of a column.
  virtual double rowTop(std::int32_t row) const = 0;
  virtual double columnLeft(std::int32_t column) const = 0;
  virtual double rowHeight(std::int32_t row) const = 0;
  virtual double columnWidth(std::int32_t column) const = 0;
  // Whether a column has a width of its own (given by a file, a person or a program) rather than
  // the sheet's default one.
  virtual bool columnWidthSet(std::int32_t column) const = 0;
  // A width of its own for a column, in points (0 hides it); negative or not finite is a host
  // failure.
  virtual void setColumnWidth(std::int32_t column, double points) = 0;

  virtual void Activate() = 0;
  // Worksheet.Move After:=sheet, within the sheet's own workbook.
  virtual void MoveAfter(Worksheet& sheet) = 0;
  virtual void select(const std::vector<CellBlock>& areas) = 0;

  // Worksheet.ChartObjects (frame/chart.h), and Worksheet.Shapes(name) for the drawing objects by
  // name; a name the sheet does not have is a host failure (1004).
  virtual ChartObjects& chartObjects() = 0;
  virtual Shape& shapes(std::string_view name) = 0;
};

class Workbook {
 public:
  virtual ~Workbook() = default;

  virtual std::string Name() const = 0;
  virtual Application& application() = 0;
  virtual std::int32_t WorksheetsCount() const = 0;
  // 1-based; "Subscript out of range" (9) when there is no such sheet.
  virtual Worksheet& Worksheets(std::int32_t index) = 0;
  // By name, case-insensitively; "Subscript out of range" (9) when there is none.
  virtual Worksheet& Worksheets(std::string_view name) = 0;
  virtual void Activate() = 0;

  // Workbook.Names: the reference a defined name stands for ("Data!$A$1:$C$13", no leading "="),
  // as the workbook keeps it. The sheet-level name of the sheet named `sheet` comes first, then
  // the workbook-level name, unless `sheetOnly`; names compare without case
  // (frame/defined_name.h). None when there is no such name; a host that keeps no names has none.
  virtual std::optional<std::string> nameReference(std::string_view name, std::string_view sheet,
                                                   bool sheetOnly) const {
    (void)name, (void)sheet, (void)sheetOnly;
    return std::nullopt;
  }
};

// Numerical services of the host: TInv, NormDist and ChiInv (distribution_functions.h), and Min
// and Max of a range. Arguments follow the spreadsheet functions' rules; a violation is a host
// failure (1004) such as "Unable to get the TInv property of the WorksheetFunction class".
class WorksheetFunction : public DistributionFunctions {
 public:
  // Smallest and largest number in a range, texts, Booleans and empty cells ignored; 0 when there
  // is none. An error value in the range is a host failure.
  virtual double Min(const Range& range) = 0;
  virtual double Max(const Range& range) = 0;
};

class Application {
 public:
  virtual ~Application() = default;

  // An open workbook by name (case-insensitive); "Subscript out of range" (9) when none is open.
  virtual Workbook& Workbooks(std::string_view name) = 0;
  virtual Workbook& ActiveWorkbook() = 0;
  virtual Worksheet& ActiveSheet() = 0;
  // Worksheets.Add: a new sheet in the active workbook, before the active sheet, named as the
  // host names new sheets; it becomes the active sheet.
  virtual Worksheet& AddWorksheet() = 0;
  virtual WorksheetFunction& worksheetFunction() = 0;

  virtual bool ScreenUpdating() const = 0;
  virtual void SetScreenUpdating(bool on) = 0;

  // Application.Range(text): resolves a reference on the active sheet, or on the named sheet of
  // the active workbook, or a name the active workbook defines (frame/defined_name.h). A text
  // that is neither, or names no sheet of the active workbook, is a host failure (1004) whose
  // description quotes the text.
  Range ResolveRange(std::string_view reference);

  // The clipboard that Range::Copy fills and Range::PasteSpecial reads.
  const std::optional<Range>& clipboard() const { return clipboard_; }
  void setClipboard(std::optional<Range> range) { clipboard_ = std::move(range); }

 private:
  std::optional<Range> resolveName(std::string_view reference);

  std::optional<Range> clipboard_;
};

}  // namespace orv
