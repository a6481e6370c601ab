#include "frame/host.h"

#include <string>

#include "frame/defined_name.h"
#include "frame/errors.h"

namespace orv {

Range Application::ResolveRange(std::string_view reference) {
  std::optional<ParsedReference> parsed = tryParseReference(reference);
  if (!parsed) {
    if (std::optional<Range> named = resolveName(reference)) return *named;
    parsed = parseReference(reference);  // raises, quoting the text
  }
  if (!parsed->sheet) return Range(ActiveSheet(), std::move(parsed->areas));

  Workbook& book = ActiveWorkbook();
  try {
    return Range(book.Worksheets(*parsed->sheet), std::move(parsed->areas));
  } catch (const ComponentError&) {
    raiseHost("The reference \"" + std::string(reference) + "\" names the sheet \"" + *parsed->sheet +
              "\", which the workbook \"" + book.Name() + "\" does not have");
  }
}

// A name of the active workbook; none when the text cannot be a name or the workbook has no such
// name. A name that stands for something other than cells of the workbook (a constant, a
// formula, a deleted reference) is a host failure.
std::optional<Range> Application::resolveName(std::string_view reference) {
  const std::optional<NameReference> name = parseNameReference(reference);
  if (!name) return std::nullopt;
  Workbook& book = ActiveWorkbook();
  const std::string scope = name->sheet ? *name->sheet : ActiveSheet().Name();
  const std::optional<std::string> target = book.nameReference(name->name, scope, name->sheet.has_value());
  if (!target) return std::nullopt;
  const std::string_view text =
      !target->empty() && target->front() == '=' ? std::string_view(*target).substr(1) : std::string_view(*target);
  std::optional<ParsedReference> parsed = tryParseReference(text);
  if (!parsed) {
    raiseHost("The name \"" + std::string(reference) + "\" of the workbook \"" + book.Name() +
              "\" does not stand for cells of the workbook: it is \"" + std::string(text) + "\"");
  }
  if (parsed->sheet) return ResolveRange(text);
  return Range(book.Worksheets(scope), std::move(parsed->areas));
}

}  // namespace orv
