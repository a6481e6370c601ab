#pragma once
// Writing the host model to .xlsx files.
//
// writeNewWorkbook: a fresh package holding every sheet of the workbook in order, with values,
// number formats, fonts, fills, alignment, column widths and row heights as the model holds
// them; the model's active sheet is the selected tab. Used for CSV input.
//
// writeIntoPackage: the original package plus what the analysis added. Every part the writer
// does not edit is carried over byte for byte (other sheets, formulas, charts, images, defined
// names, the macro project of an .xlsm ...). Sheets of the model that the package lacks (matched by
// name without case) are appended as new parts in model order; each sheet named in `changes`
// receives the model's cells of the change's block and keeps everything else (see
// writer_sheet_splice.h). Only these parts change: [Content_Types].xml, the workbook part and its
// rels, the styles part (formats are appended), docProps/app.xml when it lists sheet titles, the
// receiving sheets (and their rels and drawings when they get charts), and — when the model's
// active sheet is a new or receiving sheet, which then becomes the selected tab — the sheet
// view of the previously selected sheet.
//
// Charts: every chart the model records on a written sheet (a sheet of a new workbook, a new
// sheet, or a receiving sheet) becomes a native chart part anchored at its recorded position
// (writer_drawing_package.h); a receiving sheet that already has a drawing gets the anchors
// appended to it. The model holds only the charts the analysis made, so nothing is replaced.
//
// Both write to a temporary file beside `out` and rename it (package_atomic_write.h); `out` may
// equal `original` for in-place writing, and is otherwise the only file touched.
//
// Errors, with source "Line 0 in ORVDescriptives.WorkbookFile.Save" (".SaveAs" for a new
// workbook): kFileUnwritable for an unwritable target, an original that is no readable
// package, a change naming a sheet that is not in the package, or a workbook without sheets;
// the target is then as it was.

#include <filesystem>
#include <string>
#include <vector>

#include "frame/reference.h"

namespace orv {

class InMemoryWorkbook;

// The block of an existing sheet that the analysis wrote.
struct SheetChange {
  std::string sheetName;
  CellBlock block;
};

// The model is only read; the reference is not const because the host interface hands out
// sheets through non-const accessors.
void writeNewWorkbook(InMemoryWorkbook& book, const std::filesystem::path& out);

void writeIntoPackage(const std::filesystem::path& original, InMemoryWorkbook& book,
                      const std::vector<SheetChange>& changes, const std::filesystem::path& out);

}  // namespace orv
