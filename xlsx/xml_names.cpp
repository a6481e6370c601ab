#include "xlsx/xml_names.h"

namespace orv::xml {

std::string_view localName(std::string_view qualified) {
  const std::size_t colon = qualified.find(':');
  return colon == std::string_view::npos ? qualified : qualified.substr(colon + 1);
}

std::string_view localName(const pugi::xml_node& node) { return localName(std::string_view(node.name())); }

std::string prefixOf(const pugi::xml_node& node) {
  const std::string_view name = node.name();
  return std::string(name.substr(0, name.size() - localName(name).size()));
}

bool isElement(const pugi::xml_node& node, std::string_view local) {
  return node.type() == pugi::node_element && localName(node) == local;
}

pugi::xml_node child(const pugi::xml_node& parent, std::string_view local) {
  for (pugi::xml_node n = parent.first_child(); n; n = n.next_sibling()) {
    if (isElement(n, local)) return n;
  }
  return {};
}

pugi::xml_attribute attributeNamed(const pugi::xml_node& node, std::string_view local) {
  for (pugi::xml_attribute a = node.first_attribute(); a; a = a.next_attribute()) {
    if (localName(a.name()) == local) return a;
  }
  return {};
}

}  // namespace orv::xml
