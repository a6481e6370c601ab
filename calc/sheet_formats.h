#pragma once
// SheetFormats: the cell formats of one sheet as the host sees them, read from the office a tile
// at a time and written back grouped, never a remote call per cell.
//
// Whole formats set on single cells (a paste sets one per cell) stay here until flush(), which
// sends each distinct format once, to all its cells as one list of rectangles. Patches on blocks
// (bold on a label column, a fill on the whole sheet) are sent as they are, in order, before the
// single-cell formats: a patch changes the pending single-cell formats under it here at once, so
// that the order of the office's calls does not change the result. Reading a cell the host does
// not know sends the patches first, then reads the cell's tile.
//
// After the whole sheet is cleared every cell has the office's default format, which the host
// then knows without reading; a patch on the whole sheet changes that default too.

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "calc/tile_grid.h"
#include "frame/cell_format.h"
#include "frame/reference.h"

namespace orv::calc {

class FormatSource {
 public:
  virtual ~FormatSource() = default;
  // The formats of the block's cells, row by row.
  virtual std::vector<CellFormat> read(const CellBlock& block) = 0;
  virtual void patch(const CellBlock& block, const FormatPatch& patch) = 0;
  // One format on every cell of the blocks.
  virtual void set(const std::vector<CellBlock>& blocks, const CellFormat& format) = 0;
};

class SheetFormats {
 public:
  explicit SheetFormats(FormatSource& source) : source_(&source) {}

  CellFormat get(std::int32_t row, std::int32_t column);
  void set(std::int32_t row, std::int32_t column, const CellFormat& format);
  void patch(const CellBlock& block, const FormatPatch& patch);

  void flush();
  bool pending() const { return !patches_.empty() || grid_.dirtyCount() > 0; }

  // The office has just cleared the block's formats (after a flush); `whole` is the sheet's
  // default format then, read by the caller, for a clear of the whole sheet.
  void cleared(const CellBlock& block, std::optional<CellFormat> whole);

 private:
  std::uint32_t intern(const CellFormat& format);
  void sendPatches();

  FormatSource* source_;
  // Formats by number, so that a tile holds 4 bytes a cell.
  std::vector<CellFormat> formats_;
  std::unordered_map<std::string, std::uint32_t> numbers_;
  TileGrid<std::uint32_t> grid_;
  // The format of every cell without a tile entry, once known (after a clear of the sheet).
  std::optional<std::uint32_t> base_;
  std::vector<std::pair<CellBlock, FormatPatch>> patches_;
};

}  // namespace orv::calc
