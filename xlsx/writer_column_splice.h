#pragma once
// Puts the model's column widths into an existing worksheet part, for the columns a splice
// writes: a column the model gives a width of its own that the part does not give it gets a <col>
// of that width (customWidth), cut out of an existing <col> that spans it (the pieces on either
// side keep every attribute) or inserted in column order; <cols> is made just before <sheetData>
// when the part has none. Every other column, and every other attribute, stays as it was.

#include <cstdint>
#include <string>

#include <pugixml.hpp>

namespace orv {

class SheetGeometry;

void spliceColumnWidths(pugi::xml_node worksheet, const SheetGeometry& geometry, std::int32_t first, std::int32_t last,
                        const std::string& prefix);

}  // namespace orv
