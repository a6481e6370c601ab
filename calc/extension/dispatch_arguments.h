#pragma once
// The arguments a macro hands to a dispatch of "vnd.orvella:<Command>", checked against the
// command's options (command_options.h) and turned into option values.
//
// An argument is named exactly as the property (case-sensitive) and typed loosely, as macros
// pass values: a Boolean for a flag; a text for a text or a reference; for a whole number any
// integer, or a floating-point number without a fraction (a Basic Double), within the property's
// type (0..255 for CL and Percentile, 32-bit for Largest and Smallest); for DataType 0 or 1 or
// the enumeration member's name. A later argument of the same name replaces an earlier one.
//
// The frame adds arguments of its own to a dispatch from a menu or toolbar (KeyModifier, ...);
// they are no options and are left out before anything else looks at the arguments.

#include <cstdint>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "calc/extension/command_options.h"

namespace orv::extension {

// An argument's value as UNO carried it: nothing (void), a Boolean, an integer, a floating-point
// number, a text, or some other type (named, for the message).
struct OtherType {
  std::string name;
};
using ArgumentValue = std::variant<std::monostate, bool, std::int64_t, double, std::string, OtherType>;

struct Argument {
  std::string name;
  ArgumentValue value;
};

// An argument that names no option of the command, or whose value does not fit it. The message
// is one sentence that names the argument and what it takes.
class ArgumentError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The arguments without those the frame adds itself.
std::vector<Argument> withoutFrameArguments(std::vector<Argument> arguments);

// The option values the arguments give; ArgumentError for the first one that does not fit.
OptionValues optionValuesOf(const CommandInfo& command, const std::vector<Argument>& arguments);

}  // namespace orv::extension
