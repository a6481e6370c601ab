#include "xlsx/reader_sheet.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <memory>
#include <numeric>
#include <optional>
#include <utility>

#include "frame/cell_value.h"
#include "frame/reference.h"
#include "workbook/in_memory_worksheet.h"
#include "xlsx/reader_errors.h"
#include "xlsx/reader_text.h"
#include "xlsx/reader_xml.h"

namespace orv {
namespace {

enum class Tag : std::uint8_t { Other, Worksheet, SheetFormatPr, Cols, Col, SheetData, Row, C, V, Is, T, R };

Tag tagOf(std::string_view local) {
  switch (local.size()) {
    case 1:
      if (local == "c") return Tag::C;
      if (local == "v") return Tag::V;
      if (local == "t") return Tag::T;
      if (local == "r") return Tag::R;
      return Tag::Other;
    case 2: return local == "is" ? Tag::Is : Tag::Other;
    case 3:
      if (local == "row") return Tag::Row;
      if (local == "col") return Tag::Col;
      return Tag::Other;
    case 4: return local == "cols" ? Tag::Cols : Tag::Other;
    case 9:
      if (local == "worksheet") return Tag::Worksheet;
      if (local == "sheetData") return Tag::SheetData;
      return Tag::Other;
    case 13: return local == "sheetFormatPr" ? Tag::SheetFormatPr : Tag::Other;
    default: return Tag::Other;
  }
}

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// string_view::find for the short distances of sheet XML (a number between two tags, a tag name
// before its '>'): a plain loop over the first bytes beats a library call per search, and
// memchr still takes over for long runs of text.
std::size_t findByte(std::string_view s, char c, std::size_t from) {
  constexpr std::size_t kNear = 32;
  const std::size_t near = std::min(s.size(), from + kNear);
  for (std::size_t i = from; i < near; ++i) {
    if (s[i] == c) return i;
  }
  return near < s.size() ? s.find(c, near) : std::string_view::npos;
}

std::string_view trimmed(std::string_view s) {
  while (!s.empty() && isSpace(s.front())) s.remove_prefix(1);
  while (!s.empty() && isSpace(s.back())) s.remove_suffix(1);
  return s;
}

// True when character data holds an entity reference or a CR to resolve; most values do not.
bool needsResolving(std::string_view s) {
  return std::any_of(s.begin(), s.end(), [](char c) { return c == '&' || c == '\r'; });
}

// Appends XML character data with its entity references and line ends resolved.
void appendXmlText(std::string& out, std::string_view s) {
  if (!needsResolving(s)) {
    out.append(s);
    return;
  }
  for (std::size_t i = 0; i < s.size(); ++i) {
    const char c = s[i];
    if (c == '\r') {
      out.push_back('\n');
      if (i + 1 < s.size() && s[i + 1] == '\n') ++i;
      continue;
    }
    if (c != '&') {
      out.push_back(c);
      continue;
    }
    const auto semi = s.find(';', i);
    if (semi == std::string_view::npos || semi - i > 12) {
      out.push_back(c);
      continue;
    }
    const std::string_view name = s.substr(i + 1, semi - i - 1);
    if (name == "lt") out.push_back('<');
    else if (name == "gt") out.push_back('>');
    else if (name == "amp") out.push_back('&');
    else if (name == "quot") out.push_back('"');
    else if (name == "apos") out.push_back('\'');
    else if (name.size() > 1 && name[0] == '#') {
      std::uint32_t code = 0;
      const bool hex = name[1] == 'x';
      auto [end, ec] = std::from_chars(name.data() + (hex ? 2 : 1), name.data() + name.size(), code, hex ? 16 : 10);
      if (ec != std::errc() || end != name.data() + name.size() || code == 0 || code > 0x10FFFF ||
          (code >= 0xD800 && code <= 0xDFFF)) {
        out.append(s.substr(i, semi - i + 1));
      } else {
        appendUtf8(out, code);
      }
    } else {
      out.append(s.substr(i, semi - i + 1));
    }
    i = semi;
  }
}

template <class Int>
bool parseInt(std::string_view s, Int& out) {
  s = trimmed(s);
  auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), out);
  return ec == std::errc() && end == s.data() + s.size() && !s.empty();
}

bool parseDouble(std::string_view s, double& out) {
  s = trimmed(s);
  if (!s.empty() && s.front() == '+') s.remove_prefix(1);
  auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), out);
  return ec == std::errc() && end == s.data() + s.size() && !s.empty() && std::isfinite(out);
}

// "AB12" -> column 28, row 12; a reference of letters only keeps `row`. False when malformed or
// off the sheet.
bool parseCellRef(std::string_view ref, std::int32_t& row, std::int32_t& column) {
  std::size_t letters = 0;
  while (letters < ref.size() && letters < 4 &&
         ((ref[letters] >= 'A' && ref[letters] <= 'Z') || (ref[letters] >= 'a' && ref[letters] <= 'z'))) {
    ++letters;
  }
  if (letters == 0 || letters > 3) return false;
  column = columnNumber(ref.substr(0, letters));
  if (column == 0) return false;
  if (letters == ref.size()) return true;
  std::int32_t r = 0;
  if (!parseInt(ref.substr(letters), r) || r < 1 || r > kMaxRows) return false;
  row = r;
  return true;
}

struct Attribute {
  std::string_view name;   // local name
  std::string_view value;  // raw, entities unresolved
};

struct ColumnSpec {
  std::int32_t first;
  std::int32_t last;
  double points;
};

}  // namespace

namespace detail {

// Scans the XML as it arrives. Each piece is parsed up to the last construct it completes; what
// is left (a tag, comment or entity cut by the piece's end) waits in `carry_` for the next piece.
// Incomplete markup only counts as damage once the last piece has come.
class SheetScanner {
 public:
  SheetScanner(InMemoryWorksheet& sheet, const SheetReadOptions& options) : sheet_(sheet), options_(options) {}

  void feed(std::string_view piece);
  void finish();

 private:
  // Thrown (and caught in feed) where a construct runs past the end of the XML seen so far.
  struct NeedMore {};
  void needMore() const {
    if (!final_) throw NeedMore{};
  }
  void scan();
  void consumeText();
  void markup();

  [[noreturn]] void fail(std::string_view what) const {
    raiseDamaged("is damaged: the sheet \"" + sheet_.Name() + "\" " + std::string(what));
  }
  [[noreturn]] void failCell(std::string_view what) const {
    fail(what.empty() ? std::string() : std::string(what) + " in cell " + columnLetters(column_) + std::to_string(row_));
  }

  std::size_t skipPast(std::string_view terminator, std::size_t from) const {
    const auto e = x_.find(terminator, from);
    if (e == std::string_view::npos) needMore();
    if (e == std::string_view::npos) fail("is cut short (unterminated markup)");
    return e + terminator.size();
  }
  void parseStartTag();
  void parseEndTag();
  void startElement(Tag tag);
  void endElement(Tag tag);
  std::optional<std::string_view> attribute(std::string_view local) const;
  std::string attributeText(std::string_view local) const;

  void startRow();
  bool plainCell();
  void startCell(std::optional<std::string_view> ref, std::optional<std::string_view> type);
  void finishCell();
  void store(CellValue value);
  void flushDeferred();
  void applyColumnWidths();

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
  std::vector<ColumnSpec> columns_;
};

void SheetScanner::feed(std::string_view piece) {
  const bool carried = !carry_.empty();
  if (carried) {
    carry_.append(piece);
    x_ = carry_;
  } else {
    x_ = piece;
  }
  p_ = 0;
  scan();
  if (carried) {
    carry_.erase(0, p_);
  } else {
    carry_.assign(x_.substr(p_));
  }
}

void SheetScanner::finish() {
  final_ = true;
  x_ = carry_;
  p_ = 0;
  scan();
  if (!stack_.empty() || !sawRoot_) fail("is cut short (its XML ends inside an element)");
  flushDeferred();
  applyColumnWidths();
  if (options_.usedCells != nullptr) *options_.usedCells += localCells_;
  if (options_.usedTextBytes != nullptr) *options_.usedTextBytes += localTextBytes_;
}

// Text that runs to the end of a piece: captured text is taken up to where an entity reference or
// a CR LF pair might continue in the next piece; other text is skipped.
void SheetScanner::consumeText() {
  std::size_t cut = x_.size();
  if (capture_ != Capture::None) {
    // An '&' closer than 13 bytes to the cut may begin a reference the cut splits.
    for (bool moved = true; moved && cut > p_;) {
      moved = false;
      const std::size_t from = std::max(p_, cut >= 12 ? cut - 12 : std::size_t{0});
      const auto amp = x_.substr(0, cut).find('&', from);
      if (amp != std::string_view::npos) {
        cut = amp;
        moved = true;
      } else if (x_[cut - 1] == '\r') {
        cut -= 1;
        moved = true;
      }
    }
    appendXmlText(capture_ == Capture::Value ? value_ : inline_, x_.substr(p_, cut - p_));
  }
  p_ = cut;
}

void SheetScanner::scan() {
  while (true) {
    const auto lt = findByte(x_, '<', p_);
    if (lt == std::string_view::npos && !final_) {
      consumeText();
      return;
    }
    if (capture_ == Capture::Value) appendXmlText(value_, x_.substr(p_, lt == std::string_view::npos ? x_.npos : lt - p_));
    else if (capture_ == Capture::Inline) appendXmlText(inline_, x_.substr(p_, lt == std::string_view::npos ? x_.npos : lt - p_));
    if (lt == std::string_view::npos) break;
    p_ = lt;
    if (capture_ == Capture::None && plainCell()) continue;
    try {
      markup();
    } catch (const NeedMore&) {
      p_ = lt;
      return;
    }
  }
}

void SheetScanner::markup() {
  const std::string_view rest = x_.substr(p_);
  if (rest.size() < 2) needMore();
  // Start and end tags, nearly all the markup there is, are told apart by their second byte.
  if (rest.size() >= 2 && rest[1] != '!' && rest[1] != '?') {
    if (rest[1] == '/') parseEndTag();
    else parseStartTag();
    return;
  }
  // The longest opening told apart below is "<![CDATA[".
  if (rest.size() < 9) needMore();
  if (rest.starts_with("<!--")) {
    p_ = skipPast("-->", p_ + 4);
  } else if (rest.starts_with("<![CDATA[")) {
    const auto end = x_.find("]]>", p_ + 9);
    if (end == std::string_view::npos) needMore();
    if (end == std::string_view::npos) fail("is cut short (unterminated CDATA section)");
    const std::string_view data = x_.substr(p_ + 9, end - p_ - 9);
    if (capture_ == Capture::Value) value_.append(data);
    else if (capture_ == Capture::Inline) inline_.append(data);
    p_ = end + 3;
  } else if (rest.starts_with("<?")) {
    p_ = skipPast("?>", p_ + 2);
  } else if (rest.starts_with("<!")) {
    fail("holds a document type declaration, which workbook parts never have");
  } else if (rest.starts_with("</")) {
    parseEndTag();
  } else {
    parseStartTag();
  }
}

void SheetScanner::parseStartTag() {
  std::size_t i = p_ + 1;
  const std::size_t nameStart = i;
  while (i < x_.size() && !isSpace(x_[i]) && x_[i] != '>' && x_[i] != '/') ++i;
  if (i >= x_.size()) needMore();
  const std::string_view name = x_.substr(nameStart, i - nameStart);
  if (name.empty()) fail("is no well-formed XML (an empty tag)");
  attributes_.clear();
  bool selfClosing = false;
  for (;;) {
    while (i < x_.size() && isSpace(x_[i])) ++i;
    if (i >= x_.size()) needMore();
    if (i >= x_.size()) fail("is cut short (inside a tag)");
    if (x_[i] == '>') {
      ++i;
      break;
    }
    if (x_[i] == '/') {
      if (i + 1 >= x_.size()) needMore();
      if (i + 1 >= x_.size() || x_[i + 1] != '>') fail("is no well-formed XML (a stray \"/\" in a tag)");
      selfClosing = true;
      i += 2;
      break;
    }
    const std::size_t an = i;
    while (i < x_.size() && x_[i] != '=' && !isSpace(x_[i]) && x_[i] != '>' && x_[i] != '/') ++i;
    const std::string_view attrName = x_.substr(an, i - an);
    while (i < x_.size() && isSpace(x_[i])) ++i;
    if (i >= x_.size()) needMore();
    if (i >= x_.size() || x_[i] != '=') fail("is no well-formed XML (an attribute without a value)");
    ++i;
    while (i < x_.size() && isSpace(x_[i])) ++i;
    if (i >= x_.size()) needMore();
    if (i >= x_.size() || (x_[i] != '"' && x_[i] != '\'')) fail("is no well-formed XML (an unquoted attribute)");
    const char quote = x_[i++];
    const auto close = findByte(x_, quote, i);
    if (close == std::string_view::npos) needMore();
    if (close == std::string_view::npos) fail("is cut short (inside an attribute)");
    attributes_.push_back({localName(attrName), x_.substr(i, close - i)});
    i = close + 1;
  }
  p_ = i;
  const Tag tag = tagOf(localName(name));
  if (stack_.size() >= kMaxXmlDepth) {
    raiseDamaged("is refused: the sheet \"" + sheet_.Name() + "\" nests its XML elements more than " +
                 std::to_string(kMaxXmlDepth) + " deep (the XML depth limit)");
  }
  if (stack_.empty()) {
    if (sawRoot_) fail("is no well-formed XML (a second root element)");
    sawRoot_ = true;
  }
  push(tag, name);
  startElement(tag);
  if (selfClosing) {
    pop();
    endElement(tag);
  }
}

void SheetScanner::parseEndTag() {
  const auto close = findByte(x_, '>', p_ + 2);
  if (close == std::string_view::npos) needMore();
  if (close == std::string_view::npos) fail("is cut short (inside an end tag)");
  const std::string_view name = trimmed(x_.substr(p_ + 2, close - p_ - 2));
  p_ = close + 1;
  if (stack_.empty() || topName() != name) fail("is no well-formed XML (mismatched end tag)");
  const Tag tag = stack_.back().tag;
  pop();
  endElement(tag);
}

std::optional<std::string_view> SheetScanner::attribute(std::string_view local) const {
  for (const Attribute& a : attributes_) {
    if (a.name == local) return a.value;
  }
  return std::nullopt;
}

std::string SheetScanner::attributeText(std::string_view local) const {
  std::string s;
  if (auto v = attribute(local)) appendXmlText(s, *v);
  return s;
}

void SheetScanner::startElement(Tag tag) {
  // The tag is already on the stack; its parent is the entry below.
  const Tag parent = stack_.size() >= 2 ? stack_[stack_.size() - 2].tag : Tag::Other;
  switch (tag) {
    case Tag::SheetFormatPr: {
      double points = 0;
      if (parseDouble(attributeText("defaultRowHeight"), points) && points >= 0) {
        sheet_.geometry().setDefaultRowHeight(std::min(points, kMaxRowHeight));
      }
      double characters = 0;
      if (parseDouble(attributeText("defaultColWidth"), characters) && characters >= 0) {
        sheet_.geometry().setDefaultColumnWidth(columnWidthPoints(characters));
      }
      break;
    }
    case Tag::Col: {
      if (parent != Tag::Cols) break;
      std::int32_t first = 0;
      std::int32_t last = 0;
      if (!parseInt(attributeText("min"), first) || !parseInt(attributeText("max"), last)) break;
      first = std::max(first, 1);
      last = std::min(last, kMaxColumns);
      if (first > last) break;
      const std::string hidden = attributeText("hidden");
      double characters = 0;
      if (hidden == "1" || hidden == "true") {
        columns_.push_back({first, last, 0.0});
      } else if (parseDouble(attributeText("width"), characters)) {
        columns_.push_back({first, last, columnWidthPoints(characters)});
      }
      break;
    }
    case Tag::Row:
      if (parent == Tag::SheetData) startRow();
      break;
    case Tag::C:
      if (parent == Tag::Row) startCell(attribute("r"), attribute("t"));
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
// tag way below. Anything else leaves everything as it was and returns false.
bool SheetScanner::plainCell() {
  const std::string_view x = x_;
  std::size_t i = p_;
  // The depth test keeps the XML depth limit where the general way would enforce it.
  if (stack_.empty() || stack_.back().tag != Tag::Row || stack_.size() + 2 >= kMaxXmlDepth ||
      x.size() - i < 4 || x[i + 1] != 'c' || x[i + 2] != ' ') {
    return false;
  }
  i += 3;
  std::optional<std::string_view> ref;
  std::optional<std::string_view> type;
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
    } else if (name != 's') {
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

  startCell(ref, type);
  hasValue_ = true;
  value_.assign(text);
  p_ = end + kClose.size();
  finishCell();
  return true;
}

void SheetScanner::startCell(std::optional<std::string_view> ref, std::optional<std::string_view> type) {
  if (ref) {
    std::int32_t row = row_ == 0 ? 1 : row_;
    if (!parseCellRef(trimmed(*ref), row, column_)) fail("has a cell reference that is off the sheet or malformed");
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
}

void SheetScanner::finishCell() {
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
    if (trimmed(value_).empty()) return;
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
    const std::string_view v = trimmed(value_);
    if (v == "1" || v == "true") store(true);
    else if (v == "0" || v == "false") store(false);
    else failCell("has a Boolean that is neither 0 nor 1");
  } else if (type == "e") {
    ErrorValue e{};
    // Error values newer than the host's seven (#SPILL!, #CALC! ...) read as #VALUE!, the
    // closest of those the host knows.
    store(parseErrorValue(trimmed(value_), e) ? e : ErrorValue::Value);
  } else if (type == "d") {
    double serial = 0;
    if (!isoDateSerial(trimmed(value_), options_.date1904, serial)) failCell("has a date that does not read as one");
    store(serial);
  } else {
    failCell("has the unknown cell type \"" + type_ + "\"");
  }
}

void SheetScanner::store(CellValue value) {
  const auto index = static_cast<std::size_t>(column_ - 1);
  if (spans_.size() <= index) spans_.resize(index + 1);
  Span& span = spans_[index];
  const std::uint64_t before = span.first == 0 ? 0 : static_cast<std::uint64_t>(span.last - span.first + 1);
  if (span.first == 0) {
    span = {row_, row_};
  } else {
    // A cell above the stored ones would shift its whole column; from here on the cells are
    // collected and stored in order at the end, which keeps the load linear.
    if (row_ < span.first) deferring_ = true;
    span.first = std::min(span.first, row_);
    span.last = std::max(span.last, row_);
  }
  localCells_ += static_cast<std::uint64_t>(span.last - span.first + 1) - before;
  const std::uint64_t earlier = options_.usedCells == nullptr ? 0 : *options_.usedCells;
  if (earlier + localCells_ > options_.maxStoredCells) {
    raiseDamaged("is refused: its sheet \"" + sheet_.Name() + "\" spreads its cells over more than " +
                 std::to_string(options_.maxStoredCells) +
                 " cell slots, more than this program holds in memory (the cell count limit)");
  }
  if (value.isText()) {
    const std::uint64_t bytes = value.text().size();
    if (bytes > options_.maxStringBytes) {
      raiseDamaged("is refused: the cell " + columnLetters(column_) + std::to_string(row_) + " of the sheet \"" +
                   sheet_.Name() + "\" holds a text longer than " + std::to_string(options_.maxStringBytes) +
                   " bytes (the text length limit)");
    }
    localTextBytes_ += bytes;
    const std::uint64_t earlierText = options_.usedTextBytes == nullptr ? 0 : *options_.usedTextBytes;
    if (earlierText + localTextBytes_ > options_.maxTextBytes) {
      raiseDamaged("is refused: its cells hold more than " + std::to_string(options_.maxTextBytes) +
                   " bytes of text in all, counting each shared string once per cell (the total text limit)");
    }
  }
  if (deferring_) {
    deferred_.push_back({row_, column_, std::move(value)});
  } else {
    sheet_.storeRaw(row_, column_, std::move(value));
  }
}

void SheetScanner::flushDeferred() {
  // Stable, so that of two cells at one place the later in the file wins, as when stored directly.
  std::stable_sort(deferred_.begin(), deferred_.end(), [](const Deferred& a, const Deferred& b) {
    return a.column != b.column ? a.column < b.column : a.row < b.row;
  });
  for (Deferred& d : deferred_) sheet_.storeRaw(d.row, d.column, std::move(d.value));
  deferred_.clear();
}

void SheetScanner::applyColumnWidths() {
  // Later <col> elements override earlier ones. Walking them backwards and skipping columns
  // already set costs each column once, however many wide ranges a file repeats.
  std::vector<std::int32_t> next(static_cast<std::size_t>(kMaxColumns) + 2);
  std::iota(next.begin(), next.end(), 0);
  auto find = [&next](std::int32_t c) {
    std::int32_t root = c;
    while (next[static_cast<std::size_t>(root)] != root) root = next[static_cast<std::size_t>(root)];
    while (next[static_cast<std::size_t>(c)] != root) {
      const std::int32_t up = next[static_cast<std::size_t>(c)];
      next[static_cast<std::size_t>(c)] = root;
      c = up;
    }
    return root;
  };
  SheetGeometry& geometry = sheet_.geometry();
  for (auto width = columns_.rbegin(); width != columns_.rend(); ++width) {
    for (std::int32_t c = find(width->first); c <= width->last; c = find(c + 1)) {
      if (width->points != geometry.defaultColumnWidth()) geometry.setColumnWidth(c, width->points);
      next[static_cast<std::size_t>(c)] = c + 1;
    }
  }
}

}  // namespace detail

namespace {

std::int64_t daysFromCivil(std::int64_t y, std::int64_t m, std::int64_t d) {
  y -= m <= 2 ? 1 : 0;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const std::int64_t yoe = y - era * 400;
  const std::int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468;
}

}  // namespace

void readSheetXml(std::string_view xml, InMemoryWorksheet& sheet, const SheetReadOptions& options) {
  SheetXmlStream stream(sheet, options);
  stream.feed(xml);
  stream.finish();
}

SheetXmlStream::SheetXmlStream(InMemoryWorksheet& sheet, const SheetReadOptions& options)
    : scanner_(std::make_unique<detail::SheetScanner>(sheet, options)) {}

SheetXmlStream::~SheetXmlStream() = default;

void SheetXmlStream::feed(std::string_view piece) { scanner_->feed(piece); }

void SheetXmlStream::finish() { scanner_->finish(); }

double columnWidthPoints(double characters) {
  const double w = std::clamp(characters, 0.0, 255.0);
  const double pixels = std::trunc((256.0 * w + std::trunc(128.0 / 7.0)) / 256.0 * 7.0);
  return pixels * 0.75;
}

bool isoDateSerial(std::string_view text, bool date1904, double& serial) {
  auto number = [&text](std::size_t from, std::size_t length, std::int32_t& out) {
    if (from + length > text.size()) return false;
    const std::string_view digits = text.substr(from, length);
    if (!std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; })) return false;
    std::from_chars(digits.data(), digits.data() + digits.size(), out);
    return true;
  };
  std::int32_t year = 0, month = 0, day = 0;
  if (!number(0, 4, year) || text.size() < 10 || text[4] != '-' || !number(5, 2, month) || text[7] != '-' ||
      !number(8, 2, day)) {
    return false;
  }
  if (month < 1 || month > 12 || day < 1 || day > 31) return false;
  const std::int64_t days = daysFromCivil(year, month, day);
  if (daysFromCivil(year, month, 1) + day - 1 >= daysFromCivil(month == 12 ? year + 1 : year, month % 12 + 1, 1)) {
    return false;  // 31 April and friends
  }
  double fraction = 0;
  if (text.size() > 10) {
    std::int32_t hour = 0, minute = 0, second = 0;
    if (text[10] != 'T' || !number(11, 2, hour) || text.size() < 16 || text[13] != ':' || !number(14, 2, minute)) {
      return false;
    }
    std::size_t i = 16;
    double seconds = 0;
    if (i < text.size() && text[i] == ':') {
      if (!number(i + 1, 2, second)) return false;
      seconds = second;
      i += 3;
      if (i < text.size() && text[i] == '.') {
        const std::size_t from = i;
        ++i;
        while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i;
        double part = 0;
        if (i == from + 1 || !parseDouble(std::string("0") + std::string(text.substr(from, i - from)), part)) return false;
        seconds += part;
      }
    }
    if (i < text.size() && text.substr(i) != "Z") return false;
    if (hour > 24 || minute > 59 || seconds >= 61) return false;
    fraction = (hour * 3600.0 + minute * 60.0 + seconds) / 86400.0;
  }
  if (date1904) {
    serial = static_cast<double>(days - daysFromCivil(1904, 1, 1)) + fraction;
  } else {
    // Serial 60 is the 29 February 1900 that never was; days before it count one less.
    std::int64_t s = days - daysFromCivil(1899, 12, 30);
    if (s < 61) s -= 1;
    serial = static_cast<double>(s) + fraction;
  }
  return serial >= 0;
}

}  // namespace orv
