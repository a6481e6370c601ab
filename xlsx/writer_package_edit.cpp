#include "xlsx/writer_package_edit.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "frame/errors.h"
#include "frame/sheet_name.h"
#include "workbook/in_memory_workbook.h"
#include "xlsx/package_parts.h"
#include "xlsx/package_splice.h"
#include "xlsx/package_zip.h"
#include "xlsx/writer_drawing_package.h"
#include "xlsx/writer_sheet.h"
#include "xlsx/writer_sheet_splice.h"
#include "xlsx/writer_styles.h"

namespace orv {
namespace {

bool hasType(const package::Relationship& r, std::string_view name) {
  return r.type.size() > name.size() && r.type.compare(r.type.size() - name.size(), name.size(), name) == 0 &&
         r.type[r.type.size() - name.size() - 1] == '/';
}

std::string folderOf(std::string_view part) {
  const std::size_t slash = part.rfind('/');
  return slash == std::string_view::npos ? std::string() : std::string(part.substr(0, slash + 1));
}

std::string lowered(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return name;
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
  return spliceDeflatedHead(std::move(*entry), "sheetData", [](std::string_view head) -> std::optional<std::string> {
    std::string cleared = withoutTabSelected(head);
    if (cleared.size() == head.size()) return std::nullopt;  // it only ever takes text out
    return cleared;
  });
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

  std::optional<std::size_t> findSheet(std::string_view name) const {
    for (std::size_t i = 0; i < sheets.size(); ++i) {
      if (sameSheetName(sheets[i].name, name)) return i;
    }
    return std::nullopt;
  }
};

PackageLayout readLayout(const ZipPackage& zip) {
  PackageLayout layout;
  for (const auto& r : package::readRelationships(required(zip, "_rels/.rels"), "_rels/.rels")) {
    if (hasType(r, "officeDocument") && layout.workbookPart.empty()) {
      layout.workbookPart = package::resolveTarget("", r.target);
    }
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

// One edit of a package: what the phases read from the original and leave for the later ones.
class PackageEditor {
 public:
  PackageEditor(ZipPackage& zip, InMemoryWorkbook& book);

  void spliceReceivingSheets(const std::vector<SheetChange>& changes);
  void appendNewSheets();
  void attachAllCharts(const std::vector<SheetChange>& changes);
  void deselectOtherSheets();
  void updateBookkeeping();
  void putEdits();

 private:
  std::string current(const std::string& part) const {
    const auto found = edited_.find(part);
    return found != edited_.end() ? found->second : required(zip_, part);
  }
  std::string freeSheetPart();

  ZipPackage& zip_;
  InMemoryWorkbook& book_;
  const PackageLayout layout_;
  const bool hadStyles_;
  const std::string stylesPart_;
  StyleSheet styles_;
  const InMemoryWorksheet* active_;

  std::map<std::string, std::string> edited_;    // part -> new content
  std::map<std::string, DeflatedPart> spliced_;  // large sheets whose head alone was rewritten
  bool activeIsOurs_ = false;                    // the active sheet is a receiving or a new one
  std::set<std::size_t> received_;               // indexes into layout_.sheets
  std::string workbookRels_;
  std::vector<package::SheetEntry> added_;
  std::vector<std::string> addedTitles_;
  std::vector<std::pair<std::string, std::string>> overrides_;
  std::optional<std::int32_t> activeTab_;
  std::vector<std::pair<const InMemoryWorksheet*, std::string>> newParts_;
  std::set<std::string> lowerNames_;  // the package's part names, for fresh sheet part names
  std::int32_t nextSheetNumber_ = 1;
};

PackageEditor::PackageEditor(ZipPackage& zip, InMemoryWorkbook& book)
    : zip_(zip),
      book_(book),
      layout_(readLayout(zip)),
      hadStyles_(!layout_.stylesPart.empty() && zip.contains(layout_.stylesPart)),
      stylesPart_(hadStyles_ ? layout_.stylesPart : folderOf(layout_.workbookPart) + "styles.xml"),
      styles_(hadStyles_ ? required(zip, stylesPart_) : StyleSheet::freshXml()),
      active_(book.activeSheet()) {}

// One splice per change, in order, on the text the previous one left.
void PackageEditor::spliceReceivingSheets(const std::vector<SheetChange>& changes) {
  for (const SheetChange& change : changes) {
    const auto index = layout_.findSheet(change.sheetName);
    if (!index || layout_.sheetParts[*index].empty()) {
      raise(err::kFileUnwritable, "The original workbook has no worksheet \"" + change.sheetName + "\"");
    }
    const std::string& part = layout_.sheetParts[*index];
    InMemoryWorksheet& sheet = book_.Worksheets(change.sheetName);
    const bool select = &sheet == active_;
    activeIsOurs_ = activeIsOurs_ || select;
    edited_[part] = spliceCells(current(part), part, sheet, change.block, styles_, SpliceOptions{select});
    received_.insert(*index);
  }
}

// The first "<folder>worksheets/sheetN.xml" that no entry holds, compared without case.
std::string PackageEditor::freeSheetPart() {
  for (;; ++nextSheetNumber_) {
    std::string candidate =
        folderOf(layout_.workbookPart) + "worksheets/sheet" + std::to_string(nextSheetNumber_) + ".xml";
    if (lowerNames_.count(lowered(candidate)) == 0) return candidate;
  }
}

// Sheets of the model that the package lacks, appended in model order.
void PackageEditor::appendNewSheets() {
  for (const std::string& name : zip_.entryNames()) lowerNames_.insert(lowered(name));
  workbookRels_ = required(zip_, layout_.workbookRelsPart);
  for (std::int32_t i = 1; i <= book_.WorksheetsCount(); ++i) {
    const InMemoryWorksheet& sheet = book_.Worksheets(i);
    if (layout_.findSheet(sheet.Name())) continue;
    const std::string part = freeSheetPart();
    ++nextSheetNumber_;
    const bool select = &sheet == active_;
    if (select) activeTab_ = static_cast<std::int32_t>(layout_.sheets.size() + added_.size());
    activeIsOurs_ = activeIsOurs_ || select;
    edited_[part] = worksheetXml(sheet, styles_, SheetPartOptions{select, std::nullopt});
    newParts_.emplace_back(&sheet, part);
    std::string id;
    const std::string target = part.substr(folderOf(layout_.workbookPart).size());
    workbookRels_ = package::addRelationship(workbookRels_, layout_.workbookRelsPart,
                                             package::relationshipType("worksheet"), target, id);
    added_.push_back({sheet.Name(), id});
    addedTitles_.push_back(sheet.Name());
    overrides_.emplace_back(part, std::string(package::kWorksheetType));
  }
}

// The charts of every written sheet: receiving sheets (each part once), then new ones.
void PackageEditor::attachAllCharts(const std::vector<SheetChange>& changes) {
  PartSet parts([this](const std::string& part) { return zip_.read(part); }, edited_, overrides_, zip_.entryNames());
  std::set<std::string> charted;
  for (const SheetChange& change : changes) {
    const std::string& part = layout_.sheetParts[*layout_.findSheet(change.sheetName)];
    if (!charted.insert(part).second) continue;
    const InMemoryWorksheet& sheet = book_.Worksheets(change.sheetName);
    attachCharts(parts, part, sheet.geometry(), sheet.charts());
  }
  for (const auto& [sheet, part] : newParts_) attachCharts(parts, part, sheet->geometry(), sheet->charts());
}

// When a written sheet is the active one it becomes the selected tab, and no other sheet of the
// package may stay selected.
void PackageEditor::deselectOtherSheets() {
  if (!activeIsOurs_) return;
  for (std::size_t i = 0; i < layout_.sheets.size(); ++i) {
    const std::string& part = layout_.sheetParts[i];
    if (part.empty()) continue;
    if (received_.count(i) != 0 && active_ != nullptr && sameSheetName(layout_.sheets[i].name, active_->Name())) {
      activeTab_ = static_cast<std::int32_t>(i);
      continue;
    }
    if (edited_.count(part) == 0) {
      HeadSplice splice = deselectedLargeSheet(zip_, part);
      if (splice.outcome == HeadSplice::Outcome::Spliced) spliced_.emplace(part, std::move(splice.part));
      if (splice.outcome != HeadSplice::Outcome::NotPossible) continue;
    }
    std::string text = current(part);
    std::string cleared = withoutTabSelected(text);
    if (cleared != text) edited_[part] = std::move(cleared);
  }
}

void PackageEditor::updateBookkeeping() {
  if (!hadStyles_) {
    std::string id;
    workbookRels_ =
        package::addRelationship(workbookRels_, layout_.workbookRelsPart, package::relationshipType("styles"),
                                 stylesPart_.substr(folderOf(layout_.workbookPart).size()), id);
    overrides_.emplace_back(stylesPart_, std::string(package::kStylesType));
  }
  if (!added_.empty() || !hadStyles_) edited_[layout_.workbookRelsPart] = workbookRels_;
  if (!added_.empty() || activeTab_) {
    edited_[layout_.workbookPart] =
        package::appendSheets(required(zip_, layout_.workbookPart), layout_.workbookPart, added_, activeTab_);
  }
  if (!overrides_.empty()) {
    edited_["[Content_Types].xml"] = package::addOverrides(required(zip_, "[Content_Types].xml"), overrides_);
  }
  if (!layout_.appPart.empty() && !addedTitles_.empty()) {
    if (auto app = package::addSheetTitles(required(zip_, layout_.appPart), addedTitles_)) {
      edited_[layout_.appPart] = *app;
    }
  }
  if (styles_.changed() || !hadStyles_) edited_[stylesPart_] = styles_.xml();
}

void PackageEditor::putEdits() {
  for (auto& [part, content] : edited_) zip_.put(part, std::move(content));
  for (auto& [part, content] : spliced_) zip_.putDeflated(part, std::move(content));
}

}  // namespace

void editPackage(ZipPackage& zip, InMemoryWorkbook& book, const std::vector<SheetChange>& changes) {
  PackageEditor editor(zip, book);
  editor.spliceReceivingSheets(changes);
  editor.appendNewSheets();
  editor.attachAllCharts(changes);
  editor.deselectOtherSheets();
  editor.updateBookkeeping();
  editor.putEdits();
}

}  // namespace orv
