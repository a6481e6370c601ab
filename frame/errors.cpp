#include "frame/errors.h"

#include <utility>

namespace orv {

ComponentError::ComponentError(std::int32_t number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {}

ComponentError ComponentError::withSource(std::string source) const {
  return ComponentError(number_, std::move(source), description_);
}

namespace err {

std::string_view standardDescription(std::int32_t number) {
  switch (number) {
    case kInvalidProcedureCall: return "Invalid procedure call or argument";
    case kOverflow: return "Overflow";
    case kOutOfMemory: return "Out of memory";
    case kSubscriptOutOfRange: return "Subscript out of range";
    case kDivisionByZero: return "Division by zero";
    case kTypeMismatch: return "Type mismatch";
    case kObjectRequired: return "Object required";
    default: return kGenericDescription;
  }
}

}  // namespace err

void raise(std::int32_t number, std::string_view description) {
  // An error raised without a description gets the platform's text for its number; the source
  // names the library until a procedure trap stamps its own.
  throw ComponentError(number, "ORVDescriptives",
                       std::string(description.empty() ? err::standardDescription(number) : description));
}

void raiseHost(std::string_view description) { raise(err::kHostFailure, description); }

}  // namespace orv
