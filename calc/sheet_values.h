#pragma once
// SheetValues: the values of one sheet as the host sees them, read from the office in blocks and
// written back in blocks, never a remote call per cell.
//
// Reading a cell or a block loads the tiles around it that are still unknown (tile_grid.h), in
// one read per run of tiles down a band of 16 columns, and only inside the sheet's used block:
// cells outside it are empty without asking. Writes stay here, dirty, until flush() sends them
// as the fewest rectangles that cover them, one write each. Reads see the writes at once.
//
// The office's side is a ValueSource, so that this logic is tested without an office.

#include <cstdint>
#include <optional>

#include "calc/tile_grid.h"
#include "frame/cell_value.h"
#include "frame/reference.h"
#include "frame/value_array.h"

namespace orv::calc {

class ValueSource {
 public:
  virtual ~ValueSource() = default;
  // `out` is sized to the block; fills every cell.
  virtual void read(const CellBlock& block, ValueArray2D& out) = 0;
  virtual void write(const CellBlock& block, const ValueArray2D& values) = 0;
  // The smallest block holding every non-empty cell, as the office has it now.
  virtual std::optional<CellBlock> usedBlock() = 0;
};

class SheetValues {
 public:
  explicit SheetValues(ValueSource& source) : source_(&source) {}

  CellValue get(std::int32_t row, std::int32_t column);
  // `out` is sized to the block by the caller; every cell is filled.
  void read(const CellBlock& block, ValueArray2D& out);
  void set(std::int32_t row, std::int32_t column, CellValue value);

  // The smallest block holding every non-empty cell, this side's writes included.
  std::optional<CellBlock> usedBlock();

  // Sends every pending write.
  void flush();
  bool pending() const { return grid_.dirtyCount() > 0; }

  // The office has just emptied the block (pending writes were sent before).
  void cleared(const CellBlock& block);

 private:
  // A block that holds every non-empty cell, possibly more: enough to skip reading empty parts.
  std::optional<CellBlock> outerUsedBlock();
  void load(const CellBlock& block);
  void loadBand(std::int32_t left, std::int32_t right, std::int32_t top, std::int32_t bottom);

  ValueSource* source_;
  TileGrid<CellValue> grid_;
  // The office's used block as last asked (outer nullopt: not asked, or out of date) ...
  std::optional<std::optional<CellBlock>> officeUsed_;
  // ... and the block of the non-empty values written here since.
  std::optional<CellBlock> writtenUsed_;
  // Whether an empty value was written or cells cleared since: the used block may have shrunk.
  bool mayHaveShrunk_ = false;
};

}  // namespace orv::calc
