#include "support/array_tools.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <numeric>
#include <utility>

#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/procedure.h"
#include "support/double_sort.h"

namespace orv {
namespace {

constexpr Procedures kProc("ArrayTools");

// Kinds in sort order; empty last so that the data's used rows come first.
int kindRank(const CellValue& v) {
  switch (v.kind()) {
    case CellValue::Kind::Number: return 0;
    case CellValue::Kind::Text: return 1;
    case CellValue::Kind::Boolean: return 2;
    case CellValue::Kind::Error: return 3;
    case CellValue::Kind::Empty: return 4;
  }
  return 4;
}

// Strict weak order over cell values. Texts compare byte-wise (std::string compares as unsigned
// char), which keeps the order independent of any locale.
bool before(const CellValue& a, const CellValue& b) {
  const int ra = kindRank(a);
  const int rb = kindRank(b);
  if (ra != rb) return ra < rb;
  switch (a.kind()) {
    case CellValue::Kind::Number: return a.number() < b.number();
    case CellValue::Kind::Text: return a.text() < b.text();
    case CellValue::Kind::Boolean: return !a.boolean() && b.boolean();
    case CellValue::Kind::Error: return a.error() < b.error();
    case CellValue::Kind::Empty: return false;
  }
  return false;
}

// The common case on the hot path: a column of numbers and empty cells. Sorting the bare doubles
// avoids moving variants around; stable, so -0 and 0 keep their order as in the general sort.
bool sortNumbersAndEmpties(std::vector<CellValue>& cells) {
  std::vector<double> numbers;
  numbers.reserve(cells.size());
  for (const CellValue& v : cells) {
    if (v.isNumber()) {
      numbers.push_back(v.number());
    } else if (!v.isEmpty()) {
      return false;
    }
  }
  stableSortDoubles(numbers);
  std::size_t i = 0;
  for (double x : numbers) cells[i++] = x;
  for (; i < cells.size(); ++i) cells[i] = CellValue();
  return true;
}

void sortColumn(std::vector<CellValue>& cells) {
  if (sortNumbersAndEmpties(cells)) return;
  std::stable_sort(cells.begin(), cells.end(), before);
}

// Several columns: sort row numbers by key, then move whole rows once.
void sortByPermutation(ValueArray2D& table, std::int32_t keyColumn) {
  std::vector<CellValue>& cells = table.cells();
  const auto width = static_cast<std::size_t>(table.columns());
  const auto key = static_cast<std::size_t>(keyColumn - 1);
  std::vector<std::size_t> order(static_cast<std::size_t>(table.rows()));
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return before(cells[a * width + key], cells[b * width + key]);
  });

  std::vector<CellValue> sorted;
  sorted.reserve(cells.size());
  for (std::size_t row : order) {
    for (std::size_t c = 0; c < width; ++c) sorted.push_back(std::move(cells[row * width + c]));
  }
  cells = std::move(sorted);
}

// The parts side by side in their order, as many rows as the longest, the others padded with
// empty cells. Parts: any range of arrays or of references to them.
template <class Parts>
ValueArray2D sideBySide(const Parts& parts) {
  std::int32_t rows = 0;
  std::int32_t columns = 0;
  for (const ValueArray2D& part : parts) {
    rows = std::max(rows, part.rows());
    columns += part.columns();
  }
  ValueArray2D out(rows, columns);
  std::int32_t left = 0;
  for (const ValueArray2D& part : parts) {
    for (std::int32_t r = 1; r <= part.rows(); ++r)
      for (std::int32_t c = 1; c <= part.columns(); ++c) out(r, left + c) = part(r, c);
    left += part.columns();
  }
  return out;
}

template <class Better>
double extremeOf(const ValueArray2D& values, Better better) {
  if (values.empty()) raiseSubscript();
  const std::vector<CellValue>& cells = values.cells();
  double best = toNumber(cells.front());
  for (std::size_t i = 1; i < cells.size(); ++i) {
    const double x = toNumber(cells[i]);
    if (better(x, best)) best = x;
  }
  return best;
}

}  // namespace

void ArrayTools::SortRows(ValueArray2D& table, std::int32_t keyColumn) {
  kProc("SortRows", [&] {
    if (keyColumn < 1 || keyColumn > table.columns()) raiseSubscript();
    if (table.columns() == 1) {
      sortColumn(table.cells());
    } else {
      sortByPermutation(table, keyColumn);
    }
  });
}

ValueArray2D ArrayTools::FirstRows(const ValueArray2D& table, std::int32_t m) {
  return kProc("FirstRows", [&] {
    if (m < 1 || m > table.rows()) raiseSubscript();
    ValueArray2D out(m, table.columns());
    const auto count = static_cast<std::ptrdiff_t>(out.cells().size());
    std::copy(table.cells().begin(), table.cells().begin() + count, out.cells().begin());
    return out;
  });
}

ValueArray2D ArrayTools::FromDoubles(const std::vector<double>& values) {
  return kProc("FromDoubles", [&] {
    ValueArray2D out(static_cast<std::int32_t>(values.size()), 1);
    std::copy(values.begin(), values.end(), out.cells().begin());
    return out;
  });
}

ValueArray2D ArrayTools::Join(const ValueArray2D& first, const ValueArray2D& second) {
  return kProc("Join", [&] { return sideBySide(std::array{std::cref(first), std::cref(second)}); });
}

ValueArray2D ArrayTools::JoinAll(const std::vector<ValueArray2D>& parts) {
  return kProc("Join", [&] { return sideBySide(parts); });
}

double ArrayTools::MaxOf(const ValueArray2D& values) {
  return kProc("MaxOf", [&] { return extremeOf(values, [](double x, double best) { return x > best; }); });
}

double ArrayTools::MinOf(const ValueArray2D& values) {
  return kProc("MinOf", [&] { return extremeOf(values, [](double x, double best) { return x < best; }); });
}

}  // namespace orv
