#include "cli/input_checks.h"

#include <fmt/format.h>

#include <optional>

#include "cli/column_messages.h"
#include "cli/used_cells.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/reference.h"
#include "workbook/in_memory_workbook.h"
#include "xlsx/reader_workbook.h"

namespace orv::cli {
namespace {

// "1 cell is", "3 cells are".
std::string counted(std::size_t n, const std::string& one, const std::string& many) {
  return std::to_string(n) + " " + (n == 1 ? one : many);
}

std::optional<Range> resolved(Application& app, const std::string& reference) {
  try {
    return app.ResolveRange(usedCells(app, reference));
  } catch (const ComponentError&) {
    return std::nullopt;
  }
}

// The cells of one variable of an area along the variable: its rows, or its columns with --rows.
std::int32_t lengthOf(const CellBlock& area, bool rows) { return rows ? area.columns() : area.rows(); }

void refuseHeaderOnly(const Range& range, const DataRange& given, bool rows) {
  for (const CellBlock& area : range.areas()) {
    if (lengthOf(area, rows) >= 2) continue;
    throw InputRefused(
        fmt::format("{} \"{}\" has no data {} its header {}: with --headers its first {} holds names, which leaves "
                    "nothing to analyse; include the data in {}, or leave out --headers",
                    given.flag, given.reference, rows ? "right of" : "below", rows ? "column" : "row",
                    rows ? "column" : "row", given.flag));
  }
}

void noteNumericHeaders(const Range& range, bool rows, std::vector<std::string>& warnings) {
  std::size_t count = 0;
  std::string first;
  for (const CellBlock& area : range.areas()) {
    const std::int32_t variables = rows ? area.rows() : area.columns();
    for (std::int32_t v = 0; v < variables; ++v) {
      const std::int32_t row = rows ? area.top + v : area.top;
      const std::int32_t column = rows ? area.left : area.left + v;
      const CellValue value = range.Parent().cellValue(row, column);
      if (!value.isNumber()) continue;
      if (count++ == 0) first = cellName(range, row, column) + " holds the number " + toText(value);
    }
  }
  if (count == 0) return;
  const std::string what = count == 1 ? "the header cell " + first + ", not a name"
                                      : counted(count, "", "header cells") + " of " + range.AddressWithSheet() +
                                            " hold numbers (the first, " + first + "), not names";
  warnings.push_back(what + "; is the first " + (rows ? "column" : "row") + " data? (leave out --headers if so)");
}

const SheetNotes* notesOf(const LoadedWorkbook& loaded, const Range& range) {
  for (std::int32_t i = 1; i <= loaded.book.WorksheetsCount(); ++i) {
    if (&loaded.book.Worksheets(i) != &range.Parent()) continue;
    const auto index = static_cast<std::size_t>(i - 1);
    return index < loaded.info.sheetNotes.size() ? &loaded.info.sheetNotes[index] : nullptr;
  }
  return nullptr;
}

// How many of `cells` lie in the range (below the header cells when `skipHeaders`), and the first.
std::size_t countInside(const std::vector<SheetNotes::Cell>& cells, const Range& range, bool skipHeaders, bool rows,
                        std::optional<SheetNotes::Cell>& first) {
  std::size_t count = 0;
  for (const SheetNotes::Cell& cell : cells) {
    for (CellBlock area : range.areas()) {
      if (skipHeaders) (rows ? area.left : area.top) += 1;
      if (!area.contains(cell.row, cell.column)) continue;
      if (count++ == 0) first = cell;
      break;
    }
  }
  return count;
}

void noteReadCells(const LoadedWorkbook& loaded, const Range& range, const AnalysisRequest& request,
                   std::vector<std::string>& warnings) {
  const SheetNotes* notes = notesOf(loaded, range);
  if (notes == nullptr) return;
  std::optional<SheetNotes::Cell> first;
  if (const std::size_t n = countInside(notes->formulasWithoutValue, range, false, request.rows, first)) {
    warnings.push_back(
        fmt::format("{} in {} {} no saved value and {} read as empty (the first, {}): the file was saved by a program "
                    "that does not calculate formulas; open it in a spreadsheet program, save it, and run again",
                    counted(n, "formula cell", "formula cells"), range.AddressWithSheet(), n == 1 ? "has" : "have",
                    n == 1 ? "is" : "are", cellName(range, first->row, first->column)));
  }
  if (const std::size_t n = countInside(notes->dateCells, range, request.headers, request.rows, first)) {
    warnings.push_back(
        fmt::format("{} in {} {} formatted as dates or times (the first, {}) and {} analysed as "
                    "serial day numbers",
                    counted(n, "cell", "cells"), range.AddressWithSheet(), n == 1 ? "is" : "are",
                    cellName(range, first->row, first->column), n == 1 ? "is" : "are"));
  }
}

}  // namespace

void inspectInputs(Application& app, const LoadedWorkbook* loaded, const AnalysisRequest& request,
                   std::vector<std::string>& warnings) {
  for (const DataRange& given : request.ranges) {
    if (given.reference.empty()) continue;
    const std::optional<Range> range = resolved(app, given.reference);
    if (!range) continue;
    if (request.headers) {
      refuseHeaderOnly(*range, given, request.rows);
      noteNumericHeaders(*range, request.rows, warnings);
    }
    if (loaded != nullptr) noteReadCells(*loaded, *range, request, warnings);
  }
}

}  // namespace orv::cli
