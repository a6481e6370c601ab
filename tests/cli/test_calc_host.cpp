// orvella --host calc: the command on a live, headless LibreOffice that it starts itself. Each
// run starts an office of its own (a couple of seconds), so these tests run few commands each.

#include <signal.h>

#include <chrono>
#include <map>
#include <thread>

#include "cli_fixture.h"
#include "frame/errors.h"
#include "named_workbook.h"

namespace orv::test {
namespace {

struct ProcessState {
  std::string name;
  char state = 'Z';
  pid_t parent = 0;
};

// From /proc/PID/stat, "pid (name) state parent ..."; a process that is gone reads as a zombie.
ProcessState processState(const std::string& pid) {
  std::ifstream stat("/proc/" + pid + "/stat");
  std::string line;
  std::getline(stat, line);
  const std::size_t open = line.find('('), close = line.rfind(')');
  ProcessState s;
  if (open == std::string::npos || close == std::string::npos) return s;
  s.name = line.substr(open + 1, close - open - 1);
  std::istringstream(line.substr(close + 2)) >> s.state >> s.parent;
  return s;
}

// The live processes whose parent is `parent` and whose command is `name`.
std::vector<pid_t> childrenNamed(pid_t parent, const std::string& name) {
  std::vector<pid_t> found;
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    const std::string pid = entry.path().filename().string();
    if (pid.find_first_not_of("0123456789") != std::string::npos) continue;
    const ProcessState s = processState(pid);
    if (s.parent == parent && s.name == name && s.state != 'Z') found.push_back(std::stoi(pid));
  }
  return found;
}

class CalcHostTest : public CliTest {
 protected:
  // Three columns of 12 heights, as in the README's example.
  std::filesystem::path heights(const std::string& name) {
    std::vector<CellValue> a, b, c;
    for (int i = 0; i < 12; ++i) {
      a.emplace_back(20.0 + (i * 7) % 10 * 0.4);
      b.emplace_back(27.0 + (i * 3) % 10 * 0.5);
      c.emplace_back(16.0 + (i * 9) % 10 * 0.3);
    }
    return workbook(name, {{"Control", a}, {"Fertiliser", b}, {"Shade", c}});
  }

  // The office of a running orvella once it has run for `settled`: the first start in a new
  // profile ends by itself and is started again, so an office counts once it stays.
  pid_t officeOf(pid_t orvella, std::chrono::milliseconds settled) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    std::map<pid_t, std::chrono::steady_clock::time_point> seen;
    while (std::chrono::steady_clock::now() < deadline) {
      const auto now = std::chrono::steady_clock::now();
      for (pid_t office : childrenNamed(orvella, "soffice.bin")) {
        const auto first = seen.emplace(office, now).first->second;
        if (now - first >= settled) return office;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return -1;
  }

  // Describes a workbook of 20 columns of 20,000 numbers, large enough to keep the office busy
  // for a few seconds; returns orvella's process and, once it has worked for 1.5 s, its office.
  std::pair<pid_t, pid_t> startLargeRun() {
    Columns columns;
    for (int c = 0; c < 20; ++c) {
      std::vector<CellValue> values;
      for (int r = 0; r < 20000; ++r) values.emplace_back(static_cast<double>((r * 37 + c * 11) % 1000) / 7);
      columns.emplace_back("V" + std::to_string(c + 1), std::move(values));
    }
    const auto input = workbook("large.xlsx", columns);
    const pid_t orvella = start({"describe", input.string(), "-i", "Data!A1:T20001", "--headers", "--all", "--host",
                                 "calc", "-o", (dir / "out.xlsx").string()});
    return {orvella, officeOf(orvella, std::chrono::milliseconds(1500))};
  }
};

TEST_F(CalcHostTest, PrintsWhatTheInMemoryHostPrintsAndSavesWhatItPrints) {
  const auto input = heights("plants.xlsx");
  const Args args = {"describe",   input.string(), "-i",           "Data!A1:C13", "--headers", "--all",
                     "--box-plot", "--error-plot", "--error-bars", "Range",       "--json"};
  Args calc = args, inMemory = args;
  calc.insert(calc.end(), {"--host", "calc", "-o", (dir / "calc.xlsx").string()});
  inMemory.insert(inMemory.end(), {"-o", (dir / "memory.xlsx").string()});
  const RunResult memory = run(inMemory);
  const RunResult live = run(calc);
  ASSERT_EQ(live.exitCode, 0) << live.err;
  const Json a = Json::parse(memory.out), b = Json::parse(live.out);
  for (const char* member : {"sheet", "cell", "range"}) EXPECT_EQ(b["output"][member], a["output"][member]);
  EXPECT_EQ(b["output"]["file"], (dir / "calc.xlsx").string());
  EXPECT_EQ(b["columns"].size(), a["columns"].size());
  // The printed block is the in-memory host's, which that host saved at full precision. The
  // saved workbook holds the printed block, the error plot's amounts below it (no hidden sheet of
  // chart data is needed for them), and the charts beside it; the office saves numbers to 15
  // significant digits, as the spreadsheet shows them.
  ASSERT_EQ(b["block"].size(), a["block"].size());
  expectSheetHolds(b["block"], open(dir / "memory.xlsx").Worksheets(a["output"]["sheet"].get<std::string>()), 1e-12);
  InMemoryWorkbook& saved = open(dir / "calc.xlsx");
  const Worksheet& sheet = saved.Worksheets(b["output"]["sheet"].get<std::string>());
  expectSheetHolds(b["block"], sheet, 5e-15);
  EXPECT_THROW(saved.Worksheets("Orvella Chart Data"), ComponentError);
  const std::int32_t heading = static_cast<std::int32_t>(b["block"].size());
  EXPECT_EQ(sheet.cellValue(heading, 1), CellValue("Data for Error Bars"));
  EXPECT_EQ(sheet.cellValue(heading + 2, 1), CellValue("Above Mean"));
  EXPECT_TRUE(sheet.cellValue(heading + 3, 2).isNumber());
  const std::string package = readFile(dir / "calc.xlsx");
  EXPECT_NE(package.find("xl/charts/chart2.xml"), std::string::npos);
  EXPECT_EQ(listing(dir), (std::vector<std::string>{"calc.xlsx", "memory.xlsx", "plants.xlsx"}));
}

// A workbook saved as .ods by the office is read by it again, as is delimited text.
TEST_F(CalcHostTest, ReadsOdsAndTextAndWritesOds) {
  const auto csv = textFile("survey.csv", "Colour;Count\nred;1\nblue;2\nred;3\ngreen;4\nblue;5\n");
  const Args args = {"frequency", csv.string(), "-i", "A1:A6", "--headers", "--nominal"};
  Args live = args;
  live.insert(live.end(), {"--host", "calc", "-o", (dir / "survey.ods").string()});
  const RunResult nominal = run(live), inMemory = run(args);
  ASSERT_EQ(nominal.exitCode, 0) << nominal.err;
  EXPECT_EQ(nominal.out, inMemory.out);
  ASSERT_TRUE(std::filesystem::exists(dir / "survey.ods"));

  const Json block = runJson(commandLine("describe FILE -i survey!B1:B6 --headers --sum --count --host calc --json",
                                         (dir / "survey.ods").string()))["block"];
  EXPECT_EQ(block[4][1], 15);  // Sum
  EXPECT_EQ(block[5][1], 5);   // Count
}

// The office keeps the file's names as named ranges of its own, workbook- and sheet-level; they
// stand for the same cells as on the default host.
TEST_F(CalcHostTest, DefinedNamesResolveThroughTheOfficesNamedRanges) {
  const std::string file = namedWorkbook(dir).string();
  const std::vector<Args> runs = {
      {"describe", file, "-i", "Heights", "--headers", "--mean", "--count", "--json"},
      {"describe", file, "-i", "Other!Left", "--headers", "--sum", "--json"},
  };
  for (Args args : runs) {
    SCOPED_TRACE(args[3]);
    const Json a = runJson(args);
    args.insert(args.end(), {"--host", "calc"});
    const Json b = runJson(args);
    EXPECT_EQ(b["input"], a["input"]);
    EXPECT_EQ(b["columns"].dump(), a["columns"].dump());
  }
}

TEST_F(CalcHostTest, RefusesWhatItCannotWrite) {
  const auto input = heights("plants.xlsx");
  const auto csv = textFile("data.csv", "1\n2\n3\n");
  const struct {
    Args args;
    const char* says;
  } cases[] = {
      {{"describe", input.string(), "-i", "Data!A1:A13", "--host", "calc", "-o", (dir / "out.csv").string()},
       ".xlsx or .ods"},
      {{"describe", input.string(), "-i", "Data!A1:A13", "--host", "calc", "-o", (dir / "out.xlsm").string()},
       ".xlsx or .ods"},
      {{"describe", csv.string(), "-i", "A1:A3", "--host", "calc", "--in-place"}, "text file"},
      {{"describe", input.string(), "-i", "Data!A1:A13", "--host", "excel"}, "--host"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.says);
    const RunResult r = run(c.args);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find(c.says), std::string::npos) << r.err;
  }
}

TEST_F(CalcHostTest, AnOfficeKilledMidRunLeavesNoOutputAndSaysSo) {
  const auto [orvella, office] = startLargeRun();
  ASSERT_GT(office, 0);
  ::kill(office, SIGKILL);
  EXPECT_EQ(WEXITSTATUS(waitStatus(orvella)), 1);
  const std::string err = readFile(dir / "stderr.txt");
  EXPECT_NE(err.find("LibreOffice ("), std::string::npos) << err;
  EXPECT_NE(err.find("stopped"), std::string::npos) << err;
  EXPECT_EQ(listing(dir), std::vector<std::string>{"large.xlsx"});
}

TEST_F(CalcHostTest, ASignalStopsTheOfficeAndLeavesNoOutput) {
  const auto [orvella, office] = startLargeRun();
  ASSERT_GT(office, 0);
  ::kill(orvella, SIGTERM);
  const int status = waitStatus(orvella);
  EXPECT_EQ(WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status), 128 + SIGTERM);
  EXPECT_EQ(processState(std::to_string(office)).state, 'Z');  // gone
  EXPECT_NE(readFile(dir / "stderr.txt").find("interrupted"), std::string::npos);
  EXPECT_EQ(listing(dir), std::vector<std::string>{"large.xlsx"});
}

}  // namespace
}  // namespace orv::test
