#pragma once
// Shared by the clsFreqBO tests: arrays from literals, their text forms, and error capture.

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/value_array.h"
#include "frequency/clsFreqBO.h"
#include "frequency/freq_data_type.h"

namespace orv {
// Readable values in test failures.
inline void PrintTo(const CellValue& v, std::ostream* os) { *os << describe(v); }
}  // namespace orv

namespace orv::test {

inline const CellValue kBlank{};

using Texts = std::vector<std::string>;
using Counts = std::vector<std::int32_t>;
using Doubles = std::vector<double>;

inline ValueArray1D cells(std::vector<CellValue> values) { return ValueArray1D(std::move(values)); }

// The text form of every element: what the results sheet shows for it.
inline Texts textsOf(const ValueArray1D& values) {
  Texts out;
  for (const CellValue& v : values.items()) out.push_back(toText(v));
  return out;
}

template <class Call>
ComponentError errorOf(Call&& call) {
  try {
    call();
  } catch (const ComponentError& e) {
    return e;
  }
  ADD_FAILURE() << "no error raised";
  return ComponentError(0, "", "");
}

// An engine with data, optional weights and bins set, analysed.
struct Analysis {
  std::vector<CellValue> data;
  std::vector<CellValue> weights;  // none: every observation weighs 1
  std::vector<CellValue> bins;     // none: distinct values
  std::int32_t dataType = 0;
};

inline clsFreqBO analysed(const Analysis& a) {
  clsFreqBO bo;
  bo.DataType(a.dataType);
  bo.Data(cells(a.data));
  if (!a.weights.empty()) bo.Frequencies(cells(a.weights));
  if (!a.bins.empty()) bo.Bin(cells(a.bins));
  bo.Analyse();
  return bo;
}

}  // namespace orv::test
