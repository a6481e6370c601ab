#pragma once
// Shared by the circular tests: the host fixture and engine builders.

#include "../driver_fixture.h"
#include "circular/clsDSCircBO.h"
#include "workbook/host_worksheet_functions.h"

namespace orv::test {

using CircularTest = DriverTest;

inline ValueArray2D array(const Cells& values) {
  ValueArray2D out(static_cast<std::int32_t>(values.size()), 1);
  for (std::size_t i = 0; i < values.size(); ++i) out(static_cast<std::int64_t>(i) + 1, 1) = values[i];
  return out;
}
// An engine with the in-memory host's distribution functions (CL takes ChiInv from them).
inline clsDSCircBO engineOf(const std::vector<double>& degrees) {
  static HostWorksheetFunctions functions;
  clsDSCircBO bo;
  bo.Functions(&functions);
  bo.Data(array(Cells(degrees.begin(), degrees.end())));
  return bo;
}
// The number a statistic gave; NaN, which no comparison accepts, for "n/a" or any other text.
inline double numberOf(const CellValue& v) { return v.isNumber() ? v.number() : std::nan(""); }
inline std::string source(const std::string& where) { return "Line 0 in ORVDescriptives." + where; }

}  // namespace orv::test
