#pragma once
// Wrong usage said in one line: "orvella: " and a sentence that names the flag and what it
// takes, or for an unknown flag the nearest one the command has. Exit status 2.
//
// Values are checked by the validators below, which throw UsageError themselves, so the
// sentence is ours rather than the parser's; usageLine turns the parser's own failures (unknown
// flags, missing values, missing FILE or --input) into the same kind of line.

#include <stdexcept>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace orv::cli {

// The sentence after "orvella: ".
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A whole number from `low` to `high`: "--largest takes a whole number from 1 up, not "0"".
// `what` names the number ("a whole number", "a confidence level in whole percent").
CLI::Validator wholeNumberFrom(const std::string& flag, const std::string& what, int low, int high);
CLI::Validator wholeNumberFrom(const std::string& flag, const std::string& what, int low);

// One of `choices`, spelt exactly: "--error-centre takes Mean or Median, not "mean"".
CLI::Validator oneOf(const std::string& flag, const std::vector<std::string>& choices);

// The sentence for a failure of the parser, after "orvella: ". `app` is the whole command line
// application; the subcommand being parsed, if any, is found in it.
std::string usageLine(const CLI::ParseError& error, const CLI::App& app);

// The closest of `candidates` to `given` by edit distance, if close enough to be a likely typo;
// empty otherwise.
std::string nearest(const std::string& given, const std::vector<std::string>& candidates);

}  // namespace orv::cli
