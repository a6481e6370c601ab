#include "frame/reference.h"

#include <algorithm>
#include <utility>

#include "frame/errors.h"
#include "frame/sheet_name.h"

namespace orv {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
char upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

// Characters a sheet name may hold without quotes. Bytes of multi-byte UTF-8 sequences count as
// letters, so that names in other scripts need no quotes.
bool isPlainNameChar(char c) {
  return isLetter(c) || isDigit(c) || c == '_' || c == '.' || static_cast<unsigned char>(c) >= 0x80;
}

// Characters no sheet name can hold, quoted or not.
bool isForbiddenNameChar(char c) {
  return c == '[' || c == ']' || c == ':' || c == '*' || c == '?' || c == '/' || c == '\\';
}

// One end of an area: a cell (both set), a whole column (row 0) or a whole row (column 0).
struct Corner {
  std::int32_t column = 0;
  std::int32_t row = 0;
};

// A single pass over the text; every method advances `pos_` and reports failure by returning
// false, so that the caller raises one error that quotes the whole text.
class ReferenceScanner {
 public:
  explicit ReferenceScanner(std::string_view text) : text_(text) {}

  bool parse(ParsedReference& out) {
    if (text_.empty()) return false;
    while (true) {
      std::optional<std::string> sheet;
      if (!parseSheet(sheet)) return false;
      if (sheet) {
        if (out.sheet && !sameSheetName(*out.sheet, *sheet)) return false;
        if (!out.sheet) out.sheet = std::move(sheet);
      }
      CellBlock block;
      if (!parseArea(block)) return false;
      out.areas.push_back(block);
      if (atEnd()) return true;
      if (text_[pos_] != ',') return false;
      ++pos_;
    }
  }

 private:
  bool atEnd() const { return pos_ >= text_.size(); }
  bool peek(char c) const { return !atEnd() && text_[pos_] == c; }

  // An optional "Name!" or "'Quoted name'!". Leaves pos_ alone when the area has no sheet.
  bool parseSheet(std::optional<std::string>& sheet) {
    if (peek('\'')) return parseQuotedSheet(sheet);
    std::size_t end = pos_;
    while (end < text_.size() && isPlainNameChar(text_[end])) ++end;
    if (end > pos_ && end < text_.size() && text_[end] == '!') {
      sheet = std::string(text_.substr(pos_, end - pos_));
      pos_ = end + 1;
    }
    return true;
  }

  bool parseQuotedSheet(std::optional<std::string>& sheet) {
    ++pos_;  // opening quote
    std::string name;
    while (true) {
      if (atEnd()) return false;  // unterminated
      const char c = text_[pos_++];
      if (c == '\'') {
        if (!peek('\'')) break;
        ++pos_;  // '' stands for one quote
      } else if (isForbiddenNameChar(c)) {
        return false;
      }
      name.push_back(c);
    }
    if (name.empty() || !peek('!')) return false;
    ++pos_;
    sheet = std::move(name);
    return true;
  }

  bool parseArea(CellBlock& block) {
    Corner first;
    if (!parseCorner(first)) return false;
    if (!peek(':')) {
      // A lone column ("A") or row ("3") is no reference; only a pair joined by ":" is.
      if (first.row == 0 || first.column == 0) return false;
      block = {first.row, first.column, first.row, first.column};
      return true;
    }
    ++pos_;
    Corner second;
    if (!parseCorner(second)) return false;
    const std::int32_t top = std::min(first.row, second.row);
    const std::int32_t bottom = std::max(first.row, second.row);
    const std::int32_t left = std::min(first.column, second.column);
    const std::int32_t right = std::max(first.column, second.column);
    if (first.row != 0 && first.column != 0 && second.row != 0 && second.column != 0) {
      block = {top, left, bottom, right};
    } else if (first.row == 0 && second.row == 0) {
      block = {1, left, kMaxRows, right};
    } else if (first.column == 0 && second.column == 0) {
      block = {top, 1, bottom, kMaxColumns};
    } else {
      return false;
    }
    return true;
  }

  // ["$"] letters ["$"] digits, ["$"] letters, or ["$"] digits.
  bool parseCorner(Corner& corner) {
    if (peek('$')) ++pos_;
    const std::size_t lettersStart = pos_;
    while (!atEnd() && isLetter(text_[pos_])) ++pos_;
    const std::size_t letters = pos_ - lettersStart;
    if (letters > 0) {
      corner.column = columnNumber(text_.substr(lettersStart, letters));
      if (corner.column == 0) return false;
      if (peek('$')) {
        ++pos_;
        if (atEnd() || !isDigit(text_[pos_])) return false;
      }
    }
    if (!atEnd() && isDigit(text_[pos_])) return parseRow(corner.row);
    return letters > 0;
  }

  bool parseRow(std::int32_t& row) {
    std::int64_t value = 0;
    while (!atEnd() && isDigit(text_[pos_])) {
      // Saturate rather than overflow: any value past the last row is rejected below.
      value = std::min<std::int64_t>(value * 10 + (text_[pos_] - '0'), std::int64_t{kMaxRows} + 1);
      ++pos_;
    }
    if (value < 1 || value > kMaxRows) return false;
    row = static_cast<std::int32_t>(value);
    return true;
  }

  std::string_view text_;
  std::size_t pos_ = 0;
};

std::string quoted(std::string_view name) {
  std::string out = "'";
  for (const char c : name) {
    out.push_back(c);
    if (c == '\'') out.push_back('\'');
  }
  out.push_back('\'');
  return out;
}

// True when the whole text matches pattern letters+digits (A1 style, column up to XFD) or
// R[n][C[n]] / C[n] (the other notation), either of which the host would read as a cell.
bool readsAsCell(std::string_view name) {
  std::size_t i = 0;
  while (i < name.size() && isLetter(name[i])) ++i;
  const std::size_t letters = i;
  while (i < name.size() && isDigit(name[i])) ++i;
  if (i == name.size() && letters > 0 && letters < name.size() && columnNumber(name.substr(0, letters)) != 0) {
    return true;
  }
  i = 0;
  if (i < name.size() && upper(name[i]) == 'R') {
    ++i;
    while (i < name.size() && isDigit(name[i])) ++i;
  }
  if (i < name.size() && upper(name[i]) == 'C') {
    ++i;
    while (i < name.size() && isDigit(name[i])) ++i;
  }
  return i > 0 && i == name.size();
}

}  // namespace

ParsedReference parseReference(std::string_view text) {
  std::optional<ParsedReference> parsed = tryParseReference(text);
  if (!parsed) {
    std::string description = "\"";
    description.append(text).append("\" is not a valid reference");
    raiseHost(description);
  }
  return std::move(*parsed);
}

std::optional<ParsedReference> tryParseReference(std::string_view text) {
  ParsedReference parsed;
  ReferenceScanner scanner(text);
  if (!scanner.parse(parsed)) return std::nullopt;
  return parsed;
}

std::string columnLetters(std::int32_t column) {
  if (column < 1 || column > kMaxColumns) raise(err::kInvalidProcedureCall);
  std::string letters;
  // Bijective base 26: there is no zero digit, so step down by one before each division.
  while (column > 0) {
    --column;
    letters.insert(letters.begin(), static_cast<char>('A' + column % 26));
    column /= 26;
  }
  return letters;
}

std::int32_t columnNumber(std::string_view letters) {
  if (letters.empty() || letters.size() > 3) return 0;
  std::int32_t column = 0;
  for (const char c : letters) {
    if (!isLetter(c)) return 0;
    column = column * 26 + (upper(c) - 'A' + 1);
  }
  return column <= kMaxColumns ? column : 0;
}

std::string absoluteAddress(const CellBlock& block) {
  // Built by appending: GCC 12 at -O3 misreads `"$" + std::string` as an overlapping copy.
  std::string out;
  const auto addColumn = [&out](std::int32_t column) { out.append("$").append(columnLetters(column)); };
  const auto addRow = [&out](std::int32_t row) { out.append("$").append(std::to_string(row)); };
  // A block that spans whole rows and whole columns (the whole sheet) is shown as rows.
  if (block.wholeRows()) {
    addRow(block.top);
    out.push_back(':');
    addRow(block.bottom);
  } else if (block.wholeColumns()) {
    addColumn(block.left);
    out.push_back(':');
    addColumn(block.right);
  } else {
    addColumn(block.left);
    addRow(block.top);
    if (block.rows() != 1 || block.columns() != 1) {
      out.push_back(':');
      addColumn(block.right);
      addRow(block.bottom);
    }
  }
  return out;
}

std::string absoluteAddress(const std::vector<CellBlock>& blocks) {
  std::string out;
  for (const CellBlock& block : blocks) {
    if (!out.empty()) out.push_back(',');
    out += absoluteAddress(block);
  }
  return out;
}

std::string quoteSheetName(std::string_view name) {
  const bool plain = !name.empty() && !isDigit(name.front()) &&
                     std::all_of(name.begin(), name.end(), isPlainNameChar) && !readsAsCell(name);
  return plain ? std::string(name) : quoted(name);
}

void requireCellOnSheet(std::int32_t row, std::int32_t column) {
  if (row < 1 || row > kMaxRows || column < 1 || column > kMaxColumns) raise(err::kHostFailure);
}

void requireBlockOnSheet(const CellBlock& b) {
  if (b.top < 1 || b.left < 1 || b.bottom > kMaxRows || b.right > kMaxColumns || b.top > b.bottom || b.left > b.right) {
    raise(err::kHostFailure);
  }
}

}  // namespace orv
