#pragma once
// Reference texts in A1 style: parsing and formatting.
//
// Accepted: cells and blocks with or without "$" marks (B7, $B$7, A1:C20, $A$1:$C$20), whole
// columns and rows (A:C, $3:$5), an optional sheet qualifier on each area (Data!A1, 'My data'!A1
// with '' for a quote inside), several areas separated by commas, all on one sheet. Columns run
// A..XFD, rows 1..1048576. Anything else raises a host failure (1004) whose description quotes
// the text. Parsing is linear in the length of the text.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

inline constexpr std::int32_t kMaxRows = 1048576;
inline constexpr std::int32_t kMaxColumns = 16384;

// A rectangle of cells, 1-based and inclusive.
struct CellBlock {
  std::int32_t top = 1;
  std::int32_t left = 1;
  std::int32_t bottom = 1;
  std::int32_t right = 1;

  std::int32_t rows() const { return bottom - top + 1; }
  std::int32_t columns() const { return right - left + 1; }
  bool wholeColumns() const { return top == 1 && bottom == kMaxRows; }
  bool wholeRows() const { return left == 1 && right == kMaxColumns; }
  bool contains(std::int32_t row, std::int32_t column) const {
    return row >= top && row <= bottom && column >= left && column <= right;
  }
  friend bool operator==(const CellBlock&, const CellBlock&) = default;
};

// Every host's cell primitives refuse a cell or block that does not lie on the sheet (or a
// block whose corners are crossed) with a host failure (1004) of the generic description.
void requireCellOnSheet(std::int32_t row, std::int32_t column);
void requireBlockOnSheet(const CellBlock& block);

struct ParsedReference {
  std::optional<std::string> sheet;  // unquoted sheet name, when the text names one
  std::vector<CellBlock> areas;      // at least one
};

ParsedReference parseReference(std::string_view text);
// As parseReference, without raising: none for a text that is no reference.
std::optional<ParsedReference> tryParseReference(std::string_view text);

// "A", "Z", "AA", "XFD". Column must be 1..16384.
std::string columnLetters(std::int32_t column);
// 0 when the text is not 1..3 letters naming a column up to XFD.
std::int32_t columnNumber(std::string_view letters);

// Absolute address of one block: "$B$7", "$A$1:$C$20", "$A:$C" (whole columns), "$3:$5".
std::string absoluteAddress(const CellBlock& block);
// Several blocks joined by ",".
std::string absoluteAddress(const std::vector<CellBlock>& blocks);

// The sheet name as it must stand before "!": quoted ('My data', 'It''s') when it holds anything
// but letters, digits, "_" and ".", starts with a digit, or could be read as a cell reference.
std::string quoteSheetName(std::string_view name);

}  // namespace orv
