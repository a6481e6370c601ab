// The sheet side of the scanner: what the elements it acts on mean for the sheet (default sizes,
// column widths, rows and their heights, cells and their values in every cell type).

#include <string>
#include <utility>

#include "frame/reference.h"
#include "workbook/in_memory_worksheet.h"
#include "xlsx/iso_date.h"
#include "xlsx/reader_numbers.h"
#include "xlsx/reader_sheet_scanner.h"
#include "xlsx/reader_xml.h"
#include "xlsx/xml_text.h"

namespace orv::detail {

void SheetScanner::startElement(Tag tag) {
  // The tag is already on the stack; its parent is the entry below.
  const Tag parent = stack_.size() >= 2 ? stack_[stack_.size() - 2].tag : Tag::Other;
  switch (tag) {
    case Tag::SheetFormatPr: readFormat(); break;
    case Tag::Col:
      if (parent == Tag::Cols) readColumn();
      break;
    case Tag::Row:
      if (parent == Tag::SheetData) startRow();
      break;
    case Tag::C:
      if (parent == Tag::Row) startCell(attribute("r"), attribute("t"), attribute("s"));
      break;
    case Tag::F:
      if (parent == Tag::C) hasFormula_ = true;
      break;
    case Tag::V:
      if (parent == Tag::C) {
        capture_ = Capture::Value;
        hasValue_ = true;
      }
      break;
    case Tag::Is:
      if (parent == Tag::C) hasInline_ = true;
      break;
    case Tag::T: {
      // <is><t> or <is><r><t>; phonetic runs (<rPh><t>) are not content.
      const Tag grand = stack_.size() >= 3 ? stack_[stack_.size() - 3].tag : Tag::Other;
      if (parent == Tag::Is || (parent == Tag::R && grand == Tag::Is)) capture_ = Capture::Inline;
      break;
    }
    default: break;
  }
}

void SheetScanner::endElement(Tag tag) {
  switch (tag) {
    case Tag::V:
    case Tag::T: capture_ = Capture::None; break;
    case Tag::C:
      if (!stack_.empty() && stack_.back().tag == Tag::Row) finishCell();
      break;
    default: break;
  }
}

// <sheetFormatPr>: the sheet's default row height and column width.
void SheetScanner::readFormat() {
  double points = 0;
  if (parseDouble(attributeText("defaultRowHeight"), points) && points >= 0) {
    sheet_.geometry().setDefaultRowHeight(std::min(points, kMaxRowHeight));
  }
  double characters = 0;
  if (parseDouble(attributeText("defaultColWidth"), characters) && characters >= 0) {
    sheet_.geometry().setDefaultColumnWidth(columnWidthPoints(characters));
  }
}

// <col>: a width for a run of columns, applied when the sheet ends (later runs win).
void SheetScanner::readColumn() {
  std::int32_t first = 0;
  std::int32_t last = 0;
  if (!parseInt(attributeText("min"), first) || !parseInt(attributeText("max"), last)) return;
  first = std::max(first, 1);
  last = std::min(last, kMaxColumns);
  if (first > last) return;
  const std::string hidden = attributeText("hidden");
  double characters = 0;
  if (hidden == "1" || hidden == "true") {
    columns_.push_back({first, last, 0.0});
  } else if (parseDouble(attributeText("width"), characters)) {
    columns_.push_back({first, last, columnWidthPoints(characters)});
  }
}

void SheetScanner::startRow() {
  std::int32_t r = row_ + 1;
  if (auto text = attribute("r")) {
    if (!parseInt(*text, r) || r < 1 || r > kMaxRows) fail("has a row number off the sheet");
  } else if (r > kMaxRows) {
    fail("has more rows than a sheet holds");
  }
  row_ = r;
  nextColumn_ = 1;
  const std::string hidden = attributeText("hidden");
  double points = 0;
  if (hidden == "1" || hidden == "true") {
    sheet_.geometry().setRowHeight(row_, 0.0);
  } else if (parseDouble(attributeText("ht"), points) && points >= 0 &&
             points != sheet_.geometry().defaultRowHeight()) {
    sheet_.geometry().setRowHeight(row_, std::min(points, kMaxRowHeight));
  }
}

// Nearly every cell of a large sheet reads <c r="B7" s="3" t="n"><v>12.5</v></c>: one-letter
// attributes in double quotes and a value with no references to resolve. Such a cell, when it
// lies whole in the XML at hand, is taken here in one pass, with the same effects as the tag by
// tag way. Anything else leaves everything as it was and returns false.
bool SheetScanner::plainCell() {
  const std::string_view x = x_;
  std::size_t i = p_;
  // The depth test keeps the XML depth limit where the general way would enforce it.
  if (stack_.empty() || stack_.back().tag != Tag::Row || stack_.size() + 2 >= kMaxXmlDepth || x.size() - i < 4 ||
      x[i + 1] != 'c' || x[i + 2] != ' ') {
    return false;
  }
  i += 3;
  std::optional<std::string_view> ref;
  std::optional<std::string_view> type;
  std::optional<std::string_view> style;
  for (;;) {
    while (i < x.size() && x[i] == ' ') ++i;
    if (i + 3 >= x.size()) return false;
    if (x[i] == '>') {
      ++i;
      break;
    }
    const char name = x[i];
    if (x[i + 1] != '=' || x[i + 2] != '"') return false;
    const std::size_t close = findByte(x, '"', i + 3);
    if (close == std::string_view::npos) return false;
    const std::string_view value = x.substr(i + 3, close - i - 3);
    if (value.find('&') != std::string_view::npos) return false;
    if (name == 'r' && !ref) {
      ref = value;
    } else if (name == 't' && !type) {
      type = value;
    } else if (name == 's' && !style) {
      style = value;
    } else {
      return false;
    }
    i = close + 1;
  }
  constexpr std::string_view kOpenValue = "<v>";
  constexpr std::string_view kClose = "</v></c>";
  if (x.substr(i, kOpenValue.size()) != kOpenValue) return false;
  i += kOpenValue.size();
  const std::size_t end = findByte(x, '<', i);
  if (end == std::string_view::npos || x.substr(end, kClose.size()) != kClose) return false;
  const std::string_view text = x.substr(i, end - i);
  if (needsResolving(text)) return false;

  startCell(ref, type, style);
  hasValue_ = true;
  value_.assign(text);
  p_ = end + kClose.size();
  finishCell();
  return true;
}

void SheetScanner::startCell(std::optional<std::string_view> ref, std::optional<std::string_view> type,
                             std::optional<std::string_view> style) {
  if (ref) {
    std::int32_t row = row_ == 0 ? 1 : row_;
    if (!parseCellRef(trimXmlSpace(*ref), row, column_)) {
      fail("has a cell reference that is off the sheet or malformed");
    }
    row_ = row;
  } else {
    if (nextColumn_ > kMaxColumns) fail("has more cells in a row than a sheet holds");
    column_ = nextColumn_;
    if (row_ == 0) row_ = 1;
  }
  nextColumn_ = column_ + 1;
  // Types are plain letters; only a type written with references needs them resolved.
  if (!type) type_.clear();
  else if (type->find('&') == std::string_view::npos) type_.assign(*type);
  else type_ = attributeText("t");
  value_.clear();
  inline_.clear();
  hasValue_ = false;
  hasInline_ = false;
  hasFormula_ = false;
  style_ = 0;
  if (style && options_.dateStyles != nullptr && !options_.dateStyles->empty() && !parseInt(*style, style_)) style_ = 0;
}

void SheetScanner::finishCell() {
  stored_ = false;
  storeCellValue();
  if (options_.notes != nullptr) noteCell();
}

// A formula that stored nothing had no saved result; a number stored under a date or time format,
// or as an ISO date, is a serial day number to the analyses.
void SheetScanner::noteCell() {
  if (!stored_) {
    if (hasFormula_) options_.notes->formulasWithoutValue.push_back({row_, column_});
    return;
  }
  const std::vector<bool>* dates = options_.dateStyles;
  const bool number = type_.empty() || type_ == "n";
  const bool dateStyle = dates != nullptr && style_ >= 0 && static_cast<std::size_t>(style_) < dates->size() &&
                         (*dates)[static_cast<std::size_t>(style_)];
  if (type_ == "d" || (number && dateStyle)) options_.notes->dateCells.push_back({row_, column_});
}

void SheetScanner::storeCellValue() {
  capture_ = Capture::None;
  const std::string_view type = type_;
  if (type == "inlineStr") {
    if (hasInline_) store(decodeSpreadsheetEscapes(std::move(inline_)));
    else if (hasValue_) store(decodeSpreadsheetEscapes(std::move(value_)));
    inline_.clear();
    value_.clear();
    return;
  }
  if (!hasValue_) return;  // a formatted cell, or a formula without a cached result
  if (type.empty() || type == "n") {
    if (trimXmlSpace(value_).empty()) return;
    double n = 0;
    if (!parseDouble(value_, n)) failCell("has a number that does not read as one");
    store(n);
  } else if (type == "s") {
    std::uint64_t index = 0;
    const auto* strings = options_.sharedStrings;
    if (!parseInt(value_, index)) failCell("has a shared-string index that is no number");
    if (strings == nullptr || index >= strings->size()) {
      failCell("refers to shared string " + std::to_string(index) + " of " +
               std::to_string(strings == nullptr ? 0 : strings->size()));
    }
    store((*strings)[static_cast<std::size_t>(index)]);
  } else if (type == "str") {
    store(decodeSpreadsheetEscapes(std::move(value_)));
    value_.clear();
  } else if (type == "b") {
    const std::string_view v = trimXmlSpace(value_);
    if (v == "1" || v == "true") store(true);
    else if (v == "0" || v == "false") store(false);
    else failCell("has a Boolean that is neither 0 nor 1");
  } else if (type == "e") {
    ErrorValue e{};
    // Error values newer than the host's seven (#SPILL!, #CALC! ...) read as #VALUE!, the
    // closest of those the host knows.
    store(parseErrorValue(trimXmlSpace(value_), e) ? e : ErrorValue::Value);
  } else if (type == "d") {
    double serial = 0;
    if (!isoDateSerial(trimXmlSpace(value_), options_.date1904, serial)) {
      failCell("has a date that does not read as one");
    }
    store(serial);
  } else {
    failCell("has the unknown cell type \"" + type_ + "\"");
  }
}

}  // namespace orv::detail
