#pragma once
// The application of the in-memory host: the open workbooks, the active one, the worksheet
// functions and the screen-updating flag.
//
// The add-in workbook "Orvella.xla" with its sheet "Results" is open from construction. The
// active workbook is the user workbook added or activated last; the add-in workbook is active
// only while no other workbook is open. Workbook names are unique without regard to case.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host.h"
#include "workbook/host_worksheet_functions.h"
#include "workbook/in_memory_workbook.h"
#include "workbook/in_memory_worksheet.h"

namespace orv {

inline constexpr std::string_view kAddInWorkbookName = "Orvella.xla";
inline constexpr std::string_view kResultsSheetName = "Results";

class InMemoryApplication final : public Application {
 public:
  InMemoryApplication();
  InMemoryApplication(const InMemoryApplication&) = delete;
  InMemoryApplication& operator=(const InMemoryApplication&) = delete;

  InMemoryWorkbook& Workbooks(std::string_view name) override;
  // 1-based in the order of opening, the add-in workbook first; 9 when out of range.
  InMemoryWorkbook& Workbooks(std::int32_t index);
  std::int32_t WorkbooksCount() const { return static_cast<std::int32_t>(workbooks_.size()); }
  InMemoryWorkbook& addInWorkbook() { return *workbooks_.front(); }

  InMemoryWorkbook& ActiveWorkbook() override { return *active_; }
  // The active workbook's active sheet; a workbook without sheets has none, which fails as the
  // platform fails on a missing object (91).
  InMemoryWorksheet& ActiveSheet() override;
  InMemoryWorksheet& AddWorksheet() override;
  WorksheetFunction& worksheetFunction() override { return functions_; }

  bool ScreenUpdating() const override { return screenUpdating_; }
  void SetScreenUpdating(bool on) override { screenUpdating_ = on; }

  // Opens a user workbook holding the named sheets (none is allowed, for a reader that adds
  // them) and makes it the active workbook, its first sheet active. A name that is empty or
  // already open, or a sheet name that is invalid or repeated, is a host failure (1004).
  InMemoryWorkbook& AddWorkbook(std::string name, const std::vector<std::string>& sheetNames = {});
  // Called by InMemoryWorkbook::Activate.
  void activateWorkbook(InMemoryWorkbook& workbook);

 private:
  std::vector<std::unique_ptr<InMemoryWorkbook>> workbooks_;
  InMemoryWorkbook* active_ = nullptr;
  HostWorksheetFunctions functions_;
  bool screenUpdating_ = true;
};

}  // namespace orv
