#pragma once
// orvella sheets: the sheets of a workbook with their used ranges, to find references.

namespace CLI {
class App;
}  // namespace CLI

namespace orv::cli {

void addSheetsCommand(CLI::App& app, int& exitCode);

}  // namespace orv::cli
