// "-" as FILE reads standard input: CSV, TSV or a workbook, told apart by content; --quiet leaves
// standard output empty when a file is written.

#include <cstdlib>

#include "cli_fixture.h"
#include "xlsx/reader_workbook.h"

namespace orv::test {
namespace {

class StandardInputTest : public CliTest {
 protected:
  StandardInputTest() {
    // The copies of standard input go here, so that a test can see none is left behind.
    const char* previous = std::getenv("TMPDIR");
    if (previous != nullptr) previousTmp_ = previous;
    tmp_ = dir / "tmp";
    std::filesystem::create_directories(tmp_);
    ::setenv("TMPDIR", tmp_.c_str(), 1);
  }
  ~StandardInputTest() override {
    if (previousTmp_) {
      ::setenv("TMPDIR", previousTmp_->c_str(), 1);
    } else {
      ::unsetenv("TMPDIR");
    }
  }

  std::filesystem::path textFile(const std::string& name, const std::string& content) const {
    const auto path = dir / name;
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }

  bool temporaryFilesLeft() const { return !std::filesystem::is_empty(tmp_); }

  std::filesystem::path tmp_;
  std::optional<std::string> previousTmp_;
};

TEST_F(StandardInputTest, TextIsReadAsCsvOrTsvByItsContent) {
  const struct {
    const char* name;
    std::string content;
  } cases[] = {
      {"comma-separated", "Height,Weight\n1.5,60\n1.7,70\n1.9,80\n"},
      {"tab-separated", "Height\tWeight\n1.5\t60\n1.7\t70\n1.9\t80\n"},
      {"semicolons and a byte-order mark", "\xEF\xBB\xBFHeight;Weight\r\n1.5;60\r\n1.7;70\r\n1.9;80\r\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const RunResult r =
        runWithInput({"describe", "-", "-i", "A1:B4", "--headers", "--mean", "--json"}, textFile("in.txt", c.content));
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const nlohmann::json doc = nlohmann::json::parse(r.out);
    EXPECT_EQ(doc["input"], "stdin!$A$1:$B$4");
    EXPECT_DOUBLE_EQ(doc["columns"][0]["statistics"]["Mean"].get<double>(), 1.7);
    EXPECT_DOUBLE_EQ(doc["columns"][1]["statistics"]["Mean"].get<double>(), 70.0);
    EXPECT_FALSE(temporaryFilesLeft());
  }
}

TEST_F(StandardInputTest, AWorkbookOnStandardInputIsWrittenAsFromItsFile) {
  const auto file = workbook("w.xlsx", {{"A", {1.0, 2.0, 4.0}}, {"B", {3.0, 5.0, 9.0}}});
  const auto fromFile = dir / "from-file.xlsx";
  const auto fromInput = dir / "from-input.xlsx";
  const std::vector<std::string> options = {"-i", "Data!A1:B4", "--headers", "--all", "--box-plot"};
  std::vector<std::string> args = {"describe", file.string(), "-o", fromFile.string()};
  args.insert(args.end(), options.begin(), options.end());
  ASSERT_EQ(run(args).exitCode, 0);
  args = {"describe", "-", "-o", fromInput.string()};
  args.insert(args.end(), options.begin(), options.end());
  const RunResult r = runWithInput(args, file);
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(readFile(fromInput), readFile(fromFile));
  EXPECT_FALSE(temporaryFilesLeft());
}

TEST_F(StandardInputTest, FailuresNameStandardInputNotATemporaryFile) {
  const struct {
    const char* name;
    std::string content;
    std::string error;
  } cases[] = {
      {"nothing", "", "orvella: standard input is empty: pipe a workbook or CSV text into orvella, or give a FILE\n"},
      {"binary", std::string("\x01\x02\x00\x03", 4), "orvella: standard input is neither a workbook nor a text file."},
      {"a damaged package", "PK\x03\x04 not really", "orvella: standard input is a damaged or truncated zip archive"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const RunResult r = runWithInput({"describe", "-", "-i", "A1:A3"}, textFile("in.bin", c.content));
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.starts_with(c.error)) << r.err;
    EXPECT_EQ(r.err.find("stdin."), std::string::npos) << r.err;
    EXPECT_FALSE(temporaryFilesLeft());
  }
}

TEST_F(StandardInputTest, QuietPrintsNothingButWarningsWhenAFileIsWritten) {
  const auto file = workbook("q.xlsx", {{"Time", {212.0, 260.0, 199.0}}, {"Bin", {200.0, 250.0}}});
  const auto out = dir / "q-out.xlsx";
  const RunResult r = run({"frequency", file.string(), "-i", "Data!A1:A6", "--headers", "--bins", "Data!B1:B3",
                           "--quiet", "-o", out.string()});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out, "");
  EXPECT_TRUE(r.err.starts_with("orvella: warning: 2 empty cells")) << r.err;
  EXPECT_EQ(r.err.find("Results written"), std::string::npos) << r.err;
  InMemoryApplication app;
  EXPECT_EQ(openWorkbookFile(app, out).book.WorksheetsCount(), 2);
}

}  // namespace
}  // namespace orv::test
