#include "xlsx/writer_column_splice.h"

#include <cstdlib>

#include "workbook/sheet_geometry.h"
#include "xlsx/column_width.h"
#include "xlsx/writer_xml.h"

namespace orv {
namespace {

std::int32_t bound(const pugi::xml_node& col, std::string_view name) { return xml::attributeNamed(col, name).as_int(); }

void setBound(pugi::xml_node col, const char* name, std::int32_t value) {
  pugi::xml_attribute a = xml::attributeNamed(col, name);
  if (!a) a = col.append_attribute(name);
  a.set_value(value);
}

// The <col> whose min..max holds the column, or the first one that starts after it (where a new
// one goes); empty handles when there is none.
struct Place {
  pugi::xml_node covering;
  pugi::xml_node after;
};

Place placeOf(const pugi::xml_node& cols, std::int32_t column) {
  for (pugi::xml_node col = cols.first_child(); col; col = col.next_sibling()) {
    if (!xml::isElement(col, "col")) continue;
    if (bound(col, "min") > column) return {{}, col};
    if (bound(col, "max") >= column) return {col, {}};
  }
  return {};
}

// The column's own <col>: the covering one narrowed to it, its other columns in copies before and
// after, or a new one.
pugi::xml_node ownCol(pugi::xml_node cols, std::int32_t column, const std::string& prefix) {
  const Place place = placeOf(cols, column);
  pugi::xml_node col = place.covering;
  if (!col) {
    col = place.after ? cols.insert_child_before((prefix + "col").c_str(), place.after)
                      : cols.append_child((prefix + "col").c_str());
  } else {
    const std::int32_t min = bound(col, "min"), max = bound(col, "max");
    if (min < column) setBound(cols.insert_copy_before(col, col), "max", column - 1);
    if (max > column) setBound(cols.insert_copy_after(col, col), "min", column + 1);
  }
  setBound(col, "min", column);
  setBound(col, "max", column);
  return col;
}

bool partWidthIs(const pugi::xml_node& cols, std::int32_t column, double points) {
  const pugi::xml_node col = cols ? placeOf(cols, column).covering : pugi::xml_node{};
  const pugi::xml_attribute width = col ? xml::attributeNamed(col, "width") : pugi::xml_attribute{};
  return width && columnWidthPoints(std::strtod(width.value(), nullptr)) == points;
}

}  // namespace

void spliceColumnWidths(pugi::xml_node worksheet, const SheetGeometry& geometry, std::int32_t first, std::int32_t last,
                        const std::string& prefix) {
  pugi::xml_node cols = xml::child(worksheet, "cols");
  const auto& widths = geometry.customColumnWidths();
  for (auto it = widths.lower_bound(first); it != widths.end() && it->first <= last; ++it) {
    const auto [column, points] = *it;
    if (partWidthIs(cols, column, points)) continue;
    if (!cols) cols = worksheet.insert_child_before((prefix + "cols").c_str(), xml::child(worksheet, "sheetData"));
    pugi::xml_node col = ownCol(cols, column, prefix);
    pugi::xml_attribute width = xml::attributeNamed(col, "width");
    if (!width) width = col.append_attribute("width");
    width.set_value(xml::number(columnWidthCharacters(points)).c_str());
    pugi::xml_attribute custom = xml::attributeNamed(col, "customWidth");
    if (!custom) custom = col.append_attribute("customWidth");
    custom.set_value("1");
  }
}

}  // namespace orv
