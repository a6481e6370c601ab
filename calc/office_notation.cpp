#include "calc/office_notation.h"

namespace orv::calc {
namespace {

std::string doubled(std::string_view text, char quote) {
  std::string out(1, quote);
  for (char c : text) {
    out += c;
    if (c == quote) out += c;
  }
  return out + quote;
}

std::string cell(std::int32_t row, std::int32_t column) {
  return "$" + columnLetters(column) + "$" + std::to_string(row);
}

}  // namespace

std::string officeRange(std::string_view sheet, const CellBlock& block) {
  std::string text = "$" + doubled(sheet, '\'') + "." + cell(block.top, block.left);
  if (block.rows() > 1 || block.columns() > 1) text += ":" + cell(block.bottom, block.right);
  return text;
}

std::string officeText(std::string_view text) { return doubled(text, '"'); }

}  // namespace orv::calc
