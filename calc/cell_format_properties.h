#pragma once
// The component's cell formats as the office's cell properties, both ways.
//
//   number format   NumberFormat, a key of the document's format table; texts are the en-US
//                   format codes ("General", "0", "<0"), added to the table when new
//   bold            CharWeight (bold from 150 up)
//   font size       CharHeight, points
//   font colour     CharColor: automatic is -1, a palette index its RGB colour
//   fill            CellBackColor and IsCellBackgroundTransparent: none is transparent
//   alignment       HoriJustify: general, left, centre, right (the office's justified and
//                   repeated alignments read as general)
//
// Colours the office holds outside the palette read as the nearest palette index.

#include <com/sun/star/beans/XMultiPropertySet.hpp>
#include <com/sun/star/util/XNumberFormatTypes.hpp>
#include <com/sun/star/util/XNumberFormats.hpp>

#include <map>
#include <string>
#include <vector>

#include "calc/uno_support.h"
#include "frame/cell_format.h"

namespace orv::calc {

using css::uno::Reference;

// The format codes of one document, by key and by text.
class NumberFormatTable {
 public:
  explicit NumberFormatTable(const Reference<css::uno::XInterface>& document);
  sal_Int32 keyOf(const std::string& code);
  std::string codeOf(sal_Int32 key);
  // The type of a key (com.sun.star.util.NumberFormat flags).
  sal_Int16 typeOf(sal_Int32 key);
  // A key of the Boolean format, for writing TRUE and FALSE.
  sal_Int32 booleanKey();

 private:
  Reference<css::util::XNumberFormats> formats_;
  Reference<css::util::XNumberFormatTypes> types_;
  std::map<std::string, sal_Int32> keys_;
  std::map<sal_Int32, std::string> codes_;
  std::map<sal_Int32, sal_Int16> typesByKey_;
};

// The property names, in the order that formatValues and formatFrom use.
const css::uno::Sequence<OUString>& formatPropertyNames();
css::uno::Sequence<css::uno::Any> formatValues(const CellFormat& format, NumberFormatTable& numbers);
CellFormat formatFrom(const css::uno::Sequence<css::uno::Any>& values, NumberFormatTable& numbers);

// The names and values of the fields a patch sets.
void patchProperties(const FormatPatch& patch, NumberFormatTable& numbers, std::vector<OUString>& names,
                     std::vector<css::uno::Any>& values);

}  // namespace orv::calc
