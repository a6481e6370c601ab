#include "xlsx/writer_drawing_package.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "frame/errors.h"
#include "xlsx/package_parts.h"
#include "xlsx/writer_chart_part.h"
#include "xlsx/writer_drawing.h"
#include "xlsx/writer_xml.h"
#include "xlsx/xml_names.h"

namespace orv {
namespace {

constexpr std::string_view kOfficeRelNs = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

std::string lower(std::string_view s) {
  std::string out(s);
  std::transform(out.begin(), out.end(), out.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return out;
}

std::string relationshipType(std::string_view name) {
  return std::string(package::kRelationshipBase) + std::string(name);
}

// Children of <worksheet> that come after <drawing> in the schema's sequence.
constexpr std::array<std::string_view, 9> kAfterDrawing = {"legacyDrawing",   "legacyDrawingHF", "drawingHF",
                                                           "picture",         "oleObjects",      "controls",
                                                           "webPublishItems", "tableParts",      "extLst"};

// The r:id attribute of a <drawing>, whatever prefix the part gives that namespace.
pugi::xml_attribute relationshipIdOf(const pugi::xml_node& drawing) {
  for (pugi::xml_attribute a = drawing.first_attribute(); a; a = a.next_attribute()) {
    const std::string_view name = a.name();
    if (name.size() > 3 && name.substr(name.size() - 3) == ":id") return a;
  }
  return {};
}

std::string withDrawing(pugi::xml_document& document, const std::string& relationshipId) {
  pugi::xml_node root = document.document_element();
  // A <drawing> whose relationship leads nowhere is pointed at the new drawing: a sheet has one.
  if (pugi::xml_node stale = xml::child(root, "drawing")) {
    pugi::xml_attribute id = relationshipIdOf(stale);
    if (!id) {
      stale.append_attribute("xmlns:r").set_value(std::string(kOfficeRelNs).c_str());
      id = stale.append_attribute("r:id");
    }
    id.set_value(relationshipId.c_str());
    return xml::serialise(document);
  }
  pugi::xml_node before;
  for (pugi::xml_node n = root.first_child(); n && !before; n = n.next_sibling()) {
    if (n.type() != pugi::node_element) continue;
    if (std::find(kAfterDrawing.begin(), kAfterDrawing.end(), xml::localName(n)) != kAfterDrawing.end()) before = n;
  }
  const std::string name = xml::prefixOf(root) + "drawing";
  pugi::xml_node drawing = before ? root.insert_child_before(name.c_str(), before) : root.append_child(name.c_str());
  drawing.append_attribute("xmlns:r").set_value(std::string(kOfficeRelNs).c_str());
  drawing.append_attribute("r:id").set_value(relationshipId.c_str());
  return xml::serialise(document);
}

std::string addRelationship(PartSet& parts, const std::string& source, std::string_view type,
                            const std::string& target) {
  const std::string relsPart = package::relsPartOf(source);
  const std::string rels = parts.read(relsPart).value_or(package::freshRelationships({}));
  std::string id;
  parts.write(relsPart,
              package::addRelationship(rels, relsPart, relationshipType(type), relativeTarget(source, target), id));
  return id;
}

// The existing drawing part of the sheet, if its <drawing> leads to one.
std::optional<std::string> existingDrawing(const PartSet& parts, const std::string& sheetPart,
                                           const pugi::xml_node& worksheet) {
  const pugi::xml_attribute idAttribute = relationshipIdOf(xml::child(worksheet, "drawing"));
  if (!idAttribute) return std::nullopt;
  const std::string id = idAttribute.value();
  const std::string relsPart = package::relsPartOf(sheetPart);
  const std::optional<std::string> rels = parts.read(relsPart);
  if (!rels) return std::nullopt;
  for (const package::Relationship& r : package::readRelationships(*rels, relsPart)) {
    if (r.id != id || r.external) continue;
    const std::string part = package::resolveTarget(sheetPart, r.target);
    if (parts.read(part)) return part;
  }
  return std::nullopt;
}

}  // namespace

PartSet::PartSet(Reader original, std::map<std::string, std::string>& edited, Overrides& overrides,
                 const std::vector<std::string>& existingNames)
    : original_(std::move(original)), edited_(edited), overrides_(overrides) {
  for (const std::string& name : existingNames) lowerNames_.insert(lower(name));
  for (const auto& [name, content] : edited_) lowerNames_.insert(lower(name));
}

std::optional<std::string> PartSet::read(const std::string& part) const {
  if (const auto found = edited_.find(part); found != edited_.end()) return found->second;
  return original_ ? original_(part) : std::nullopt;
}

void PartSet::write(const std::string& part, std::string content, std::optional<std::string_view> contentType) {
  lowerNames_.insert(lower(part));
  edited_[part] = std::move(content);
  if (contentType) overrides_.emplace_back(part, std::string(*contentType));
}

std::string PartSet::freshName(std::string_view folder, std::string_view stem) {
  for (std::int32_t n = 1;; ++n) {
    std::string candidate = std::string(folder) + std::string(stem) + std::to_string(n) + ".xml";
    if (lowerNames_.insert(lower(candidate)).second) return candidate;
  }
}

std::string relativeTarget(std::string_view source, std::string_view target) {
  std::size_t common = 0;  // length of the shared folder prefix, up to and including a '/'
  for (std::size_t i = 0; i < source.size() && i < target.size() && source[i] == target[i]; ++i) {
    if (source[i] == '/') common = i + 1;
  }
  std::string out;
  for (std::size_t i = common; i < source.size(); ++i) {
    if (source[i] == '/') out += "../";
  }
  return out + std::string(target.substr(common));
}

void attachCharts(PartSet& parts, const std::string& sheetPart, const SheetGeometry& geometry,
                  const std::vector<ChartModel>& charts) {
  if (charts.empty()) return;
  const std::optional<std::string> sheetXml = parts.read(sheetPart);
  if (!sheetXml) raise(err::kFileUnwritable, "The workbook has no sheet part \"" + sheetPart + "\"");
  pugi::xml_document sheet = xml::parsePart(*sheetXml, sheetPart);

  const std::optional<std::string> existing = existingDrawing(parts, sheetPart, sheet.document_element());
  const std::string drawingPart = existing ? *existing : parts.freshName("xl/drawings/", "drawing");

  std::vector<DrawnChart> drawn;
  for (const ChartModel& chart : charts) {
    const std::string chartPart = parts.freshName("xl/charts/", "chart");
    parts.write(chartPart, chartPartXml(chart), kChartContentType);
    const std::string id = addRelationship(parts, drawingPart, "chart", chartPart);
    drawn.push_back({anchorFor(geometry, chart.left, chart.top, chart.width, chart.height), chart.name, id});
  }
  if (existing) {
    parts.write(drawingPart, drawingWithCharts(*parts.read(drawingPart), drawingPart, drawn));
    return;
  }
  parts.write(drawingPart, freshDrawingXml(drawn), kDrawingContentType);
  parts.write(sheetPart, withDrawing(sheet, addRelationship(parts, sheetPart, "drawing", drawingPart)));
}

}  // namespace orv
