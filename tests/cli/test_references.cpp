// References on the command line: blanks around them are dropped, a defined name of the workbook
// stands for its cells, and the usual mistakes are wrong usage with what was probably meant.

#include "cli/reference_text.h"
#include "cli_fixture.h"
#include "named_workbook.h"

namespace orv::test {
namespace {

TEST(ReferenceText, BlanksAroundTheTextAndItsSeparatorsAreDropped) {
  const struct {
    std::string given, tidy;
  } cases[] = {
      {"  Data!A1:C13 ", "Data!A1:C13"},
      {"A1 : A5", "A1:A5"},
      {"Data!A1:A9 , Data!C1:C9", "Data!A1:A9,Data!C1:C9"},
      {"\t'My data'!A1,  'My data'!C1", "'My data'!A1,'My data'!C1"},
      {"' odd  name '!B2", "' odd  name '!B2"},  // blanks inside quotes stay
      {"Sheet 2!A1", "Sheet 2!A1"},              // left for the mistake to be said
      {"  Heights  ", "Heights"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.given);
    EXPECT_EQ(cli::tidyReference(c.given), c.tidy);
  }
}

TEST_F(CliTest, ReferenceMistakesAreWrongUsageWithWhatWasMeant) {
  const auto file = workbook("r.xlsx", {{"A", cells({1, 2})}});
  const std::string f = file.string();
  const struct {
    Args args;
    std::string line;
  } cases[] = {
      {{"describe", f, "-i", "Sheet 2!A1:B6"},
       "--input \"Sheet 2!A1:B6\": a sheet name with blanks must be quoted: --input \"'Sheet 2'!A1:B6\""},
      {{"describe", f, "-i", "Data!A1:A3,My data!B1:B3"},
       "--input \"Data!A1:A3,My data!B1:B3\": a sheet name with blanks must be quoted: --input "
       "\"Data!A1:A3,'My data'!B1:B3\""},
      {{"circular", f, "-i", "A1:A3", "--output", "results.xlsx"},
       "--output takes the cell where the results go, such as \"Results!A1\"; to write the workbook to "
       "results.xlsx, use -o results.xlsx"},
      {{"frequency", f, "-i", "A1:A3", "--bins", "200,250,300"},
       "--bins takes the cells that hold the bin values, such as \"Data!C1:C6\", not the values; write 200, 250 and "
       "300 into cells of the workbook and give their range"},
      {{"frequency", f, "--bins", "A1:A3", "--frequencies", "4; 5; 6"},
       "--frequencies \"4; 5; 6\" holds numbers; --frequencies takes cells of the workbook, such as \"Data!A1:C20\""},
      {{"describe", "-i", "data.csv"},
       "--input \"data.csv\" names a file; --input takes cells of the workbook, such as \"Data!A1:C20\", and the "
       "workbook is FILE, given before the flags"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    const RunResult r = run(c.args);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, "orvella: " + c.line + "\n");
  }
  const Json tidy = runJson({"describe", f, "-i", "  Data!A1:A3 ", "--headers", "--json", "--output", " Data!C1 "});
  EXPECT_EQ(tidy["output"]["sheet"], "Data");
}

TEST_F(CliTest, DefinedNamesStandForTheirCellsInEveryCommand) {
  const auto file = namedWorkbook(dir).string();
  // The block and the input line of `command` on the workbook with --input `reference`.
  const auto block = [&](const std::string& command, const std::string& reference) {
    const Json doc = runJson(commandLine(command + " FILE --headers --json -i " + reference, file));
    return std::pair{doc["block"], doc["input"]};
  };
  const struct {
    const char* name;
    std::string command, byName, byCells, input;
  } cases[] = {
      {"a workbook-level name", "describe --all", "Heights", "Data!A1:B5", "Data!$A$1:$B$5"},
      {"a sheet-level name, qualified", "describe --mean", "Other!Left", "Other!A1:A5", "Other!$A$1:$A$5"},
      {"a workbook-level name of the same spelling", "describe --mean", "left", "Data!A1:A5", "Data!$A$1:$A$5"},
      {"bins by name", "frequency", "Left --bins Bins", "Data!A1:A5 --bins Data!C2:C4", "Data!$A$1:$A$5"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const auto [named, namedInput] = block(c.command, c.byName);
    EXPECT_EQ(named.dump(), block(c.command, c.byCells).first.dump());
    EXPECT_EQ(namedInput, c.input);
  }
  const RunResult unknown = run({"describe", file, "-i", "Heigths"});
  EXPECT_EQ(unknown.exitCode, 1);
  EXPECT_NE(unknown.err.find("\"Heigths\" is not a valid reference"), std::string::npos) << unknown.err;
}

TEST_F(CliTest, SheetsListsSheetsAndNamesAlignedByDisplayWidth) {
  const auto file = namedWorkbook(dir).string();
  const RunResult r = run({"sheets", file});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out,
            "Data    Data!A1:C5    5 rows x 3 columns\n"
            "Other   Other!A1:C5   5 rows x 3 columns\n"
            "\n"
            "Names:\n"
            "Heights   Data!$A$1:$B$5\n"
            "Left      Data!$A$1:$A$5\n"
            "Left      Other!$A$1:$A$5   (of the sheet Other only)\n"
            "Bins      Data!$C$2:$C$4\n");
  const Json doc = Json::parse(run({"sheets", file, "--json"}).out);
  ASSERT_EQ(doc["names"].size(), 5u);
  EXPECT_EQ(doc["names"][2]["sheet"], "Other");
  EXPECT_TRUE(doc["names"][0]["sheet"].is_null());
  EXPECT_EQ(doc["names"][4]["hidden"], true);

  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("wide.xlsx", {"身長", "µ", "One"});
  book.Worksheets("身長").storeRaw(2, 2, CellValue(1.0));
  book.Worksheets("µ").storeRaw(1, 1, CellValue(1.0));
  book.Worksheets("µ").storeRaw(3, 1, CellValue(1.0));
  const auto wide = dir / "wide.xlsx";
  writeNewWorkbook(book, wide);
  EXPECT_EQ(run({"sheets", wide.string()}).out,
            "身長   身長!B2   1 row x 1 column\n"
            "µ      µ!A1:A3   3 rows x 1 column\n"
            "One    (empty)\n");
}

}  // namespace
}  // namespace orv::test
