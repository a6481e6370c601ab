#include "xlsx/reader_package.h"

#include <pugixml.hpp>

#include "xlsx/reader_text.h"
#include "xlsx/reader_xml.h"
#include "xlsx/xml_names.h"
#include "xlsx/zip_input.h"

namespace orv {
namespace {

std::string percentDecoded(std::string_view s) {
  std::string out;
  out.reserve(s.size());
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] == '%' && i + 2 < s.size() && hexDigit(s[i + 1]) >= 0 && hexDigit(s[i + 2]) >= 0) {
      out.push_back(static_cast<char>(hexDigit(s[i + 1]) * 16 + hexDigit(s[i + 2])));
      i += 2;
    } else {
      out.push_back(s[i]);
    }
  }
  return out;
}

}  // namespace

std::string relationshipsPartOf(std::string_view sourcePart) {
  const auto slash = sourcePart.rfind('/');
  if (slash == std::string_view::npos) return "_rels/" + std::string(sourcePart) + ".rels";
  return std::string(sourcePart.substr(0, slash + 1)) + "_rels/" + std::string(sourcePart.substr(slash + 1)) + ".rels";
}

std::string resolveTarget(std::string_view sourcePart, std::string_view target) {
  const std::string decoded = percentDecoded(target);
  std::string_view t = decoded;
  std::vector<std::string_view> segments;
  if (!t.empty() && t.front() == '/') {
    t.remove_prefix(1);
  } else {
    // Relative to the folder of the source part.
    std::string_view base = sourcePart;
    const auto slash = base.rfind('/');
    base = slash == std::string_view::npos ? std::string_view{} : base.substr(0, slash);
    while (!base.empty()) {
      const auto s = base.find('/');
      segments.push_back(base.substr(0, s));
      if (s == std::string_view::npos) break;
      base.remove_prefix(s + 1);
    }
  }
  while (!t.empty()) {
    const auto s = t.find('/');
    const std::string_view seg = t.substr(0, s);
    if (seg == "..") {
      if (!segments.empty()) segments.pop_back();
    } else if (!seg.empty() && seg != ".") {
      segments.push_back(seg);
    }
    if (s == std::string_view::npos) break;
    t.remove_prefix(s + 1);
  }
  std::string out;
  for (const auto seg : segments) {
    if (!out.empty()) out.push_back('/');
    out.append(seg);
  }
  return out;
}

std::vector<Relationship> readRelationships(ZipInput& zip, std::string_view sourcePart) {
  const std::string relsPart = relationshipsPartOf(sourcePart);
  auto xml = zip.read(relsPart);
  if (!xml) return {};
  pugi::xml_document doc;
  parsePart(doc, *xml, relsPart);
  std::vector<Relationship> out;
  const pugi::xml_node root = doc.document_element();
  for (pugi::xml_node n = root.first_child(); n; n = n.next_sibling()) {
    if (!xml::isElement(n, "Relationship")) continue;
    Relationship r;
    r.id = n.attribute("Id").value();
    r.type = n.attribute("Type").value();
    r.external = std::string_view(n.attribute("TargetMode").value()) == "External";
    const std::string_view target = n.attribute("Target").value();
    r.target = r.external ? std::string(target) : resolveTarget(sourcePart, target);
    out.push_back(std::move(r));
  }
  return out;
}

bool hasRelationshipType(const Relationship& r, std::string_view kind) {
  const std::string_view type = r.type;
  const auto slash = type.rfind('/');
  return slash != std::string_view::npos && type.substr(slash + 1) == kind;
}

}  // namespace orv
