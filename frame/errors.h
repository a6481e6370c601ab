#pragma once
// The one error type of the component and the error numbers it raises.
//
// Runtime faults keep the numbers and descriptions of the platform the component was designed on
// (6 "Overflow", 11 "Division by zero" ...). The component's own errors are the object-error base
// plus an offset, and carry the generic description unless one is given.

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orv {

class ComponentError : public std::exception {
 public:
  ComponentError(std::int32_t number, std::string source, std::string description);

  std::int32_t number() const { return number_; }
  const std::string& source() const { return source_; }
  const std::string& description() const { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

  ComponentError withSource(std::string source) const;

 private:
  std::int32_t number_;
  std::string source_;
  std::string description_;
};

namespace err {

// Platform runtime errors.
inline constexpr std::int32_t kInvalidProcedureCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kDivisionByZero = 11;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kObjectRequired = 424;
// A host method or property that failed (bad reference, worksheet function argument ...).
inline constexpr std::int32_t kHostFailure = 1004;

// Hexadecimal 80040000: the base of every error number of the component's own.
inline constexpr std::int32_t kObjectErrorBase = -2147221504;

// The component's errors.
inline constexpr std::int32_t kOutputRangeInvalid = kObjectErrorBase + 5001;  // circular OutputRange setter
inline constexpr std::int32_t kNoInputRange = kObjectErrorBase + 5002;        // no input range
inline constexpr std::int32_t kFrequencyShape = kObjectErrorBase + 5018;      // frequency/data shapes differ
inline constexpr std::int32_t kCircularInput = kObjectErrorBase + 5024;       // angle outside 0..360, bad input ref
inline constexpr std::int32_t kAreaHeights = kObjectErrorBase + 5038;         // areas of different heights
inline constexpr std::int32_t kFrequencyVariables = kObjectErrorBase + 5052;  // >1 variable in frequency range
inline constexpr std::int32_t kTooFewBins = kObjectErrorBase + 5081;          // fewer than two bin values
inline constexpr std::int32_t kBinsWithoutFrequencies = kObjectErrorBase + 5086;
inline constexpr std::int32_t kBinShape = kObjectErrorBase + 5097;      // frequency/bin shapes differ
inline constexpr std::int32_t kBinVariables = kObjectErrorBase + 5098;  // >1 variable in bin range
inline constexpr std::int32_t kBinsNotIncreasing = kObjectErrorBase + 5099;

// Errors of the support services (outside the component's 5001..5099).
inline constexpr std::int32_t kInputColumnNotNumeric = kObjectErrorBase + 6001;  // text/Boolean/error among data
inline constexpr std::int32_t kOutputAreaOccupied = kObjectErrorBase + 6002;     // target block not empty

// Errors of the file layer.
inline constexpr std::int32_t kFileUnreadable = kObjectErrorBase + 6101;  // not a workbook or text file we read
// Errors of the workbook files.
inline constexpr std::int32_t kFileUnwritable = kObjectErrorBase + 6102;  // output workbook cannot be written

// The description of an error raised without one of its own.
inline constexpr std::string_view kGenericDescription = "Application-defined or object-defined error";

// The platform's description for a runtime error number ("Overflow" for 6 ...); the generic one
// for any other number.
std::string_view standardDescription(std::int32_t number);

}  // namespace err

// Raises `number` with the given description, or the standard one when empty. The source is the
// bare library name; the procedure wrapper replaces it with the procedure's own.
[[noreturn]] void raise(std::int32_t number, std::string_view description = {});

// Raises a host failure (1004) with the given description.
[[noreturn]] void raiseHost(std::string_view description);

}  // namespace orv
