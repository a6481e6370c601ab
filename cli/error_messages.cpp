#include "cli/error_messages.h"

#include <array>
#include <cstdint>
#include <string_view>

#include <fmt/format.h>

#include "cli/column_messages.h"

namespace orv::cli {
namespace {

// How a sentence is made: from a fixed text with {input}/{output} holes, or around the error's
// own description when that already names the place.
enum class Form { Fixed, Description, DescriptionThen };

struct Entry {
  std::int32_t number;
  Form form;
  std::string_view text;
};

// The host's "Object variable or With block variable not set": an unqualified reference with no
// active sheet to stand on.
constexpr std::int32_t kObjectVariableNotSet = 91;

// Every error number the component, the support services and the file layer raise.
constexpr std::array kMessages = {
    Entry{err::kOutputRangeInvalid, Form::Fixed,
          "The output reference \"{output}\" is not a place in this workbook. Give a cell such as "
          "\"Results!A1\", or leave --output out for a new sheet."},
    Entry{err::kNoInputRange, Form::Fixed,
          "No input range was given. Name the cells to analyse with --input, for example "
          "--input \"Data!A1:C20\"."},
    Entry{err::kFrequencyShape, Form::Fixed,
          "The frequency range must have as many cells as each data column of \"{input}\"."},
    Entry{err::kCircularInput, Form::Fixed,
          "The range \"{input}\" holds an angle outside 0 to 360 degrees (or is no valid "
          "reference). Angles must be in degrees from 0 to 360."},
    Entry{err::kAreaHeights, Form::Fixed,
          "The areas of the input range \"{input}\" have different numbers of rows. Give areas of "
          "equal height, for example A1:A20,C1:C20."},
    Entry{err::kFrequencyVariables, Form::Fixed,
          "The frequency range holds more than one column; give one column of counts."},
    Entry{err::kTooFewBins, Form::Fixed, "The bin range needs at least two bin values."},
    Entry{err::kBinsWithoutFrequencies, Form::Fixed,
          "Bins were given without frequencies; give --frequencies as well, or leave --bins out."},
    Entry{err::kBinShape, Form::Fixed, "The frequency range must have as many cells as the bin range."},
    Entry{err::kBinVariables, Form::Fixed, "The bin range holds more than one column; give one column of bin values."},
    Entry{err::kBinsNotIncreasing, Form::Fixed,
          "The bin values must be numbers that strictly increase from top to bottom, without gaps."},
    Entry{err::kInputColumnNotNumeric, Form::DescriptionThen,
          "Correct or clear that cell, or choose a range that holds only numbers (use --headers "
          "if the first row holds names)."},
    Entry{err::kOutputAreaOccupied, Form::DescriptionThen,
          "Give another place with --output, or add --overwrite to replace what is there."},
    Entry{err::kHostFailure, Form::Description, ""},
    Entry{err::kFileUnreadable, Form::Description, ""},
    Entry{err::kFileUnwritable, Form::Description, ""},
    Entry{err::kOverflow, Form::Fixed,
          "The calculation overflowed. A column may hold no numbers at all, or more than 32767 "
          "values, which is more than the analysis can take."},
    Entry{err::kDivisionByZero, Form::Fixed,
          "The calculation divided by zero, for example a coefficient of variation of a column "
          "whose mean is 0, angles whose directions cancel out (such as 0 and 180), which have "
          "no mean direction, or frequencies that are all 0."},
    Entry{err::kSubscriptOutOfRange, Form::Fixed,
          "A statistic asked for an observation the column does not have, for example a "
          "percentile or k-th value of a column with too few numbers, or any statistic of an "
          "empty column."},
    Entry{err::kTypeMismatch, Form::Fixed,
          "A cell that should hold a number holds a text or an error value, or a column of "
          "angles has a single data cell; the circular statistics need at least two rows of "
          "angles."},
    Entry{err::kInvalidProcedureCall, Form::Fixed,
          "The calculation has no defined value for these data (a square root or logarithm of an "
          "invalid number)."},
    Entry{err::kObjectRequired, Form::Fixed, "No workbook is open for the analysis."},
    Entry{kObjectVariableNotSet, Form::Fixed,
          "No sheet is active to read the reference \"{input}\" on. Name the sheet in the "
          "reference, for example \"Data!A1:A20\"."},
    Entry{err::kOutOfMemory, Form::Fixed, "The analysis ran out of memory."},
};

std::string fill(std::string_view text, const ErrorContext& c) {
  std::string s(text);
  for (const auto& [hole, value] :
       {std::pair{std::string_view("{input}"), &c.input}, std::pair{std::string_view("{output}"), &c.output}}) {
    for (std::size_t at = s.find(hole); at != std::string::npos; at = s.find(hole, at)) {
      s.replace(at, hole.size(), *value);
      at += value->size();
    }
  }
  return s;
}

}  // namespace

std::string sentenceFor(const ComponentError& e, const ErrorContext& context,
                        const std::optional<ColumnFailure>& failure, const std::optional<std::string>& cause) {
  std::string sentence;
  if (cause) {
    sentence = *cause;
  } else if (failure) {
    sentence = columnSentence(e, *failure, context.analysis);
  }
  for (const Entry& entry : kMessages) {
    if (!sentence.empty()) break;
    if (entry.number != e.number()) continue;
    switch (entry.form) {
      case Form::Fixed: sentence = fill(entry.text, context); break;
      case Form::Description: sentence = e.description(); break;
      case Form::DescriptionThen: sentence = e.description() + " " + std::string(entry.text); break;
    }
    break;
  }
  if (sentence.empty()) sentence = e.description();
  return sentence;
}

std::string messageFor(const ComponentError& e, const ErrorContext& context,
                       const std::optional<ColumnFailure>& failure, const std::optional<std::string>& cause) {
  return fmt::format("{} [error {}, {}]", sentenceFor(e, context, failure, cause), e.number(), e.source());
}

}  // namespace orv::cli
