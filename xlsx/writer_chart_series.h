#pragma once
// The <c:ser> element of each kind of chart group, with its look (line, marker, fill) and its
// custom error bars.
//
// `index` is the series' idx and order, unique across the whole chart; it also picks the
// host's automatic colour and marker when the model leaves them automatic. Series of a stock
// group never show a joining line (the host's stock look): only the group's high-low lines
// and up-down bars draw them. A dash marker is black, the look of a median mark.

#include <cstddef>
#include <string>

#include "workbook/chart_model.h"

namespace orv::chartxml {

// <c:marker>: symbol, size (2..72) and colours; "none" for no marker.
std::string marker(const SeriesModel& series, std::size_t index, bool stock);
// <c:errBars> with custom amounts (distances from the point); empty text when the bars show
// neither direction.
std::string errorBars(const ErrorBarsModel& bars);

std::string lineSeries(const SeriesModel& series, std::size_t index, bool stock);
std::string barSeries(const SeriesModel& series, std::size_t index);
std::string scatterSeries(const SeriesModel& series, std::size_t index);

}  // namespace orv::chartxml
