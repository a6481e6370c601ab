#pragma once
// What a workbook file holds, read back in a form two files can be compared by, whichever program
// wrote them: every cell value, and every chart with the sources of its series. An office suite
// that converts a workbook renumbers parts, axes and series and may quote references
// differently; none of that shows here.

#include <filesystem>
#include <string>
#include <vector>

#include "workbook/in_memory_workbook.h"

namespace orv::test {

// "Sheet!B7 number 12.5" for every non-empty cell, sheet by sheet in tab order, row by row.
std::vector<std::string> cellLines(const std::filesystem::path& file);
std::vector<std::string> cellLines(InMemoryWorkbook& book);

// One chart: the sheet it lies on and the cell its anchor starts in, its title, and one line per
// series in plot order: "lineChart tx=Normal cat=Results!$B$1:$D$1 val=... plus=... minus=lit{1.6;1.1}".
// References are given as the sheet name unquoted and the areas in absolute form.
struct ChartSources {
  std::string place;  // "Results!F1"
  std::string title;
  std::vector<std::string> series;
  friend bool operator==(const ChartSources&, const ChartSources&) = default;
};

// Every chart of the workbook, sheet by sheet in tab order, in the order of the sheets' drawings.
std::vector<ChartSources> chartSources(const std::filesystem::path& file);

std::ostream& operator<<(std::ostream& out, const ChartSources& chart);

}  // namespace orv::test
