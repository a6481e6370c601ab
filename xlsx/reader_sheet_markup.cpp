// The markup side of the sheet scanner: pieces and their carry, tags and attributes, comments,
// CDATA and processing instructions, and the damage they can show.

#include <string>

#include "frame/reference.h"
#include "workbook/in_memory_worksheet.h"
#include "xlsx/reader_errors.h"
#include "xlsx/reader_sheet_scanner.h"
#include "xlsx/reader_xml.h"
#include "xlsx/xml_names.h"
#include "xlsx/xml_text.h"

namespace orv::detail {

SheetTag sheetTagOf(std::string_view local) {
  switch (local.size()) {
    case 1:
      if (local == "c") return SheetTag::C;
      if (local == "v") return SheetTag::V;
      if (local == "t") return SheetTag::T;
      if (local == "r") return SheetTag::R;
      if (local == "f") return SheetTag::F;
      return SheetTag::Other;
    case 2: return local == "is" ? SheetTag::Is : SheetTag::Other;
    case 3:
      if (local == "row") return SheetTag::Row;
      if (local == "col") return SheetTag::Col;
      return SheetTag::Other;
    case 4: return local == "cols" ? SheetTag::Cols : SheetTag::Other;
    case 9:
      if (local == "worksheet") return SheetTag::Worksheet;
      if (local == "sheetData") return SheetTag::SheetData;
      return SheetTag::Other;
    case 13: return local == "sheetFormatPr" ? SheetTag::SheetFormatPr : SheetTag::Other;
    default: return SheetTag::Other;
  }
}

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
  applyColumnWidths(sheet_.geometry(), columns_);
  if (options_.usedCells != nullptr) *options_.usedCells += localCells_;
  if (options_.usedTextBytes != nullptr) *options_.usedTextBytes += localTextBytes_;
}

void SheetScanner::fail(std::string_view what) const {
  raiseDamaged("is damaged: the sheet \"" + sheet_.Name() + "\" " + std::string(what));
}

void SheetScanner::failCell(std::string_view what) const {
  fail(what.empty() ? std::string() : std::string(what) + " in cell " + columnLetters(column_) + std::to_string(row_));
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
    if (capture_ == Capture::Value) {
      appendXmlText(value_, x_.substr(p_, lt == std::string_view::npos ? x_.npos : lt - p_));
    } else if (capture_ == Capture::Inline) {
      appendXmlText(inline_, x_.substr(p_, lt == std::string_view::npos ? x_.npos : lt - p_));
    }
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

std::size_t SheetScanner::skipPast(std::string_view terminator, std::size_t from) const {
  const auto e = x_.find(terminator, from);
  if (e == std::string_view::npos) needMore();
  if (e == std::string_view::npos) fail("is cut short (unterminated markup)");
  return e + terminator.size();
}

void SheetScanner::parseStartTag() {
  std::size_t i = p_ + 1;
  const std::size_t nameStart = i;
  while (i < x_.size() && !isXmlSpace(x_[i]) && x_[i] != '>' && x_[i] != '/') ++i;
  if (i >= x_.size()) needMore();
  const std::string_view name = x_.substr(nameStart, i - nameStart);
  if (name.empty()) fail("is no well-formed XML (an empty tag)");
  const bool selfClosing = parseAttributes(i);
  p_ = i;
  openElement(name, selfClosing);
}

// The attributes of the start tag from `i` on, into `attributes_`; leaves `i` past the tag's end
// and tells whether the tag closes itself.
bool SheetScanner::parseAttributes(std::size_t& i) {
  attributes_.clear();
  for (;;) {
    while (i < x_.size() && isXmlSpace(x_[i])) ++i;
    if (i >= x_.size()) needMore();
    if (i >= x_.size()) fail("is cut short (inside a tag)");
    if (x_[i] == '>') {
      ++i;
      return false;
    }
    if (x_[i] == '/') {
      if (i + 1 >= x_.size()) needMore();
      if (i + 1 >= x_.size() || x_[i + 1] != '>') fail("is no well-formed XML (a stray \"/\" in a tag)");
      i += 2;
      return true;
    }
    const std::size_t an = i;
    while (i < x_.size() && x_[i] != '=' && !isXmlSpace(x_[i]) && x_[i] != '>' && x_[i] != '/') ++i;
    const std::string_view attrName = x_.substr(an, i - an);
    while (i < x_.size() && isXmlSpace(x_[i])) ++i;
    if (i >= x_.size()) needMore();
    if (i >= x_.size() || x_[i] != '=') fail("is no well-formed XML (an attribute without a value)");
    ++i;
    while (i < x_.size() && isXmlSpace(x_[i])) ++i;
    if (i >= x_.size()) needMore();
    if (i >= x_.size() || (x_[i] != '"' && x_[i] != '\'')) fail("is no well-formed XML (an unquoted attribute)");
    const char quote = x_[i++];
    const auto close = findByte(x_, quote, i);
    if (close == std::string_view::npos) needMore();
    if (close == std::string_view::npos) fail("is cut short (inside an attribute)");
    attributes_.push_back({xml::localName(attrName), x_.substr(i, close - i)});
    i = close + 1;
  }
}

void SheetScanner::openElement(std::string_view name, bool selfClosing) {
  const Tag tag = sheetTagOf(xml::localName(name));
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
  const std::string_view name = trimXmlSpace(x_.substr(p_ + 2, close - p_ - 2));
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

}  // namespace orv::detail
