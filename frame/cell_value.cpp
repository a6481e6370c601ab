#include "frame/cell_value.h"

#include <array>
#include <cmath>
#include <utility>

#include "frame/conversions.h"

namespace orv {

namespace {

// In the order of the enumeration.
constexpr std::array<std::pair<ErrorValue, std::string_view>, 7> kErrorTexts{{
    {ErrorValue::Null, "#NULL!"},
    {ErrorValue::Div0, "#DIV/0!"},
    {ErrorValue::Value, "#VALUE!"},
    {ErrorValue::Ref, "#REF!"},
    {ErrorValue::Name, "#NAME?"},
    {ErrorValue::Num, "#NUM!"},
    {ErrorValue::NA, "#N/A"},
}};

}  // namespace

std::string_view errorValueText(ErrorValue e) {
  for (const auto& [value, text] : kErrorTexts) {
    if (value == e) return text;
  }
  return "#N/A";  // unreachable for a valid enumerator
}

bool parseErrorValue(std::string_view text, ErrorValue& out) {
  for (const auto& [value, errorText] : kErrorTexts) {
    if (errorText == text) {
      out = value;
      return true;
    }
  }
  return false;
}

bool operator==(const CellValue& a, const CellValue& b) {
  if (a.kind() != b.kind()) return false;
  switch (a.kind()) {
    case CellValue::Kind::Empty: return true;
    case CellValue::Kind::Number: return a.number() == b.number();
    case CellValue::Kind::Text: return a.text() == b.text();
    case CellValue::Kind::Boolean: return a.boolean() == b.boolean();
    case CellValue::Kind::Error: return a.error() == b.error();
  }
  return false;
}

std::string describe(const CellValue& v) {
  switch (v.kind()) {
    case CellValue::Kind::Empty: return "an empty cell";
    case CellValue::Kind::Number:
      // Messages must never fail, even for a value no cell should hold.
      if (!std::isfinite(v.number())) return "a non-finite number";
      return "the number " + numberToText(v.number());
    case CellValue::Kind::Text: return "the text \"" + v.text() + "\"";
    case CellValue::Kind::Boolean: return v.boolean() ? "the Boolean True" : "the Boolean False";
    case CellValue::Kind::Error: return "the error value " + std::string(errorValueText(v.error()));
  }
  return {};
}

}  // namespace orv
