#pragma once
// What every host's run shares around the analysis: the two ways a run ends that did not work,
// each one line on standard error that starts with "orvella: " (wrong usage exits with 2, a
// failure of the data or a file with 1), and the host attached to the component for the run.

#include <filesystem>
#include <string>

namespace orv {
class Application;
}  // namespace orv

namespace orv::cli {

int usage(const std::string& message);
int failed(const std::string& message);

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
