#include "xlsx/writer_chart_data.h"

#include "frame/reference.h"
#include "xlsx/writer_xml.h"

namespace orv::chartxml {
namespace {

std::string point(std::size_t index, std::string_view value) {
  return "<c:pt idx=\"" + std::to_string(index) + "\"><c:v>" + std::string(value) + "</c:v></c:pt>";
}

std::string count(std::size_t n) { return "<c:ptCount val=\"" + std::to_string(n) + "\"/>"; }

// formatCode, ptCount and the points: the body of numCache and numLit alike.
std::string numbers(const std::vector<std::optional<double>>& values) {
  std::string out = "<c:formatCode>General</c:formatCode>" + count(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i]) out += point(i, xml::number(*values[i]));
  }
  return out;
}

std::string wrap(std::string_view name, const std::string& body) {
  return "<c:" + std::string(name) + ">" + body + "</c:" + std::string(name) + ">";
}

}  // namespace

std::string formula(const SheetRef& ref) { return quoteSheetName(ref.sheet) + "!" + absoluteAddress(ref.block); }

std::string numberData(std::string_view name, const ChartData& data) {
  if (!data.cells) return wrap(name, "<c:numLit>" + numbers(data.literal) + "</c:numLit>");
  return wrap(name, "<c:numRef><c:f>" + xml::text(formula(*data.cells)) + "</c:f><c:numCache>" + numbers(data.cached) +
                        "</c:numCache></c:numRef>");
}

std::string labelData(std::string_view name, const ChartLabels& labels) {
  std::string cache = count(labels.cached.size());
  for (std::size_t i = 0; i < labels.cached.size(); ++i) cache += point(i, xml::text(labels.cached[i]));
  if (!labels.cells) return labels.cached.empty() ? std::string() : wrap(name, "<c:strLit>" + cache + "</c:strLit>");
  return wrap(name, "<c:strRef><c:f>" + xml::text(formula(*labels.cells)) + "</c:f><c:strCache>" + cache +
                        "</c:strCache></c:strRef>");
}

std::string seriesText(const SeriesModel& series) {
  if (series.nameCell) {
    return "<c:tx><c:strRef><c:f>" + xml::text(formula(*series.nameCell)) + "</c:f><c:strCache>" + count(1) +
           point(0, xml::text(series.name)) + "</c:strCache></c:strRef></c:tx>";
  }
  if (series.name.empty()) return {};
  return "<c:tx><c:v>" + xml::text(series.name) + "</c:v></c:tx>";
}

}  // namespace orv::chartxml
