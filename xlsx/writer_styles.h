#pragma once
// The styles part of a package, extended with the cell formats of the host model.
//
// Formats are only ever appended: existing entries of numFmts, fonts, fills and cellXfs keep
// their positions, because every sheet of the package refers to cellXfs by index. A new font is
// a copy of the workbook's font 0 (name, family, scheme kept) with the model's size, bold flag and
// colour; colours are palette indices (host colour index n -> indexed n + 7, the palette's first
// eight entries being fixed). Built-in number formats are referred to by their ids; other codes
// reuse a custom entry with the same code or get the next free id from 164 on.
//
// The plain CellFormat{} maps to xf 0, the workbook's Normal style.

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include <pugixml.hpp>

#include "frame/cell_format.h"

namespace orv {

class StyleSheet {
 public:
  // The styles part of a new workbook: Calibri 11, the two reserved fills, one empty border.
  static std::string freshXml();

  // `xml` is the package's styles part (or freshXml()); malformed XML raises kFileUnwritable.
  explicit StyleSheet(std::string_view xml);

  // The cellXfs index that gives a cell this format; equal formats share one entry.
  std::uint32_t xfFor(const CellFormat& format);
  // True once an entry was appended (an untouched styles part is copied as it was).
  bool changed() const { return changed_; }
  std::string xml() const;

 private:
  std::uint32_t numFmtFor(const std::string& code);
  std::uint32_t fontFor(const CellFormat& format);
  std::uint32_t fillFor(std::int32_t colorIndex);
  pugi::xml_node section(std::string_view local);  // created in schema order when absent
  pugi::xml_node append(pugi::xml_node parent, std::string_view local);

  pugi::xml_document document_;
  pugi::xml_node root_;
  std::string prefix_;  // of the main namespace in this part ("" or "x:")
  bool changed_ = false;
  std::map<std::string, std::uint32_t> numFmts_;  // code -> id, custom entries of the part
  std::map<std::tuple<bool, double, std::int32_t>, std::uint32_t> fonts_;
  std::map<std::int32_t, std::uint32_t> fills_;
  std::map<std::pair<std::string, std::tuple<bool, double, std::int32_t, std::int32_t, int>>, std::uint32_t> xfs_;
};

}  // namespace orv
