// Writes the end-to-end benchmark's input: one sheet "Data" of COLUMNS numeric columns by ROWS
// rows of pseudo-random numbers (fixed seed); with "headers", a row of names ("Height 1" ...)
// above them.
//   make_large_workbook OUT.xlsx [ROWS] [COLUMNS] [headers]

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "frame/errors.h"
#include "workbook/in_memory_application.h"
#include "xlsx/writer_workbook.h"

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: make_large_workbook OUT.xlsx [ROWS] [COLUMNS]\n");
    return 2;
  }
  const int rows = argc > 2 ? std::atoi(argv[2]) : 32767;
  const int columns = argc > 3 ? std::atoi(argv[3]) : 100;
  const bool headers = argc > 4 && std::string(argv[4]) == "headers";
  const int top = headers ? 2 : 1;
  try {
    orv::InMemoryApplication app;
    orv::InMemoryWorkbook& book = app.AddWorkbook("large.xlsx", {"Data"});
    orv::InMemoryWorksheet& sheet = book.Worksheets("Data");
    std::mt19937_64 random(20261122);
    std::normal_distribution<double> height(170.0, 9.5);
    for (int c = 1; c <= columns; ++c) {
      if (headers) sheet.storeRaw(1, c, "Height " + std::to_string(c));
      for (int r = 0; r < rows; ++r) {
        // Four decimals, as measured data usually carry.
        sheet.storeRaw(top + r, c, std::round(height(random) * 1e4) / 1e4);
      }
    }
    orv::writeNewWorkbook(book, argv[1]);
  } catch (const orv::ComponentError& e) {
    std::fprintf(stderr, "make_large_workbook: %s\n", e.description().c_str());
    return 1;
  }
  return 0;
}
