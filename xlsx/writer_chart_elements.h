#pragma once
// The small pieces of chart XML every chart element is made of: fills and lines of shapes,
// fonts of texts, titles and value-only elements. Prefixes are fixed: "c:" for the chart
// namespace and "a:" for DrawingML, both declared on the chart part's root.
//
// Units: colours are RGB hex ("C0C0C0"), line widths EMU, font sizes points (written in
// hundredths). Boolean elements always carry an explicit val: readers disagree on the default.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "workbook/chart_model.h"

namespace orv::chartxml {

// 0.75 pt, the host's thin line.
inline constexpr std::int32_t kThinLine = 9525;

// <c:NAME val="VALUE"/>
std::string valueElement(std::string_view name, std::string_view value);
// <c:NAME val="1"/> or val="0".
std::string boolElement(std::string_view name, bool value);

// <a:solidFill><a:srgbClr val="RGB"/></a:solidFill>
std::string solidFill(std::string_view rgb);
std::string noFill();
// <a:ln w="W">solid fill</a:ln>, or <a:ln><a:noFill/></a:ln> without a colour.
std::string line(const std::optional<std::string>& rgb, std::int32_t widthEmu = kThinLine);
// <c:spPr>...</c:spPr> around fill and line markup (either may be empty).
std::string shapeProperties(std::string_view fill, std::string_view lineXml);

// "1000" for 10 pt.
std::string fontSize(double points);
// <c:txPr> giving the default font of an element (tick labels, the whole chart).
std::string textProperties(const FontModel& font);
// <c:title> with one run of text; vertical titles (of side axes) read bottom to top.
std::string title(std::string_view text, const FontModel& font, bool vertical);

}  // namespace orv::chartxml
