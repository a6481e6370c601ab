#include "xlsx/writer_workbook.h"

#include <map>
#include <optional>
#include <utility>

#include "frame/errors.h"
#include "frame/procedure.h"
#include "workbook/in_memory_workbook.h"
#include "xlsx/package_atomic_write.h"
#include "xlsx/package_parts.h"
#include "xlsx/package_zip.h"
#include "xlsx/writer_drawing_package.h"
#include "xlsx/writer_package_edit.h"
#include "xlsx/writer_sheet.h"
#include "xlsx/writer_styles.h"

namespace orv {
namespace {

// Writer failures report under the same class as the reader's ("WorkbookFile.Open").
constexpr Procedures kProc("WorkbookFile");

using Overrides = std::vector<std::pair<std::string, std::string>>;

[[noreturn]] void unwritable(const std::filesystem::path& out, std::string_view why) {
  raise(err::kFileUnwritable, "Cannot write \"" + out.string() + "\": " + std::string(why));
}

// The copy of the original, opened for editing; a copy that is no package is blamed on the
// original, which is what the person can look at.
ZipPackage openCopyOf(const std::filesystem::path& original, const std::filesystem::path& copy,
                      const std::filesystem::path& out) {
  try {
    return ZipPackage::open(copy);
  } catch (const ComponentError& e) {
    const std::string why = e.description();
    const std::size_t cause = why.rfind(": ");
    unwritable(out, "the original workbook \"" + original.string() + "\" cannot be opened as a package (" +
                        (cause == std::string::npos ? why : why.substr(cause + 2)) + ")");
  }
}

// Turns library failures into the one error type, naming the file.
template <class Body>
void guarded(const std::filesystem::path& out, Body&& body) {
  try {
    body();
  } catch (const ComponentError&) {
    throw;
  } catch (const std::filesystem::filesystem_error& e) {
    unwritable(out, e.code().message() + " (" + e.path1().string() + ")");
  } catch (const std::bad_alloc&) {
    raise(err::kOutOfMemory);
  }
}

std::vector<InMemoryWorksheet*> sheetsOf(InMemoryWorkbook& book) {
  std::vector<InMemoryWorksheet*> sheets;
  for (std::int32_t i = 1; i <= book.WorksheetsCount(); ++i) sheets.push_back(&book.Worksheets(i));
  return sheets;
}

// Every part of a new workbook but the fixed ones, in package order.
struct NewPackage {
  std::vector<std::pair<std::string, std::string>> sheetParts;
  std::vector<package::Relationship> workbookRels;
  std::vector<package::SheetEntry> entries;
  Overrides overrides{{"xl/workbook.xml", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"},
                      {"xl/styles.xml", std::string(package::kStylesType)}};
  std::int32_t activeTab = 0;
  std::map<std::string, std::string> chartParts;  // drawings, charts, their rels
};

// xl/worksheets/sheetN.xml for the Nth sheet, with its relationship, entry and content type.
void addSheetParts(NewPackage& fresh, const std::vector<InMemoryWorksheet*>& sheets, const InMemoryWorksheet* active,
                   StyleSheet& styles) {
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    const std::string id = "rId" + std::to_string(i + 1);
    const std::string target = "worksheets/sheet" + std::to_string(i + 1) + ".xml";
    const bool select = sheets[i] == active;
    if (select) fresh.activeTab = static_cast<std::int32_t>(i);
    fresh.sheetParts.emplace_back("xl/" + target,
                                  worksheetXml(*sheets[i], styles, SheetPartOptions{select, std::nullopt}));
    fresh.workbookRels.push_back({id, package::relationshipType("worksheet"), target, false});
    fresh.entries.push_back({sheets[i]->Name(), id});
    fresh.overrides.emplace_back("xl/" + target, std::string(package::kWorksheetType));
  }
  fresh.workbookRels.push_back(
      {"rId" + std::to_string(sheets.size() + 1), package::relationshipType("styles"), "styles.xml", false});
}

// The charts of every sheet; a sheet that gets a drawing takes its new text from the chart parts.
void addChartParts(NewPackage& fresh, const std::vector<InMemoryWorksheet*>& sheets) {
  std::vector<std::string> names;
  for (const auto& [part, content] : fresh.sheetParts) names.push_back(part);
  const auto& sheetParts = fresh.sheetParts;
  PartSet chartSet(
      [&sheetParts](const std::string& name) -> std::optional<std::string> {
        for (const auto& [part, content] : sheetParts) {
          if (part == name) return content;
        }
        return std::nullopt;
      },
      fresh.chartParts, fresh.overrides, names);
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    attachCharts(chartSet, fresh.sheetParts[i].first, sheets[i]->geometry(), sheets[i]->charts());
  }
  for (auto& [part, content] : fresh.sheetParts) {
    if (auto given = fresh.chartParts.find(part); given != fresh.chartParts.end()) {
      content = std::move(given->second);
      fresh.chartParts.erase(given);
    }
  }
}

void putNewPackage(ZipPackage& zip, NewPackage& fresh, const StyleSheet& styles) {
  zip.put("[Content_Types].xml", package::freshContentTypes(fresh.overrides));
  zip.put("_rels/.rels", package::freshRelationships(
                             {{"rId1", package::relationshipType("officeDocument"), "xl/workbook.xml", false}}));
  zip.put("xl/workbook.xml", package::freshWorkbook(fresh.entries, fresh.activeTab));
  zip.put("xl/_rels/workbook.xml.rels", package::freshRelationships(fresh.workbookRels));
  zip.put("xl/styles.xml", styles.xml());
  for (auto& [part, content] : fresh.sheetParts) zip.put(part, std::move(content));
  for (auto& [part, content] : fresh.chartParts) zip.put(part, std::move(content));
}

}  // namespace

void writeNewWorkbook(InMemoryWorkbook& book, const std::filesystem::path& out) {
  kProc("SaveAs", [&] {
    guarded(out, [&] {
      const std::vector<InMemoryWorksheet*> sheets = sheetsOf(book);
      if (sheets.empty()) unwritable(out, "the workbook has no sheets");
      StyleSheet styles(StyleSheet::freshXml());
      NewPackage fresh;
      addSheetParts(fresh, sheets, book.activeSheet(), styles);
      addChartParts(fresh, sheets);
      writeFileAtomically(out, [&](const std::filesystem::path& temporary) {
        ZipPackage zip = ZipPackage::create(temporary);
        putNewPackage(zip, fresh, styles);
        zip.commit();
      });
    });
  });
}

void writeIntoPackage(const std::filesystem::path& original, InMemoryWorkbook& book,
                      const std::vector<SheetChange>& changes, const std::filesystem::path& out) {
  kProc("Save", [&] {
    guarded(out, [&] {
      writeFileAtomically(out, [&](const std::filesystem::path& temporary) {
        // libzip rewrites an archive it has open; working on a copy leaves the original alone
        // and lets every untouched entry keep its compressed bytes.
        std::filesystem::copy_file(original, temporary, std::filesystem::copy_options::overwrite_existing);
        ZipPackage zip = openCopyOf(original, temporary, out);
        editPackage(zip, book, changes);
        zip.commit();
      });
    });
  });
}

}  // namespace orv
