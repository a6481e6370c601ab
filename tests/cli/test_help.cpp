// The help, the man page and the completion scripts come from one description of the command
// line: every option of every command appears in each, under the help's headings, without the
// parser's notation; the man page renders cleanly and the scripts run in their shells.

#include <sstream>

#include "cli/command_line.h"
#include "cli/completion.h"
#include "cli/help_text.h"
#include "cli/man_page.h"
#include "cli_fixture.h"

namespace orv::test {
namespace {

struct Program {
  CLI::App app;
  int exitCode = 0;
  Program() { cli::buildCommandLine(app, exitCode, "9.9.9"); }
};

std::vector<std::string> longNames(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& l : option->get_lnames()) names.push_back("--" + l);
  }
  return names;
}

// The headings of the help's sections, in order.
std::vector<std::string> sectionTitles(const std::string& help) {
  std::vector<std::string> titles;
  std::istringstream in(help);
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == ':' && line.front() != ' ' && line.find(' ') == std::string::npos) {
      titles.push_back(line.substr(0, line.size() - 1));
    }
  }
  return titles;
}

TEST(Help, EachCommandGroupsItsOptionsWithoutParserNotation) {
  Program program;
  const std::vector<std::string> analysis = {"Input", "Statistics", "Output", "Charts", "Other", "Examples"};
  const struct {
    std::string command;
    std::vector<std::string> titles;
  } cases[] = {
      {"describe", analysis},
      {"circular", analysis},
      {"frequency", analysis},
      {"sheets", {"Input", "Output", "Other", "Examples"}},
      {"completion", {"Input", "Other", "Examples"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.command);
    const CLI::App& command = *program.app.get_subcommand(c.command);
    const std::string help = cli::helpText(command);
    EXPECT_EQ(sectionTitles(help), c.titles) << help;
    for (const std::string& name : longNames(command)) EXPECT_NE(help.find(name), std::string::npos) << name;
    for (const char* notation :
         {"TEXT:", "REQUIRED", "INT", "{false}", "[1 - 99]", "=95", "Positionals", "Options:", "SUBCOMMAND", "PATH"}) {
      EXPECT_EQ(help.find(notation), std::string::npos) << notation << "\n" << help;
    }
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 100u) << line;
  }
  const std::string describe = cli::helpText(*program.app.get_subcommand("describe"));
  for (const char* heading :
       {"-i, --input REF", "--cl [LEVEL]", "--largest K", "--error-bars KIND", "-o, --out FILE"}) {
    EXPECT_NE(describe.find("  " + std::string(heading) + "  "), std::string::npos) << heading;
  }
  EXPECT_EQ(sectionTitles(cli::helpText(program.app)), (std::vector<std::string>{"Commands", "Other", "Examples"}));
}

class ProgramTest : public CliTest {
 protected:
  // What bash completes for the words typed so far (the last one being completed).
  std::vector<std::string> bashCompletes(const std::vector<std::string>& typed) {
    std::string script = cli::bashCompletion(program_.app);
    std::string words;
    for (const std::string& w : typed) words += " " + quoted(w);
    script += "COMP_WORDS=(orvella" + words + ")\nCOMP_CWORD=" + std::to_string(typed.size()) +
              "\n_orvella\nprintf '%s\\n' \"${COMPREPLY[@]}\"\n";
    textFile("complete.bash", script);
    EXPECT_EQ(std::system(("cd " + quoted(dir.string()) + " && bash complete.bash >completed.txt").c_str()), 0);
    std::vector<std::string> lines;
    std::istringstream in(readFile(dir / "completed.txt"));
    for (std::string line; std::getline(in, line);) {
      if (!line.empty()) lines.push_back(line);
    }
    return lines;
  }

  Program program_;
};

TEST_F(ProgramTest, TheManPageHasEveryOptionAndRendersWithoutWarnings) {
  const std::string page = cli::manPage(program_.app, "9.9.9");
  for (const CLI::App* command : program_.app.get_subcommands({})) {
    SCOPED_TRACE(command->get_name());
    EXPECT_NE(page.find(".SS \"orvella " + command->get_name()), std::string::npos);
    for (std::string name : longNames(*command)) {
      // roff writes each hyphen escaped
      std::string escaped;
      for (const char c : name) escaped += c == '-' ? std::string("\\-") : std::string(1, c);
      EXPECT_NE(page.find("\\fB" + escaped + "\\fR"), std::string::npos) << name;
    }
  }
  const auto warnings = dir / "orvella.1.warnings";
  const std::string render =
      "groff -man -Tutf8 -ww -z " + quoted(textFile("orvella.1", page).string()) + " 2>" + quoted(warnings.string());
  ASSERT_EQ(std::system(render.c_str()), 0) << "groff (package groff-base) must be installed";
  EXPECT_EQ(readFile(warnings), "");
}

TEST_F(ProgramTest, BashCompletesCommandsFlagsChoicesAndFiles) {
  textFile("plants.xlsx", "x");
  const struct {
    Args typed;
    std::vector<std::string> completed;
  } cases[] = {
      {{"de"}, {"describe"}},
      {{"c"}, {"circular", "completion"}},
      {{"describe", "--error-b"}, {"--error-bars"}},
      {{"describe", "--error-bars", "Con"}, {"Confidence\\ Limits"}},
      {{"describe", "--error-centre", ""}, {"Mean", "Median"}},
      {{"frequency", "--no-n"}, {"--no-normal"}},
      {{"circular", "--ray"}, {"--rayleigh"}},
      {{"describe", "pla"}, {"plants.xlsx"}},
      {{"describe", "plants.xlsx", "-o", "pl"}, {"plants.xlsx"}},
      {{"describe", "plants.xlsx", "--input", "pl"}, {}},  // a reference: nothing to offer
      {{"completion", "z"}, {"zsh"}},
      {{"sheets", "--j"}, {"--json"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.typed.back());
    EXPECT_EQ(bashCompletes(c.typed), c.completed);
  }
}

TEST_F(ProgramTest, TheZshScriptParsesAndNamesEveryOption) {
  const std::string script = cli::zshCompletion(program_.app);
  ASSERT_EQ(std::system(("zsh -n " + quoted(textFile("_orvella", script).string())).c_str()), 0)
      << "zsh (package zsh) must be installed";
  for (const CLI::App* command : program_.app.get_subcommands({})) {
    SCOPED_TRACE(command->get_name());
    EXPECT_NE(script.find("    " + command->get_name() + ")\n"), std::string::npos);
    for (const std::string& name : longNames(*command))
      EXPECT_NE(script.find("'" + name + "["), std::string::npos) << name;
  }
  EXPECT_NE(script.find(":KIND:(Standard\\ Error Standard\\ Deviation"), std::string::npos);
  EXPECT_NE(script.find("'--cl[confidence limits of the mean at LEVEL percent (default 95)]::LEVEL: '"),
            std::string::npos);
}

TEST_F(ProgramTest, TheCommandPrintsTheHelpAndTheScripts) {
  for (const std::string command : {"describe", "frequency"})
    EXPECT_EQ(run({command, "--help"}).out, cli::helpText(*program_.app.get_subcommand(command))) << command;
  EXPECT_EQ(run({"completion", "bash"}).out, cli::bashCompletion(program_.app));
  EXPECT_EQ(run({"completion", "zsh"}).out, cli::zshCompletion(program_.app));
  const RunResult wrong = run({"completion", "fish"});
  EXPECT_EQ(wrong.exitCode, 2);
  EXPECT_EQ(wrong.err, "orvella: completion takes bash or zsh, not \"fish\"\n");
}

}  // namespace
}  // namespace orv::test
