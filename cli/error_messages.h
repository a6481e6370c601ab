#pragma once
// Turns the component's errors into sentences a person understands without knowing error numbers.

#include <optional>
#include <string>

#include "frame/errors.h"
#include "support/column_failure.h"

namespace orv::cli {

// What the failed run was working on, for the sentence.
struct ErrorContext {
  std::string input;     // the --input reference
  std::string output;    // the --output reference, empty for a new sheet
  std::string analysis;  // "describe", "circular", "frequency"; empty elsewhere
};

// One line: the sentence (which range or cell, what is wrong, what to do), then the number and
// the component's source in brackets. The sentence is `cause` when given (one the command worked
// out from the input), else one about the failed column when the driver recorded one
// (cli/column_messages.h), else the sentence for the error's number.
std::string messageFor(const ComponentError& e, const ErrorContext& context,
                       const std::optional<ColumnFailure>& failure = std::nullopt,
                       const std::optional<std::string>& cause = std::nullopt);

// The sentence alone, without the number and source (the JSON failure report keeps them apart).
std::string sentenceFor(const ComponentError& e, const ErrorContext& context,
                        const std::optional<ColumnFailure>& failure = std::nullopt,
                        const std::optional<std::string>& cause = std::nullopt);

}  // namespace orv::cli
