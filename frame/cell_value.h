#pragma once
// A cell value as a spreadsheet holds it: empty, a number, a text, a Boolean or an error value.

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>  // std::bad_variant_access

namespace orv {

// The error values a cell can hold. Their texts are the spreadsheet's own ("#DIV/0!" ...).
enum class ErrorValue : std::uint8_t { Null, Div0, Value, Ref, Name, Num, NA };

std::string_view errorValueText(ErrorValue e);
// Parses "#DIV/0!" and friends (exact, upper case); false when the text is no error value.
bool parseErrorValue(std::string_view text, ErrorValue& out);

// Sixteen bytes: a kind and a payload, a text living on the heap. A sheet holds millions of these,
// so their size is most of the memory a large workbook takes and of the time spent copying
// columns around.
class CellValue {
 public:
  enum class Kind : std::uint8_t { Empty, Number, Text, Boolean, Error };

  CellValue() noexcept : number_(0.0) {}
  CellValue(double n) noexcept : number_(n), kind_(Kind::Number) {}  // NOLINT(google-explicit-constructor)
  CellValue(int n) noexcept : CellValue(static_cast<double>(n)) {}    // NOLINT
  CellValue(std::string s) : text_(new std::string(std::move(s))), kind_(Kind::Text) {}  // NOLINT
  CellValue(const char* s) : CellValue(std::string(s)) {}             // NOLINT
  CellValue(std::string_view s) : CellValue(std::string(s)) {}        // NOLINT
  CellValue(bool b) noexcept : boolean_(b), kind_(Kind::Boolean) {}   // NOLINT
  CellValue(ErrorValue e) noexcept : error_(e), kind_(Kind::Error) {} // NOLINT

  CellValue(const CellValue& other) : number_(other.number_), kind_(other.kind_) {
    if (kind_ == Kind::Text) text_ = new std::string(*other.text_);
  }
  // A moved-from value is empty.
  CellValue(CellValue&& other) noexcept : number_(other.number_), kind_(other.kind_) {
    other.kind_ = Kind::Empty;
  }
  CellValue& operator=(const CellValue& other) {
    if (this != &other) *this = CellValue(other);
    return *this;
  }
  CellValue& operator=(CellValue&& other) noexcept {
    if (this != &other) {
      release();
      number_ = other.number_;  // copies whichever member is active: all are at most 8 bytes
      kind_ = other.kind_;
      other.kind_ = Kind::Empty;
    }
    return *this;
  }
  ~CellValue() { release(); }

  Kind kind() const { return kind_; }
  bool isEmpty() const { return kind_ == Kind::Empty; }
  bool isNumber() const { return kind_ == Kind::Number; }
  bool isText() const { return kind_ == Kind::Text; }
  bool isBoolean() const { return kind_ == Kind::Boolean; }
  bool isError() const { return kind_ == Kind::Error; }

  // Call only after testing the kind; the wrong kind throws std::bad_variant_access.
  double number() const { return expect(Kind::Number), number_; }
  const std::string& text() const { return expect(Kind::Text), *text_; }
  bool boolean() const { return expect(Kind::Boolean), boolean_; }
  ErrorValue error() const { return expect(Kind::Error), error_; }

  // Exact structural equality (same kind, same payload); used by tests and the model.
  friend bool operator==(const CellValue& a, const CellValue& b);

 private:
  void release() noexcept {
    if (kind_ == Kind::Text) delete text_;
  }
  void expect(Kind k) const {
    if (kind_ != k) throw std::bad_variant_access();
  }

  union {
    double number_;
    std::string* text_;
    bool boolean_;
    ErrorValue error_;
  };
  Kind kind_ = Kind::Empty;
};

// Human-readable description for messages and test output, e.g. `the text "abc"`, `the number 3`.
std::string describe(const CellValue& v);

}  // namespace orv
