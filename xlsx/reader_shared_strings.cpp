#include "xlsx/reader_shared_strings.h"

#include <pugixml.hpp>

#include "xlsx/reader_xml.h"

namespace orv {

std::vector<std::string> parseSharedStrings(std::string& xml, std::string_view partName) {
  pugi::xml_document doc;
  parsePart(doc, xml, partName);
  std::vector<std::string> strings;
  const pugi::xml_node root = doc.document_element();
  for (pugi::xml_node si = root.first_child(); si; si = si.next_sibling()) {
    if (si.type() == pugi::node_element && localName(si.name()) == "si") strings.push_back(stringItemText(si));
  }
  return strings;
}

}  // namespace orv
