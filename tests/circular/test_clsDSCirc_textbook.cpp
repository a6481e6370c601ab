// The circular driver with Textbook, and its note on a reflected mean direction without it.

#include "circular/clsDSCirc.h"

#include "circular_fixture.h"
#include "reference_angles.h"

namespace orv::test {
namespace {

Cells named(const char* name, const std::vector<double>& degrees) {
  Cells out{name};
  out.insert(out.end(), degrees.begin(), degrees.end());
  return out;
}

// R's mean.circular of the two samples (test_clsDSCircBO_textbook.cpp): 247.6 and 64.2.
TEST_F(CircularTest, TheReflectedMeanIsNotedBesideTheTableAndTextbookShowsIt) {
  column(1, 1, named("Azimuth", kFisherB6Set2));
  column(2, 1, named("Turtles", kTurtles));
  const std::string input = "Data!A1:B77";
  for (const bool textbook : {false, true}) {
    SCOPED_TRACE(textbook);
    clsDSCirc circ;
    circ.Headers(true);
    circ.GetMean(true);
    circ.GetRayleigh(true);
    circ.Plot(true);
    circ.Textbook(textbook);
    circ.InputRange(input);
    circ.Results();
    Worksheet& out = lastSheet();
    const std::int32_t first = textbook ? 6 : 5;  // the comment line takes a row
    EXPECT_EQ(out.cellValue(3, 1), textbook ? CellValue("Textbook arithmetic") : CellValue());
    EXPECT_EQ(down(out, 1, first, first + 2), (Cells{"Mean Angle", "Rayleigh's Z", "Prob(Z)"}));
    EXPECT_NEAR(number(out, first, 2), textbook ? 247.61656289135431 : 360 - 67.61656289135431, 1e-10);
    EXPECT_NEAR(number(out, first, 3), 64.17134399699296, 1e-10);
    // The plot data stay below the table, where the charts read them.
    EXPECT_EQ(out.cellValue(circ.plotPositions().first - 1, 1), CellValue("Sin"));
    if (textbook) {
      EXPECT_TRUE(circ.notes().empty());
      continue;
    }
    ASSERT_EQ(circ.notes().size(), 1u);
    const ArithmeticNote& note = circ.notes().front();
    EXPECT_EQ(note.rule, KeptRule::ReflectedMeanAngle);
    EXPECT_EQ(note.column, "Azimuth");
    EXPECT_EQ(note.cells.AddressWithSheet(), "Data!$A$2:$A$77");
    EXPECT_EQ(note.observations, 30);
    ASSERT_EQ(note.values.size(), 1u);
    EXPECT_EQ(note.values[0].statistic, "Mean Angle");
    EXPECT_EQ(note.values[0].shown, out.cellValue(first, 2));
    EXPECT_NEAR(note.values[0].textbook, 247.61656289135431, 1e-10);
  }
}

// Without the mean angle in the table there is nothing to note.
TEST_F(CircularTest, NoNoteForARowNotShown) {
  column(1, 1, named("Azimuth", kFisherB6Set2));
  clsDSCirc circ;
  circ.Headers(true);
  circ.GetMeanVector(true);
  circ.InputRange("Data!A1:A31");
  circ.Results();
  EXPECT_TRUE(circ.notes().empty());
}

}  // namespace
}  // namespace orv::test
