#include "package_sources.h"

#include <charconv>
#include <ostream>

#include <pugixml.hpp>

#include "frame/errors.h"
#include "frame/reference.h"
#include "workbook/in_memory_application.h"
#include "workbook/in_memory_workbook.h"
#include "workbook/in_memory_worksheet.h"
#include "xlsx/package_parts.h"
#include "xlsx/package_zip.h"
#include "xlsx/reader_workbook.h"
#include "xlsx/xml_names.h"

namespace orv::test {
namespace {

std::string numberText(double n) {
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, n).ptr;
  return std::string(buffer, end);
}

std::string valueText(const CellValue& v) {
  switch (v.kind()) {
    case CellValue::Kind::Number: return "number " + numberText(v.number());
    case CellValue::Kind::Text: return "text \"" + v.text() + "\"";
    case CellValue::Kind::Boolean: return v.boolean() ? "TRUE" : "FALSE";
    case CellValue::Kind::Error: return "error " + std::string(errorValueText(v.error()));
    case CellValue::Kind::Empty: break;
  }
  return "empty";
}

pugi::xml_document partXml(const ZipPackage& zip, const std::string& part) {
  pugi::xml_document doc;
  const std::optional<std::string> text = zip.read(part);
  if (!text || !doc.load_string(text->c_str())) throw std::runtime_error("no XML part " + part);
  return doc;
}

std::vector<package::Relationship> relationshipsOf(const ZipPackage& zip, const std::string& part) {
  const std::string rels = package::relsPartOf(part);
  const std::optional<std::string> text = zip.read(rels);
  return text ? package::readRelationships(*text, rels) : std::vector<package::Relationship>{};
}

std::string targetOf(const std::vector<package::Relationship>& rels, std::string_view id, const std::string& source) {
  for (const auto& r : rels) {
    if (r.id == id) return package::resolveTarget(source, r.target);
  }
  throw std::runtime_error("no relationship " + std::string(id) + " from " + source);
}

// A formula source in one spelling: a reference whatever quoting and marks the file used, a
// text constant ("Frequency", with "" for a quote) as its text; anything else as it is.
std::string normalReference(const std::string& text) {
  if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
    std::string constant;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
      constant += text[i];
      if (text[i] == '"') ++i;
    }
    return constant;
  }
  try {
    const ParsedReference parsed = parseReference(text);
    return parsed.sheet.value_or("") + "!" + absoluteAddress(parsed.areas);
  } catch (const ComponentError&) {
    return text;
  }
}

// The source of a data element (c:tx, c:cat, c:val, c:plus ...): its reference, or its literal points.
std::string sourceText(const pugi::xml_node& data) {
  for (const pugi::xml_node& n : data.children()) {
    if (const pugi::xml_node f = xml::child(n, "f")) return normalReference(f.child_value());
    const std::string_view kind = xml::localName(n);
    if (kind == "v") return n.child_value();
    if (kind == "numLit" || kind == "strLit") {
      std::string points;
      for (const pugi::xml_node& pt : n.children()) {
        if (xml::isElement(pt, "pt")) {
          points += (points.empty() ? "" : ";") + std::string(xml::child(pt, "v").child_value());
        }
      }
      return "lit{" + points + "}";
    }
  }
  return "?";
}

std::string seriesLine(std::string_view group, const pugi::xml_node& ser) {
  std::string line(group);
  for (const char* name : {"tx", "cat", "val", "xVal", "yVal"}) {
    if (const pugi::xml_node data = xml::child(ser, name)) line += " " + std::string(name) + "=" + sourceText(data);
  }
  for (const pugi::xml_node& bars : ser.children()) {
    if (!xml::isElement(bars, "errBars")) continue;
    for (const char* name : {"plus", "minus"}) {
      if (const pugi::xml_node data = xml::child(bars, name)) line += " " + std::string(name) + "=" + sourceText(data);
    }
  }
  return line;
}

std::string allText(const pugi::xml_node& node) {
  std::string text;
  for (const pugi::xpath_node& t : node.select_nodes(".//*[local-name()='t']")) text += t.node().child_value();
  return text;
}

ChartSources readChart(const ZipPackage& zip, const std::string& part, std::string place) {
  const pugi::xml_document doc = partXml(zip, part);
  const pugi::xml_node chart = xml::child(doc.document_element(), "chart");
  ChartSources sources{std::move(place), allText(xml::child(chart, "title")), {}};
  for (const pugi::xml_node& group : xml::child(chart, "plotArea").children()) {
    const std::string_view kind = xml::localName(group);
    if (!kind.ends_with("Chart")) continue;
    for (const pugi::xml_node& ser : group.children()) {
      if (xml::isElement(ser, "ser")) sources.series.push_back(seriesLine(kind, ser));
    }
  }
  return sources;
}

// The charts of one drawing part in anchor order, each placed by the cell its anchor starts in.
void readDrawing(const ZipPackage& zip, const std::string& part, const std::string& sheet,
                 std::vector<ChartSources>& out) {
  const pugi::xml_document doc = partXml(zip, part);
  const auto rels = relationshipsOf(zip, part);
  for (const pugi::xml_node& anchor : doc.document_element().children()) {
    const pugi::xml_node from = xml::child(anchor, "from");
    const std::string place = sheet + "!" + columnLetters(std::stoi(xml::child(from, "col").child_value()) + 1) +
                              std::to_string(std::stoi(xml::child(from, "row").child_value()) + 1);
    for (const pugi::xpath_node& c : anchor.select_nodes(".//*[local-name()='chart']")) {
      const pugi::xml_attribute id = xml::attributeNamed(c.node(), "id");
      out.push_back(readChart(zip, targetOf(rels, id.value(), part), place));
    }
  }
}

}  // namespace

std::vector<std::string> cellLines(const std::filesystem::path& file) {
  InMemoryApplication app;
  return cellLines(openWorkbookFile(app, file).book);
}

std::vector<std::string> cellLines(InMemoryWorkbook& book) {
  std::vector<std::string> lines;
  for (std::int32_t i = 1; i <= book.WorksheetsCount(); ++i) {
    const InMemoryWorksheet& sheet = book.Worksheets(i);
    const std::optional<CellBlock> used = sheet.usedBlock();
    if (!used) continue;
    for (std::int32_t r = used->top; r <= used->bottom; ++r) {
      for (std::int32_t c = used->left; c <= used->right; ++c) {
        const CellValue v = sheet.cellValue(r, c);
        if (!v.isEmpty()) {
          lines.push_back(sheet.Name() + "!" + columnLetters(c) + std::to_string(r) + " " + valueText(v));
        }
      }
    }
  }
  return lines;
}

std::vector<ChartSources> chartSources(const std::filesystem::path& file) {
  const ZipPackage zip = ZipPackage::open(file);
  std::string workbookPart;
  for (const auto& r : relationshipsOf(zip, "")) {
    if (r.type.ends_with("/officeDocument")) workbookPart = package::resolveTarget("", r.target);
  }
  const auto workbookRels = relationshipsOf(zip, workbookPart);
  std::vector<ChartSources> charts;
  for (const auto& sheet : package::readSheets(*zip.read(workbookPart), workbookPart)) {
    const std::string sheetPart = targetOf(workbookRels, sheet.relationshipId, workbookPart);
    for (const auto& r : relationshipsOf(zip, sheetPart)) {
      if (r.type.ends_with("/drawing")) {
        readDrawing(zip, package::resolveTarget(sheetPart, r.target), sheet.name, charts);
      }
    }
  }
  return charts;
}

std::ostream& operator<<(std::ostream& out, const ChartSources& chart) {
  out << chart.place << " \"" << chart.title << "\"";
  for (const std::string& s : chart.series) out << "\n    " << s;
  return out;
}

}  // namespace orv::test
