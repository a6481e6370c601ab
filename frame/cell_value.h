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

  CellValue() noexcept : payload_{.number = 0.0} {}
  CellValue(double n) noexcept : payload_{.number = n}, kind_(Kind::Number) {}  // NOLINT(google-explicit-constructor)
  CellValue(int n) noexcept : CellValue(static_cast<double>(n)) {}              // NOLINT
  CellValue(std::string s) : payload_{.text = new std::string(std::move(s))}, kind_(Kind::Text) {}  // NOLINT
  CellValue(const char* s) : CellValue(std::string(s)) {}                                           // NOLINT
  CellValue(std::string_view s) : CellValue(std::string(s)) {}                                      // NOLINT
  CellValue(bool b) noexcept : payload_{.boolean = b}, kind_(Kind::Boolean) {}                      // NOLINT
  CellValue(ErrorValue e) noexcept : payload_{.error = e}, kind_(Kind::Error) {}                    // NOLINT

  CellValue(const CellValue& other) : payload_(other.payload_), kind_(other.kind_) {
    if (kind_ == Kind::Text) payload_.text = new std::string(*other.payload_.text);
  }
  // A moved-from value is empty.
  CellValue(CellValue&& other) noexcept : payload_(other.payload_), kind_(other.kind_) { other.kind_ = Kind::Empty; }
  CellValue& operator=(const CellValue& other) {
    if (this != &other) *this = CellValue(other);
    return *this;
  }
  CellValue& operator=(CellValue&& other) noexcept {
    if (this != &other) {
      release();
      payload_ = other.payload_;
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
  double number() const { return expect(Kind::Number), payload_.number; }
  const std::string& text() const { return expect(Kind::Text), *payload_.text; }
  bool boolean() const { return expect(Kind::Boolean), payload_.boolean; }
  ErrorValue error() const { return expect(Kind::Error), payload_.error; }

  // Exact structural equality (same kind, same payload); used by tests and the model.
  friend bool operator==(const CellValue& a, const CellValue& b);

 private:
  void release() noexcept {
    if (kind_ == Kind::Text) delete payload_.text;
  }
  void expect(Kind k) const {
    if (kind_ != k) throw std::bad_variant_access();
  }

  // Copied whole, as a trivially copyable object, whichever member is in use.
  union Payload {
    double number;
    std::string* text;
    bool boolean;
    ErrorValue error;
  };
  Payload payload_;
  Kind kind_ = Kind::Empty;
};

// Human-readable description for messages and test output, e.g. `the text "abc"`, `the number 3`.
std::string describe(const CellValue& v);

}  // namespace orv
