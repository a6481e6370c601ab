// The command built without the Calc host: --host calc is known but refused with the reason.

#include "cli/arguments.h"
#include "cli/calc_run.h"
#include "cli/help_model.h"
#include "cli/run_exits.h"

#include <CLI/CLI.hpp>

namespace orv::cli {

void addHostOption(CLI::App& command, std::string& host) {
  const std::vector<std::string> hosts = {"memory", kCalcHost};
  setChoices(
      command.add_option("--host", host, "where the analysis runs: memory (default) or calc (not in this build)")
          ->type_name("HOST")
          ->group(kInputGroup)
          ->check(oneOf("--host", hosts)),
      hosts);
}

int runAnalysisInCalc(const FileOptions& files, const AnalysisRequest&) {
  return reportFailure(files, usage("this orvella was built without the LibreOffice Calc host (ORV_CALC=OFF); "
                                    "--host calc is not available"));
}

}  // namespace orv::cli
