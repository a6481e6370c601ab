#include "frame/cell_value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace orv {
namespace {

TEST(CellValue, CopiesOwnTheirTextAndMovesLeaveEmptyCells) {
  CellValue original(std::string(100, 'x'));  // long enough to live on the heap
  CellValue copy = original;
  original = CellValue(2.5);
  EXPECT_EQ(copy.text(), std::string(100, 'x'));

  CellValue moved = std::move(copy);
  EXPECT_EQ(moved.text(), std::string(100, 'x'));
  EXPECT_TRUE(copy.isEmpty());  // NOLINT(bugprone-use-after-move): the moved-from state is defined

  CellValue target("old text");
  target = std::move(moved);
  EXPECT_EQ(target.text().size(), 100U);
  const CellValue& self = target;
  target = self;
  EXPECT_EQ(target.text().size(), 100U);

  // A vector of texts that reallocates keeps every value.
  std::vector<CellValue> column;
  for (int i = 0; i < 1000; ++i) column.emplace_back(std::to_string(i));
  EXPECT_EQ(column[999].text(), "999");
}

TEST(CellValue, EqualityIsByKindAndPayload) {
  EXPECT_EQ(CellValue(), CellValue());
  EXPECT_EQ(CellValue(0.0), CellValue(-0.0));
  EXPECT_NE(CellValue(std::nan("")), CellValue(std::nan("")));
  EXPECT_NE(CellValue(1.0), CellValue(true));
  EXPECT_NE(CellValue(0.0), CellValue());
  EXPECT_NE(CellValue(""), CellValue());
  EXPECT_EQ(CellValue("a"), CellValue(std::string("a")));
  EXPECT_NE(CellValue(ErrorValue::NA), CellValue(ErrorValue::Div0));
  EXPECT_EQ(CellValue(false), CellValue(false));
}

TEST(CellValue, ReadingTheWrongKindThrows) {
  EXPECT_THROW((void)CellValue("1").number(), std::bad_variant_access);
  EXPECT_THROW((void)CellValue(1.0).text(), std::bad_variant_access);
  EXPECT_THROW((void)CellValue().boolean(), std::bad_variant_access);
  EXPECT_THROW((void)CellValue(true).error(), std::bad_variant_access);
  EXPECT_EQ(sizeof(CellValue), 16U);
}

}  // namespace
}  // namespace orv
