#include "calc/extension/dispatch_arguments.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "frame/conversions.h"
#include "frequency/freq_data_type.h"

namespace orv::extension {
namespace {

// What the frame itself puts into a dispatch from a menu, a toolbar or the dispatch helper.
constexpr std::array<std::string_view, 3> kFrameArguments = {"KeyModifier", "Referer", "SynchronMode"};

constexpr std::array<std::string_view, 2> kDataTypeNames = {"ORVDescriptivesFreqNumerical",
                                                            "ORVDescriptivesFreqNominal"};

std::string typeName(const ArgumentValue& v) {
  switch (v.index()) {
    case 0: return "nothing";
    case 1: return "a Boolean";
    case 2: return "the whole number " + std::to_string(std::get<std::int64_t>(v));
    case 3: return "the number " + numberToText(std::get<double>(v));
    case 4: return "the text \"" + std::get<std::string>(v) + "\"";
    default: return "a value of type " + std::get<OtherType>(v).name;
  }
}

std::string allNames(const CommandInfo& command) {
  std::string names;
  for (const PropertyInfo& p : command.options) {
    if (!names.empty()) names += ", ";
    names += p.name;
  }
  return names;
}

[[noreturn]] void refuse(const CommandInfo& command, const Argument& a, std::string_view takes) {
  throw ArgumentError(fmt::format("The argument {} of vnd.orvella:{} takes {}, not {}.", a.name, command.name, takes,
                                  typeName(a.value)));
}

// The whole number an integer or a fraction-free floating-point number holds.
std::optional<std::int64_t> wholeNumber(const ArgumentValue& v) {
  if (const auto* i = std::get_if<std::int64_t>(&v)) return *i;
  if (const auto* d = std::get_if<double>(&v)) {
    // Beyond 2^62 no whole-number option fits anyway; the bound keeps the conversion defined.
    if (std::isfinite(*d) && std::floor(*d) == *d && std::fabs(*d) < 0x1p62) return static_cast<std::int64_t>(*d);
  }
  return std::nullopt;
}

OptionValue wholeValue(const CommandInfo& command, const PropertyInfo& option, const Argument& a) {
  const WholeRange range = wholeRangeOf(option.kind);
  if (option.kind == Kind::DataType) {
    if (const auto* s = std::get_if<std::string>(&a.value)) {
      const auto* at = std::find(kDataTypeNames.begin(), kDataTypeNames.end(), *s);
      if (at != kDataTypeNames.end()) return static_cast<std::int64_t>(at - kDataTypeNames.begin());
    }
  }
  const std::optional<std::int64_t> n = wholeNumber(a.value);
  if (n && *n >= range.least && *n <= range.most) return *n;
  if (option.kind == Kind::DataType) {
    refuse(command, a, "0 (ORVDescriptivesFreqNumerical) or 1 (ORVDescriptivesFreqNominal)");
  }
  refuse(command, a, fmt::format("a whole number from {} to {}", range.least, range.most));
}

OptionValue valueFor(const CommandInfo& command, const PropertyInfo& option, const Argument& a) {
  switch (option.kind) {
    case Kind::Flag:
      if (const auto* b = std::get_if<bool>(&a.value)) return *b;
      refuse(command, a, "True or False");
    case Kind::Byte:
    case Kind::Long:
    case Kind::DataType: return wholeValue(command, option, a);
    case Kind::Text:
    case Kind::Choice:
    case Kind::DataRange:
    case Kind::OutputRange:
      if (const auto* s = std::get_if<std::string>(&a.value)) return *s;
      refuse(command, a,
             option.kind == Kind::DataRange || option.kind == Kind::OutputRange ? "a reference text" : "a text");
  }
  refuse(command, a, "nothing");
}

}  // namespace

std::vector<Argument> withoutFrameArguments(std::vector<Argument> arguments) {
  std::erase_if(arguments, [](const Argument& a) {
    return std::find(kFrameArguments.begin(), kFrameArguments.end(), a.name) != kFrameArguments.end();
  });
  return arguments;
}

OptionValues optionValuesOf(const CommandInfo& command, const std::vector<Argument>& arguments) {
  OptionValues values;
  for (const Argument& a : arguments) {
    const PropertyInfo* option = findOption(command, a.name);
    if (option == nullptr) {
      throw ArgumentError(fmt::format("vnd.orvella:{} has no argument named \"{}\"; it takes {}.", command.name, a.name,
                                      allNames(command)));
    }
    values.insert_or_assign(a.name, valueFor(command, *option, a));
  }
  return values;
}

}  // namespace orv::extension
