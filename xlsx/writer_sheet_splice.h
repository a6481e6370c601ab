#pragma once
// Puts the model's cells of one block into an existing worksheet part, leaving the rest of the
// part as it was: other rows, other cells of the touched rows, formulas, merged cells, views,
// drawings and every attribute the writer does not own.
//
// Each cell of the block gets the model's value and format: an existing <c> is replaced in its
// place, a missing one is inserted in column order (rows likewise in row order); a cell the model
// holds empty and plain is removed. Touched rows lose their optional `spans` hint, which could
// otherwise be wrong; <dimension> grows to cover the block. Rows and cells that carry no `r`
// (allowed, meaning "next") get it written so that positions stay unambiguous. The block's columns
// take the model's widths where it gives them one of their own (writer_column_splice.h).
//
// Not handled: a block that overwrites the anchor of a shared formula or of an array formula
// leaves the other cells of that formula without their master (the analysis writes below or
// beside data, never onto formulas).

#include <string>
#include <string_view>

#include "frame/reference.h"

namespace orv {

class InMemoryWorksheet;
class StyleSheet;

struct SpliceOptions {
  // Makes the part's first sheet view the selected tab and records the model's selection.
  bool select = false;
};

std::string spliceCells(std::string_view sheetXml, std::string_view partName, const InMemoryWorksheet& sheet,
                        const CellBlock& block, StyleSheet& styles, const SpliceOptions& options = {});

// The part with tabSelected removed from its sheet views (a textual edit: the only bytes that
// change are that attribute's), for a sheet that stops being the selected tab.
std::string withoutTabSelected(std::string_view sheetXml);

}  // namespace orv
