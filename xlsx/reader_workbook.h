#pragma once
// Opens a workbook file in the in-memory host: an .xlsx/.xlsm package, or delimited text
// (.csv, .tsv, .txt; csv_reader.h).
//
// The kind is taken from the content first (zip, compound file, text) and the extension second,
// so a renamed file is still read for what it is. A package gives every worksheet in workbook
// order under its own name, with the values its cells hold (shared and inline
// strings, numbers, Booleans, error values, cached formula results; reader_sheet.h) and the
// row heights and column widths it sets, and the names it defines (workbook- and sheet-level,
// hidden ones too). Chart sheets and macro sheets are not worksheets and
// are left out. The workbook is named after the file ("data.xlsx") and becomes the active one.
//
// Errors: kFileUnreadable (frame/errors.h), the description naming the file, what it is or what
// is wrong with it, and what is accepted: damaged or truncated packages, packages without a
// workbook, password-protected workbooks, legacy .xls, .xlsb and .ods files, binary files,
// parts that inflate beyond ZipLimits. The source is "Line 0 in ORVDescriptives.WorkbookFile.Open".
// A workbook of that name already open is a host failure (1004). Failing after the workbook was
// added leaves it open, partly filled.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "xlsx/reader_sheet.h"
#include "xlsx/zip_input.h"

namespace orv {

class InMemoryApplication;
class InMemoryWorkbook;

// What the writer needs to carry a package over: the part of each loaded sheet, in the order of
// the workbook's sheets (empty for text files), and the date system.
struct LoadedPackageInfo {
  std::vector<std::string> sheetParts;  // e.g. "xl/worksheets/sheet1.xml", no leading "/"
  std::string workbookPart;             // e.g. "xl/workbook.xml"; empty for text files
  // The workbook part's content type as [Content_Types].xml gives it, which tells a plain
  // workbook from a macro-enabled one, a template or an add-in; empty for text files.
  std::string workbookContentType;
  bool date1904 = false;
  bool fromPackage = false;  // false for text files
  // What the reading noticed in each loaded sheet (formulas without a saved value, numbers in
  // date formats), parallel to sheetParts; empty for text files.
  std::vector<SheetNotes> sheetNotes;
};

struct LoadedWorkbook {
  InMemoryWorkbook& book;
  LoadedPackageInfo info;
};

// What one file may cost, so that a hostile file is refused with an error naming the limit it
// passed instead of exhausting memory. Each is far above what a real sheet of 1,048,576 rows
// needs: a full-height sheet of 47 columns fits the cell budget, and a text as long as a cell
// can hold (32,767 characters, at most 4 bytes each in UTF-8) fits the text length limit.
// XML depth has its own fixed limit (kMaxXmlDepth, reader_xml.h).
struct ReadLimits {
  ZipLimits zip;
  std::uint64_t maxStoredCells = 50'000'000;    // dense cell slots for the whole workbook
  std::uint64_t maxSharedStrings = 50'000'000;  // items of the shared-string table
  // Bytes of one text (a shared string, an inline string, a CSV field).
  std::uint64_t maxStringBytes = 4 * 32767;
  // Bytes of text held by all cells together: a shared string counts once per cell that holds
  // it, so a short file cannot copy one long string into millions of cells.
  std::uint64_t maxTextBytes = std::uint64_t{2} << 30;
};

LoadedWorkbook openWorkbookFile(InMemoryApplication& app, const std::filesystem::path& file,
                                const ReadLimits& limits = {});

inline InMemoryWorkbook& loadWorkbook(InMemoryApplication& app, const std::filesystem::path& file) {
  return openWorkbookFile(app, file).book;
}

}  // namespace orv
