#include "workbook/in_memory_workbook.h"

#include <algorithm>

#include "frame/defined_name.h"
#include "frame/errors.h"
#include "frame/sheet_name.h"
#include "workbook/in_memory_application.h"
#include "workbook/sheet_names.h"

namespace orv {

InMemoryWorkbook::InMemoryWorkbook(InMemoryApplication& application, std::string name, bool addIn)
    : application_(&application), name_(std::move(name)), addIn_(addIn) {}

Application& InMemoryWorkbook::application() { return *application_; }

InMemoryWorksheet& InMemoryWorkbook::Worksheets(std::int32_t index) {
  if (index < 1 || index > WorksheetsCount()) raise(err::kSubscriptOutOfRange);
  return *sheets_[static_cast<std::size_t>(index - 1)];
}

InMemoryWorksheet& InMemoryWorkbook::Worksheets(std::string_view name) {
  for (const auto& sheet : sheets_) {
    if (sameSheetName(sheet->Name(), name)) return *sheet;
  }
  raise(err::kSubscriptOutOfRange);
}

std::vector<std::unique_ptr<InMemoryWorksheet>>::iterator InMemoryWorkbook::find(const InMemoryWorksheet& sheet) {
  return std::find_if(sheets_.begin(), sheets_.end(), [&](const auto& s) { return s.get() == &sheet; });
}

std::int32_t InMemoryWorkbook::indexOf(const InMemoryWorksheet& sheet) const {
  for (std::size_t i = 0; i < sheets_.size(); ++i) {
    if (sheets_[i].get() == &sheet) return static_cast<std::int32_t>(i + 1);
  }
  raise(err::kSubscriptOutOfRange);
}

void InMemoryWorkbook::Activate() { application_->activateWorkbook(*this); }

void InMemoryWorkbook::activateSheet(InMemoryWorksheet& sheet) {
  if (find(sheet) == sheets_.end()) raise(err::kSubscriptOutOfRange);
  active_ = &sheet;
}

void InMemoryWorkbook::checkNewName(std::string_view name, const InMemoryWorksheet* renamed) const {
  checkSheetName(name);
  for (const auto& sheet : sheets_) {
    if (sheet.get() != renamed && sameSheetName(sheet->Name(), name)) {
      raiseHost("The sheet name \"" + std::string(name) + "\" is already taken in the workbook \"" + name_ +
                "\"; sheet names must differ regardless of case");
    }
  }
}

InMemoryWorksheet& InMemoryWorkbook::addSheet(std::string name) {
  checkNewName(name, nullptr);
  sheets_.push_back(std::make_unique<InMemoryWorksheet>(*this, std::move(name)));
  if (active_ == nullptr) active_ = sheets_.back().get();
  return *sheets_.back();
}

InMemoryWorksheet& InMemoryWorkbook::addNewSheet() {
  std::vector<std::string> names;
  for (const auto& sheet : sheets_) names.push_back(sheet->Name());
  std::string name = nextDefaultSheetName(sheetCounter_, names);

  auto at = active_ != nullptr ? find(*active_) : sheets_.end();
  auto inserted = sheets_.insert(at, std::make_unique<InMemoryWorksheet>(*this, std::move(name)));
  active_ = inserted->get();
  return *active_;
}

void InMemoryWorkbook::moveAfter(InMemoryWorksheet& moved, InMemoryWorksheet& after) {
  auto from = find(moved);
  if (from == sheets_.end() || find(after) == sheets_.end()) raise(err::kSubscriptOutOfRange);
  if (&moved != &after) {
    std::unique_ptr<InMemoryWorksheet> owned = std::move(*from);
    sheets_.erase(from);
    sheets_.insert(find(after) + 1, std::move(owned));
  }
  active_ = &moved;
}

void InMemoryWorkbook::renameSheet(InMemoryWorksheet& sheet, std::string name) {
  if (find(sheet) == sheets_.end()) raise(err::kSubscriptOutOfRange);
  checkNewName(name, &sheet);
  sheet.name_ = std::move(name);
}

namespace {

bool sameScope(const std::optional<std::string>& a, const std::optional<std::string>& b) {
  return a.has_value() == b.has_value() && (!a || sameSheetName(*a, *b));
}

}  // namespace

void InMemoryWorkbook::addName(DefinedName name) {
  const auto same = std::find_if(names_.begin(), names_.end(), [&](const DefinedName& n) {
    return sameName(n.name, name.name) && sameScope(n.sheet, name.sheet);
  });
  if (same != names_.end()) {
    *same = std::move(name);
  } else {
    names_.push_back(std::move(name));
  }
}

std::optional<std::string> InMemoryWorkbook::nameReference(std::string_view name, std::string_view sheet,
                                                           bool sheetOnly) const {
  const DefinedName* workbookLevel = nullptr;
  for (const DefinedName& n : names_) {
    if (!sameName(n.name, name)) continue;
    if (n.sheet && sameSheetName(*n.sheet, sheet)) return n.reference;
    if (!n.sheet) workbookLevel = &n;
  }
  if (workbookLevel == nullptr || sheetOnly) return std::nullopt;
  return workbookLevel->reference;
}

}  // namespace orv
