#include "xlsx/writer_sheet.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

#include "frame/reference.h"
#include "frame/work_progress.h"
#include "workbook/in_memory_worksheet.h"
#include "xlsx/column_width.h"
#include "xlsx/writer_cell.h"
#include "xlsx/writer_styles.h"
#include "xlsx/writer_xml.h"

namespace orv {
namespace {

struct Cell {
  std::int32_t row;
  std::int32_t column;
  CellValue value;
  std::uint32_t style;
};

struct ColumnRun {
  std::int32_t first;
  std::int32_t last;
  std::optional<double> width;  // points, when custom
  std::uint32_t style;
};

std::string relativeAddress(const CellBlock& b) {
  std::string out = xml::cellName(b.top, b.left);
  if (b.rows() > 1 || b.columns() > 1) out += ":" + xml::cellName(b.bottom, b.right);
  return out;
}

// Style of a cell that has no format of its own.
class Fallbacks {
 public:
  Fallbacks(const InMemoryWorksheet& sheet, StyleSheet& styles)
      : sheetDefault_(styles.xfFor(sheet.formats().sheetDefault())) {
    sheet.formats().forEachColumnFormat(
        [&](std::int32_t column, const CellFormat& f) { columns_.emplace(column, styles.xfFor(f)); });
  }
  std::uint32_t of(std::int32_t column) const {
    const auto found = columns_.find(column);
    return found == columns_.end() ? sheetDefault_ : found->second;
  }
  std::uint32_t sheetDefault() const { return sheetDefault_; }
  const std::map<std::int32_t, std::uint32_t>& columns() const { return columns_; }

 private:
  std::uint32_t sheetDefault_;
  std::map<std::int32_t, std::uint32_t> columns_;
};

std::vector<Cell> collectCells(const InMemoryWorksheet& sheet, StyleSheet& styles, const Fallbacks& fallbacks) {
  std::vector<Cell> cells;
  if (const auto used = sheet.usedBlock()) {
    ValueArray2D column;
    for (std::int32_t c = used->left; c <= used->right; ++c) {
      // One column at a time keeps the copy small for long data columns.
      sheet.readBlock(CellBlock{used->top, c, used->bottom, c}, column);
      for (std::int32_t i = 1; i <= column.rows(); ++i) {
        CellValue& value = column(i, 1);
        if (value.isEmpty()) continue;
        const std::int32_t row = used->top + i - 1;
        cells.push_back({row, c, std::move(value), styles.xfFor(sheet.cellFormat(row, c))});
      }
    }
  }
  // Styled blanks: cells whose own format differs from what their column gives them.
  sheet.formats().forEachCellFormat([&](std::int32_t row, std::int32_t column, const CellFormat& f) {
    if (!sheet.cellValue(row, column).isEmpty()) return;
    const std::uint32_t style = styles.xfFor(f);
    if (style != fallbacks.of(column)) cells.push_back({row, column, CellValue{}, style});
  });
  std::sort(cells.begin(), cells.end(),
            [](const Cell& a, const Cell& b) { return std::tie(a.row, a.column) < std::tie(b.row, b.column); });
  return cells;
}

std::vector<ColumnRun> columnRuns(const InMemoryWorksheet& sheet, const Fallbacks& fallbacks) {
  std::map<std::int32_t, ColumnRun> special;
  for (const auto& [column, points] : sheet.geometry().customColumnWidths()) {
    special[column] = {column, column, points, fallbacks.of(column)};
  }
  for (const auto& [column, style] : fallbacks.columns()) {
    auto [it, inserted] = special.try_emplace(column, ColumnRun{column, column, std::nullopt, style});
    it->second.style = style;
  }
  std::vector<ColumnRun> runs;
  std::int32_t next = 1;
  const bool fillGaps = fallbacks.sheetDefault() != 0;
  for (const auto& [column, run] : special) {
    if (fillGaps && column > next) runs.push_back({next, column - 1, std::nullopt, fallbacks.sheetDefault()});
    runs.push_back(run);
    next = column + 1;
  }
  if (fillGaps && next <= kMaxColumns) runs.push_back({next, kMaxColumns, std::nullopt, fallbacks.sheetDefault()});

  std::vector<ColumnRun> merged;
  for (const ColumnRun& run : runs) {
    if (!merged.empty() && merged.back().last + 1 == run.first && merged.back().width == run.width &&
        merged.back().style == run.style) {
      merged.back().last = run.last;
    } else {
      merged.push_back(run);
    }
  }
  return merged;
}

std::string colsXml(const InMemoryWorksheet& sheet, const Fallbacks& fallbacks) {
  const std::vector<ColumnRun> runs = columnRuns(sheet, fallbacks);
  if (runs.empty()) return {};
  std::string out = "<cols>";
  for (const ColumnRun& run : runs) {
    const double points = run.width.value_or(sheet.geometry().defaultColumnWidth());
    out += "<col min=\"" + std::to_string(run.first) + "\" max=\"" + std::to_string(run.last) + "\" width=\"" +
           xml::number(columnWidthCharacters(points)) + "\"";
    if (run.style != 0) out += " style=\"" + std::to_string(run.style) + "\"";
    if (points == 0.0) out += " hidden=\"1\"";
    if (run.width) out += " customWidth=\"1\"";
    out += "/>";
  }
  return out + "</cols>";
}

std::string rowOpen(std::int32_t row, const std::map<std::int32_t, double>& heights) {
  std::string out = "<row r=\"" + std::to_string(row) + "\"";
  if (const auto h = heights.find(row); h != heights.end()) {
    out += " ht=\"" + xml::number(h->second) + "\" customHeight=\"1\"";
    if (h->second == 0.0) out += " hidden=\"1\"";
  }
  return out + ">";
}

// Cells between two reports of the writing's progress (frame/work_progress.h).
constexpr std::size_t kCellsPerReport = std::size_t{1} << 16;

void appendSheetData(std::string& out, const std::vector<Cell>& cells, const std::map<std::int32_t, double>& heights) {
  out += "<sheetData>";
  std::size_t nextReport = kCellsPerReport;
  auto cell = cells.begin();
  auto height = heights.begin();
  while (cell != cells.end() || height != heights.end()) {
    const std::int32_t row = std::min(cell != cells.end() ? cell->row : kMaxRows + 1,
                                      height != heights.end() ? height->first : kMaxRows + 1);
    out += rowOpen(row, heights);
    for (; cell != cells.end() && cell->row == row; ++cell) {
      appendCellXml(out, cell->row, cell->column, cell->value, cell->style);
    }
    out += "</row>";
    if (height != heights.end() && height->first == row) ++height;
    if (const auto written = static_cast<std::size_t>(cell - cells.begin()); written >= nextReport) {
      reportWork(written, cells.size());
      nextReport = written + kCellsPerReport;
    }
  }
  out += "</sheetData>";
}

std::string sheetViewXml(const InMemoryWorksheet& sheet, bool selected) {
  std::string out = "<sheetViews><sheetView";
  if (selected) out += " tabSelected=\"1\"";
  out += " workbookViewId=\"0\"";
  const std::vector<CellBlock>& selection = sheet.selection();
  if (selection.empty() || (selection.size() == 1 && selection.front() == CellBlock{})) {
    return out + "/></sheetViews>";
  }
  std::string sqref;
  for (const CellBlock& block : selection) sqref += (sqref.empty() ? "" : " ") + relativeAddress(block);
  return out + "><selection activeCell=\"" + xml::cellName(selection.front().top, selection.front().left) +
         "\" sqref=\"" + sqref + "\"/></sheetView></sheetViews>";
}

std::string dimensionXml(const std::vector<Cell>& cells) {
  if (cells.empty()) return "<dimension ref=\"A1\"/>";
  CellBlock box{cells.front().row, cells.front().column, cells.back().row, cells.front().column};
  for (const Cell& c : cells) {
    box.left = std::min(box.left, c.column);
    box.right = std::max(box.right, c.column);
  }
  return "<dimension ref=\"" + relativeAddress(box) + "\"/>";
}

}  // namespace

std::string worksheetXml(const InMemoryWorksheet& sheet, StyleSheet& styles, const SheetPartOptions& options) {
  const Fallbacks fallbacks(sheet, styles);
  const std::vector<Cell> cells = collectCells(sheet, styles, fallbacks);
  const SheetGeometry& geometry = sheet.geometry();

  std::string out = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
                    "\n"
                    R"(<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" )"
                    R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">)";
  out += dimensionXml(cells);
  out += sheetViewXml(sheet, options.tabSelected);
  out += "<sheetFormatPr";
  if (geometry.defaultColumnWidth() != kDefaultColumnWidth) {
    out += " defaultColWidth=\"" + xml::number(columnWidthCharacters(geometry.defaultColumnWidth())) + "\"";
  }
  out += " defaultRowHeight=\"" + xml::number(geometry.defaultRowHeight()) + "\" customHeight=\"1\"/>";
  out += colsXml(sheet, fallbacks);
  // Reserved once rather than regrown, which for a large sheet would briefly hold the XML twice.
  // A cell takes 40 to 50 bytes with its share of the row tags; pages reserved beyond the end
  // are never touched, so erring high costs no memory.
  out.reserve(out.size() + cells.size() * 64 + 4096);
  appendSheetData(out, cells, geometry.customRowHeights());
  out += R"(<pageMargins left="0.7" right="0.7" top="0.75" bottom="0.75" header="0.3" footer="0.3"/>)";
  if (options.drawingRelationshipId) {
    out += "<drawing r:id=\"" + xml::attribute(*options.drawingRelationshipId) + "\"/>";
  }
  out += "</worksheet>";
  return out;
}

}  // namespace orv
