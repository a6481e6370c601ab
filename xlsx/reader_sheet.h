#pragma once
// Reads one worksheet part into a sheet of the in-memory host: cell values and the row heights
// and column widths the part sets.
//
// The part is scanned once, front to back, without building a document tree, so a sheet of
// 32767 rows by 100 columns costs time and memory linear in its size. Cells keep their file
// types: numbers, shared strings (index into `sharedStrings`), inline strings (rich text runs
// joined), Booleans, error values, ISO dates (as serial numbers in the workbook's date system),
// and the cached results of formulas; a formula without a cached result leaves its cell empty
// (and is noted, as are numbers in date formats, when SheetReadOptions asks for notes).
// Cells and rows without an `r` attribute follow the one before them; namespace prefixes are
// ignored. The declared <dimension> is not used: only the cells present are stored.
//
// Errors (kFileUnreadable via raiseDamaged, the detail naming the sheet): XML that is not
// well-formed or is cut short, a cell reference off the sheet, a value that does not fit its
// type, a shared-string index out of range, elements nested deeper than kMaxXmlDepth, and a
// sheet past a limit of SheetReadOptions: stored cells that would need more than `maxStoredCells`
// slots (the host stores each column densely from its first to its last cell), a text longer than
// `maxStringBytes`, texts beyond `maxTextBytes` in all.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

class InMemoryWorksheet;

// Cells the reading noticed, for a caller that warns about them, each list in file order:
// formulas without a saved result (their cells stay empty), and numbers that the file shows as
// dates or times (stored as the serial day numbers they are).
struct SheetNotes {
  struct Cell {
    std::int32_t row;
    std::int32_t column;
  };
  std::vector<Cell> formulasWithoutValue;
  std::vector<Cell> dateCells;
};

struct SheetReadOptions {
  const std::vector<std::string>* sharedStrings = nullptr;  // none: the workbook has none
  bool date1904 = false;
  // Dense cell slots allowed for all sheets of one workbook together (about 40 bytes each);
  // `usedCells` carries the count from sheet to sheet.
  std::uint64_t maxStoredCells = 50'000'000;
  std::uint64_t* usedCells = nullptr;
  // Bytes of one cell's text, and of all cells' texts of the workbook together (`usedTextBytes`
  // carries the sum from sheet to sheet); see ReadLimits (reader_workbook.h).
  std::uint64_t maxStringBytes = 4 * 32767;
  std::uint64_t maxTextBytes = std::uint64_t{2} << 30;
  std::uint64_t* usedTextBytes = nullptr;
  // Whether each cell format (the index a cell's `s` attribute gives) shows dates or times
  // (reader_styles.h); none or empty: no cell is taken for a date by its format.
  const std::vector<bool>* dateStyles = nullptr;
  // Where the noticed cells go; none: nothing is noted.
  SheetNotes* notes = nullptr;
  // Called with the size of each piece of a part streamed in (readSheetPart) once it is scanned,
  // for progress; none: not called.
  std::function<void(std::size_t bytes)> pieceScanned;
};

void readSheetXml(std::string_view xml, InMemoryWorksheet& sheet, const SheetReadOptions& options);

namespace detail {
class SheetScanner;
}

// The same reading, fed the XML piece by piece as it is inflated: pieces may split it anywhere,
// and only the markup that a piece leaves unfinished is held until the next one. Damage that
// shows in a piece raises from feed(); markup still open at the end raises from finish(), which
// also applies the column widths and adds to the workbook's counts. The sheet must outlive this.
class SheetXmlStream {
 public:
  SheetXmlStream(InMemoryWorksheet& sheet, const SheetReadOptions& options);
  SheetXmlStream(const SheetXmlStream&) = delete;
  SheetXmlStream& operator=(const SheetXmlStream&) = delete;
  ~SheetXmlStream();

  void feed(std::string_view piece);
  void finish();

 private:
  std::unique_ptr<detail::SheetScanner> scanner_;
};

}  // namespace orv
