#include "frame/chart_layout.h"

namespace orv {

ChartRectangle standardPlotArea(double chartWidth, double chartHeight, bool hasTitle) {
  return ChartRectangle{chartWidth * 0.10, chartHeight * (hasTitle ? 0.20 : 0.12), chartWidth * 0.85,
                        chartHeight * (hasTitle ? 0.67 : 0.75)};
}

}  // namespace orv
