#pragma once
// Turns the component's errors into sentences a person understands without knowing error numbers.

#include <string>

#include "frame/errors.h"

namespace orv::cli {

// What the failed run was working on, for the sentence.
struct ErrorContext {
  std::string input;   // the --input reference
  std::string output;  // the --output reference, empty for a new sheet
};

// One line: the sentence (which range or cell, what is wrong, what to do), then the number and
// the component's source in brackets.
std::string messageFor(const ComponentError& e, const ErrorContext& context);

}  // namespace orv::cli
