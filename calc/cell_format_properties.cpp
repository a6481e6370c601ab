#include "calc/cell_format_properties.h"

#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/lang/Locale.hpp>
#include <com/sun/star/table/CellHoriJustify.hpp>
#include <com/sun/star/util/NumberFormat.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>

#include "frame/palette.h"

namespace orv::calc {
namespace {

using css::table::CellHoriJustify;
using css::uno::Any;

// Format codes are the component's en-US ones, whatever the office's own language.
css::lang::Locale english() { return css::lang::Locale("en", "US", ""); }

constexpr sal_Int32 kAutomaticColor = -1;
const float kBoldFrom = css::awt::FontWeight::BOLD;

sal_Int32 colorOf(std::int32_t index) {
  const std::optional<std::uint32_t> rgb = paletteColor(index);
  return rgb ? static_cast<sal_Int32>(*rgb) : kAutomaticColor;
}

CellHoriJustify justifyOf(HAlign align) {
  switch (align) {
    case HAlign::Left: return css::table::CellHoriJustify_LEFT;
    case HAlign::Center: return css::table::CellHoriJustify_CENTER;
    case HAlign::Right: return css::table::CellHoriJustify_RIGHT;
    case HAlign::General: break;
  }
  return css::table::CellHoriJustify_STANDARD;
}

HAlign alignOf(CellHoriJustify justify) {
  switch (justify) {
    case css::table::CellHoriJustify_LEFT: return HAlign::Left;
    case css::table::CellHoriJustify_CENTER: return HAlign::Center;
    case css::table::CellHoriJustify_RIGHT: return HAlign::Right;
    default: return HAlign::General;
  }
}

}  // namespace

NumberFormatTable::NumberFormatTable(const Reference<css::uno::XInterface>& document) {
  remote("find the document's number formats", [&] {
    const Reference<css::util::XNumberFormatsSupplier> supplier(document, css::uno::UNO_QUERY_THROW);
    formats_ = supplier->getNumberFormats();
    types_.set(formats_, css::uno::UNO_QUERY_THROW);
  });
}

sal_Int32 NumberFormatTable::keyOf(const std::string& code) {
  const auto found = keys_.find(code);
  if (found != keys_.end()) return found->second;
  const OUString text = toUno(code);
  sal_Int32 key = formats_->queryKey(text, english(), false);
  if (key < 0) key = formats_->addNew(text, english());
  keys_.emplace(code, key);
  codes_.emplace(key, code);
  return key;
}

std::string NumberFormatTable::codeOf(sal_Int32 key) {
  const auto found = codes_.find(key);
  if (found != codes_.end()) return found->second;
  // The same format in en-US terms: the document's own language may call "General" otherwise.
  const sal_Int32 english = types_->getFormatForLocale(key, calc::english());
  OUString text;
  formats_->getByKey(english)->getPropertyValue("FormatString") >>= text;
  std::string code = fromUno(text);
  codes_.emplace(key, code);
  return code;
}

sal_Int16 NumberFormatTable::typeOf(sal_Int32 key) {
  const auto found = typesByKey_.find(key);
  if (found != typesByKey_.end()) return found->second;
  sal_Int16 type = 0;
  formats_->getByKey(key)->getPropertyValue("Type") >>= type;
  typesByKey_.emplace(key, type);
  return type;
}

sal_Int32 NumberFormatTable::booleanKey() {
  return types_->getStandardFormat(css::util::NumberFormat::LOGICAL, english());
}

const css::uno::Sequence<OUString>& formatPropertyNames() {
  static const css::uno::Sequence<OUString> names = [] {
    css::uno::Sequence<OUString> n(7);
    OUString* p = n.getArray();
    p[0] = "CellBackColor";
    p[1] = "CharColor";
    p[2] = "CharHeight";
    p[3] = "CharWeight";
    p[4] = "HoriJustify";
    p[5] = "IsCellBackgroundTransparent";
    p[6] = "NumberFormat";
    return n;
  }();
  return names;
}

css::uno::Sequence<Any> formatValues(const CellFormat& format, NumberFormatTable& numbers) {
  const bool transparent = !paletteColor(format.interiorColorIndex).has_value();
  css::uno::Sequence<Any> values(7);
  Any* v = values.getArray();
  v[0] <<= colorOf(format.interiorColorIndex);
  v[1] <<= colorOf(format.fontColorIndex);
  v[2] <<= static_cast<float>(format.fontSize);
  v[3] <<= format.bold ? kBoldFrom : static_cast<float>(css::awt::FontWeight::NORMAL);
  v[4] <<= justifyOf(format.horizontalAlignment);
  v[5] <<= transparent;
  v[6] <<= numbers.keyOf(format.numberFormat);
  return values;
}

CellFormat formatFrom(const css::uno::Sequence<Any>& values, NumberFormatTable& numbers) {
  CellFormat f;
  sal_Int32 back = kAutomaticColor, font = kAutomaticColor, key = 0;
  float height = 0, weight = 0;
  CellHoriJustify justify = css::table::CellHoriJustify_STANDARD;
  bool transparent = true;
  values[0] >>= back;
  values[1] >>= font;
  values[2] >>= height;
  values[3] >>= weight;
  values[4] >>= justify;
  values[5] >>= transparent;
  values[6] >>= key;
  f.interiorColorIndex =
      transparent || back < 0 ? kColorIndexNone : nearestPaletteIndex(static_cast<std::uint32_t>(back));
  f.fontColorIndex = font < 0 ? kColorIndexAutomatic : nearestPaletteIndex(static_cast<std::uint32_t>(font));
  f.fontSize = height;
  f.bold = weight >= kBoldFrom;
  f.horizontalAlignment = alignOf(justify);
  f.numberFormat = numbers.codeOf(key);
  return f;
}

void patchProperties(const FormatPatch& patch, NumberFormatTable& numbers, std::vector<OUString>& names,
                     std::vector<Any>& values) {
  const auto add = [&](const char* name, Any value) {
    names.push_back(OUString::createFromAscii(name));
    values.push_back(std::move(value));
  };
  if (patch.interiorColorIndex) {
    const bool transparent = !paletteColor(*patch.interiorColorIndex).has_value();
    add("CellBackColor", Any(colorOf(*patch.interiorColorIndex)));
    add("IsCellBackgroundTransparent", Any(transparent));
  }
  if (patch.fontColorIndex) add("CharColor", Any(colorOf(*patch.fontColorIndex)));
  if (patch.fontSize) add("CharHeight", Any(static_cast<float>(*patch.fontSize)));
  if (patch.bold) add("CharWeight", Any(*patch.bold ? kBoldFrom : static_cast<float>(css::awt::FontWeight::NORMAL)));
  if (patch.horizontalAlignment) add("HoriJustify", Any(justifyOf(*patch.horizontalAlignment)));
  if (patch.numberFormat) add("NumberFormat", Any(numbers.keyOf(*patch.numberFormat)));
}

}  // namespace orv::calc
