#include "frequency/clsFreqOutput.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "frame/procedure.h"

namespace orv {
namespace {

const Procedures kProc{"clsFreqOutput"};

// The five columns of one variable: heading label (the first is the variable's name) and the
// number format of its category cells.
struct TableColumn {
  std::string_view label;
  std::string_view numberFormat;
};
constexpr std::array<TableColumn, 5> kColumns{{
    {"", "General"},  // the categories
    {"N", "0"},
    {"Cum. N", "0"},
    {"%", "0.00"},
    {"Cum. %", "0.00"},
}};
constexpr std::int32_t kWidth = static_cast<std::int32_t>(kColumns.size());

// Column c (1..5) of variable v's category rows 1..k, as cell values.
CellValue categoryCell(const VariableDistribution& d, std::int32_t c, std::int32_t i) {
  switch (c) {
    case 1: return d.Values(i);
    case 2: return static_cast<double>(d.Counts(i));
    case 3: return static_cast<double>(d.CumCounts(i));
    case 4: return d.Percents(i);
    default: return d.CumPercents(i);
  }
}

}  // namespace

clsFreqOutput::clsFreqOutput() {
  kProc("Class_Initialize", [&] { cursor_.start(style_.BackgroundColorIndex()); });
}

void clsFreqOutput::writeLine(const std::string& text, bool heading) {
  cursor_.cell(cursor_.row(), 1).SetValue(text);
  formatter_.EmphasisFormat(cursor_.cell(cursor_.row(), 1), heading);
  cursor_.advance(1);
}

void clsFreqOutput::OutputHeader(const std::string& dataRange, const std::string& binRange,
                                 const std::string& frequencyRange, const std::string& comment) {
  kProc("OutputHeader", [&] {
    writeLine("Frequency Distributions for:", true);
    if (!dataRange.empty()) writeLine("Data Range = " + dataRange, false);
    if (!frequencyRange.empty()) writeLine("Frequency Range = " + frequencyRange, false);
    if (!binRange.empty()) writeLine("Bin Range = " + binRange, false);
    if (!comment.empty()) writeLine(comment, false);
  });
}

void clsFreqOutput::OutputMatrix(const Array1D<std::string>& headings, const Array1D<VariableDistribution>& results,
                                 CategoryRows& rows, const std::vector<CategoryFlags>* flags) {
  kProc("OutputMatrix", [&] {
    const std::int32_t variables = results.size();
    const std::int32_t width = (Int32(variables) * kWidth).value();
    std::int32_t tallest = 0;
    for (const VariableDistribution& d : results.items()) tallest = std::max(tallest, d.Values.size());

    // One block write for the heading row and one for the categories: a table of 32767
    // categories is one pass over its cells.
    ValueArray2D heading(1, width);
    ValueArray2D body(tallest, width);
    for (std::int32_t v = 1; v <= variables; ++v) {
      const std::int32_t left = (v - 1) * kWidth;
      heading(1, left + 1) = headings(v);
      for (std::int32_t c = 2; c <= kWidth; ++c) {
        heading(1, left + c) = CellValue(kColumns[static_cast<std::size_t>(c - 1)].label);
      }
      const VariableDistribution& d = results(v);
      for (std::int32_t i = 1; i <= d.Values.size(); ++i) {
        for (std::int32_t c = 1; c <= kWidth; ++c) body(i, left + c) = categoryCell(d, c, i);
      }
    }

    const std::int32_t h = cursor_.row();
    const std::int32_t first = (Int32(h) + 1).value();
    const std::int32_t last = (Int32(h) + tallest).value();
    cursor_.cells(h, 1, h, width).SetValues(heading);
    formatter_.LabelFormat(cursor_.cells(h, 1, h, width), false);
    if (tallest >= 1) cursor_.cells(first, 1, last, width).SetValues(body);

    for (std::int32_t v = 1; v <= variables; ++v) {
      const std::int32_t k = results(v).Values.size();
      if (k < 1) continue;
      const std::int32_t left = (v - 1) * kWidth;
      const std::int32_t bottom = h + k;
      for (std::int32_t c = 1; c <= kWidth; ++c) {
        const Range column = cursor_.cells(first, left + c, bottom, left + c);
        formatter_.ValueFormat(column, false);
        column.SetNumberFormat(std::string(kColumns[static_cast<std::size_t>(c - 1)].numberFormat));
      }
      if (flags == nullptr || v > static_cast<std::int32_t>(flags->size())) continue;
      const CategoryFlags& f = (*flags)[static_cast<std::size_t>(v - 1)];
      // The mark joins the format, so the cell keeps the bin's number for the histogram.
      if (f.LessThanCatUsed) {
        const Range c = cursor_.cell(first, left + 1);
        c.SetNumberFormat("<" + c.NumberFormat());
      }
      if (f.GreaterThanCatUsed) {
        const Range c = cursor_.cell(bottom, left + 1);
        c.SetNumberFormat(">=" + c.NumberFormat());
      }
    }

    rows.first = first;
    rows.last = last;
    cursor_.advance(Int32(tallest) + 1);
    cursor_.widen(width);
  });
}

void clsFreqOutput::OutputComment(const std::string& comment, std::int16_t numBlankLines, bool heading) {
  kProc("OutputComment", [&] {
    writeLine(comment, heading);
    cursor_.advance(numBlankLines);
  });
}

void clsFreqOutput::InsertBlankLines(std::int16_t n) {
  kProc("InsertBlankLines", [&] { cursor_.advance(n); });
}

Range clsFreqOutput::Results() {
  return kProc("Results", [&] { return cursor_.block(); });
}

}  // namespace orv
