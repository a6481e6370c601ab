#include "frame/host.h"

#include <string>

#include "frame/errors.h"

namespace orv {

Range Application::ResolveRange(std::string_view reference) {
  ParsedReference parsed = parseReference(reference);
  if (!parsed.sheet) return Range(ActiveSheet(), std::move(parsed.areas));

  Workbook& book = ActiveWorkbook();
  try {
    return Range(book.Worksheets(*parsed.sheet), std::move(parsed.areas));
  } catch (const ComponentError&) {
    raiseHost("The reference \"" + std::string(reference) + "\" names the sheet \"" +
              *parsed.sheet + "\", which the workbook \"" + book.Name() + "\" does not have");
  }
}

}  // namespace orv
