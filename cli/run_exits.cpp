#include "cli/run_exits.h"

#include <iostream>

#include "cli/analysis_run.h"
#include "support/host_session.h"

namespace orv::cli {

int usage(const std::string& message) {
  std::cerr << "orvella: " << message << "\n";
  return kExitUsage;
}

int failed(const std::string& message) {
  std::cerr << "orvella: " << message << "\n";
  return kExitFailed;
}

std::string quotedPath(const std::filesystem::path& p) { return "\"" + p.string() + "\""; }

AttachedHost::AttachedHost(Application& app) { HostSession::Attach(&app); }

AttachedHost::~AttachedHost() { HostSession::Attach(nullptr); }

}  // namespace orv::cli
