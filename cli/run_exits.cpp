#include "cli/run_exits.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <iostream>

#include "cli/standard_input.h"
#include "support/host_session.h"

namespace orv::cli {

Failure usage(const std::string& sentence) { return Failure{kExitUsage, sentence, std::nullopt, {}}; }

Failure failed(const std::string& sentence) { return Failure{kExitFailed, sentence, std::nullopt, {}}; }

std::string failureJson(const Failure& failure, const std::vector<std::string>& warnings) {
  using Json = nlohmann::ordered_json;
  const Json error = {{"message", failure.sentence},
                      {"number", failure.number ? Json(*failure.number) : Json(nullptr)},
                      {"source", failure.number ? Json(failure.source) : Json(nullptr)}};
  return Json{{"error", error}, {"warnings", warnings}}.dump(2);
}

int reportFailure(const FileOptions& files, const Failure& given, const std::vector<std::string>& warnings) {
  Failure failure = given;
  failure.sentence = sayStandardInput(failure.sentence);
  for (const std::string& w : warnings) std::cerr << "orvella: warning: " << sayStandardInput(w) << "\n";
  if (failure.number) {
    std::cerr << fmt::format("orvella: {} [error {}, {}]\n", failure.sentence, *failure.number, failure.source);
  } else {
    std::cerr << "orvella: " << failure.sentence << "\n";
  }
  if (files.json) std::cout << failureJson(failure, warnings) << "\n";
  return failure.exitCode;
}

std::string quotedPath(const std::filesystem::path& p) { return "\"" + p.string() + "\""; }

AttachedHost::AttachedHost(Application& app) { HostSession::Attach(&app); }

AttachedHost::~AttachedHost() { HostSession::Attach(nullptr); }

}  // namespace orv::cli
