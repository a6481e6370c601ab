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
  std::vector<orv::CellValue> values;
};

// Heights (cm) of 12 bean plants after four weeks under three treatments.
const std::vector<Column> kPlantHeights = {
    {"Control", {21.4, 19.8, 23.1, 22.0, 20.5, 24.3, 18.9, 22.7, 21.1, 20.2, 23.8, 21.9}},
    {"Fertiliser", {26.2, 28.9, 25.4, 30.1, 27.7, 29.3, 26.8, 31.5, 28.0, 27.1, 29.9, 28.4}},
    {"Shade", {17.3, 15.9, 18.8, 16.4, 17.9, 15.1, 19.2, 16.8, 17.5, 16.1, 18.3, 17.0}},
};

// Vanishing bearings (degrees clockwise from north) of 15 homing pigeons released at each of two
// sites: near home the birds head north, either side of 0; from the far site they scatter more
// widely around south-east.
const std::vector<Column> kPigeonHeadings = {
    {"Kestrel Farm", {345, 12, 38, 326, 5, 29, 356, 21, 358, 310, 47, 8, 339, 33, 14}},
    {"Millbrook", {112, 145, 98, 167, 131, 84, 152, 120, 189, 105, 138, 73, 160, 126, 201}},
};

// Thirty participants of a taste survey: simple reaction time (ms) to a light, their favourite
// fruit, and the lower edges of 50 ms bins for the reaction times.
const std::vector<Column> kSurvey = {
    {"Reaction (ms)", {287, 312, 254, 341, 298, 276, 365, 302, 289, 318, 243, 331, 295, 307, 272,
                       352, 284, 326, 261, 299, 313, 388, 279, 305, 292, 337, 268, 463, 301, 322}},
    {"Favourite fruit",
     {"Apple",  "Banana", "Apple",      "Mango",      "Orange", "Banana", "Apple", "Grape", "Mango",  "Apple",
      "Orange", "Banana", "Apple",      "Strawberry", "Mango",  "Banana", "Apple", "Grape", "Orange", "Apple",
      "Banana", "Mango",  "Strawberry", "Apple",      "Banana", "Orange", "Apple", "Grape", "Banana", "Mango"}},
    {"Bin (ms)", {200, 250, 300, 350, 400}},
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

void write(orv::InMemoryApplication& app, const std::filesystem::path& dir, const char* file, const char* sheet,
           const std::vector<Column>& columns) {
  orv::InMemoryWorkbook& book = app.AddWorkbook(file, {sheet});
  fill(book.Worksheets(sheet), columns);
  orv::writeNewWorkbook(book, dir / file);
}

}  // namespace

int main(int argc, char** argv) {
  const std::filesystem::path dir = argc > 1 ? argv[1] : ".";
  try {
    orv::InMemoryApplication app;
    write(app, dir, "plants.xlsx", "Heights", kPlantHeights);
    write(app, dir, "headings.xlsx", "Pigeons", kPigeonHeadings);
    write(app, dir, "survey.xlsx", "Survey", kSurvey);
  } catch (const orv::ComponentError& e) {
    std::fprintf(stderr, "make_examples: %s\n", e.description().c_str());
    return 1;
  }
  return 0;
}
