#pragma once
// A workbook with defined names, made as the reader meets them in a file: the package of a new
// workbook with a <definedNames> element put into its workbook part.

#include "cli_fixture.h"
#include "test_packages.h"

namespace orv::test {

// A workbook whose sheets "Data" and "Other" hold three columns each, with names defined over
// them: "Heights" for Data's block, "Left" for its first column at workbook level and for
// Other's first column at Other's level, "Bins" for Data's third column below its header.
inline std::filesystem::path namedWorkbook(const std::filesystem::path& dir) {
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("named.xlsx", {"Data", "Other"});
  const double values[][3] = {{21.4, 28.1, 200}, {19.8, 27.5, 250}, {23.1, 30.2, 300}, {20.7, 26.9, 0}};
  for (const char* sheet : {"Data", "Other"}) {
    InMemoryWorksheet& s = book.Worksheets(sheet);
    s.storeRaw(1, 1, CellValue("Control"));
    s.storeRaw(1, 2, CellValue("Shade"));
    s.storeRaw(1, 3, CellValue("Bin"));
    for (std::int32_t r = 0; r < 4; ++r) {
      for (std::int32_t c = 0; c < 3; ++c) {
        if (r < 3 || c < 2) s.storeRaw(r + 2, c + 1, CellValue(values[r][c] + (std::string(sheet) == "Other" ? 1 : 0)));
      }
    }
  }
  const auto plain = dir / "plain.xlsx";
  writeNewWorkbook(book, plain);
  ZipContents zip = readZip(plain);
  std::string& workbookXml = zip.entries["xl/workbook.xml"];
  const std::string names =
      "<definedNames><definedName name=\"Heights\">Data!$A$1:$B$5</definedName>"
      "<definedName name=\"Left\">Data!$A$1:$A$5</definedName>"
      "<definedName name=\"Left\" localSheetId=\"1\">Other!$A$1:$A$5</definedName>"
      "<definedName name=\"Bins\">Data!$C$2:$C$4</definedName>"
      "<definedName name=\"_xlnm._FilterDatabase\" localSheetId=\"0\" hidden=\"1\">Data!$A$1:$C$5</definedName>"
      "</definedNames>";
  const std::size_t at = workbookXml.find("</sheets>") + std::string("</sheets>").size();
  workbookXml.insert(at, names);
  Parts parts;
  for (const std::string& name : zip.order) parts.emplace_back(name, zip.entries[name]);
  return writeZip(dir / "named.xlsx", parts);
}

}  // namespace orv::test
