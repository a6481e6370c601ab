#include "workbook/in_memory_application.h"

#include "frame/errors.h"
#include "frame/sheet_name.h"

namespace orv {

InMemoryApplication::InMemoryApplication() {
  workbooks_.push_back(std::make_unique<InMemoryWorkbook>(*this, std::string(kAddInWorkbookName), true));
  workbooks_.back()->addSheet(std::string(kResultsSheetName));
  active_ = workbooks_.back().get();
}

InMemoryWorkbook& InMemoryApplication::Workbooks(std::string_view name) {
  for (const auto& book : workbooks_) {
    if (sameSheetName(book->Name(), name)) return *book;
  }
  raise(err::kSubscriptOutOfRange);
}

InMemoryWorkbook& InMemoryApplication::Workbooks(std::int32_t index) {
  if (index < 1 || index > WorkbooksCount()) raise(err::kSubscriptOutOfRange);
  return *workbooks_[static_cast<std::size_t>(index - 1)];
}

InMemoryWorksheet& InMemoryApplication::ActiveSheet() {
  InMemoryWorksheet* sheet = active_->activeSheet();
  if (sheet == nullptr) raise(91, "Object variable or With block variable not set");
  return *sheet;
}

InMemoryWorksheet& InMemoryApplication::AddWorksheet() { return active_->addNewSheet(); }

InMemoryWorkbook& InMemoryApplication::AddWorkbook(std::string name, const std::vector<std::string>& sheetNames) {
  if (name.empty()) raiseHost("A workbook name cannot be empty");
  for (const auto& book : workbooks_) {
    if (sameSheetName(book->Name(), name)) {
      raiseHost("A workbook named \"" + name + "\" is already open");
    }
  }
  auto book = std::make_unique<InMemoryWorkbook>(*this, std::move(name), false);
  // Sheets first, so that a bad sheet name leaves the open workbooks as they were.
  for (const std::string& sheet : sheetNames) book->addSheet(sheet);
  workbooks_.push_back(std::move(book));
  active_ = workbooks_.back().get();
  return *active_;
}

void InMemoryApplication::activateWorkbook(InMemoryWorkbook& workbook) {
  if (workbook.isAddIn() && workbooks_.size() > 1) return;
  active_ = &workbook;
}

}  // namespace orv
