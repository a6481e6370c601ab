#include "xlsx/writer_workbook.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

#include "frame/errors.h"
#include "frame/procedure.h"
#include "frame/sheet_name.h"
#include "workbook/in_memory_workbook.h"
#include "xlsx/package_atomic_write.h"
#include "xlsx/package_parts.h"
#include "xlsx/package_zip.h"
#include "xlsx/writer_drawing_package.h"
#include "xlsx/writer_sheet.h"
#include "xlsx/writer_sheet_splice.h"
#include "xlsx/writer_styles.h"

namespace orv {
namespace {

// Writer failures report under the same class as the reader's ("WorkbookFile.Open").
constexpr Procedures kProc("WorkbookFile");

using Overrides = std::vector<std::pair<std::string, std::string>>;

[[noreturn]] void unwritable(const std::filesystem::path& out, std::string_view why) {
  raise(err::kFileUnwritable, "Cannot write \"" + out.string() + "\": " + std::string(why));
}

std::string relationshipType(std::string_view name) { return std::string(package::kRelationshipBase) + std::string(name); }

bool hasType(const package::Relationship& r, std::string_view name) {
  return r.type.size() > name.size() && r.type.compare(r.type.size() - name.size(), name.size(), name) == 0 &&
         r.type[r.type.size() - name.size() - 1] == '/';
}

std::string folderOf(std::string_view part) {
  const std::size_t slash = part.rfind('/');
  return slash == std::string_view::npos ? std::string() : std::string(part.substr(0, slash + 1));
}

std::string required(const ZipPackage& zip, const std::string& part) {
  std::optional<std::string> content = zip.read(part);
  if (!content) raise(err::kFileUnwritable, "The original workbook has no part \"" + part + "\"");
  return std::move(*content);
}

// Compressed parts from this size on are spliced rather than inflated and deflated whole.
constexpr std::uint64_t kSpliceAbove = std::uint64_t{1} << 20;

// A large deflated sheet loses its selection by rewriting its head alone (package_splice.h);
// NotPossible for small parts and where no splice can be made, which the caller then edits whole.
HeadSplice deselectedLargeSheet(const ZipPackage& zip, const std::string& part) {
  std::optional<CompressedEntry> entry = zip.readDeflated(part, kSpliceAbove);
  if (!entry) return {};
  return spliceDeflatedHead(*entry, "sheetData", [](std::string_view head) -> std::optional<std::string> {
    std::string cleared = withoutTabSelected(head);
    if (cleared.size() == head.size()) return std::nullopt;  // it only ever takes text out
    return cleared;
  });
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

// What the original package says about itself.
struct PackageLayout {
  std::string workbookPart;
  std::string workbookRelsPart;
  std::vector<package::Relationship> workbookRels;
  std::vector<package::WorkbookSheet> sheets;
  std::vector<std::string> sheetParts;  // parallel to sheets
  std::string stylesPart;               // empty when the package has none
  std::string appPart;                  // empty when the package has none
};

PackageLayout readLayout(const ZipPackage& zip) {
  PackageLayout layout;
  for (const auto& r : package::readRelationships(required(zip, "_rels/.rels"), "_rels/.rels")) {
    if (hasType(r, "officeDocument") && layout.workbookPart.empty()) layout.workbookPart = package::resolveTarget("", r.target);
    if (hasType(r, "extended-properties")) layout.appPart = package::resolveTarget("", r.target);
  }
  if (layout.workbookPart.empty()) raise(err::kFileUnwritable, "The original workbook has no workbook part");
  layout.workbookRelsPart = package::relsPartOf(layout.workbookPart);
  layout.workbookRels = package::readRelationships(required(zip, layout.workbookRelsPart), layout.workbookRelsPart);
  layout.sheets = package::readSheets(required(zip, layout.workbookPart), layout.workbookPart);
  for (const auto& sheet : layout.sheets) {
    std::string part;
    for (const auto& r : layout.workbookRels) {
      if (r.id == sheet.relationshipId) part = package::resolveTarget(layout.workbookPart, r.target);
    }
    layout.sheetParts.push_back(part);
  }
  for (const auto& r : layout.workbookRels) {
    if (hasType(r, "styles")) layout.stylesPart = package::resolveTarget(layout.workbookPart, r.target);
  }
  if (!layout.appPart.empty() && !zip.contains(layout.appPart)) layout.appPart.clear();
  return layout;
}

std::optional<std::size_t> findSheet(const PackageLayout& layout, std::string_view name) {
  for (std::size_t i = 0; i < layout.sheets.size(); ++i) {
    if (sameSheetName(layout.sheets[i].name, name)) return i;
  }
  return std::nullopt;
}

// The first "<folder>worksheets/sheetN.xml" that no entry holds, compared without case.
std::string freeSheetPart(const std::set<std::string>& lowerNames, const std::string& folder, std::int32_t& n) {
  for (;; ++n) {
    std::string candidate = folder + "worksheets/sheet" + std::to_string(n) + ".xml";
    std::string lowered = candidate;
    std::transform(lowered.begin(), lowered.end(), lowered.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (lowerNames.count(lowered) == 0) return candidate;
  }
}

void editPackage(ZipPackage& zip, InMemoryWorkbook& book, const std::vector<SheetChange>& changes) {
  const PackageLayout layout = readLayout(zip);
  const bool hadStyles = !layout.stylesPart.empty() && zip.contains(layout.stylesPart);
  const std::string stylesPart = hadStyles ? layout.stylesPart : folderOf(layout.workbookPart) + "styles.xml";
  StyleSheet styles(hadStyles ? required(zip, stylesPart) : StyleSheet::freshXml());

  const InMemoryWorksheet* active = book.activeSheet();
  std::map<std::string, std::string> edited;  // part -> new content
  bool activeIsOurs = false;

  // Receiving sheets: one splice per change, in order, on the text the previous one left.
  std::set<std::size_t> received;
  for (const SheetChange& change : changes) {
    const auto index = findSheet(layout, change.sheetName);
    if (!index || layout.sheetParts[*index].empty()) {
      raise(err::kFileUnwritable, "The original workbook has no worksheet \"" + change.sheetName + "\"");
    }
    const std::string& part = layout.sheetParts[*index];
    InMemoryWorksheet& sheet = book.Worksheets(change.sheetName);
    const bool select = &sheet == active;
    activeIsOurs = activeIsOurs || select;
    const std::string current = edited.count(part) != 0 ? edited[part] : required(zip, part);
    edited[part] = spliceCells(current, part, sheet, change.block, styles, SpliceOptions{select});
    received.insert(*index);
  }

  // New sheets, appended in model order.
  std::set<std::string> lowerNames;
  for (std::string name : zip.entryNames()) {
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    lowerNames.insert(name);
  }
  std::string workbookRels = required(zip, layout.workbookRelsPart);
  std::vector<package::SheetEntry> added;
  std::vector<std::string> addedTitles;
  Overrides overrides;
  std::optional<std::int32_t> activeTab;
  std::vector<std::pair<const InMemoryWorksheet*, std::string>> newParts;
  std::int32_t n = 1;
  for (InMemoryWorksheet* sheet : sheetsOf(book)) {
    if (findSheet(layout, sheet->Name())) continue;
    const std::string part = freeSheetPart(lowerNames, folderOf(layout.workbookPart), n);
    ++n;
    const bool select = sheet == active;
    if (select) activeTab = static_cast<std::int32_t>(layout.sheets.size() + added.size());
    activeIsOurs = activeIsOurs || select;
    edited[part] = worksheetXml(*sheet, styles, SheetPartOptions{select, std::nullopt});
    newParts.emplace_back(sheet, part);
    std::string id;
    const std::string target = part.substr(folderOf(layout.workbookPart).size());
    workbookRels = package::addRelationship(workbookRels, layout.workbookRelsPart, relationshipType("worksheet"), target, id);
    added.push_back({sheet->Name(), id});
    addedTitles.push_back(sheet->Name());
    overrides.emplace_back(part, std::string(package::kWorksheetType));
  }

  {
    PartSet parts([&zip](const std::string& part) { return zip.read(part); }, edited, overrides, zip.entryNames());
    std::set<std::string> charted;
    for (const SheetChange& change : changes) {
      const std::string& part = layout.sheetParts[*findSheet(layout, change.sheetName)];
      if (!charted.insert(part).second) continue;
      const InMemoryWorksheet& sheet = book.Worksheets(change.sheetName);
      attachCharts(parts, part, sheet.geometry(), sheet.charts());
    }
    for (const auto& [sheet, part] : newParts) attachCharts(parts, part, sheet->geometry(), sheet->charts());
  }

  std::map<std::string, DeflatedPart> spliced;  // large sheets whose head alone was rewritten
  if (activeIsOurs) {
    for (std::size_t i = 0; i < layout.sheets.size(); ++i) {
      const std::string& part = layout.sheetParts[i];
      if (part.empty()) continue;
      if (received.count(i) != 0 && active != nullptr && sameSheetName(layout.sheets[i].name, active->Name())) {
        activeTab = static_cast<std::int32_t>(i);
        continue;
      }
      if (edited.count(part) == 0) {
        HeadSplice splice = deselectedLargeSheet(zip, part);
        if (splice.outcome == HeadSplice::Outcome::Spliced) spliced.emplace(part, std::move(splice.part));
        if (splice.outcome != HeadSplice::Outcome::NotPossible) continue;
      }
      std::string current = edited.count(part) != 0 ? edited[part] : required(zip, part);
      std::string cleared = withoutTabSelected(current);
      if (cleared != current) edited[part] = std::move(cleared);
    }
  }

  if (!hadStyles) {
    std::string id;
    workbookRels = package::addRelationship(workbookRels, layout.workbookRelsPart, relationshipType("styles"),
                                            stylesPart.substr(folderOf(layout.workbookPart).size()), id);
    overrides.emplace_back(stylesPart, std::string(package::kStylesType));
  }
  if (!added.empty() || !hadStyles) edited[layout.workbookRelsPart] = workbookRels;
  if (!added.empty() || activeTab) {
    edited[layout.workbookPart] = package::appendSheets(required(zip, layout.workbookPart), layout.workbookPart, added, activeTab);
  }
  if (!overrides.empty()) {
    edited["[Content_Types].xml"] = package::addOverrides(required(zip, "[Content_Types].xml"), overrides);
  }
  if (!layout.appPart.empty() && !addedTitles.empty()) {
    if (auto app = package::addSheetTitles(required(zip, layout.appPart), addedTitles)) edited[layout.appPart] = *app;
  }
  if (styles.changed() || !hadStyles) edited[stylesPart] = styles.xml();

  for (auto& [part, content] : edited) zip.put(part, std::move(content));
  for (auto& [part, content] : spliced) zip.putDeflated(part, std::move(content));
}

}  // namespace

void writeNewWorkbook(InMemoryWorkbook& book, const std::filesystem::path& out) {
  kProc("SaveAs", [&] { guarded(out, [&] {
    const std::vector<InMemoryWorksheet*> sheets = sheetsOf(book);
    if (sheets.empty()) unwritable(out, "the workbook has no sheets");
    StyleSheet styles(StyleSheet::freshXml());
    std::vector<std::pair<std::string, std::string>> parts;  // in package order after the fixed ones
    std::vector<package::Relationship> workbookRels;
    std::vector<package::SheetEntry> entries;
    Overrides overrides{{"xl/workbook.xml", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"},
                        {"xl/styles.xml", std::string(package::kStylesType)}};
    std::int32_t activeTab = 0;
    std::map<std::string, std::string> chartParts;  // drawings, charts, their rels; sheets given drawings
    for (std::size_t i = 0; i < sheets.size(); ++i) {
      const std::string id = "rId" + std::to_string(i + 1);
      const std::string target = "worksheets/sheet" + std::to_string(i + 1) + ".xml";
      const bool select = sheets[i] == book.activeSheet();
      if (select) activeTab = static_cast<std::int32_t>(i);
      parts.emplace_back("xl/" + target, worksheetXml(*sheets[i], styles, SheetPartOptions{select, std::nullopt}));
      workbookRels.push_back({id, relationshipType("worksheet"), target, false});
      entries.push_back({sheets[i]->Name(), id});
      overrides.emplace_back("xl/" + target, std::string(package::kWorksheetType));
    }
    workbookRels.push_back({"rId" + std::to_string(sheets.size() + 1), relationshipType("styles"), "styles.xml", false});
    std::vector<std::string> names;
    for (const auto& [part, content] : parts) names.push_back(part);
    PartSet chartSet([&parts](const std::string& name) -> std::optional<std::string> {
      for (const auto& [part, content] : parts) {
        if (part == name) return content;
      }
      return std::nullopt;
    }, chartParts, overrides, names);
    for (std::size_t i = 0; i < sheets.size(); ++i) {
      attachCharts(chartSet, parts[i].first, sheets[i]->geometry(), sheets[i]->charts());
    }
    for (auto& [part, content] : parts) {
      if (auto given = chartParts.find(part); given != chartParts.end()) {
        content = std::move(given->second);
        chartParts.erase(given);
      }
    }

    writeFileAtomically(out, [&](const std::filesystem::path& temporary) {
      ZipPackage zip = ZipPackage::create(temporary);
      zip.put("[Content_Types].xml", package::freshContentTypes(overrides));
      zip.put("_rels/.rels", package::freshRelationships({{"rId1", relationshipType("officeDocument"), "xl/workbook.xml", false}}));
      zip.put("xl/workbook.xml", package::freshWorkbook(entries, activeTab));
      zip.put("xl/_rels/workbook.xml.rels", package::freshRelationships(workbookRels));
      zip.put("xl/styles.xml", styles.xml());
      for (auto& [part, content] : parts) zip.put(part, std::move(content));
      for (auto& [part, content] : chartParts) zip.put(part, std::move(content));
      zip.commit();
    });
  }); });
}

void writeIntoPackage(const std::filesystem::path& original, InMemoryWorkbook& book,
                      const std::vector<SheetChange>& changes, const std::filesystem::path& out) {
  kProc("Save", [&] { guarded(out, [&] {
    writeFileAtomically(out, [&](const std::filesystem::path& temporary) {
      // libzip rewrites an archive it has open; working on a copy leaves the original alone
      // and lets every untouched entry keep its compressed bytes.
      std::filesystem::copy_file(original, temporary, std::filesystem::copy_options::overwrite_existing);
      ZipPackage zip = openCopyOf(original, temporary, out);
      editPackage(zip, book, changes);
      zip.commit();
    });
  }); });
}

}  // namespace orv
