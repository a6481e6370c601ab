#include <gtest/gtest.h>

#include "frame/errors.h"
#include "frame/numerics.h"
#include "frame/procedure.h"
#include "frame/value_array.h"

namespace orv {
namespace {

const Procedures kInner{"clsInner"};
const Procedures kMiddle{"clsMiddle"};
const Procedures kOuter{"clsOuter"};

double innermost() { return kInner("Divide", [] { return divide(1.0, 0.0); }); }
double middle() { return kMiddle("Compute", [] { return innermost() + 1.0; }); }
double outer() { return kOuter("Results", [] { return middle(); }); }

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
  const ComponentError e = caught([] { outer(); });
  EXPECT_EQ(e.number(), err::kDivisionByZero);
  EXPECT_EQ(e.description(), "Division by zero");
  EXPECT_EQ(e.source(), "Line 0 in ORVDescriptives.clsOuter.Results");
}

TEST(Procedure, ValuesPassThroughUntouched) {
  EXPECT_EQ(kOuter("Twice", [] { return 21 * 2; }), 42);
  int calls = 0;
  kOuter("Void", [&] { ++calls; });
  EXPECT_EQ(calls, 1);
}

TEST(Procedure, ComponentErrorWithoutDescriptionGetsTheGenericOne) {
  const ComponentError e = caught([] { kOuter("LetInput", [] { raise(err::kNoInputRange); }); });
  EXPECT_EQ(e.number(), -2147216502);
  EXPECT_EQ(e.description(), "Application-defined or object-defined error");
  EXPECT_EQ(e.source(), "Line 0 in ORVDescriptives.clsOuter.LetInput");
}

TEST(Procedure, AppendRuleExtendsASourceThatHoldsALine) {
  const Procedures appending{"clsDSCirc", SourceRule::AppendAfterLine};
  // An error that already passed a trap keeps its place and gains the procedure's name.
  const ComponentError passed =
      caught([&] { appending("FormatResults", [] { middle(); }); });
  EXPECT_EQ(passed.source(), "Line 0 in ORVDescriptives.clsMiddle.Compute.FormatResults");
  // A fresh error (source without a line) is stamped as usual.
  const ComponentError fresh =
      caught([&] { appending("Results", [] { raise(err::kAreaHeights); }); });
  EXPECT_EQ(fresh.source(), "Line 0 in ORVDescriptives.clsDSCirc.Results");
}

TEST(Procedure, OutOfMemoryBecomesAnError) {
  const ComponentError e = caught([] { kOuter("Grow", [] { throw std::bad_alloc(); }); });
  EXPECT_EQ(e.number(), err::kOutOfMemory);
  EXPECT_EQ(e.source(), "Line 0 in ORVDescriptives.clsOuter.Grow");
}

TEST(Errors, StandardDescriptions) {
  const struct {
    std::int32_t number;
    const char* text;
  } rows[] = {{5, "Invalid procedure call or argument"}, {6, "Overflow"},
              {9, "Subscript out of range"},            {11, "Division by zero"},
              {13, "Type mismatch"},                    {err::kAreaHeights,
                                                         "Application-defined or object-defined error"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.number);
    EXPECT_EQ(err::standardDescription(row.number), row.text);
  }
}

TEST(ValueArray, BoundsRaiseSubscriptOutOfRange) {
  ValueArray2D a(3, 2);
  a(3, 2) = 7.0;
  EXPECT_EQ(a(3, 2), CellValue(7.0));
  for (auto [r, c] : {std::pair{0, 1}, {4, 1}, {1, 0}, {1, 3}, {-1, -1}}) {
    SCOPED_TRACE(testing::Message() << r << "," << c);
    try {
      (void)a(r, c);
      ADD_FAILURE() << "expected an error";
    } catch (const ComponentError& e) {
      EXPECT_EQ(e.number(), err::kSubscriptOutOfRange);
    }
  }
  Array1D<double> v(2);
  v(2) = 1.5;
  EXPECT_EQ(v(2), 1.5);
  EXPECT_THROW((void)v(3), ComponentError);
}

TEST(ValueArray, TruncateKeepsLeadingRows) {
  ValueArray2D a(3, 2);
  a(1, 1) = "x";
  a(2, 2) = 2.0;
  a.truncateRows(2);
  EXPECT_EQ(a.rows(), 2);
  EXPECT_EQ(a(2, 2), CellValue(2.0));
  EXPECT_THROW((void)a(3, 1), ComponentError);
  EXPECT_THROW(a.truncateRows(3), ComponentError);
}

}  // namespace
}  // namespace orv
