#include "cli/block_report.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <vector>

#include "cli/display_width.h"
#include "frame/conversions.h"

namespace orv::cli {
namespace {

// A number as a General cell shows it: up to 15 significant digits, exponent form only for very
// large and very small magnitudes (4500000.12, not 4.5e+06).
std::string generalNumber(double x) { return numberToText(x); }

// "0", "0.00": the number of decimals; -1 for any other format.
int fixedDecimals(std::string_view format) {
  if (format.empty() || format.front() != '0') return -1;
  if (format == "0") return 0;
  if (format.size() < 3 || format[1] != '.') return -1;
  for (char c : format.substr(2)) {
    if (c != '0') return -1;
  }
  return static_cast<int>(format.size() - 2);
}

std::string formattedNumber(double x, std::string_view format) {
  const std::size_t markEnd = format.find_first_not_of("<>=");
  const std::string_view mark = format.substr(0, std::min(markEnd, format.size()));
  const int decimals = fixedDecimals(format.substr(mark.size()));
  if (decimals < 0) return std::string(mark) + generalNumber(x);
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*f", decimals, x);
  return std::string(mark) + buf;
}

std::string cellText(const CellValue& v, std::string_view format = {}) {
  if (!v.isNumber()) return toText(v);
  return format.empty() ? generalNumber(v.number()) : formattedNumber(v.number(), format);
}

// Heading lines ("Descriptive Statistics for:", "Input Range = ...") stand alone in column 1 of
// a row; they must not widen the label column.
bool isHeadingRow(const ValueArray2D& block, std::int32_t r) {
  if (block.columns() < 2 || !block(r, 1).isText()) return false;
  for (std::int32_t c = 2; c <= block.columns(); ++c)
    if (!block(r, c).isEmpty()) return false;
  return true;
}

}  // namespace

std::string formatTable(const ValueArray2D& block, const std::vector<std::string>* numberFormats) {
  const std::int32_t rows = block.rows();
  const std::int32_t cols = block.columns();
  const auto shown = [&](const CellValue& v, std::int32_t r, std::int32_t c) {
    if (numberFormats == nullptr) return cellText(v);
    const auto at = static_cast<std::size_t>(r - 1) * static_cast<std::size_t>(cols) + static_cast<std::size_t>(c - 1);
    return cellText(v, at < numberFormats->size() ? (*numberFormats)[at] : "");
  };
  std::vector<std::size_t> width(static_cast<std::size_t>(cols), 0);
  for (std::int32_t r = 1; r <= rows; ++r) {
    if (isHeadingRow(block, r)) continue;
    for (std::int32_t c = 1; c <= cols; ++c) {
      auto& w = width[static_cast<std::size_t>(c - 1)];
      w = std::max(w, displayWidth(shown(block(r, c), r, c)));
    }
  }
  // Trailing empty rows of the block are not printed, nor a heading line that ends it: what such
  // a heading heads (the chart data written below a table) lies outside the block.
  const auto emptyRow = [&](std::int32_t r) {
    for (std::int32_t c = 1; c <= cols; ++c)
      if (!block(r, c).isEmpty()) return false;
    return true;
  };
  std::int32_t last = rows;
  while (last > 0 && emptyRow(last)) --last;
  if (last > 1 && isHeadingRow(block, last)) {
    --last;
    while (last > 0 && emptyRow(last)) --last;
  }

  std::string out;
  for (std::int32_t r = 1; r <= last; ++r) {
    std::string line;
    if (isHeadingRow(block, r)) {
      line = shown(block(r, 1), r, 1);
    } else {
      for (std::int32_t c = 1; c <= cols; ++c) {
        const std::size_t w = width[static_cast<std::size_t>(c - 1)];
        if (w == 0) continue;
        const std::string text = shown(block(r, c), r, c);
        if (c > 1) line += "  ";
        // Column 1 holds labels, but also numbers (frequency categories, plot values): those
        // stand right like every number.
        line += c == 1 && !block(r, c).isNumber() ? padRight(text, w) : padLeft(text, w);
      }
    }
    while (!line.empty() && line.back() == ' ') line.pop_back();
    out += line;
    out += '\n';
  }
  return out;
}

nlohmann::ordered_json blockToJson(const ValueArray2D& block) {
  nlohmann::ordered_json rows = nlohmann::ordered_json::array();
  for (std::int32_t r = 1; r <= block.rows(); ++r) {
    nlohmann::ordered_json row = nlohmann::ordered_json::array();
    for (std::int32_t c = 1; c <= block.columns(); ++c) {
      const CellValue& v = block(r, c);
      switch (v.kind()) {
        case CellValue::Kind::Empty: row.push_back(nullptr); break;
        case CellValue::Kind::Number: row.push_back(v.number()); break;
        case CellValue::Kind::Text: row.push_back(v.text()); break;
        case CellValue::Kind::Boolean: row.push_back(v.boolean()); break;
        case CellValue::Kind::Error: row.push_back(std::string(errorValueText(v.error()))); break;
      }
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace orv::cli
