#pragma once
// The three commands of the Calc extension and the options each one takes: the public
// properties of its analysis class, by their exact names, with the values the class has when it
// is created, and OverWrite, the argument of Results.
//
// One table per command serves the dialog (a control whose id is the property's name, shown
// with the initial value), the dispatch arguments of macros (named as the properties) and the
// run itself (which property setter a value goes to). Properties are listed, and set, in the
// member order of the class's public interface.

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orv {
class Application;
class clsDS;
class clsDSCirc;
class clsFreq;
}  // namespace orv

namespace orv::extension {

enum class Command { Describe, Circular, Frequency };

// What a property takes, and so which control the dialog shows for it.
enum class Kind {
  Flag,         // Boolean: a check box
  Text,         // a title: a text field
  Choice,       // a text the class compares with a few known ones: a combo box offering them
  Byte,         // 8-bit unsigned whole number: a numeric field
  Long,         // 32-bit signed whole number: a numeric field
  DataType,     // ORVDescriptivesFreqDataType: a list box in the enumeration's member order
  DataRange,    // a reference to read data from; whole columns are cut to the used cells
  OutputRange,  // the output cell; empty for a new sheet (the dialog's "new sheet" choice)
};

using OptionValue = std::variant<bool, std::int64_t, std::string>;

struct PropertyInfo {
  std::string_view name;  // the property, the dispatch argument and the dialog control
  Kind kind;
  OptionValue initial;  // the value the class has when created (Results' default for OverWrite)
  std::span<const std::string_view> choices = {};  // Choice: the texts the class knows
  // False for a property that changes no result (kept on the public surface): it is taken as a
  // dispatch argument but left out of the dialog, where a control would promise an effect.
  bool inDialog = true;
};

struct CommandInfo {
  Command command;
  std::string_view name;              // in the dispatch URL: "vnd.orvella:Describe"
  std::string_view title;             // the dialog's and the message box's title
  std::string_view analysis;          // as the orvella command names it, for error sentences
  std::vector<PropertyInfo> options;  // the properties in interface order, then OverWrite
};

inline constexpr std::string_view kOverWrite = "OverWrite";

const CommandInfo& commandInfo(Command command);
const std::vector<CommandInfo>& allCommands();
// The command a dispatch URL's path names ("Describe"), exactly; nothing for any other.
std::optional<Command> commandNamed(std::string_view name);
// The option of that name, exactly (names are case-sensitive like the properties); nullptr when
// the command has none.
const PropertyInfo* findOption(const CommandInfo& command, std::string_view name);

// The whole numbers a Byte, Long or DataType option takes.
struct WholeRange {
  std::int64_t least;
  std::int64_t most;
};
WholeRange wholeRangeOf(Kind kind);

// Options by name, as a dialog or the dispatch arguments give them; an option that is absent
// keeps the class's own value. Values are of the option's kind (dispatch_arguments.h checks).
using OptionValues = std::map<std::string, OptionValue, std::less<>>;

// Every option at its initial value: what a dialog shows when it opens.
OptionValues initialValues(const CommandInfo& command);

// Sets the given options on a new analysis object through its property setters, in the table's
// order. An empty data range is left unset (the class's "no range"); a data range spanning whole
// columns or rows is cut to the used cells of its sheet through `app`, as the orvella command
// does. Setter failures leave as the component raised them. OverWrite is Results' own: see
// overWriteOf.
void applyOptions(clsDS& analysis, const OptionValues& values, Application& app);
void applyOptions(clsDSCirc& analysis, const OptionValues& values, Application& app);
void applyOptions(clsFreq& analysis, const OptionValues& values, Application& app);
bool overWriteOf(const OptionValues& values);

}  // namespace orv::extension
