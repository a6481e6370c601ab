#include "frame/chart_layout.h"

namespace orv {

ChartRectangle standardPlotArea(double chartWidth, double chartHeight, bool hasTitle) {
  return ChartRectangle{chartWidth * 0.10, chartHeight * (hasTitle ? 0.20 : 0.12), chartWidth * 0.85,
                        chartHeight * (hasTitle ? 0.67 : 0.75)};
}

double borderWeightPoints(host::BorderWeight weight) {
  switch (weight) {
    case host::BorderWeight::Hairline: return 0.25;
    case host::BorderWeight::Thin: return 0.75;
    case host::BorderWeight::Medium: return 1.5;
    case host::BorderWeight::Thick: return 2.25;
  }
  return 0.75;
}

bool isFontSize(double points) { return points >= 1 && points <= 409; }

}  // namespace orv
