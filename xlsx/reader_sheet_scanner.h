#pragma once
// The streaming scanner behind readSheetXml and SheetXmlStream (reader_sheet.h); internal to
// the reader. Its work is in three files: the markup (pieces, tags, attributes, comments,
// CDATA: reader_sheet_markup.cpp), the sheet's elements and cell values
// (reader_sheet_cells.cpp), and storing cells within the memory limits
// (reader_sheet_store.cpp).

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/cell_value.h"
#include "xlsx/column_width.h"
#include "xlsx/reader_sheet.h"

namespace orv::detail {

// The elements the scanner acts on; everything else is Other and only kept for nesting.
enum class SheetTag : std::uint8_t { Other, Worksheet, SheetFormatPr, Cols, Col, SheetData, Row, C, V, F, Is, T, R };

// The tag for an element's local name.
SheetTag sheetTagOf(std::string_view local);

// string_view::find for the short distances of sheet XML (a number between two tags, a tag name
// before its '>'): a plain loop over the first bytes beats a library call per search, and
// memchr still takes over for long runs of text.
inline std::size_t findByte(std::string_view s, char c, std::size_t from) {
  constexpr std::size_t kNear = 32;
  const std::size_t near = std::min(s.size(), from + kNear);
  for (std::size_t i = from; i < near; ++i) {
    if (s[i] == c) return i;
  }
  return near < s.size() ? s.find(c, near) : std::string_view::npos;
}

// Scans the XML as it arrives. Each piece is parsed up to the last construct it completes; what
// is left (a tag, comment or entity cut by the piece's end) waits in `carry_` for the next piece.
// Incomplete markup only counts as damage once the last piece has come.
class SheetScanner {
 public:
  SheetScanner(InMemoryWorksheet& sheet, const SheetReadOptions& options) : sheet_(sheet), options_(options) {}

  void feed(std::string_view piece);
  void finish();

 private:
  using Tag = SheetTag;

  // Markup (reader_sheet_markup.cpp).
  // Thrown (and caught in scan) where a construct runs past the end of the XML seen so far.
  struct NeedMore {};
  void needMore() const {
    if (!final_) throw NeedMore{};
  }
  void scan();
  void consumeText();
  void markup();
  std::size_t skipPast(std::string_view terminator, std::size_t from) const;
  void parseStartTag();
  bool parseAttributes(std::size_t& i);
  void openElement(std::string_view name, bool selfClosing);
  void parseEndTag();
  std::optional<std::string_view> attribute(std::string_view local) const;
  std::string attributeText(std::string_view local) const;

  [[noreturn]] void fail(std::string_view what) const;
  [[noreturn]] void failCell(std::string_view what) const;

  // Elements and cells (reader_sheet_cells.cpp).
  void startElement(Tag tag);
  void endElement(Tag tag);
  void readFormat();
  void readColumn();
  void startRow();
  bool plainCell();
  void startCell(std::optional<std::string_view> ref, std::optional<std::string_view> type,
                 std::optional<std::string_view> style);
  void finishCell();
  void storeCellValue();
  void noteCell();

  // Storing (reader_sheet_store.cpp).
  void store(CellValue value);
  void flushDeferred();

  std::string_view x_;  // the XML at hand: a piece, or the carry with a piece appended
  std::size_t p_ = 0;
  std::string carry_;
  bool final_ = false;
  InMemoryWorksheet& sheet_;
  const SheetReadOptions& options_;

  // Open elements; their qualified names are kept end to end in `openNames_`, since the piece
  // that held a start tag may be gone by the time its end tag comes.
  struct Open {
    Tag tag;
    std::size_t nameAt;
  };
  std::vector<Open> stack_;
  std::string openNames_;
  void push(Tag tag, std::string_view name) {
    stack_.push_back({tag, openNames_.size()});
    openNames_.append(name);
  }
  void pop() {
    openNames_.resize(stack_.back().nameAt);
    stack_.pop_back();
  }
  std::string_view topName() const { return std::string_view(openNames_).substr(stack_.back().nameAt); }
  struct Attribute {
    std::string_view name;   // local name
    std::string_view value;  // raw, entities unresolved
  };
  std::vector<Attribute> attributes_;
  bool sawRoot_ = false;

  enum class Capture : std::uint8_t { None, Value, Inline } capture_ = Capture::None;
  std::int32_t row_ = 0;
  std::int32_t column_ = 0;
  std::int32_t nextColumn_ = 1;
  std::string type_;
  std::string value_;
  std::string inline_;
  bool hasValue_ = false;
  bool hasInline_ = false;
  bool hasFormula_ = false;
  bool stored_ = false;
  std::int32_t style_ = 0;  // read only when the workbook has date formats to look for

  // Stored span of each column, for the memory budget and to spot cells out of order.
  struct Span {
    std::int32_t first = 0;
    std::int32_t last = 0;
  };
  std::vector<Span> spans_;
  std::uint64_t localCells_ = 0;
  std::uint64_t localTextBytes_ = 0;
  struct Deferred {
    std::int32_t row;
    std::int32_t column;
    CellValue value;
  };
  bool deferring_ = false;
  std::vector<Deferred> deferred_;
  std::vector<ColumnWidth> columns_;
};

}  // namespace orv::detail
