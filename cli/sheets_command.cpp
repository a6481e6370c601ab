#include "cli/sheets_command.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <filesystem>
#include <iostream>
#include <memory>

#include "cli/analysis_run.h"
#include "cli/error_messages.h"
#include "cli/file_checks.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/reference.h"
#include "workbook/in_memory_application.h"
#include "xlsx/reader_workbook.h"

namespace orv::cli {
namespace {

std::string relativeAddress(const CellBlock& b) {
  std::string s = columnLetters(b.left) + std::to_string(b.top);
  if (b.rows() > 1 || b.columns() > 1) s += ":" + columnLetters(b.right) + std::to_string(b.bottom);
  return s;
}

int run(const std::filesystem::path& file, bool json) {
  if (const auto why = cannotOpen(file)) {
    std::cerr << "orvella: cannot open \"" << file.string() << "\": " << *why << "\n";
    return kExitFailed;
  }
  InMemoryApplication app;
  try {
    Workbook& book = openWorkbookFile(app, file).book;
    nlohmann::json sheets = nlohmann::json::array();
    for (std::int32_t i = 1; i <= book.WorksheetsCount(); ++i) {
      Worksheet& sheet = book.Worksheets(i);
      const std::optional<CellBlock> used = sheet.usedBlock();
      const std::string reference = used ? quoteSheetName(sheet.Name()) + "!" + relativeAddress(*used) : "";
      if (json) {
        sheets.push_back({{"name", sheet.Name()},
                          {"used", used ? nlohmann::json(reference) : nlohmann::json(nullptr)},
                          {"rows", used ? used->rows() : 0},
                          {"columns", used ? used->columns() : 0}});
      } else if (used) {
        std::cout << fmt::format("{:<24} {:<28} {} rows x {} columns\n", sheet.Name(), reference,
                                 used->rows(), used->columns());
      } else {
        std::cout << fmt::format("{:<24} (empty)\n", sheet.Name());
      }
    }
    if (json) std::cout << nlohmann::json{{"file", file.string()}, {"sheets", sheets}}.dump(2) << "\n";
    return kExitOk;
  } catch (const ComponentError& e) {
    std::cerr << "orvella: " << messageFor(e, {}) << "\n";
    return kExitFailed;
  }
}

}  // namespace

void addSheetsCommand(CLI::App& app, int& exitCode) {
  struct Options {
    std::filesystem::path file;
    bool json = false;
  };
  auto o = std::make_shared<Options>();
  CLI::App* cmd = app.add_subcommand("sheets", "List the sheets of a workbook with their used ranges");
  cmd->footer("Example:\n  orvella sheets plants.xlsx");
  cmd->add_option("FILE", o->file, "workbook (.xlsx, .xlsm, .csv, .tsv)")->required();
  cmd->add_flag("--json", o->json, "print JSON");
  cmd->callback([o, &exitCode] { exitCode = run(o->file, o->json); });
}

}  // namespace orv::cli
