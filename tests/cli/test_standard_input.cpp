// "-" as FILE reads standard input: CSV, TSV or a workbook, told apart by content; --quiet leaves
// standard output empty when a file is written.

#include "cli_fixture.h"

namespace orv::test {
namespace {

class StandardInputTest : public CliTest {
 protected:
  // The copies of standard input go here, so that a test can see none is left behind.
  StandardInputTest() {
    std::filesystem::create_directories(tmp_);
    environment = "TMPDIR=" + quoted(tmp_.string()) + " ";
  }
  bool temporaryFilesLeft() const { return !std::filesystem::is_empty(tmp_); }

  const std::filesystem::path tmp_ = dir / "tmp";
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
    const Json doc = Json::parse(r.out);
    EXPECT_EQ(doc["input"], "stdin!$A$1:$B$4");
    EXPECT_DOUBLE_EQ(doc["columns"][0]["statistics"]["Mean"].get<double>(), 1.7);
    EXPECT_DOUBLE_EQ(doc["columns"][1]["statistics"]["Mean"].get<double>(), 70.0);
    EXPECT_FALSE(temporaryFilesLeft());
  }
}

TEST_F(StandardInputTest, AWorkbookOnStandardInputIsWrittenAsFromItsFile) {
  const auto file = workbook("w.xlsx", {{"A", cells({1, 2, 4})}, {"B", cells({3, 5, 9})}});
  const auto fromFile = dir / "from-file.xlsx";
  const auto fromInput = dir / "from-input.xlsx";
  const auto args = [](const std::string& from, const std::filesystem::path& out) {
    return Args{"describe", from, "-o", out.string(), "-i", "Data!A1:B4", "--headers", "--all", "--box-plot"};
  };
  ASSERT_EQ(run(args(file.string(), fromFile)).exitCode, 0);
  const RunResult r = runWithInput(args("-", fromInput), file);
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
  const auto file = workbook("q.xlsx", {{"Time", cells({212, 260, 199})}, {"Bin", cells({200, 250})}});
  const auto out = dir / "q-out.xlsx";
  const RunResult r = run({"frequency", file.string(), "-i", "Data!A1:A6", "--headers", "--bins", "Data!B1:B3",
                           "--quiet", "-o", out.string()});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out, "");
  EXPECT_TRUE(r.err.starts_with("orvella: warning: 2 empty cells")) << r.err;
  EXPECT_EQ(r.err.find("Results written"), std::string::npos) << r.err;
  EXPECT_EQ(open(out).WorksheetsCount(), 2);
}

}  // namespace
}  // namespace orv::test
