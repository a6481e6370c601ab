#include "xlsx/reader_shared_strings.h"

#include <pugixml.hpp>

#include "xlsx/reader_errors.h"
#include "xlsx/reader_xml.h"
#include "xlsx/xml_names.h"

namespace orv {

std::vector<std::string> parseSharedStrings(std::string& xml, std::string_view partName, std::uint64_t maxStrings,
                                            std::uint64_t maxStringBytes) {
  pugi::xml_document doc;
  parsePart(doc, xml, partName);
  std::vector<std::string> strings;
  const pugi::xml_node root = doc.document_element();
  for (pugi::xml_node si = root.first_child(); si; si = si.next_sibling()) {
    if (!xml::isElement(si, "si")) continue;
    if (strings.size() >= maxStrings) {
      raiseDamaged("is refused: its shared-string table holds more than " + std::to_string(maxStrings) +
                   " strings (the shared-string count limit)");
    }
    strings.push_back(stringItemText(si));
    if (strings.back().size() > maxStringBytes) {
      raiseDamaged("is refused: its shared string " + std::to_string(strings.size() - 1) + " is longer than " +
                   std::to_string(maxStringBytes) + " bytes (the text length limit)");
    }
  }
  return strings;
}

}  // namespace orv
