#include "xlsx/package_parts.h"

#include <algorithm>
#include <set>

#include "frame/errors.h"
#include "xlsx/writer_xml.h"
#include "xlsx/xml_names.h"

namespace orv::package {
namespace {

constexpr std::string_view kDeclaration = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
                                          "\n";
constexpr std::string_view kRelationshipsNs = "http://schemas.openxmlformats.org/package/2006/relationships";
constexpr std::string_view kContentTypesNs = "http://schemas.openxmlformats.org/package/2006/content-types";
constexpr std::string_view kMainNs = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
constexpr std::string_view kOfficeRelNs = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

std::string lower(std::string_view s) {
  std::string out(s);
  std::transform(out.begin(), out.end(), out.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return out;
}

[[noreturn]] void malformed(std::string_view partName, std::string_view what) {
  raise(err::kFileUnwritable,
        "The part \"" + std::string(partName) + "\" of the original workbook " + std::string(what));
}

}  // namespace

std::string relsPartOf(std::string_view partName) {
  const std::size_t slash = partName.rfind('/');
  const std::string_view folder = slash == std::string_view::npos ? std::string_view() : partName.substr(0, slash + 1);
  const std::string_view name = slash == std::string_view::npos ? partName : partName.substr(slash + 1);
  return std::string(folder) + "_rels/" + std::string(name) + ".rels";
}

std::string resolveTarget(std::string_view sourcePart, std::string_view target) {
  std::vector<std::string> parts;
  std::string_view rest = target;
  if (!target.empty() && target.front() == '/') {
    rest.remove_prefix(1);
  } else {
    std::string_view folder =
        sourcePart.substr(0, sourcePart.rfind('/') == std::string_view::npos ? 0 : sourcePart.rfind('/'));
    while (!folder.empty()) {
      const std::size_t slash = folder.find('/');
      parts.emplace_back(folder.substr(0, slash));
      folder = slash == std::string_view::npos ? std::string_view() : folder.substr(slash + 1);
    }
  }
  while (!rest.empty()) {
    const std::size_t slash = rest.find('/');
    const std::string_view piece = rest.substr(0, slash);
    if (piece == "..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!piece.empty() && piece != ".") {
      parts.emplace_back(piece);
    }
    rest = slash == std::string_view::npos ? std::string_view() : rest.substr(slash + 1);
  }
  std::string out;
  for (const std::string& p : parts) out += (out.empty() ? "" : "/") + p;
  return out;
}

std::vector<Relationship> readRelationships(std::string_view relsXml, std::string_view partName) {
  const pugi::xml_document document = xml::parsePart(relsXml, partName);
  std::vector<Relationship> out;
  for (pugi::xml_node r = document.document_element().first_child(); r; r = r.next_sibling()) {
    if (!xml::isElement(r, "Relationship")) continue;
    out.push_back({r.attribute("Id").value(), r.attribute("Type").value(), r.attribute("Target").value(),
                   std::string_view(r.attribute("TargetMode").value()) == "External"});
  }
  return out;
}

std::string addRelationship(std::string_view relsXml, std::string_view partName, std::string_view type,
                            std::string_view target, std::string& id) {
  pugi::xml_document document = xml::parsePart(relsXml, partName);
  pugi::xml_node root = document.document_element();
  std::set<std::string> used;
  for (pugi::xml_node r = root.first_child(); r; r = r.next_sibling()) {
    if (xml::isElement(r, "Relationship")) used.insert(r.attribute("Id").value());
  }
  for (int n = 1;; ++n) {
    id = "rId" + std::to_string(n);
    if (used.count(id) == 0) break;
  }
  pugi::xml_node added = root.append_child((xml::prefixOf(root) + "Relationship").c_str());
  added.append_attribute("Id").set_value(id.c_str());
  added.append_attribute("Type").set_value(std::string(type).c_str());
  added.append_attribute("Target").set_value(std::string(target).c_str());
  return xml::serialise(document);
}

std::string freshRelationships(const std::vector<Relationship>& relationships) {
  std::string out(kDeclaration);
  out += "<Relationships xmlns=\"" + std::string(kRelationshipsNs) + "\">";
  for (const Relationship& r : relationships) {
    out += "<Relationship Id=\"" + xml::attribute(r.id) + "\" Type=\"" + xml::attribute(r.type) + "\" Target=\"" +
           xml::attribute(r.target) + "\"";
    if (r.external) out += " TargetMode=\"External\"";
    out += "/>";
  }
  return out + "</Relationships>";
}

std::string addOverrides(std::string_view contentTypesXml,
                         const std::vector<std::pair<std::string, std::string>>& overrides) {
  constexpr std::string_view kPart = "[Content_Types].xml";
  pugi::xml_document document = xml::parsePart(contentTypesXml, kPart);
  pugi::xml_node root = document.document_element();
  if (xml::localName(root) != "Types") malformed(kPart, "has no Types element");
  std::set<std::string> known;
  for (pugi::xml_node o = root.first_child(); o; o = o.next_sibling()) {
    if (xml::isElement(o, "Override")) known.insert(lower(o.attribute("PartName").value()));
  }
  for (const auto& [part, type] : overrides) {
    const std::string name = "/" + part;
    if (known.count(lower(name)) != 0) continue;
    pugi::xml_node added = root.append_child((xml::prefixOf(root) + "Override").c_str());
    added.append_attribute("PartName").set_value(name.c_str());
    added.append_attribute("ContentType").set_value(type.c_str());
  }
  return xml::serialise(document);
}

std::string freshContentTypes(const std::vector<std::pair<std::string, std::string>>& overrides) {
  std::string out(kDeclaration);
  out += "<Types xmlns=\"" + std::string(kContentTypesNs) + "\">";
  out += R"(<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)";
  out += R"(<Default Extension="xml" ContentType="application/xml"/>)";
  for (const auto& [part, type] : overrides) {
    out += "<Override PartName=\"/" + xml::attribute(part) + "\" ContentType=\"" + xml::attribute(type) + "\"/>";
  }
  return out + "</Types>";
}

std::vector<WorkbookSheet> readSheets(std::string_view workbookXml, std::string_view partName) {
  const pugi::xml_document document = xml::parsePart(workbookXml, partName);
  const pugi::xml_node sheets = xml::child(document.document_element(), "sheets");
  if (!sheets) malformed(partName, "has no sheets element");
  std::vector<WorkbookSheet> out;
  for (pugi::xml_node s = sheets.first_child(); s; s = s.next_sibling()) {
    if (!xml::isElement(s, "sheet")) continue;
    std::string relationshipId;
    // The relationships namespace may be bound to any prefix; its id attribute is "<prefix>:id".
    for (pugi::xml_attribute a = s.first_attribute(); a; a = a.next_attribute()) {
      const std::string_view name = a.name();
      if (name.size() > 3 && name.substr(name.size() - 3) == ":id") relationshipId = a.value();
    }
    out.push_back({s.attribute("name").value(), s.attribute("sheetId").as_uint(), relationshipId});
  }
  return out;
}

std::string appendSheets(std::string_view workbookXml, std::string_view partName, const std::vector<SheetEntry>& sheets,
                         std::optional<std::int32_t> activeTab) {
  pugi::xml_document document = xml::parsePart(workbookXml, partName);
  pugi::xml_node root = document.document_element();
  pugi::xml_node list = xml::child(root, "sheets");
  if (!list) malformed(partName, "has no sheets element");
  std::uint32_t maxId = 0;
  for (pugi::xml_node s = list.first_child(); s; s = s.next_sibling()) {
    if (xml::isElement(s, "sheet")) maxId = std::max(maxId, s.attribute("sheetId").as_uint());
  }
  const std::string prefix = xml::prefixOf(list);
  for (const SheetEntry& entry : sheets) {
    pugi::xml_node added = list.append_child((prefix + "sheet").c_str());
    // The r prefix may be declared only on the sibling <sheet> elements; declaring it here
    // keeps the new element valid whatever the rest of the part does.
    added.append_attribute("xmlns:r").set_value(std::string(kOfficeRelNs).c_str());
    added.append_attribute("name").set_value(entry.name.c_str());
    added.append_attribute("sheetId").set_value(++maxId);
    added.append_attribute("r:id").set_value(entry.relationshipId.c_str());
  }
  if (activeTab) {
    pugi::xml_node view = xml::child(xml::child(root, "bookViews"), "workbookView");
    if (view) {
      pugi::xml_attribute tab = view.attribute("activeTab");
      if (!tab) tab = view.append_attribute("activeTab");
      tab.set_value(*activeTab);
      // The first visible tab must not lie after the active one.
      if (view.attribute("firstSheet").as_int() > *activeTab) view.attribute("firstSheet").set_value(*activeTab);
    }
  }
  return xml::serialise(document);
}

std::string freshWorkbook(const std::vector<SheetEntry>& sheets, std::int32_t activeTab) {
  std::string out(kDeclaration);
  out += "<workbook xmlns=\"" + std::string(kMainNs) + "\" xmlns:r=\"" + std::string(kOfficeRelNs) + "\">";
  out += "<bookViews><workbookView activeTab=\"" + std::to_string(activeTab) + "\"/></bookViews><sheets>";
  std::uint32_t id = 0;
  for (const SheetEntry& s : sheets) {
    out += "<sheet name=\"" + xml::attribute(s.name) + "\" sheetId=\"" + std::to_string(++id) + "\" r:id=\"" +
           xml::attribute(s.relationshipId) + "\"/>";
  }
  return out + "</sheets></workbook>";
}

std::optional<std::string> addSheetTitles(std::string_view appXml, const std::vector<std::string>& titles) {
  pugi::xml_document document = xml::parsePart(appXml, "docProps/app.xml");
  pugi::xml_node root = document.document_element();
  const pugi::xml_node headings = xml::child(xml::child(root, "HeadingPairs"), "vector");
  pugi::xml_node names = xml::child(xml::child(root, "TitlesOfParts"), "vector");
  if (!headings || !names || titles.empty()) return std::nullopt;

  // Headings alternate name and count; the titles list the parts heading by heading.
  std::int32_t before = 0;
  pugi::xml_node count;
  for (pugi::xml_node v = headings.first_child(); v; v = v.next_sibling()) {
    if (!xml::isElement(v, "variant")) continue;
    const pugi::xml_node label = v.first_child();
    pugi::xml_node amount = v.next_sibling();
    while (amount && amount.type() != pugi::node_element) amount = amount.next_sibling();
    if (!amount) break;
    const pugi::xml_node number = amount.first_child();
    if (std::string_view(label.child_value()) == "Worksheets") {
      count = number;
      break;
    }
    before += number.text().as_int();
    v = amount;
  }
  if (!count) return std::nullopt;
  const std::int32_t worksheets = count.text().as_int();
  pugi::xml_node last;
  std::int32_t index = 0;
  std::string titlePrefix;
  for (pugi::xml_node t = names.first_child(); t; t = t.next_sibling()) {
    if (t.type() != pugi::node_element) continue;
    titlePrefix = xml::prefixOf(t);
    if (index < before + worksheets) last = t;
    ++index;
  }
  if (titlePrefix.empty()) titlePrefix = xml::prefixOf(names);
  for (const std::string& title : titles) {
    pugi::xml_node added = last ? names.insert_child_after((titlePrefix + "lpstr").c_str(), last)
                                : names.prepend_child((titlePrefix + "lpstr").c_str());
    added.text().set(title.c_str());
    last = added;
  }
  count.text().set(worksheets + static_cast<std::int32_t>(titles.size()));
  names.attribute("size").set_value(names.attribute("size").as_int() + static_cast<std::int32_t>(titles.size()));
  return xml::serialise(document);
}

}  // namespace orv::package
