#pragma once
// Puts the charts of one sheet into a package being written: a chart part per chart, the
// sheet's drawing part holding their anchors, the relationships from sheet to drawing and from
// drawing to charts, and the content types of the new parts.
//
// A sheet that already has a drawing (a <drawing r:id> reaching an existing part) gets the
// anchors appended to that drawing, leaving its objects as they were; otherwise a new drawing
// is made and a <drawing r:id> is put into the sheet part in its schema place (before
// legacyDrawing, tableParts, extLst and the like). New part names (xl/drawings/drawingM.xml,
// xl/charts/chartK.xml) take the first numbers no part uses, compared without case.
//
// Parts are read through PartSet: what the writer already produced, else the original package.
// A sheet part that is missing or no XML raises kFileUnwritable.

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "workbook/chart_model.h"
#include "workbook/sheet_geometry.h"

namespace orv {

inline constexpr std::string_view kDrawingContentType = "application/vnd.openxmlformats-officedocument.drawing+xml";
inline constexpr std::string_view kChartContentType =
    "application/vnd.openxmlformats-officedocument.drawingml.chart+xml";

class PartSet {
 public:
  using Reader = std::function<std::optional<std::string>(const std::string&)>;
  using Overrides = std::vector<std::pair<std::string, std::string>>;

  // `edited` holds new and changed parts by name, `overrides` the content types to add; both
  // are owned by the caller, who writes them out. `existingNames` are the package's part names.
  PartSet(Reader original, std::map<std::string, std::string>& edited, Overrides& overrides,
          const std::vector<std::string>& existingNames);

  std::optional<std::string> read(const std::string& part) const;
  void write(const std::string& part, std::string content, std::optional<std::string_view> contentType = std::nullopt);
  // "<folder><stem>N.xml" with the first N that no part uses, reserved from then on.
  std::string freshName(std::string_view folder, std::string_view stem);

 private:
  Reader original_;
  std::map<std::string, std::string>& edited_;
  Overrides& overrides_;
  std::set<std::string> lowerNames_;
};

// Nothing happens for a sheet without charts.
void attachCharts(PartSet& parts, const std::string& sheetPart, const SheetGeometry& geometry,
                  const std::vector<ChartModel>& charts);

// The relationship target that leads from `source` to `target` (both package part names):
// "../drawings/drawing1.xml" from "xl/worksheets/sheet1.xml".
std::string relativeTarget(std::string_view source, std::string_view target);

}  // namespace orv
