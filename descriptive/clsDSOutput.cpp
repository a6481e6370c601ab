#include "descriptive/clsDSOutput.h"

#include <algorithm>

#include "frame/host.h"
#include "frame/procedure.h"
#include "support/host_session.h"
#include "support/results_sheet.h"

namespace orv {
namespace {
const Procedures kProc{"clsDSOutput"};
}  // namespace

clsDSOutput::clsDSOutput() {
  kProc("Class_Initialize", [&] {
    sheet_ = &clearedResultsSheet(style_.BackgroundColorIndex());
    currentRow_ = 1;
    lastColumn_ = 1;
  });
}

Range clsDSOutput::cells(std::int32_t top, std::int32_t left, std::int32_t bottom,
                         std::int32_t right) const {
  return sheetCells(*sheet_, top, left, bottom, right);
}

void clsDSOutput::OutputHeader(const std::string& xRange, const std::string& comment) {
  kProc("OutputHeader", [&] {
    cell(currentRow_, 1).SetValue("Descriptive Statistics for:");
    cell(currentRow_ + 1, 1).SetValue("Input Range = " + xRange);
    // The heading is always the first thing on the freshly cleared sheet.
    formatter_.EmphasisFormat(cells(1, 1, 2, 1), true);
    currentRow_ += 2;
    if (!comment.empty()) {
      cell(currentRow_, 1).SetValue(comment);
      formatter_.EmphasisFormat(cell(currentRow_, 1), true);
      currentRow_ += 1;
    }
  });
}

void clsDSOutput::OutputMatrix(const Array1D<std::string>& columnNames, const ValueArray2D& matrix,
                               Int16& firstRow) {
  kProc("OutputMatrix", [&] {
    const std::int32_t rows = matrix.rows();
    const std::int32_t columns = matrix.columns();
    const std::int32_t h = currentRow_;
    for (std::int32_t j = 2; j <= columns; ++j) cell(h, j).SetValue(columnNames(j - 1));
    formatter_.LabelFormat(cells(h, 1, h, columns), false);
    firstRow = Int16::from(std::int64_t{h} + 1);
    cells(h + 1, 1, h + rows, columns).SetValues(matrix);
    formatter_.LabelFormat(cells(h + 1, 1, h + rows, 1), true);
    formatter_.ValueFormat(cells(h + 1, 2, h + rows, columns), true);
    currentRow_ = Int32(h) + Int32(rows) + Int32(1);
    if (columns > lastColumn_) lastColumn_ = Int16::from(columns);
  });
}

void clsDSOutput::OutputPlotData(const Array1D<std::string>& names, const ValueArray2D& matrix,
                                 PlotDataRows& rows) {
  kProc("OutputPlotData", [&] {
    const std::int32_t r = matrix.rows();
    const std::int32_t c = matrix.columns();
    const std::int32_t h = currentRow_;
    for (std::int32_t j = 1; j <= c; j += 2) {
      cell(h, j).SetValue(names((j + 1) / 2));
      cell(h + 1, j).SetValue("Sin");
      cell(h + 1, j + 1).SetValue("Cos");
    }
    formatter_.LabelFormat(cells(h, 1, h + 1, c), false);
    const Range values = cells(h + 2, 1, h + 1 + r, c);
    values.SetValues(matrix);
    formatter_.ValueFormat(values, true);
    rows.first = h + 2;
    rows.last = h + 1 + r;
    currentRow_ = Int32(h) + Int32(r) + Int32(2);
    if (c > lastColumn_) lastColumn_ = Int16::from(c);
  });
}

void clsDSOutput::OutputComment(const std::string& comment, std::int16_t numBlankLines,
                                bool heading) {
  kProc("OutputComment", [&] {
    cell(currentRow_, 1).SetValue(comment);
    formatter_.EmphasisFormat(cell(currentRow_, 1), heading);
    currentRow_ += Int32(numBlankLines) + Int32(1);
  });
}

void clsDSOutput::InsertBlankLines(std::int16_t n) {
  kProc("InsertBlankLines", [&] { currentRow_ += Int32(n); });
}

Range clsDSOutput::Results() {
  // The readable Results property reports under the name the add-in always gave it.
  return kProc("GetResults", [&] {
    formatter_.EmphasisFormat(cell(currentRow_, 1), true);
    if (lastColumn_ == 1) lastColumn_ = 6;
    return cells(1, 1, currentRow_, lastColumn_);
  });
}

}  // namespace orv
