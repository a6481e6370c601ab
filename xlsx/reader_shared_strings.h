#pragma once
// The shared-string table of a workbook (xl/sharedStrings.xml): one text per <si>, in order.
// Rich-text items become their runs' texts joined; phonetic hints are left out; _xHHHH_
// escapes are undone. The count attributes are not trusted: the items present are the table.
// XML that is not well-formed raises kFileUnreadable (via raiseDamaged).

#include <string>
#include <string_view>
#include <vector>

namespace orv {

// `xml` is parsed in place and left unusable.
std::vector<std::string> parseSharedStrings(std::string& xml, std::string_view partName);

}  // namespace orv
