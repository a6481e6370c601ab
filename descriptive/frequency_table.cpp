#include "descriptive/frequency_table.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "frame/errors.h"

namespace orv::detail {
namespace {

using Group = FrequencyGroup;

// Rows 1..m of groups as a two-column table.
ValueArray2D toTable(const std::vector<Group>& groups) {
  ValueArray2D table(static_cast<std::int32_t>(groups.size()), 2);
  std::int32_t row = 0;
  for (const Group& g : groups) {
    ++row;
    table(row, 1) = g.value;
    table(row, 2) = g.count;
  }
  return table;
}

// True when column 1 holds at least one number, its numbers come first in ascending order, and
// only empty cells follow them: the shape that a sorted data column has. Equal values are then
// neighbours.
bool isSortedNumberColumn(const ValueArray2D& data) {
  std::int32_t row = 1;
  for (; row <= data.rows() && data(row, 1).isNumber(); ++row) {
    if (row > 1 && data(row, 1).number() < data(row - 1, 1).number()) return false;
  }
  if (row == 1) return false;
  for (; row <= data.rows(); ++row) {
    if (!data(row, 1).isEmpty()) return false;
  }
  return true;
}

std::vector<Group> runLengths(const ValueArray2D& data) {
  std::vector<Group> groups;
  for (std::int32_t row = 1; row <= data.rows() && data(row, 1).isNumber(); ++row) {
    const CellValue& v = data(row, 1);
    if (!groups.empty() && groups.back().value.number() == v.number()) {
      groups.back().count += 1.0;
    } else {
      groups.push_back({v, 1.0});
    }
  }
  return groups;
}

// Under cell-value equality numbers and Booleans form one class keyed by value, texts another;
// the two never meet.
bool isNumeric(const CellValue& v) { return v.isNumber() || v.isBoolean(); }
double numericKey(const CellValue& v) {
  // + 0.0 turns -0 into 0, so that both hash alike.
  return (v.isBoolean() ? (v.boolean() ? -1.0 : 0.0) : v.number()) + 0.0;
}
bool equalsEmpty(const CellValue& v) {
  return (isNumeric(v) && numericKey(v) == 0.0) || (v.isText() && v.text().empty());
}

// Any order of any kinds: the same table that a search through the groups found so far would
// give, since at most one group can equal a value, in hash time instead.
std::vector<Group> firstAppearance(const ValueArray2D& data) {
  const CellValue& first = data(1, 1);
  std::vector<Group> groups{{first, 1.0}};
  std::unordered_map<double, std::size_t> numbers;
  std::unordered_map<std::string, std::size_t> texts;
  if (isNumeric(first)) numbers.emplace(numericKey(first), 0);
  if (first.isText()) texts.emplace(first.text(), 0);

  for (std::int32_t row = 2; row <= data.rows(); ++row) {
    const CellValue& v = data(row, 1);
    if (v.isEmpty()) continue;
    // Every value is compared with row 1 at least, and an error value cannot be compared.
    if (v.isError() || first.isError()) raise(err::kTypeMismatch);
    if (first.isEmpty() && equalsEmpty(v)) {
      groups.front().count += 1.0;
      continue;
    }
    const std::size_t fresh = groups.size();
    const std::size_t found = isNumeric(v) ? numbers.try_emplace(numericKey(v), fresh).first->second
                                           : texts.try_emplace(v.text(), fresh).first->second;
    if (found == fresh) {
      groups.push_back({v, 1.0});
    } else {
      groups[found].count += 1.0;
    }
  }
  return groups;
}

}  // namespace

std::vector<FrequencyGroup> frequencyGroups(const ValueArray2D& data) {
  (void)data(1, 1);  // no row 1 or no column 1: subscript error, before anything else
  return isSortedNumberColumn(data) ? runLengths(data) : firstAppearance(data);
}

ValueArray2D frequencyTable(const ValueArray2D& data) { return toTable(frequencyGroups(data)); }

}  // namespace orv::detail
