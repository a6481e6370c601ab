#pragma once
// One <c> element of sheetData for a model cell.
//
// Numbers in shortest round-trip form without t; texts as inline strings (t="inlineStr", so
// the package's shared-string table is never touched), with xml:space="preserve" when blanks
// lead or trail; Booleans t="b" 1/0; error values t="e" with their text. An empty value gives a
// styled blank <c r s/>. Style 0 is left out (it is the default). `prefix` is the main
// namespace prefix of the part the cell goes into ("" or "x:").

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/cell_value.h"

namespace orv {

std::string cellXml(std::int32_t row, std::int32_t column, const CellValue& value, std::uint32_t style,
                    std::string_view prefix = {});
// The same, appended to `out`: a sheet writes millions of these.
void appendCellXml(std::string& out, std::int32_t row, std::int32_t column, const CellValue& value, std::uint32_t style,
                   std::string_view prefix = {});

}  // namespace orv
