// Runs a full descriptive analysis of plant heights (cm) under three treatments on the in-memory
// host and prints the results table as it lands in the workbook.

#include <cstdio>
#include <string>
#include <vector>

#include "descriptive/clsDS.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "support/host_session.h"
#include "workbook/in_memory_application.h"

namespace {

struct Treatment {
  const char* name;
  std::vector<double> heights;
};

const std::vector<Treatment> kPlants = {
    {"Control", {21.4, 19.8, 23.1, 22.0, 20.5, 24.3, 18.9, 22.7, 21.1, 20.2, 23.8, 21.9}},
    {"Fertiliser", {26.2, 28.9, 25.4, 30.1, 27.7, 29.3, 26.8, 31.5, 28.0, 27.1, 29.9, 28.4}},
    {"Shade", {17.3, 15.9, 18.8, 16.4, 17.9, 15.1, 19.2, 16.8, 17.5, 16.1, 18.3, 17.0}},
};

std::string cellText(const orv::CellValue& v) {
  if (v.isNumber()) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.6g", v.number());
    return buf;
  }
  return orv::toText(v);
}

}  // namespace

int main() {
  orv::InMemoryApplication app;
  orv::InMemoryWorkbook& book = app.AddWorkbook("plants.xlsx", {"Heights"});
  orv::InMemoryWorksheet& sheet = book.Worksheets("Heights");
  for (std::size_t c = 0; c < kPlants.size(); ++c) {
    const auto col = static_cast<std::int32_t>(c + 1);
    sheet.storeRaw(1, col, kPlants[c].name);
    for (std::size_t r = 0; r < kPlants[c].heights.size(); ++r) {
      sheet.storeRaw(static_cast<std::int32_t>(r + 2), col, kPlants[c].heights[r]);
    }
  }
  orv::HostSession::Attach(&app);

  try {
    orv::clsDS ds;
    ds.Headers(true);
    for (auto set : {&orv::clsDS::GetMean, &orv::clsDS::GetMedian, &orv::clsDS::GetMode,
                     &orv::clsDS::GetSE, &orv::clsDS::GetSD, &orv::clsDS::GetVariance,
                     &orv::clsDS::GetCV, &orv::clsDS::GetCL, &orv::clsDS::GetSum,
                     &orv::clsDS::GetMin, &orv::clsDS::GetMax, &orv::clsDS::GetCount,
                     &orv::clsDS::GetRange, &orv::clsDS::GetPercentile,
                     &orv::clsDS::GetSkewness, &orv::clsDS::GetKurtosis}) {
      (ds.*set)(true);
    }
    ds.InputRange("Heights!A1:C13");
    ds.Results();
  } catch (const orv::ComponentError& e) {
    std::fprintf(stderr, "analysis failed: %s (%d, %s)\n", e.description().c_str(), e.number(),
                 e.source().c_str());
    return 1;
  }

  orv::Worksheet& out = app.ActiveSheet();
  const orv::CellBlock used = *out.usedBlock();
  std::printf("Sheet \"%s\" of %s:\n\n", out.Name().c_str(), book.Name().c_str());
  for (std::int32_t r = used.top; r <= used.bottom; ++r) {
    std::string line;
    for (std::int32_t c = used.left; c <= used.right; ++c) {
      const std::string text = cellText(out.cellValue(r, c));
      char buf[64];
      if (c == 1) {
        std::snprintf(buf, sizeof buf, "%-18s", text.c_str());
      } else {
        std::snprintf(buf, sizeof buf, "%12s", text.c_str());
      }
      line += buf;
    }
    std::printf("%s\n", line.c_str());
  }
  orv::HostSession::Attach(nullptr);
  return 0;
}
