#pragma once
// Names in package XML, whatever namespace prefix a writer chose ("x:sheet", "sheet"): the
// readers and the writers match elements and attributes by their local name.
//
// A qualified name is split at its first colon. A prefix cannot hold a colon, so that is the
// only place one can end; a name with a second colon keeps it in its local part ("a:b:c" has the
// local name "b:c", as a namespace-aware parser in recovery mode reads it) and so matches no
// element of the file format.

#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace orv::xml {

// "x:sheet" -> "sheet", "sheet" -> "sheet".
std::string_view localName(std::string_view qualified);
std::string_view localName(const pugi::xml_node& node);

// The prefix with its colon ("x:" or ""): prefixOf(n) + localName(n) is the node's name.
std::string prefixOf(const pugi::xml_node& node);

// True for an element with that local name.
bool isElement(const pugi::xml_node& node, std::string_view local);

// The first child element / attribute with that local name; an empty handle when there is none.
pugi::xml_node child(const pugi::xml_node& parent, std::string_view local);
pugi::xml_attribute attributeNamed(const pugi::xml_node& node, std::string_view local);

}  // namespace orv::xml
