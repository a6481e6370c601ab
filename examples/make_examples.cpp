// Writes the example workbooks of examples/ from data kept here, so that they can be re-made and
// reviewed as text: make_examples OUTDIR.

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "frame/errors.h"
#include "workbook/in_memory_application.h"
#include "xlsx/writer_workbook.h"

namespace {

struct Column {
  const char* name;
  std::vector<double> values;
};

// Heights (cm) of 12 bean plants after four weeks under three treatments.
const std::vector<Column> kPlantHeights = {
    {"Control", {21.4, 19.8, 23.1, 22.0, 20.5, 24.3, 18.9, 22.7, 21.1, 20.2, 23.8, 21.9}},
    {"Fertiliser", {26.2, 28.9, 25.4, 30.1, 27.7, 29.3, 26.8, 31.5, 28.0, 27.1, 29.9, 28.4}},
    {"Shade", {17.3, 15.9, 18.8, 16.4, 17.9, 15.1, 19.2, 16.8, 17.5, 16.1, 18.3, 17.0}},
};

void fill(orv::InMemoryWorksheet& sheet, const std::vector<Column>& columns) {
  for (std::size_t c = 0; c < columns.size(); ++c) {
    const auto col = static_cast<std::int32_t>(c + 1);
    sheet.storeRaw(1, col, columns[c].name);
    for (std::size_t r = 0; r < columns[c].values.size(); ++r) {
      sheet.storeRaw(static_cast<std::int32_t>(r + 2), col, columns[c].values[r]);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::filesystem::path dir = argc > 1 ? argv[1] : ".";
  try {
    orv::InMemoryApplication app;
    orv::InMemoryWorkbook& plants = app.AddWorkbook("plants.xlsx", {"Heights"});
    fill(plants.Worksheets("Heights"), kPlantHeights);
    orv::writeNewWorkbook(plants, dir / "plants.xlsx");
  } catch (const orv::ComponentError& e) {
    std::fprintf(stderr, "make_examples: %s\n", e.description().c_str());
    return 1;
  }
  return 0;
}
