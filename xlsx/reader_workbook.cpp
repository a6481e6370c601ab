#include "xlsx/reader_workbook.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include <pugixml.hpp>

#include "frame/procedure.h"
#include "frame/work_progress.h"
#include "workbook/in_memory_application.h"
#include "xlsx/csv_reader.h"
#include "xlsx/reader_errors.h"
#include "xlsx/reader_package.h"
#include "xlsx/reader_shared_strings.h"
#include "xlsx/reader_sheet.h"
#include "xlsx/reader_sheet_part.h"
#include "xlsx/reader_sniff.h"
#include "xlsx/reader_styles.h"
#include "xlsx/reader_xml.h"
#include "xlsx/xml_names.h"

namespace orv {
namespace {

constexpr Procedures kProc("WorkbookFile");

std::string lowerExtension(const std::filesystem::path& file) {
  std::string e = file.extension().string();
  std::transform(e.begin(), e.end(), e.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return e;
}

bool isTextExtension(std::string_view e) { return e == ".csv" || e == ".tsv" || e == ".txt"; }

// A zip archive without an officeDocument workbook: say what it is instead.
[[noreturn]] void raiseNotAWorkbook(ZipInput& zip, std::string_view officeTarget) {
  if (officeTarget.ends_with(".bin") || zip.contains("xl/workbook.bin")) {
    raiseDamaged("is a binary workbook (.xlsb), which is not read; save it as .xlsx");
  }
  if (auto mime = zip.read("mimetype")) {
    if (mime->starts_with("application/vnd.oasis.opendocument.spreadsheet")) {
      raiseDamaged("is an OpenDocument spreadsheet (.ods), which is not read; save it as .xlsx");
    }
    if (mime->starts_with("application/vnd.oasis.opendocument"))
      raiseDamaged("is an OpenDocument file, not a workbook");
  }
  if (officeTarget.starts_with("word/") || zip.contains("word/document.xml")) {
    raiseDamaged("is a word-processing document, not a workbook");
  }
  if (officeTarget.starts_with("ppt/") || zip.contains("ppt/presentation.xml")) {
    raiseDamaged("is a presentation, not a workbook");
  }
  raiseDamaged("is a zip archive that holds no workbook");
}

std::string findWorkbookPart(ZipInput& zip) {
  const std::vector<Relationship> rels = readRelationships(zip, "");
  const auto office = std::find_if(rels.begin(), rels.end(), [](const Relationship& r) {
    return !r.external && hasRelationshipType(r, "officeDocument");
  });
  if (office != rels.end()) {
    if (!office->target.ends_with(".xml") && !zip.contains(office->target)) raiseNotAWorkbook(zip, office->target);
    if (office->target.starts_with("word/") || office->target.starts_with("ppt/") || office->target.ends_with(".bin")) {
      raiseNotAWorkbook(zip, office->target);
    }
    return office->target;
  }
  // Packages without their root relationships still open where the workbook sits in its usual place.
  if (zip.contains("xl/workbook.xml")) return "xl/workbook.xml";
  raiseNotAWorkbook(zip, "");
}

// The content type that [Content_Types].xml gives `part`: its Override, else the Default of its
// extension; empty when there is neither or the list cannot be read (the type only informs).
std::string contentTypeOf(ZipInput& zip, const std::string& part) {
  std::optional<std::string> xml = zip.read("[Content_Types].xml");
  pugi::xml_document doc;
  if (!xml || !doc.load_buffer(xml->data(), xml->size())) return {};
  const auto sameName = [](std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
      return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
    });
  };
  const std::string name = "/" + part;
  const std::string extension = part.substr(part.rfind('.') + 1);
  std::string byDefault;
  for (pugi::xml_node n : doc.document_element().children()) {
    if (xml::isElement(n, "Override") && sameName(xml::attributeNamed(n, "PartName").value(), name)) {
      return xml::attributeNamed(n, "ContentType").value();
    }
    if (xml::isElement(n, "Default") && sameName(xml::attributeNamed(n, "Extension").value(), extension)) {
      byDefault = xml::attributeNamed(n, "ContentType").value();
    }
  }
  return byDefault;
}

struct SheetEntry {
  std::string name;
  std::string part;
};

bool truthy(std::string_view v) { return v == "1" || v == "true"; }

// The relationship id of a <sheet>: the only attribute named "id" that carries a prefix (r:id).
std::string_view sheetRelationshipId(const pugi::xml_node& sheet) {
  std::string_view id;
  for (pugi::xml_attribute a = sheet.first_attribute(); a; a = a.next_attribute()) {
    const std::string_view qualified = a.name();
    if (xml::localName(qualified) == "id" && qualified.find(':') != std::string_view::npos) id = a.value();
  }
  return id;
}

// The worksheets the workbook part lists, in tab order; chart, dialog and macro sheets are left out.
std::vector<SheetEntry> listWorksheets(ZipInput& zip, const pugi::xml_node& root,
                                       const std::vector<Relationship>& rels) {
  std::vector<SheetEntry> sheets;
  for (pugi::xml_node s = xml::child(xml::child(root, "sheets"), "sheet"); s; s = s.next_sibling()) {
    if (!xml::isElement(s, "sheet")) continue;
    const std::string name = xml::attributeNamed(s, "name").value();
    const std::string_view id = sheetRelationshipId(s);
    const auto rel = std::find_if(rels.begin(), rels.end(), [&](const Relationship& r) { return r.id == id; });
    if (rel == rels.end()) raiseDamaged("is damaged: the sheet \"" + name + "\" has no part");
    if (!hasRelationshipType(*rel, "worksheet")) continue;
    if (rel->external || !zip.contains(rel->target)) {
      raiseDamaged("is damaged: the part \"" + rel->target + "\" of the sheet \"" + name + "\" is missing");
    }
    sheets.push_back({name, rel->target});
  }
  if (sheets.empty()) raiseDamaged("is damaged: its workbook lists no worksheet");
  return sheets;
}

std::vector<std::string> readSharedStrings(ZipInput& zip, const std::vector<Relationship>& rels,
                                           const ReadLimits& limits) {
  const auto strings = std::find_if(rels.begin(), rels.end(), [](const Relationship& r) {
    return !r.external && hasRelationshipType(r, "sharedStrings");
  });
  if (strings == rels.end()) return {};
  auto sst = zip.read(strings->target);
  if (!sst) return {};
  return parseSharedStrings(*sst, strings->target, limits.maxSharedStrings, limits.maxStringBytes);
}

// Which cell formats of the workbook's styles show dates or times; none without a styles part.
std::vector<bool> dateStylesOf(ZipInput& zip, const std::vector<Relationship>& rels) {
  const auto styles = std::find_if(
      rels.begin(), rels.end(), [](const Relationship& r) { return !r.external && hasRelationshipType(r, "styles"); });
  if (styles == rels.end()) return {};
  auto xml = zip.read(styles->target);
  if (!xml) return {};
  return readDateStyles(*xml);
}

// The workbook's defined names; a sheet-level name's localSheetId counts every sheet the
// workbook lists, chart sheets included. Names scoped to a sheet that is not there are left out.
std::vector<DefinedName> readDefinedNames(const pugi::xml_node& root) {
  std::vector<std::string> allSheets;
  for (pugi::xml_node s = xml::child(xml::child(root, "sheets"), "sheet"); s; s = s.next_sibling()) {
    if (xml::isElement(s, "sheet")) allSheets.emplace_back(xml::attributeNamed(s, "name").value());
  }
  std::vector<DefinedName> names;
  for (pugi::xml_node n = xml::child(xml::child(root, "definedNames"), "definedName"); n; n = n.next_sibling()) {
    if (!xml::isElement(n, "definedName")) continue;
    DefinedName name{xml::attributeNamed(n, "name").value(), std::nullopt, n.text().get(),
                     truthy(xml::attributeNamed(n, "hidden").value())};
    if (const pugi::xml_attribute local = xml::attributeNamed(n, "localSheetId")) {
      const unsigned index = local.as_uint(allSheets.size());
      if (index >= allSheets.size()) continue;
      name.sheet = allSheets[index];
    }
    if (!name.name.empty()) names.push_back(std::move(name));
  }
  return names;
}

// What the workbook part and its relationships say: the date system, the worksheets, the
// shared strings, which cell formats are dates, and the defined names.
struct PackageContents {
  LoadedPackageInfo info;
  std::vector<SheetEntry> sheets;
  std::vector<DefinedName> names;
  std::vector<std::string> sharedStrings;
  std::vector<bool> dateStyles;
};

PackageContents readWorkbookPart(ZipInput& zip, const ReadLimits& limits) {
  PackageContents contents;
  LoadedPackageInfo& info = contents.info;
  info.fromPackage = true;
  info.workbookPart = findWorkbookPart(zip);
  info.workbookContentType = contentTypeOf(zip, info.workbookPart);
  auto xml = zip.read(info.workbookPart);
  if (!xml) raiseDamaged("is damaged: its workbook part \"" + info.workbookPart + "\" is missing");
  pugi::xml_document doc;
  parsePart(doc, *xml, info.workbookPart);
  const pugi::xml_node root = doc.document_element();
  if (xml::localName(root) != "workbook") raiseNotAWorkbook(zip, "");
  info.date1904 = truthy(xml::attributeNamed(xml::child(root, "workbookPr"), "date1904").value());
  const std::vector<Relationship> rels = readRelationships(zip, info.workbookPart);
  contents.sheets = listWorksheets(zip, root, rels);
  contents.names = readDefinedNames(root);
  contents.sharedStrings = readSharedStrings(zip, rels, limits);
  contents.dateStyles = dateStylesOf(zip, rels);
  return contents;
}

// Each worksheet into a sheet of `book`, within the limits for the whole workbook.
void readWorksheets(ZipInput& zip, PackageContents& contents, InMemoryWorkbook& book, const ReadLimits& limits) {
  std::uint64_t usedCells = 0;
  std::uint64_t usedTextBytes = 0;
  SheetReadOptions options;
  options.sharedStrings = &contents.sharedStrings;
  options.date1904 = contents.info.date1904;
  options.maxStoredCells = limits.maxStoredCells;
  options.usedCells = &usedCells;
  options.maxStringBytes = limits.maxStringBytes;
  options.maxTextBytes = limits.maxTextBytes;
  options.usedTextBytes = &usedTextBytes;
  options.dateStyles = &contents.dateStyles;
  // Progress in bytes of sheet XML, against the sizes the archive declares (a hint only: the
  // fraction is held below 1 until the last sheet is read).
  std::uint64_t declared = 0;
  for (const SheetEntry& entry : contents.sheets) declared += zip.declaredSize(entry.part);
  std::uint64_t scanned = 0;
  options.pieceScanned = [&](std::size_t bytes) {
    scanned += bytes;
    reportWork(std::min(scanned, declared > 0 ? declared - 1 : 0), declared);
  };
  contents.info.sheetNotes.reserve(contents.sheets.size());
  for (const SheetEntry& entry : contents.sheets) {
    InMemoryWorksheet* sheet = nullptr;
    try {
      sheet = &book.addSheet(entry.name);
    } catch (const ComponentError&) {
      raiseDamaged("is damaged: \"" + entry.name + "\" cannot name a sheet (invalid or repeated)");
    }
    options.notes = &contents.info.sheetNotes.emplace_back();
    if (!readSheetPart(zip, entry.part, *sheet, options)) {
      raiseDamaged("is damaged: the part \"" + entry.part + "\" is missing");
    }
    contents.info.sheetParts.push_back(entry.part);
  }
  reportWork(declared, declared);
}

LoadedWorkbook loadPackage(InMemoryApplication& app, const std::filesystem::path& file, const ReadLimits& limits) {
  std::optional<ZipInput> zip;
  PackageContents contents;
  namingFile(file, [&] {
    zip.emplace(file, limits.zip);
    contents = readWorkbookPart(*zip, limits);
  });
  InMemoryWorkbook& book = app.AddWorkbook(file.filename().string(), {});
  namingFile(file, [&] { readWorksheets(*zip, contents, book, limits); });
  for (DefinedName& name : contents.names) book.addName(std::move(name));
  book.activateSheet(book.Worksheets(1));
  return {book, std::move(contents.info)};
}

}  // namespace

LoadedWorkbook openWorkbookFile(InMemoryApplication& app, const std::filesystem::path& file, const ReadLimits& limits) {
  return kProc("Open", [&]() -> LoadedWorkbook {
    const std::string extension = lowerExtension(file);
    switch (sniffFile(file)) {
      case FileKind::Zip: return loadPackage(app, file, limits);
      case FileKind::EncryptedWorkbook:
        raiseUnreadable(file, "is a password-protected workbook (an encrypted package); save it without a password");
      case FileKind::CompoundDocument:
        raiseUnreadable(
            file, extension == ".xls" || extension == ".xlt"
                      ? "is a legacy binary workbook (.xls), which is not read; save it as .xlsx"
                      : "is a compound document (such as a legacy .xls or .doc file), not a workbook that is read");
      case FileKind::Utf16Text: raiseUnreadable(file, "is UTF-16 text, which is not read; save it as UTF-8");
      case FileKind::Binary: raiseUnreadable(file, "is neither a workbook nor a text file");
      case FileKind::Empty:
        if (!isTextExtension(extension)) raiseUnreadable(file, "is empty");
        [[fallthrough]];
      case FileKind::Text:
        if (!isTextExtension(extension)) {
          raiseUnreadable(file, extension == ".xlsx" || extension == ".xlsm"
                                    ? "is no workbook: it is text, not a zip package"
                                    : "is text without a .csv, .tsv or .txt extension");
        }
        return {loadDelimitedText(app, file, limits), LoadedPackageInfo{}};
    }
    raiseUnreadable(file, "is of an unknown kind");
  });
}

}  // namespace orv
