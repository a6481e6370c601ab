// The input workbook is never harmed: -o cannot name it, --in-place keeps what the file is, files
// that may not be written are refused, and the written package matches its extension.

#include <sys/stat.h>
#include <unistd.h>

#include "cli_fixture.h"
#include "test_packages.h"

namespace orv::test {
namespace {

namespace fs = std::filesystem;

mode_t modeOf(const fs::path& p) {
  struct stat st {};
  EXPECT_EQ(::stat(p.c_str(), &st), 0) << p;
  return st.st_mode & 07777;
}

const Columns kHeights = {{"Height", cells({2, 4, 5})}};

TEST_F(CliTest, OutputNamingTheInputBySpellingOrLinkIsRefused) {
  const auto file = workbook("in.xlsx", kHeights);
  const std::string before = readFile(file);
  fs::create_directories(dir / "sub");
  fs::create_symlink(file, dir / "soft.xlsx");
  fs::create_hard_link(file, dir / "hard.xlsx");
  const std::vector<std::string> before_listing = listing(dir);
  for (const fs::path& spelling :
       {fs::path(file), fs::relative(file), dir / "sub" / ".." / "in.xlsx", dir / "soft.xlsx", dir / "hard.xlsx"}) {
    SCOPED_TRACE(spelling);
    const RunResult r = run({"describe", file.string(), "-i", "Data!A1:A4", "--headers", "-o", spelling.string()});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, "orvella: -o \"" + spelling.string() +
                         "\" is the input workbook itself; use --in-place to write the results into it\n");
    EXPECT_EQ(readFile(file), before);
  }
  EXPECT_EQ(listing(dir), before_listing);
}

TEST_F(CliTest, InPlaceKeepsPermissionBitsAndLinksAndRefusesReadOnlyFiles) {
  const auto file = workbook("own.xlsx", kHeights);
  ASSERT_EQ(::chmod(file.c_str(), 0600), 0);
  const auto describe = [&](const fs::path& target) {
    return runOn(target, {"describe", "-i", "Data!A1:A4", "--headers", "--in-place"});
  };
  ASSERT_EQ(describe(file).exitCode, 0);
  EXPECT_EQ(modeOf(file), mode_t{0600});
  EXPECT_EQ(open(file).WorksheetsCount(), 2);

  fs::create_symlink("own.xlsx", dir / "link.xlsx");
  ASSERT_EQ(describe(dir / "link.xlsx").exitCode, 0);
  EXPECT_TRUE(fs::is_symlink(fs::symlink_status(dir / "link.xlsx")));
  EXPECT_EQ(open(file).WorksheetsCount(), 3);
  EXPECT_EQ(modeOf(file), mode_t{0600});

  ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
  const std::string before = readFile(file);
  const RunResult r = describe(file);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.err, "orvella: cannot write \"" + file.string() + "\": it is read-only\n");
  const fs::path other = workbook("other.xlsx", kHeights);
  const RunResult toReadOnly = run({"describe", other.string(), "-i", "Data!A1:A4", "-o", file.string()});
  EXPECT_EQ(toReadOnly.exitCode, 1);
  EXPECT_EQ(readFile(file), before);
  EXPECT_EQ(listing(dir), (std::vector<std::string>{"link.xlsx", "other.xlsx", "own.xlsx"}));
}

TEST_F(CliTest, AMissingUnreadableOrDamagedInputIsAFileError) {
  fs::create_directories(dir / "folder.xlsx");
  const fs::path damaged = textFile("damaged.xlsx", "PK\x03\x04 this is not really a zip");
  const struct {
    fs::path file;
    std::string line;
  } cases[] = {
      {dir / "nosuch.xlsx", "cannot open \"" + (dir / "nosuch.xlsx").string() + "\": no such file or directory"},
      {dir / "folder.xlsx", "cannot open \"" + (dir / "folder.xlsx").string() + "\": it is a folder, not a file"},
      {damaged,
       "\"damaged.xlsx\" is a damaged or truncated zip archive (Not a zip archive). Orvella reads .xlsx and .xlsm "
       "workbooks and .csv, .tsv and .txt text files. [error -2147215403, Line 0 in ORVDescriptives.WorkbookFile.Open]"},
  };
  for (const auto& c : cases) {
    for (const std::string command : {"describe", "circular", "frequency", "sheets"}) {
      SCOPED_TRACE(command + " " + c.file.string());
      const RunResult r = command == "sheets" ? runOn(c.file, {command}) : runOn(c.file, {command, "-i", "A1:A3"});
      EXPECT_EQ(r.exitCode, 1);
      EXPECT_EQ(r.err, "orvella: " + c.line + "\n");
    }
  }
}

// The workbook of `plain` made macro-enabled: its content type says so and it carries a project.
fs::path macroEnabled(const fs::path& plain, const fs::path& as) {
  const ZipContents zip = readZip(plain);
  Parts parts;
  for (const std::string& name : zip.order) {
    std::string content = zip.at(name);
    if (name == "[Content_Types].xml") {
      const std::string plainType = "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml";
      content.replace(content.find(plainType), plainType.size(),
                      "application/vnd.ms-excel.sheet.macroEnabled.main+xml");
      content.insert(content.find("<Default"),
                     R"(<Default Extension="bin" ContentType="application/vnd.ms-office.vbaProject"/>)");
    }
    if (name == "xl/_rels/workbook.xml.rels") {
      content.insert(
          content.find("</Relationships>"),
          R"(<Relationship Id="rIdVba" Type="http://schemas.microsoft.com/office/2006/relationships/vbaProject" Target="vbaProject.bin"/>)");
    }
    parts.emplace_back(name, content);
  }
  parts.emplace_back("xl/vbaProject.bin", std::string("\xD0\xCF\x11\xE0 macros \0 here", 19));
  return writeZip(as, parts);
}

std::string workbookType(const fs::path& file) {
  const std::string types = readZip(file).at("[Content_Types].xml");
  const std::size_t at = types.find("/xl/workbook.xml\" ContentType=\"");
  return at == std::string::npos ? "" : types.substr(at + 31, types.find('"', at + 31) - at - 31);
}

TEST_F(CliTest, TheWrittenPackageMatchesItsExtension) {
  const fs::path plain = workbook("plain.xlsx", kHeights);
  const fs::path macros = macroEnabled(plain, dir / "macros.xlsm");
  ASSERT_EQ(workbookType(macros), "application/vnd.ms-excel.sheet.macroEnabled.main+xml");
  const fs::path text = textFile("text.csv", "Height\n2\n4\n");
  const auto noMacros = [&](const fs::path& input) {
    return "\"" + input.string() + "\" holds no macros, so it is written as a .xlsx workbook; give -o a .xlsx name " +
           "instead of \"" + (dir / "out.xlsm").string() + "\"";
  };
  const struct {
    fs::path input;
    std::string out;
    std::string refusal;  // empty: written
  } cases[] = {
      {macros, "out.xlsx",
       "\"" + macros.string() +
           "\" is a macro-enabled workbook, whose macros a .xlsx file cannot hold; write it to "
           "a .xlsm file instead of \"" +
           (dir / "out.xlsx").string() + "\""},
      {plain, "out.xlsm", noMacros(plain)},
      {text, "out.xlsm", noMacros(text)},
      {macros, "out.xlsm", ""},
      {plain, "OUT.XLSX", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.input.filename().string() + " -> " + c.out);
    const fs::path out = dir / c.out;
    const RunResult r = run({"describe", c.input.string(), "-i", "A1:A3", "--headers", "-o", out.string()});
    if (!c.refusal.empty()) {
      EXPECT_EQ(r.exitCode, 2);
      EXPECT_EQ(r.err, "orvella: " + c.refusal + "\n");
      EXPECT_FALSE(fs::exists(out));
      continue;
    }
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(workbookType(out), workbookType(c.input));
    EXPECT_EQ(readZip(out).at("xl/vbaProject.bin"), readZip(c.input).at("xl/vbaProject.bin"));
    fs::remove(out);
  }
}

}  // namespace
}  // namespace orv::test
