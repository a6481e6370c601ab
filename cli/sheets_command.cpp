#include "cli/sheets_command.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>

#include "cli/analysis_run.h"
#include "cli/display_width.h"
#include "cli/error_messages.h"
#include "cli/file_checks.h"
#include "cli/help_model.h"
#include "cli/run_exits.h"
#include "cli/standard_input.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/reference.h"
#include "workbook/in_memory_application.h"
#include "xlsx/reader_workbook.h"

namespace orv::cli {
namespace {

using Json = nlohmann::ordered_json;
using Table = std::vector<std::vector<std::string>>;

std::string relativeAddress(const CellBlock& b) {
  std::string s = columnLetters(b.left) + std::to_string(b.top);
  if (b.rows() > 1 || b.columns() > 1) s += ":" + columnLetters(b.right) + std::to_string(b.bottom);
  return s;
}

std::string counted(std::int32_t n, const char* one, const char* many) {
  return std::to_string(n) + " " + (n == 1 ? one : many);
}

// Columns separated by three blanks, each as wide as its widest cell on the terminal.
void printTable(const Table& rows) {
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t c = 0; c < row.size(); ++c) widths[c] = std::max(widths[c], displayWidth(row[c]));
  }
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t c = 0; c < row.size(); ++c)
      line += c + 1 == row.size() ? row[c] : padRight(row[c], widths[c]) + "   ";
    std::cout << line << "\n";
  }
}

void listSheets(InMemoryWorkbook& book, Table& table, Json& json) {
  for (std::int32_t i = 1; i <= book.WorksheetsCount(); ++i) {
    Worksheet& sheet = book.Worksheets(i);
    const std::optional<CellBlock> used = sheet.usedBlock();
    const std::string reference = used ? quoteSheetName(sheet.Name()) + "!" + relativeAddress(*used) : "";
    json.push_back({{"name", sheet.Name()},
                    {"used", used ? Json(reference) : Json(nullptr)},
                    {"rows", used ? used->rows() : 0},
                    {"columns", used ? used->columns() : 0}});
    if (used) {
      table.push_back({sheet.Name(), reference,
                       counted(used->rows(), "row", "rows") + " x " + counted(used->columns(), "column", "columns")});
    } else {
      table.push_back({sheet.Name(), "(empty)"});
    }
  }
}

void listNames(const InMemoryWorkbook& book, Table& table, Json& json) {
  for (const DefinedName& name : book.names()) {
    json.push_back({{"name", name.name},
                    {"refers_to", name.reference},
                    {"sheet", name.sheet ? Json(*name.sheet) : Json(nullptr)},
                    {"hidden", name.hidden}});
    if (name.hidden) continue;
    table.push_back({name.name, name.reference});
    if (name.sheet) table.back().push_back("(of the sheet " + *name.sheet + " only)");
  }
}

int run(const std::filesystem::path& given, bool json) {
  const FileOptions files{given, {}, false, json};
  std::optional<StandardInputCopy> standardInput;
  std::filesystem::path file = given;
  try {
    if (given == kStandardInputName) {
      standardInput.emplace();
      file = standardInput->path();
      if (std::filesystem::file_size(file) == 0) throw std::runtime_error(kEmptyStandardInput);
    }
  } catch (const std::runtime_error& e) {
    return reportFailure(files, {kExitFailed, e.what(), std::nullopt, {}});
  }
  if (const auto why = cannotOpen(file)) {
    return reportFailure(files, {kExitFailed, "cannot open \"" + file.string() + "\": " + *why, std::nullopt, {}});
  }
  InMemoryApplication app;
  try {
    InMemoryWorkbook& book = openWorkbookFile(app, file).book;
    Table sheets, names;
    Json sheetsJson = Json::array(), namesJson = Json::array();
    listSheets(book, sheets, sheetsJson);
    listNames(book, names, namesJson);
    if (json) {
      std::cout << Json{{"file", given.string()}, {"sheets", sheetsJson}, {"names", namesJson}}.dump(2) << "\n";
      return kExitOk;
    }
    printTable(sheets);
    if (!names.empty()) {
      std::cout << "\nNames:\n";
      printTable(names);
    }
    return kExitOk;
  } catch (const ComponentError& e) {
    return reportFailure(files, {kExitFailed, sentenceFor(e, {}), e.number(), e.source()});
  }
}

}  // namespace

void addSheetsCommand(CLI::App& app, int& exitCode) {
  struct Options {
    std::filesystem::path file;
    bool json = false;
  };
  auto o = std::make_shared<Options>();
  CLI::App* cmd = app.add_subcommand("sheets", "List the sheets of a workbook with their used ranges, and its names");
  cmd->footer("Examples:\n  orvella sheets plants.xlsx\n  orvella sheets - < data.csv");
  cmd->add_option("FILE", o->file, "workbook (.xlsx, .xlsm, .csv, .tsv), or - for standard input")
      ->required()
      ->type_name("FILE")
      ->group(kInputGroup);
  cmd->add_flag("--json", o->json, "print the sheets and names as one JSON document")->group(kOutputGroup);
  cmd->callback([o, &exitCode] { exitCode = run(o->file, o->json); });
}

}  // namespace orv::cli
