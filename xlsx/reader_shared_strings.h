#pragma once
// The shared-string table of a workbook (xl/sharedStrings.xml): one text per <si>, in order.
// Rich-text items become their runs' texts joined; phonetic hints are left out; _xHHHH_
// escapes are undone. The count attributes are not trusted: the items present are the table.
// Errors (kFileUnreadable via raiseDamaged): XML that is not well-formed or nests too deep
// (reader_xml.h), more than `maxStrings` items, an item longer than `maxStringBytes` after
// decoding; each refusal names the limit.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

// `xml` is parsed in place and left unusable.
std::vector<std::string> parseSharedStrings(std::string& xml, std::string_view partName,
                                            std::uint64_t maxStrings = 50'000'000,
                                            std::uint64_t maxStringBytes = 4 * 32767);

}  // namespace orv
