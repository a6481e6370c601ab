#pragma once
// A cell value as a spreadsheet holds it: empty, a number, a text, a Boolean or an error value.

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace orv {

// The error values a cell can hold. Their texts are the spreadsheet's own ("#DIV/0!" ...).
enum class ErrorValue : std::uint8_t { Null, Div0, Value, Ref, Name, Num, NA };

std::string_view errorValueText(ErrorValue e);
// Parses "#DIV/0!" and friends (exact, upper case); false when the text is no error value.
bool parseErrorValue(std::string_view text, ErrorValue& out);

struct Empty {
  friend bool operator==(Empty, Empty) { return true; }
};

class CellValue {
 public:
  enum class Kind : std::uint8_t { Empty, Number, Text, Boolean, Error };

  CellValue() = default;
  CellValue(double n) : v_(n) {}                        // NOLINT(google-explicit-constructor)
  CellValue(int n) : v_(static_cast<double>(n)) {}      // NOLINT
  CellValue(std::string s) : v_(std::move(s)) {}        // NOLINT
  CellValue(const char* s) : v_(std::string(s)) {}      // NOLINT
  CellValue(std::string_view s) : v_(std::string(s)) {} // NOLINT
  CellValue(bool b) : v_(b) {}                          // NOLINT
  CellValue(ErrorValue e) : v_(e) {}                    // NOLINT

  Kind kind() const { return static_cast<Kind>(v_.index()); }
  bool isEmpty() const { return kind() == Kind::Empty; }
  bool isNumber() const { return kind() == Kind::Number; }
  bool isText() const { return kind() == Kind::Text; }
  bool isBoolean() const { return kind() == Kind::Boolean; }
  bool isError() const { return kind() == Kind::Error; }

  // Unchecked accessors: call only after testing the kind.
  double number() const { return std::get<double>(v_); }
  const std::string& text() const { return std::get<std::string>(v_); }
  bool boolean() const { return std::get<bool>(v_); }
  ErrorValue error() const { return std::get<ErrorValue>(v_); }

  // Exact structural equality (same kind, same payload); used by tests and the model.
  friend bool operator==(const CellValue& a, const CellValue& b) { return a.v_ == b.v_; }

 private:
  std::variant<Empty, double, std::string, bool, ErrorValue> v_;
};

// Human-readable description for messages and test output, e.g. `the text "abc"`, `the number 3`.
std::string describe(const CellValue& v);

}  // namespace orv
