#pragma once
// The two hosts under one face, so that one suite states what every host must do.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "chart_probe.h"
#include "frame/host.h"
#include "frame/range.h"

namespace orv::test {

class HostUnderTest {
 public:
  virtual ~HostUnderTest() = default;
  virtual Application& app() = 0;
  // The user workbook "Book1.xlsx" made at construction, holding the named sheets.
  virtual Workbook& book() = 0;
  // Sends whatever the host still holds and looks at the workbook again through new host
  // objects: for the live host, what the office holds now; the in-memory host keeps its own.
  virtual Workbook& reread() = 0;
  virtual std::vector<ProbedChart> charts(Worksheet& sheet) = 0;
};

// A host with one user workbook "Book1.xlsx" of the named sheets, the first of them active.
std::unique_ptr<HostUnderTest> inMemoryHost(const std::vector<std::string>& sheets);
std::unique_ptr<HostUnderTest> liveHost(const std::vector<std::string>& sheets);

using HostFactory = std::unique_ptr<HostUnderTest> (*)(const std::vector<std::string>&);

// A suite run once on each host: INSTANTIATE_TEST_SUITE_P(Hosts, Suite, bothHosts(), hostName).
class HostTest : public ::testing::TestWithParam<HostFactory> {
 protected:
  Range range(const char* reference) { return host->app().ResolveRange(reference); }
  std::unique_ptr<HostUnderTest> host;
};

inline auto bothHosts() { return ::testing::Values(&inMemoryHost, &liveHost); }
inline std::string hostName(const ::testing::TestParamInfo<HostFactory>& info) {
  return info.param == &inMemoryHost ? "InMemory" : "Live";
}

}  // namespace orv::test
