// Writes the seed corpus of every fuzz target: small real inputs, one folder per target.
// Usage: fuzz_make_corpus OUTDIR   (fuzz/run.sh calls it; the seeds are a few KB in all)
//
// Workbooks come from the library's own writer (deflated, as people's files are) and again with
// their parts stored uncompressed, so that mutations reach the XML as well as the zip layer.

#include <zip.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "fuzz_files.h"
#include "workbook/in_memory_application.h"
#include "xlsx/writer_workbook.h"

namespace {

namespace fs = std::filesystem;

void put(const fs::path& folder, const std::string& name, const std::string& bytes) {
  fs::create_directories(folder);
  std::ofstream(folder / name, std::ios::binary | std::ios::trunc) << bytes;
}

std::string readAll(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The same package with every entry stored.
std::string stored(const fs::path& package) {
  int error = 0;
  zip_t* in = zip_open(package.c_str(), ZIP_RDONLY, &error);
  std::vector<std::pair<std::string, std::string>> parts;
  for (zip_int64_t i = 0; in != nullptr && i < zip_get_num_entries(in, 0); ++i) {
    zip_stat_t st;
    zip_stat_index(in, static_cast<zip_uint64_t>(i), 0, &st);
    std::string content(static_cast<std::size_t>(st.size), '\0');
    zip_file_t* f = zip_fopen_index(in, static_cast<zip_uint64_t>(i), 0);
    zip_fread(f, content.data(), st.size);
    zip_fclose(f);
    parts.emplace_back(st.name, std::move(content));
  }
  if (in != nullptr) zip_discard(in);
  orv::fuzz::Parts views;
  for (const auto& [name, content] : parts) views.emplace_back(name, content);
  return readAll(orv::fuzz::writePackage("stored.xlsx", views));
}

// A small workbook written by the library: names in row 1, numbers, a text, a Boolean, an error.
fs::path writtenWorkbook(const fs::path& scratch, const std::string& name, int rows, bool twoSheets) {
  orv::InMemoryApplication app;
  std::vector<std::string> sheets = {"Data"};
  if (twoSheets) sheets.push_back("It's other");
  orv::InMemoryWorkbook& book = app.AddWorkbook(name, sheets);
  orv::InMemoryWorksheet& ws = book.Worksheets(1);
  ws.storeRaw(1, 1, "Height");
  ws.storeRaw(1, 2, "Weight");
  for (int r = 2; r <= rows + 1; ++r) {
    ws.storeRaw(r, 1, 10.0 + r * 0.5);
    ws.storeRaw(r, 2, 3.0 * r - 1.25);
  }
  ws.storeRaw(2, 3, true);
  ws.storeRaw(3, 3, orv::ErrorValue::Div0);
  ws.storeRaw(4, 3, "text & <markup>");
  const fs::path path = scratch / name;
  orv::writeNewWorkbook(book, path);
  return path;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: fuzz_make_corpus OUTDIR\n";
    return 2;
  }
  const fs::path out = argv[1];
  const fs::path& scratch = orv::fuzz::scratchFolder();

  int n = 0;
  for (const char* text : {"A1", "$B$7", "A1:C20", "$A$1:$C$20", "A:C", "$3:$5", "Data!A1:B4", "'My data'!A1",
                           "'It''s'!$A:$A,B2:B9", "XFD1048576", "a1,b2:c3"}) {
    put(out / "reference", "seed" + std::to_string(n++), text);
  }

  put(out / "csv", "comma", "Height,Weight\n1.5,2\n-3e2, 4 \n\"a,b\",\"x\"\"y\"\r\n");
  put(out / "csv", "semicolon", "\xEF\xBB\xBFn;v\n1,5;2\n;7\n");
  put(out / "csv", "tab",
      "\x01"
      "a\tb\n1\t2\n3\t\n");
  put(out / "csv", "latin1", "name,caf\xE9\n1,2\n");

  const fs::path small = writtenWorkbook(scratch, "small.xlsx", 3, false);
  const fs::path two = writtenWorkbook(scratch, "two.xlsx", 12, true);
  put(out / "xlsx_package", "small_deflated.xlsx", readAll(small));
  put(out / "xlsx_package", "small_stored.xlsx", stored(small));
  put(out / "xlsx_package", "two_stored.xlsx", stored(two));

  // Sheets for the describe run: names over columns of numbers, with a gap and a text.
  std::string columns = R"(<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"><sheetData>)"
                        R"(<row><c t="s"><v>0</v></c><c t="s"><v>1</v></c></row>)";
  for (int r = 2; r <= 12; ++r) {
    columns += "<row><c><v>" + std::to_string(r * 1.25) + "</v></c>" +
               (r == 7 ? std::string("<c/>") : "<c><v>" + std::to_string(100 - r * r) + "</v></c>") + "</row>";
  }
  put(out / "describe_run", "columns.xml", columns + "</sheetData></worksheet>");
  put(out / "describe_run", "plain.xml", orv::fuzz::sheetXml());

  using orv::fuzz::sheetXml;
  put(out / "xlsx_sheet", "plain.xml", sheetXml());
  put(out / "xlsx_sheet", "kinds.xml",
      R"(<?xml version="1.0"?><x:worksheet xmlns:x="http://schemas.openxmlformats.org/spreadsheetml/2006/main">)"
      R"(<x:sheetFormatPr defaultRowHeight="15"/><x:cols><x:col min="1" max="3" width="12.5"/></x:cols><x:sheetData>)"
      R"(<x:row r="3" ht="20"><x:c r="C3" t="inlineStr"><x:is><x:r><x:t>a_x000D_b</x:t></x:r></x:is></x:c>)"
      R"(<x:c t="b"><x:v>1</x:v></x:c><x:c t="e"><x:v>#N/A</x:v></x:c><x:c t="d"><x:v>2024-03-01T12:30:00</x:v></x:c>)"
      R"(<x:c t="str"><x:f>A1</x:f><x:v>&amp;&#x41;</x:v></x:c><x:c><x:v><![CDATA[7]]></x:v></x:c></x:row>)"
      R"(<x:row hidden="1"><x:c><x:v>1E3</x:v></x:c></x:row></x:sheetData></x:worksheet>)");
  put(out / "xlsx_shared_strings", "plain.xml", orv::fuzz::sharedStringsXml());
  put(out / "xlsx_shared_strings", "rich.xml",
      R"(<?xml version="1.0"?><sst xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" count="3">)"
      R"(<si><r><t>x</t></r><r><t xml:space="preserve"> y</t></r><rPh><t>p</t></rPh></si><si><t>_x005F_x</t></si><si/></sst>)");
  put(out / "xlsx_workbook", "plain.xml", orv::fuzz::workbookXml());
  put(out / "xlsx_workbook", "date1904.xml",
      R"(<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" )"
      R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships"><workbookPr date1904="1"/>)"
      R"(<sheets><sheet name="Data" sheetId="1" r:id="rId1"/></sheets></workbook>)");
  return 0;
}
