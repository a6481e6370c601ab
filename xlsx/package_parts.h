#pragma once
// The bookkeeping parts of a package ([Content_Types].xml, relationship parts, the workbook
// part's sheet list), written fresh for a new workbook or extended in place for an existing one.
//
// Edits go through pugixml, which keeps element and attribute names literally: namespace
// prefixes, mc:Ignorable lists and unknown attributes of the user's parts survive. New elements
// take the prefix their parent uses. Part names are package-absolute without the leading slash
// ("xl/worksheets/sheet4.xml").

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orv::package {

inline constexpr std::string_view kRelationshipBase =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
// The full relationship type for a short name: "worksheet", "styles", "officeDocument".
inline std::string relationshipType(std::string_view name) {
  return std::string(kRelationshipBase) + std::string(name);
}
inline constexpr std::string_view kWorksheetType =
    "application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml";
inline constexpr std::string_view kStylesType =
    "application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml";

struct Relationship {
  std::string id;
  std::string type;    // full URI
  std::string target;  // as written
  bool external = false;
};

// The rels part of a part: "xl/workbook.xml" -> "xl/_rels/workbook.xml.rels".
std::string relsPartOf(std::string_view partName);
// A relationship target resolved against the folder of its source part ("/" targets are
// package-absolute; "." and ".." are followed).
std::string resolveTarget(std::string_view sourcePart, std::string_view target);

std::vector<Relationship> readRelationships(std::string_view relsXml, std::string_view partName);
// Adds a relationship with the first free "rIdN"; returns the new rels part text. `id` receives
// the id used.
std::string addRelationship(std::string_view relsXml, std::string_view partName, std::string_view type,
                            std::string_view target, std::string& id);
std::string freshRelationships(const std::vector<Relationship>& relationships);

// Adds an Override per (part name, content type) for parts that have none yet.
std::string addOverrides(std::string_view contentTypesXml,
                         const std::vector<std::pair<std::string, std::string>>& overrides);
std::string freshContentTypes(const std::vector<std::pair<std::string, std::string>>& overrides);

struct WorkbookSheet {
  std::string name;
  std::uint32_t sheetId = 0;
  std::string relationshipId;
};
std::vector<WorkbookSheet> readSheets(std::string_view workbookXml, std::string_view partName);

struct SheetEntry {
  std::string name;
  std::string relationshipId;
};
// Appends <sheet> elements (sheetId max + 1 onwards) to the workbook part; with `activeTab`, the
// first workbook view shows that 0-based sheet.
std::string appendSheets(std::string_view workbookXml, std::string_view partName, const std::vector<SheetEntry>& sheets,
                         std::optional<std::int32_t> activeTab);
std::string freshWorkbook(const std::vector<SheetEntry>& sheets, std::int32_t activeTab);

// docProps/app.xml lists the sheet titles when it has HeadingPairs and TitlesOfParts; the new
// titles go after the last worksheet title and the counts grow. Other app.xml parts come back
// unchanged (std::nullopt).
std::optional<std::string> addSheetTitles(std::string_view appXml, const std::vector<std::string>& titles);

}  // namespace orv::package
