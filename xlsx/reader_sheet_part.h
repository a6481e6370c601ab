#pragma once
// Reads one worksheet part of a package into a sheet: the part is inflated on a second thread
// while this one scans what has arrived, so the two overlap and the inflated XML is never held
// whole (at most a few pieces of ZipInput::kPieceBytes wait between the two).
//
// Errors are those of ZipInput::read and readSheetXml. When both the archive and the XML are
// damaged, the archive's error is the one raised, as when the part was inflated first and
// scanned after: a scan that fails lets the inflating run to its end to find out.
//
// False, with the sheet untouched, when the package has no such part.

#include <string_view>

namespace orv {

class InMemoryWorksheet;
class ZipInput;
struct SheetReadOptions;

bool readSheetPart(ZipInput& zip, std::string_view part, InMemoryWorksheet& sheet, const SheetReadOptions& options);

}  // namespace orv
