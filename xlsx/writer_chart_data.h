#pragma once
// The data elements of a chart series: values and error amounts as references to cells with a
// cache of their numbers (numRef), or as literal numbers (numLit) when they come from no cells;
// category labels as strRef with a text cache, or literal texts (strLit); series names.
//
// Caches hold every point the model cached; an empty cell (nullopt) keeps its place in ptCount
// but has no <c:pt>. References are absolute and sheet-qualified ('My sheet'!$B$2:$D$2), so the
// chart follows edits of those cells.

#include <string>
#include <string_view>

#include "workbook/chart_model.h"

namespace orv::chartxml {

// 'Results'!$B$1:$D$1 (the sheet name quoted only where a formula needs it).
std::string formula(const SheetRef& ref);

// <c:NAME><c:numRef>...</c:numRef></c:NAME>, or numLit from `literal` when there are no cells.
std::string numberData(std::string_view name, const ChartData& data);
// <c:NAME><c:strRef>...</c:strRef></c:NAME>; strLit from the cached texts when the labels name
// no cells (LibreOffice ignores those and numbers the points); empty text when there are neither.
std::string labelData(std::string_view name, const ChartLabels& labels);
// <c:tx> naming the series from its cell (with the name as cache) or literally; empty text
// for a series without a name.
std::string seriesText(const SeriesModel& series);

}  // namespace orv::chartxml
