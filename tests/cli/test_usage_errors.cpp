// Wrong usage is one line: "orvella: ", the flag and what it takes, or the nearest flag for an
// unknown one, or the flags that contradict each other; exit status 2 for every command.

#include "cli_fixture.h"

namespace orv::test {
namespace {

TEST_F(CliTest, WrongUsageAndContradictoryFlagsAreOneLineNamingTheFlagAndWhatItTakes) {
  const auto file = workbook("u.xlsx", {{"A", cells({1, 2})}});
  const auto chart = [](const std::string& flag) {
    return flag + " draws a chart into the written workbook; give -o OUT.xlsx (or --in-place) to write one";
  };
  const struct {
    std::string command;
    std::string line;
  } cases[] = {
      {"describe FILE -i A1:A3 --largest 0", "--largest takes a whole number from 1 up, not \"0\""},
      {"describe FILE -i A1:A3 --smallest 1.5", "--smallest takes a whole number from 1 up, not \"1.5\""},
      {"describe FILE -i A1:A3 --cl 100", "--cl takes a confidence level in whole percent from 1 to 99, not \"100\""},
      {"describe FILE -i A1:A3 --percentiles x", "--percentiles takes a whole percent from 1 to 99, not \"x\""},
      {"describe FILE -i A1:A3 --error-plot --error-centre mean", "--error-centre takes Mean or Median, not \"mean\""},
      {"describe FILE -i A1:A3 --error-bars SE",
       "--error-bars takes \"Standard Error\", \"Standard Deviation\", Variance, Range, \"Interpercentile Range\" or "
       "\"Confidence Limits\", not \"SE\""},
      {"describe FILE -i A1:A3 --mena", "describe has no option --mena; did you mean --mean?"},
      {"circular FILE -i A1:A3 --rayliegh", "circular has no option --rayliegh; did you mean --rayleigh?"},
      {"frequency FILE -i A1:A3 --bin=A1:A2", "frequency has no option --bin; did you mean --bins?"},
      {"sheets FILE --jsn", "sheets has no option --jsn; did you mean --json?"},
      {"describe FILE -i A1:A3 --zzzzzz", "describe has no option --zzzzzz (orvella describe --help lists them)"},
      {"descibe FILE", "no command \"descibe\"; did you mean describe?"},
      {"", "give a command: describe, circular, frequency, sheets or completion (orvella --help)"},
      {"describe FILE",
       "describe needs --input: range to analyse, e.g. \"Data!A1:C20\", \"A1:A10,C1:C10\" or a name the workbook defines"},
      {"circular -i A1:A3", "circular needs the workbook FILE to read (.xlsx, .xlsm, .csv or .tsv)"},
      {"describe FILE -i",
       "--input needs a value: range to analyse, e.g. \"Data!A1:C20\", \"A1:A10,C1:C10\" or a name the workbook defines"},
      {"describe FILE -i A1:A3 extra.xlsx",
       "describe takes one FILE; \"extra.xlsx\" is one argument too many (a reference with blanks must be quoted)"},
      {"describe FILE -i A1:A3 -o out.csv",
       "-o takes a workbook file ending in .xlsx (or .xlsm for a macro-enabled workbook), not \"out.csv\""},
      {"frequency FILE -i A1:A3 -o x.xlsx --in-place", "give either -o/--out or --in-place, not both"},
      // Contradictions
      {"describe FILE -i A1:A3 --box-plot", chart("--box-plot")},
      {"describe FILE -i A1:A3 --mean --error-plot", chart("--error-plot")},
      {"circular FILE -i A1:A3 --plot --json", chart("--plot")},
      {"frequency FILE -i A1:A3 --histogram", chart("--histogram")},
      {"frequency FILE -i A1:A3 --nominal --bins B1:B3",
       "--nominal counts items, which have no bins; leave out --bins, or --nominal to count numbers in bins"},
      {"describe FILE -i A1:A3 --json --csv", "give either --json or --csv, not both"},
      {"circular FILE -i A1:A3 --quiet --csv -o x.xlsx",
       "--quiet prints nothing, but --csv asks for the results on standard output; leave out one of them"},
      {"describe FILE -i A1:A3 --quiet",
       "--quiet prints nothing and nothing would be written; give -o OUT.xlsx (or --in-place) to keep the results, or "
       "leave out --quiet"},
      {"describe - -i A1:A3 --in-place",
       "standard input cannot be written in place; use -o OUT.xlsx instead of --in-place"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    const Args args = commandLine(c.command, file.string());
    const RunResult r = run(args);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, "orvella: " + c.line + "\n");
    if (std::ranges::find(args, "--json") == args.end()) {
      EXPECT_EQ(r.out, "");  // with --json: an error object
    }
    EXPECT_FALSE(std::filesystem::exists(dir / "x.xlsx"));
  }
  EXPECT_EQ(run({"describe", "--help"}).exitCode, 0);
  EXPECT_EQ(run({"--version"}).exitCode, 0);
}

}  // namespace
}  // namespace orv::test
