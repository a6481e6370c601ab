#pragma once
// What every host's run shares around the analysis: the two ways a run ends that did not work,
// each one line on standard error that starts with "orvella: " (wrong usage exits with 2, a
// failure of the data or a file with 1), said with --json also as a JSON document on standard
// output:
//   {"error": {"message": "...", "number": -2147216466, "source": "Line 0 in ..."}, "warnings": [...]}
// (number and source null for failures the command found itself, such as a file that cannot be
// opened); and the host attached to the component for the run.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cli/analysis_run.h"

namespace orv {
class Application;
}  // namespace orv

namespace orv::cli {

struct Failure {
  int exitCode = kExitFailed;
  std::string sentence;  // after "orvella: "
  std::optional<std::int32_t> number;
  std::string source;
};

Failure usage(const std::string& sentence);
Failure failed(const std::string& sentence);

// Says the failure after the warnings gathered so far, with a copy of standard input named as
// such (cli/standard_input.h), and returns its exit code.
int reportFailure(const FileOptions& files, const Failure& failure, const std::vector<std::string>& warnings = {});

// The JSON document of a failure, for failures found before a command knows its options.
std::string failureJson(const Failure& failure, const std::vector<std::string>& warnings = {});

// "\"FILE\"", for sentences.
std::string quotedPath(const std::filesystem::path& p);

// Attaches the host for as long as it lives, and detaches it however the run ends.
class AttachedHost {
 public:
  explicit AttachedHost(Application& app);
  ~AttachedHost();
  AttachedHost(const AttachedHost&) = delete;
  AttachedHost& operator=(const AttachedHost&) = delete;
};

}  // namespace orv::cli
