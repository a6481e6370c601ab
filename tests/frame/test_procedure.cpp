#include <gtest/gtest.h>

#include "frame/errors.h"
#include "frame/numerics.h"
#include "frame/procedure.h"
#include "frame/value_array.h"
#include "raised_number.h"

namespace orv {
namespace {

const Procedures kMiddle{"clsMiddle"};
const Procedures kOuter{"clsOuter"};

double middle() {
  return kMiddle("Compute", [] { return Procedures{"clsInner"}("Divide", [] { return divide(1.0, 0.0); }) + 1.0; });
}

template <class F>
ComponentError caught(F&& f) {
  try {
    f();
  } catch (const ComponentError& e) {
    return e;
  }
  ADD_FAILURE() << "no error raised";
  return ComponentError(0, "", "");
}

TEST(Procedure, OutermostSourceKeepsFirstNumberAndDescription) {
  const ComponentError e = caught([] { kOuter("Results", [] { return middle(); }); });
  EXPECT_EQ(e.number(), err::kDivisionByZero);
  EXPECT_EQ(e.description(), "Division by zero");
  EXPECT_EQ(e.source(), "Line 0 in ORVDescriptives.clsOuter.Results");
  const ComponentError own = caught([] { kOuter("LetInput", [] { raise(err::kNoInputRange); }); });
  EXPECT_EQ(own.number(), -2147216502);
  EXPECT_EQ(own.description(), "Application-defined or object-defined error");
  EXPECT_EQ(own.source(), "Line 0 in ORVDescriptives.clsOuter.LetInput");
  const ComponentError memory = caught([] { kOuter("Grow", [] { throw std::bad_alloc(); }); });
  EXPECT_EQ(memory.number(), err::kOutOfMemory);
  EXPECT_EQ(memory.source(), "Line 0 in ORVDescriptives.clsOuter.Grow");
}

TEST(Procedure, AppendRuleExtendsASourceThatHoldsALine) {
  const Procedures appending{"clsDSCirc", SourceRule::AppendAfterLine};
  EXPECT_EQ(caught([&] { appending("FormatResults", [] { middle(); }); }).source(),
            "Line 0 in ORVDescriptives.clsMiddle.Compute.FormatResults");
  EXPECT_EQ(caught([&] { appending("Results", [] { raise(err::kAreaHeights); }); }).source(),
            "Line 0 in ORVDescriptives.clsDSCirc.Results");
}

TEST(Errors, StandardDescriptions) {
  const struct {
    std::int32_t number;
    const char* text;
  } rows[] = {
      {5, "Invalid procedure call or argument"}, {6, "Overflow"}, {9, "Subscript out of range"}, {13, "Type mismatch"}};
  for (const auto& row : rows) EXPECT_EQ(err::standardDescription(row.number), row.text) << row.number;
}

TEST(ValueArray, BoundsRaiseSubscriptOutOfRange) {
  ValueArray2D a(3, 2);
  a(2, 2) = 2.0;
  for (auto [r, c] : {std::pair{0, 1}, {4, 1}, {1, 0}, {1, 3}}) {
    EXPECT_EQ(test::raisedNumber([&] { (void)a(r, c); }), err::kSubscriptOutOfRange) << r << "," << c;
  }
  a.truncateRows(2);
  EXPECT_EQ(a(2, 2), CellValue(2.0));
  EXPECT_EQ(test::raisedNumber([&] { (void)a(3, 1); }), err::kSubscriptOutOfRange);
  EXPECT_THROW(a.truncateRows(3), ComponentError);
}

}  // namespace
}  // namespace orv
