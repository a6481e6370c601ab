#include "descriptive/clsDSOutput.h"

#include <algorithm>

#include "frame/procedure.h"

namespace orv {
namespace {
const Procedures kProc{"clsDSOutput"};
}  // namespace

clsDSOutput::clsDSOutput() {
  kProc("Class_Initialize", [&] { cursor_.start(style_.BackgroundColorIndex()); });
}

void clsDSOutput::OutputHeader(const std::string& xRange, const std::string& comment) {
  kProc("OutputHeader", [&] {
    cursor_.cell(cursor_.row(), 1).SetValue("Descriptive Statistics for:");
    cursor_.cell(cursor_.row() + 1, 1).SetValue("Input Range = " + xRange);
    // The heading is always the first thing on the freshly cleared sheet.
    formatter_.EmphasisFormat(cursor_.cells(1, 1, 2, 1), true);
    cursor_.advance(2);
    if (!comment.empty()) {
      cursor_.cell(cursor_.row(), 1).SetValue(comment);
      formatter_.EmphasisFormat(cursor_.cell(cursor_.row(), 1), true);
      cursor_.advance(1);
    }
  });
}

void clsDSOutput::OutputMatrix(const Array1D<std::string>& columnNames, const ValueArray2D& matrix, Int16& firstRow) {
  kProc("OutputMatrix", [&] {
    const std::int32_t rows = matrix.rows();
    const std::int32_t columns = matrix.columns();
    const std::int32_t h = cursor_.row();
    for (std::int32_t j = 2; j <= columns; ++j) cursor_.cell(h, j).SetValue(columnNames(j - 1));
    formatter_.LabelFormat(cursor_.cells(h, 1, h, columns), false);
    firstRow = Int16::from(std::int64_t{h} + 1);
    cursor_.cells(h + 1, 1, h + rows, columns).SetValues(matrix);
    formatter_.LabelFormat(cursor_.cells(h + 1, 1, h + rows, 1), true);
    formatter_.ValueFormat(cursor_.cells(h + 1, 2, h + rows, columns), true);
    cursor_.advance(Int32(rows) + Int32(1));
    cursor_.widen(columns);
  });
}

void clsDSOutput::OutputPlotData(const Array1D<std::string>& names, const ValueArray2D& matrix, PlotDataRows& rows) {
  kProc("OutputPlotData", [&] {
    const std::int32_t r = matrix.rows();
    const std::int32_t c = matrix.columns();
    const std::int32_t h = cursor_.row();
    for (std::int32_t j = 1; j <= c; j += 2) {
      cursor_.cell(h, j).SetValue(names((j + 1) / 2));
      cursor_.cell(h + 1, j).SetValue("Sin");
      cursor_.cell(h + 1, j + 1).SetValue("Cos");
    }
    formatter_.LabelFormat(cursor_.cells(h, 1, h + 1, c), false);
    const Range values = cursor_.cells(h + 2, 1, h + 1 + r, c);
    values.SetValues(matrix);
    formatter_.ValueFormat(values, true);
    rows.first = h + 2;
    rows.last = h + 1 + r;
    cursor_.advance(Int32(r) + Int32(2));
    cursor_.widen(c);
  });
}

void clsDSOutput::OutputComment(const std::string& comment, std::int16_t numBlankLines, bool heading) {
  kProc("OutputComment", [&] {
    cursor_.cell(cursor_.row(), 1).SetValue(comment);
    formatter_.EmphasisFormat(cursor_.cell(cursor_.row(), 1), heading);
    cursor_.advance(Int32(numBlankLines) + Int32(1));
  });
}

void clsDSOutput::InsertBlankLines(std::int16_t n) {
  kProc("InsertBlankLines", [&] { cursor_.advance(n); });
}

Range clsDSOutput::Results() {
  // The readable Results property reports under the name the add-in always gave it.
  return kProc("GetResults", [&] {
    formatter_.EmphasisFormat(cursor_.cell(cursor_.row(), 1), true);
    return cursor_.block();
  });
}

}  // namespace orv
