#pragma once
// A workbook of the in-memory host: an ordered list of uniquely named worksheets (names compare
// without case, sheet_names.h), one of them active.
//
// New sheets from Worksheets.Add are named "Sheet" + n, n counting on from the highest "SheetN"
// the workbook has held (a workbook with Sheet1..Sheet3 gets Sheet4, one with only "Data" gets
// Sheet1), skipping names in use.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"
#include "workbook/in_memory_worksheet.h"

namespace orv {

class InMemoryApplication;

// A name the workbook defines, as its file keeps it.
struct DefinedName {
  std::string name;
  std::optional<std::string> sheet;  // the sheet of a sheet-level name; none for the workbook's
  std::string reference;             // what it stands for, without a leading "=" ("Data!$A$1:$A$9")
  bool hidden = false;               // hidden from the user, as built-in names often are
};

class InMemoryWorkbook final : public Workbook {
 public:
  // Workbooks are made by the application (InMemoryApplication::AddWorkbook).
  InMemoryWorkbook(InMemoryApplication& application, std::string name, bool addIn);
  InMemoryWorkbook(const InMemoryWorkbook&) = delete;
  InMemoryWorkbook& operator=(const InMemoryWorkbook&) = delete;

  std::string Name() const override { return name_; }
  Application& application() override;
  InMemoryApplication& inMemoryApplication() { return *application_; }
  // The add-in workbook is hidden: it never becomes the active workbook while another is open.
  bool isAddIn() const { return addIn_; }

  std::int32_t WorksheetsCount() const override { return static_cast<std::int32_t>(sheets_.size()); }
  InMemoryWorksheet& Worksheets(std::int32_t index) override;
  InMemoryWorksheet& Worksheets(std::string_view name) override;
  // 1-based position of a sheet of this workbook.
  std::int32_t indexOf(const InMemoryWorksheet& sheet) const;

  // The workbook becomes the application's active workbook (see isAddIn).
  void Activate() override;
  // None only while the workbook has no sheets.
  InMemoryWorksheet* activeSheet() { return active_; }
  void activateSheet(InMemoryWorksheet& sheet);

  // A sheet appended at the end, as a file reader or a new workbook adds it; the first sheet
  // becomes the active one. A name that is invalid or taken is a host failure (1004).
  InMemoryWorksheet& addSheet(std::string name);
  // Worksheets.Add: a sheet with the next default name, before the active sheet; it becomes
  // the active sheet.
  InMemoryWorksheet& addNewSheet();
  // Moves `moved` to just after `after`; both belong to this workbook.
  void moveAfter(InMemoryWorksheet& moved, InMemoryWorksheet& after);
  void renameSheet(InMemoryWorksheet& sheet, std::string name);

  // The names in the order they were added. A name added again for the same scope replaces the
  // earlier one.
  const std::vector<DefinedName>& names() const { return names_; }
  void addName(DefinedName name);
  std::optional<std::string> nameReference(std::string_view name, std::string_view sheet,
                                           bool sheetOnly) const override;

 private:
  void checkNewName(std::string_view name, const InMemoryWorksheet* renamed) const;
  std::vector<std::unique_ptr<InMemoryWorksheet>>::iterator find(const InMemoryWorksheet& sheet);

  InMemoryApplication* application_;
  std::string name_;
  bool addIn_;
  std::vector<std::unique_ptr<InMemoryWorksheet>> sheets_;
  InMemoryWorksheet* active_ = nullptr;
  std::int64_t sheetCounter_ = 0;  // the n of the last default name handed out
  std::vector<DefinedName> names_;
};

}  // namespace orv
