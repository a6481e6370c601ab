// The circular engine with Textbook, against R's package circular on published samples; and the
// note on the reflected mean direction with the kept rules.

#include <cmath>

#include "circular_fixture.h"
#include "reference_angles.h"

namespace orv::test {
namespace {

clsDSCircBO textbookOf(const std::vector<double>& degrees) {
  clsDSCircBO bo = engineOf(degrees);
  bo.Textbook(true);
  bo.Data(array(Cells(degrees.begin(), degrees.end())));
  return bo;
}

// R 4.2.2 with circular 0.4-95, for x = circular(DATA, units = "degrees", template = "none",
// modulo = "2pi"), n = length(x), r = rho.circular(x), R = n r:
//   mean.circular(x) %% 360, r, angular.deviation(x) * 180 / pi,
//   angular.variance(x) * (180 / pi)^2, sd.circular(x) * 180 / pi, (sd.circular(x) * 180 / pi)^2,
// and Zar's probability (Biostatistical Analysis, eq. 27.4) evaluated in R on circular's r:
//   exp(sqrt(1 + 4 * n + 4 * (n^2 - R^2)) - (1 + 2 * n))
TEST_F(CircularTest, TextbookStatisticsAgreeWithRsCircularAndTheKeptRulesNoteAReflectedMean) {
  const struct {
    const char* name;
    const std::vector<double>& data;
    double mean, r, angularSD, angularVar, circularSD, circularVar, rayleighP;
    bool reflected;  // by the kept rules: a mean in the third quadrant
  } cases[] = {
      {"fisherB3", kTurtles, 64.17134399699296, 0.49709210114602564, 57.462148303537887, 3301.898487657782,
       67.743868175411492, 4589.2316753675304, 2.1480714515699012e-09, false},
      {"fisherB6$set2", kFisherB6Set2, 247.61656289135431, 0.78283312390252613, 37.760211860237249, 1425.8335997300017,
       40.093597698631804, 1607.4965764197334, 2.5767865992649974e-10, true},
      {"fisherB13$set11", kFisherB13Set11, 184.36739658509035, 0.98548871677575345, 9.7609151943222496,
       95.275465430750955, 9.7966071330915003, 95.973511320139266, 1.0828595441323552e-25, true},
      {"fisherB13$set14", kFisherB13Set14, 179.38838140629804, 0.97525970381385463, 12.745006976934093,
       162.43520284209873, 12.824910095682251, 164.47831896233251, 1.5541598221121542e-61, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clsDSCircBO bo = textbookOf(c.data);
    EXPECT_NEAR(bo.Mean(), c.mean, 1e-10);
    EXPECT_NEAR(bo.MeanVector(), c.r, 1e-14);
    EXPECT_NEAR(bo.AngularSD(), c.angularSD, 1e-10);
    EXPECT_NEAR(bo.AngularVar(), c.angularVar, 1e-9);
    EXPECT_NEAR(bo.CircularSD(), c.circularSD, 1e-10);
    EXPECT_NEAR(bo.CircularVar(), c.circularVar, 1e-9);
    EXPECT_LT(std::fabs(bo.RayleighP() / c.rayleighP - 1), 1e-9);
    EXPECT_DOUBLE_EQ(bo.Count(), static_cast<double>(c.data.size()));
    EXPECT_FALSE(bo.MeanKeptRule().has_value());

    // The kept rules read the third quadrant reflected into the fourth, on either side of it: a
    // mean just past 180 and one near 250; the note gives the true direction. A mean just short
    // of 180 is the same either way.
    clsDSCircBO kept = engineOf(c.data);
    const std::optional<KeptRuleEffect> note = kept.MeanKeptRule();
    EXPECT_EQ(note.has_value(), c.reflected);
    if (note) {
      EXPECT_EQ(note->rule, KeptRule::ReflectedMeanAngle);
      EXPECT_NEAR(note->textbook, c.mean, 1e-10);
    }
    // Reflected about the horizontal axis: 360 - (direction - 180).
    EXPECT_NEAR(kept.Mean(), c.reflected ? 540 - c.mean : c.mean, 1e-9);
  }
  EXPECT_FALSE(engineOf({0, 180}).MeanKeptRule().has_value());  // no mean direction: no note, no failure
}

}  // namespace
}  // namespace orv::test
