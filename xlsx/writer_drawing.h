#pragma once
// The drawing part of a sheet (xl/drawings/drawingM.xml): one one-cell anchor per chart,
// placed at the chart's recorded position and sized exactly.
//
// A position in points from the sheet's top-left corner becomes the cell that contains it plus
// an offset inside that cell, found by walking the sheet's row heights and column widths, so
// that no offset overruns its cell (readers differ on offsets that do). Hidden rows and columns
// (size 0) are skipped; positions left of or above the sheet are taken as 0.
// Units: EMU (12 700 per point), rows and columns 0-based as the file format counts them.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "workbook/sheet_geometry.h"

namespace orv {

inline constexpr std::int64_t kEmuPerPoint = 12700;

struct ChartAnchor {
  std::int32_t column = 0;  // 0-based
  std::int64_t columnOffset = 0;
  std::int32_t row = 0;  // 0-based
  std::int64_t rowOffset = 0;
  std::int64_t width = 0;
  std::int64_t height = 0;
};

ChartAnchor anchorFor(const SheetGeometry& geometry, double left, double top, double width, double height);

struct DrawnChart {
  ChartAnchor anchor;
  std::string name;            // "Chart 1"
  std::string relationshipId;  // of the chart part, in the drawing's rels
};

// One <xdr:oneCellAnchor>; `prefix` is the drawing's prefix for its own namespace ("xdr:" or
// ""), `shapeId` unique within the drawing. The a: and r: namespaces are declared on the
// anchor when `declareNamespaces` (for appending to a drawing written elsewhere).
std::string anchorXml(const DrawnChart& chart, std::uint32_t shapeId, std::string_view prefix, bool declareNamespaces);

// A new drawing part holding the charts (shape ids 2, 3, ...).
std::string freshDrawingXml(const std::vector<DrawnChart>& charts);
// An existing drawing part with the charts appended after its own objects, with shape ids
// above the highest one it uses. Raises kFileUnwritable when the part is no XML.
std::string drawingWithCharts(std::string_view drawingXml, std::string_view partName,
                              const std::vector<DrawnChart>& charts);

}  // namespace orv
