#pragma once
// orvella sheets: the sheets of a workbook with their used ranges, and the names it defines, to
// find references. The text form aligns its columns by display width (cli/display_width.h) and
// counts "1 row", "2 rows"; --json gives
//   {"file": ..., "sheets": [{"name", "used", "rows", "columns"}],
//    "names": [{"name", "refers_to", "sheet", "hidden"}]}
// with "sheet" null for a workbook-level name. Hidden names (as built-in ones often are) are
// left out of the text form. FILE may be "-" for standard input.

namespace CLI {
class App;
}  // namespace CLI

namespace orv::cli {

void addSheetsCommand(CLI::App& app, int& exitCode);

}  // namespace orv::cli
