#include "xlsx/writer_styles.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "frame/errors.h"
#include "xlsx/writer_xml.h"
#include "xlsx/xml_names.h"

namespace orv {
namespace {

constexpr std::string_view kPartName = "xl/styles.xml";

// Number formats every reader knows by id; writing them as custom codes would work too, but
// the ids are what the host itself stores.
std::optional<std::uint32_t> builtInNumFmt(std::string_view code) {
  static constexpr std::array<std::pair<std::string_view, std::uint32_t>, 11> kBuiltIn{{
      {"General", 0},
      {"0", 1},
      {"0.00", 2},
      {"#,##0", 3},
      {"#,##0.00", 4},
      {"0%", 9},
      {"0.00%", 10},
      {"0.00E+00", 11},
      {"# ?/?", 12},
      {"# ?\?/?\?", 13},
      {"@", 49},
  }};
  for (const auto& [text, id] : kBuiltIn) {
    if (text == code) return id;
  }
  return std::nullopt;
}

bool isPaletteIndex(std::int32_t index) { return index >= 1 && index <= 56; }

std::string indexedColor(std::int32_t colorIndex) { return std::to_string(colorIndex + 7); }

const char* alignmentName(HAlign a) {
  switch (a) {
    case HAlign::Left: return "left";
    case HAlign::Center: return "center";
    case HAlign::Right: return "right";
    case HAlign::General: break;
  }
  return "general";
}

std::uint32_t elementCount(const pugi::xml_node& parent) {
  std::uint32_t n = 0;
  for (pugi::xml_node c = parent.first_child(); c; c = c.next_sibling()) {
    if (c.type() == pugi::node_element) ++n;
  }
  return n;
}

void setCount(pugi::xml_node parent) {
  pugi::xml_attribute count = parent.attribute("count");
  if (!count) count = parent.append_attribute("count");
  count.set_value(elementCount(parent));
}

}  // namespace

std::string StyleSheet::freshXml() {
  return R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
         "\n"
         R"(<styleSheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">)"
         R"(<fonts count="1"><font><sz val="11"/><name val="Calibri"/><family val="2"/></font></fonts>)"
         R"(<fills count="2"><fill><patternFill patternType="none"/></fill>)"
         R"(<fill><patternFill patternType="gray125"/></fill></fills>)"
         R"(<borders count="1"><border><left/><right/><top/><bottom/><diagonal/></border></borders>)"
         R"(<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>)"
         R"(<cellXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/></cellXfs>)"
         R"(<cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles>)"
         R"(</styleSheet>)";
}

StyleSheet::StyleSheet(std::string_view xml) : document_(xml::parsePart(xml, kPartName)) {
  root_ = document_.document_element();
  if (xml::localName(root_) != "styleSheet") {
    raise(err::kFileUnwritable, "The styles part of the original workbook has no styleSheet");
  }
  prefix_ = xml::prefixOf(root_);
  if (pugi::xml_node numFmts = xml::child(root_, "numFmts")) {
    for (pugi::xml_node n = numFmts.first_child(); n; n = n.next_sibling()) {
      if (xml::localName(n) == "numFmt") {
        numFmts_.emplace(n.attribute("formatCode").value(), n.attribute("numFmtId").as_uint());
      }
    }
  }
}

pugi::xml_node StyleSheet::append(pugi::xml_node parent, std::string_view local) {
  changed_ = true;
  return parent.append_child((prefix_ + std::string(local)).c_str());
}

// styleSheet's children are a strict sequence; a missing section goes before the first
// present one that must follow it.
pugi::xml_node StyleSheet::section(std::string_view local) {
  static constexpr std::array<std::string_view, 11> kOrder{"numFmts",      "fonts",   "fills",      "borders",
                                                           "cellStyleXfs", "cellXfs", "cellStyles", "dxfs",
                                                           "tableStyles",  "colors",  "extLst"};
  if (pugi::xml_node found = xml::child(root_, local)) return found;
  const auto position = std::find(kOrder.begin(), kOrder.end(), local);
  pugi::xml_node before;
  for (auto later = position + 1; later != kOrder.end() && !before; ++later) {
    before = xml::child(root_, *later);
  }
  changed_ = true;
  const std::string name = prefix_ + std::string(local);
  return before ? root_.insert_child_before(name.c_str(), before) : root_.append_child(name.c_str());
}

std::uint32_t StyleSheet::numFmtFor(const std::string& code) {
  if (const auto id = builtInNumFmt(code)) return *id;
  if (const auto known = numFmts_.find(code); known != numFmts_.end()) return known->second;
  std::uint32_t id = 164;
  for (const auto& [text, used] : numFmts_) id = std::max(id, used + 1);
  pugi::xml_node list = section("numFmts");
  pugi::xml_node entry = append(list, "numFmt");
  entry.append_attribute("numFmtId").set_value(id);
  entry.append_attribute("formatCode").set_value(code.c_str());
  setCount(list);
  numFmts_.emplace(code, id);
  return id;
}

std::uint32_t StyleSheet::fontFor(const CellFormat& format) {
  const std::int32_t color = isPaletteIndex(format.fontColorIndex) ? format.fontColorIndex : 0;
  const auto key = std::make_tuple(format.bold, format.fontSize, color);
  if (const auto known = fonts_.find(key); known != fonts_.end()) return known->second;

  pugi::xml_node list = section("fonts");
  pugi::xml_node base = xml::child(list, "font");
  pugi::xml_node font = base ? list.append_copy(base) : append(list, "font");
  changed_ = true;
  // CT_Font is an unordered choice; replace only what the model decides.
  for (std::string_view local : {"b", "sz", "color"}) {
    while (pugi::xml_node old = xml::child(font, local)) font.remove_child(old);
  }
  if (color != 0) {
    pugi::xml_node c = font.prepend_child((prefix_ + "color").c_str());
    c.append_attribute("indexed").set_value(indexedColor(color).c_str());
  } else if (pugi::xml_node baseColor = xml::child(base, "color")) {
    font.prepend_copy(baseColor);
  }
  font.prepend_child((prefix_ + "sz").c_str()).append_attribute("val").set_value(xml::number(format.fontSize).c_str());
  if (format.bold) font.prepend_child((prefix_ + "b").c_str());
  setCount(list);
  const std::uint32_t id = elementCount(list) - 1;
  fonts_.emplace(key, id);
  return id;
}

std::uint32_t StyleSheet::fillFor(std::int32_t colorIndex) {
  if (!isPaletteIndex(colorIndex)) return 0;
  if (const auto known = fills_.find(colorIndex); known != fills_.end()) return known->second;
  pugi::xml_node list = section("fills");
  pugi::xml_node pattern = append(append(list, "fill"), "patternFill");
  pattern.append_attribute("patternType").set_value("solid");
  append(pattern, "fgColor").append_attribute("indexed").set_value(indexedColor(colorIndex).c_str());
  append(pattern, "bgColor").append_attribute("indexed").set_value("64");
  setCount(list);
  const std::uint32_t id = elementCount(list) - 1;
  fills_.emplace(colorIndex, id);
  return id;
}

std::uint32_t StyleSheet::xfFor(const CellFormat& format) {
  if (format == CellFormat{}) return 0;
  const auto key = std::make_pair(
      format.numberFormat, std::make_tuple(format.bold, format.fontSize, format.fontColorIndex,
                                           format.interiorColorIndex, static_cast<int>(format.horizontalAlignment)));
  if (const auto known = xfs_.find(key); known != xfs_.end()) return known->second;

  const std::uint32_t numFmt = numFmtFor(format.numberFormat);
  const std::uint32_t font = fontFor(format);
  const std::uint32_t fill = fillFor(format.interiorColorIndex);
  pugi::xml_node list = section("cellXfs");
  pugi::xml_node xf = append(list, "xf");
  xf.append_attribute("numFmtId").set_value(numFmt);
  xf.append_attribute("fontId").set_value(font);
  xf.append_attribute("fillId").set_value(fill);
  xf.append_attribute("borderId").set_value(0);
  xf.append_attribute("xfId").set_value(0);
  if (numFmt != 0) xf.append_attribute("applyNumberFormat").set_value(1);
  xf.append_attribute("applyFont").set_value(1);
  if (fill != 0) xf.append_attribute("applyFill").set_value(1);
  if (format.horizontalAlignment != HAlign::General) {
    xf.append_attribute("applyAlignment").set_value(1);
    append(xf, "alignment").append_attribute("horizontal").set_value(alignmentName(format.horizontalAlignment));
  }
  setCount(list);
  const std::uint32_t id = elementCount(list) - 1;
  xfs_.emplace(key, id);
  return id;
}

std::string StyleSheet::xml() const { return xml::serialise(document_); }

}  // namespace orv
