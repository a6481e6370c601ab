#pragma once
// Delimited text files (CSV, TSV, TXT) as a one-sheet workbook.
//
// Fields follow RFC 4180: a field that starts with a double quote runs to the closing quote and
// may hold delimiters, line breaks and doubled quotes; records end at LF, CRLF or CR. The
// delimiter is the first of tab, semicolon and comma that splits the opening records into the
// same number of fields each (so "1,5;2,5" is two fields), else the one found on most records,
// else tab for .tsv files and comma otherwise. UTF-8 with or without a byte-order mark is read
// as it is; text that is not UTF-8 is taken as Windows-1252.
//
// A field that is a plain decimal number with a point as decimal separator (blanks around it,
// a sign, an exponent allowed: "-1.5", " 2e3 ") becomes a number; everything else non-empty is
// text ("1,5", "TRUE", "0x1F", "inf"), and an empty field leaves its cell empty.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "frame/cell_value.h"

namespace orv {

class InMemoryApplication;
class InMemoryWorkbook;
struct ReadLimits;

// `fallback` when nothing in the text decides.
char detectDelimiter(std::string_view text, char fallback);

// Calls `field` for every non-empty field, rows and columns 1-based; `row` counts every record,
// blank lines included. Raises kFileUnreadable (via raiseDamaged) when the text has more rows
// or columns than a sheet holds.
void parseDelimited(std::string_view text, char delimiter,
                    const std::function<void(std::int32_t row, std::int32_t column, std::string&& field)>& field);

// The cell value a field becomes.
CellValue csvFieldValue(std::string&& field);

// A workbook named after the file (e.g. "data.csv") with one sheet named after its stem, made
// fit for a sheet name (characters a sheet name cannot hold become "_", at most 31 characters).
// Raises kFileUnreadable naming the file for unreadable or oversized files, and for text past
// the cell count or text length limit of `limits` (a few short lines far apart would otherwise
// make the host store millions of empty cells between them).
InMemoryWorkbook& loadDelimitedText(InMemoryApplication& app, const std::filesystem::path& file,
                                    const ReadLimits& limits);

// The stem of a file as a sheet name; "Sheet1" when nothing usable remains.
std::string sheetNameForFile(const std::filesystem::path& file);

}  // namespace orv
