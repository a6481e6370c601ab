#include "xlsx/reader_xml.h"

#include <cstdint>

#include "xlsx/reader_errors.h"
#include "xlsx/reader_text.h"
#include "xlsx/xml_names.h"

namespace orv {

void parsePart(pugi::xml_document& doc, std::string& xml, std::string_view part) {
  // In-place parsing: the part text is ours and large shared-string tables need no second copy.
  const unsigned options = pugi::parse_default | pugi::parse_ws_pcdata;
  const pugi::xml_parse_result result = doc.load_buffer_inplace(xml.data(), xml.size(), options, pugi::encoding_utf8);
  if (!result) {
    raiseDamaged("is damaged: the part \"" + std::string(part) + "\" is no well-formed XML (" + result.description() +
                 ")");
  }
  // Depth first without recursion: down to the first child, else on to the next sibling of the
  // nearest ancestor that has one.
  std::size_t depth = 0;
  pugi::xml_node node = doc;
  while (node) {
    if (pugi::xml_node child = node.first_child()) {
      if (++depth > kMaxXmlDepth && child.type() == pugi::node_element) raiseDamaged(xmlDepthRefusal(part));
      node = child;
      continue;
    }
    while (node != doc && !node.next_sibling()) {
      node = node.parent();
      --depth;
    }
    node = node == doc ? pugi::xml_node() : node.next_sibling();
  }
}

std::string xmlDepthRefusal(std::string_view part) {
  return "is refused: the part \"" + std::string(part) + "\" nests its XML elements more than " +
         std::to_string(kMaxXmlDepth) + " deep (the XML depth limit)";
}

std::string decodeSpreadsheetEscapes(std::string text) {
  if (text.find("_x") == std::string::npos) return text;
  std::string out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    if (text[i] == '_' && i + 7 <= text.size() && text[i + 1] == 'x' && text[i + 6] == '_') {
      std::uint32_t code = 0;
      bool hex = true;
      for (std::size_t k = i + 2; k < i + 6 && hex; ++k) {
        const int d = hexDigit(text[k]);
        hex = d >= 0;
        code = code * 16 + static_cast<std::uint32_t>(d < 0 ? 0 : d);
      }
      if (hex && (code < 0xD800 || code > 0xDFFF)) {
        appendUtf8(out, code);
        i += 7;
        continue;
      }
    }
    out.push_back(text[i]);
    ++i;
  }
  return out;
}

std::string stringItemText(pugi::xml_node item) {
  std::string text;
  for (pugi::xml_node child = item.first_child(); child; child = child.next_sibling()) {
    if (child.type() != pugi::node_element) continue;
    const std::string_view name = xml::localName(child);
    if (name == "t") {
      text += child.child_value();
    } else if (name == "r") {
      if (pugi::xml_node t = xml::child(child, "t")) text += t.child_value();
    }
  }
  return decodeSpreadsheetEscapes(std::move(text));
}

}  // namespace orv
