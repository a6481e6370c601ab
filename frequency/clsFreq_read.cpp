// clsFreq: reading the variables of the given ranges, and the bin check.

#include <algorithm>
#include <string>
#include <vector>

#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/fixed4.h"
#include "frame/host.h"
#include "frequency/clsFreq.h"
#include "frequency/clsFreq_internal.h"

namespace orv {

using detail::kFreq;

// Every area's variables in order. One block read per area; a variable's cells are then taken
// from it without further host calls.
std::vector<clsFreq::Variable> clsFreq::readVariables(const Range& range) const {
  return kFreq("ReadVariables", [&] {
    std::vector<Variable> variables;
    for (const CellBlock& area : range.areas()) {
      const ValueArray2D values = Range(range.Parent(), area).Values();
      const std::int32_t count = dataInRows_ ? area.rows() : area.columns();
      const std::int32_t length = dataInRows_ ? area.columns() : area.rows();
      const std::int32_t first = headers_ ? 2 : 1;
      for (std::int32_t v = 1; v <= count; ++v) {
        const auto at = [&](std::int32_t i) -> const CellValue& { return dataInRows_ ? values(v, i) : values(i, v); };
        Variable variable;
        if (headers_) {
          variable.name = toText(at(1));
        } else if (dataInRows_) {
          variable.name = "Row " + std::to_string(area.top + v - 1);
        } else {
          variable.name = "Column " + columnLetters(area.left + v - 1);
        }
        std::vector<CellValue>& cells = variable.cells.items();
        cells.reserve(static_cast<std::size_t>(std::max(length - first + 1, 0)));
        for (std::int32_t i = first; i <= length; ++i) cells.push_back(at(i));
        if (first <= length) {
          const std::int32_t line = (dataInRows_ ? area.top : area.left) + v - 1;
          variable.place =
              Range(range.Parent(), dataInRows_ ? CellBlock{line, area.left + first - 1, line, area.right}
                                                : CellBlock{area.top + first - 1, line, area.bottom, line});
        }
        variables.push_back(std::move(variable));
      }
    }
    return variables;
  });
}

// With frequencies beside data, the frequency variable weighs the first data variable (the
// checks allow only one then); without data every frequency variable is counted over the bins.
std::vector<clsFreq::Analysed> clsFreq::analysedVariables() const {
  return kFreq("AnalysedVariables", [&] {
    std::vector<Variable> data;
    if (input_.range) data = readVariables(*input_.range);
    std::vector<Analysed> analysed;
    if (!frequency_.range) {
      for (Variable& d : data) analysed.push_back({std::move(d.name), std::move(d.cells), {}, std::move(d.place)});
      return analysed;
    }
    for (Variable& f : readVariables(*frequency_.range)) {
      if (data.empty()) {
        analysed.push_back({std::move(f.name), std::nullopt, std::move(f.cells), std::move(f.place)});
      } else {
        analysed.push_back({data.front().name, data.front().cells, std::move(f.cells), data.front().place});
      }
    }
    return analysed;
  });
}

// Accepted bins are numbers that rise strictly in four-decimal steps, kept as their text forms.
// Empty cells at the end of the range are not bins; anywhere else they break the list.
ValueArray1D clsFreq::CheckBins(const ValueArray1D& column) const {
  return kFreq("CheckBins", [&] {
    std::vector<CellValue> cells = column.items();
    while (!cells.empty() && cells.back().isEmpty()) cells.pop_back();
    if (cells.size() < 2) raise(err::kTooFewBins);

    std::vector<CellValue> bins;
    Fixed4 previous;
    for (const CellValue& cell : cells) {
      const bool numeric = cell.isNumber() || (cell.isText() && parsePlainNumber(cell.text()));
      if (!numeric) raise(err::kBinsNotIncreasing);
      const double x = toNumber(cell);
      const Fixed4 fixed = Fixed4::fromDouble(x);
      if (!bins.empty() && !(fixed - previous > Fixed4())) raise(err::kBinsNotIncreasing);
      previous = fixed;
      bins.emplace_back(numberToText(x));
    }
    return ValueArray1D(std::move(bins));
  });
}

}  // namespace orv
