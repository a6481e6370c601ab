// A whole describe run on a fuzzed workbook, as the orvella command does it: load the package,
// describe every column of the used cells of its first sheet with all statistics, and write the
// results into a copy of the package. The fuzzed bytes are the sheet part of a valid package:
// mutated zip bytes rarely survive the archive's checksums, sheet XML reaches the analysis.
//
// Any ComponentError is a proper outcome (a file refused, data the analysis rejects); anything
// else that escapes, and every sanitizer report, is a bug.

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "descriptive/clsDS.h"
#include "frame/errors.h"
#include "frame/reference.h"
#include "fuzz_files.h"
#include "support/host_session.h"
#include "workbook/in_memory_application.h"
#include "xlsx/writer_workbook.h"

namespace {

struct Attached {
  explicit Attached(orv::Application& app) { orv::HostSession::Attach(&app); }
  ~Attached() { orv::HostSession::Attach(nullptr); }
  Attached(const Attached&) = delete;
  Attached& operator=(const Attached&) = delete;
};

void describeAndWrite(const std::filesystem::path& file) {
  orv::InMemoryApplication app;
  orv::LoadedWorkbook loaded = orv::openWorkbookFile(app, file, orv::fuzz::fuzzLimits());
  orv::InMemoryWorksheet& first = loaded.book.Worksheets(1);
  const std::optional<orv::CellBlock> used = first.usedBlock();
  if (!used) return;
  Attached attached(app);
  orv::clsDS ds;
  ds.Headers(used->rows() > 1 && first.cellValue(used->top, used->left).isText());
  for (auto set : {&orv::clsDS::GetMean, &orv::clsDS::GetMedian, &orv::clsDS::GetMode, &orv::clsDS::GetSE,
                   &orv::clsDS::GetSD, &orv::clsDS::GetVariance, &orv::clsDS::GetCV, &orv::clsDS::GetCL,
                   &orv::clsDS::GetSum, &orv::clsDS::GetSkewness, &orv::clsDS::GetKurtosis, &orv::clsDS::GetMin,
                   &orv::clsDS::GetMax, &orv::clsDS::GetCount, &orv::clsDS::GetRange, &orv::clsDS::GetPercentile}) {
    (ds.*set)(true);
  }
  ds.InputRange(orv::quoteSheetName(first.Name()) + "!" + orv::absoluteAddress(*used));
  ds.Results(false);
  orv::writeIntoPackage(file, loaded.book, {}, orv::fuzz::scratchFolder() / "results.xlsx");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view sheet(reinterpret_cast<const char*>(data), size);
  const auto file = orv::fuzz::packageAround(sheet, orv::fuzz::sharedStringsXml(), orv::fuzz::workbookXml());
  try {
    describeAndWrite(file);
  } catch (const orv::ComponentError&) {
  }
  return 0;
}
