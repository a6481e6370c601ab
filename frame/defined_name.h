#pragma once
// Defined names: a name a workbook gives to cells ("Heights" for Data!$A$1:$C$13), usable
// wherever a reference is. A name belongs to the whole workbook or to one of its sheets (a
// sheet-level name); a text may qualify it with its sheet ("Data!Totals", "'My data'!Totals").
//
// Application::ResolveRange (frame/host.h) takes a text that is no reference as a name: the
// sheet-level name of the qualifying sheet (or of the active sheet, unqualified) first, then the
// workbook-level name, both looked up in the active workbook through Workbook::nameReference;
// the reference the name stands for is then resolved as any reference is.

#include <optional>
#include <string>
#include <string_view>

namespace orv {

struct NameReference {
  std::optional<std::string> sheet;  // the qualifying sheet, unquoted
  std::string name;
};

// None when the text cannot be a name: it must start with a letter, "_" or "\" and hold only
// letters, digits, "_", "." and "\" (bytes of other scripts count as letters), optionally after
// a sheet qualifier.
std::optional<NameReference> parseNameReference(std::string_view text);

// Names compare without regard to case, as sheet names do.
bool sameName(std::string_view a, std::string_view b);

}  // namespace orv
