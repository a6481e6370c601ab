#pragma once
// clsDSOutput: writes an analysis's results onto the add-in's scratch sheet "Results" of
// "Orvella.xla": a two-line heading, optional comment lines, a table with a row of column names
// above it, blank lines, optional plot data; then hands back the written block.
//
// Creating a writer clears the scratch sheet, so one writer serves one analysis and two must never
// be in use at once. Errors (a missing scratch sheet, a row counter past its range) leave with the
// writer's procedure names as their source.

#include <cstdint>
#include <string>

#include "frame/numerics.h"
#include "frame/range.h"
#include "frame/value_array.h"
#include "support/cell_formatter.h"
#include "support/results_cursor.h"
#include "support/results_style.h"

namespace orv {

// The first and last sheet rows of the plot data that OutputPlotData wrote.
struct PlotDataRows {
  std::int32_t first = 0;
  std::int32_t last = 0;
};

class clsDSOutput {
 public:
  clsDSOutput();

  // "Descriptive Statistics for:" and "Input Range = " + xRange in rows 1 and 2, emphasised;
  // a non-empty comment goes on the next line.
  void OutputHeader(const std::string& xRange, const std::string& comment = {});
  // The names row (names from column 2 on), then the matrix below it. firstRow receives the sheet
  // row of the matrix's first row.
  void OutputMatrix(const Array1D<std::string>& columnNames, const ValueArray2D& matrix, Int16& firstRow);
  // Names over column pairs, a "Sin"/"Cos" row, then the values; rows receives their sheet rows.
  void OutputPlotData(const Array1D<std::string>& names, const ValueArray2D& matrix, PlotDataRows& rows);
  void OutputComment(const std::string& comment, std::int16_t numBlankLines = 0, bool heading = false);
  void InsertBlankLines(std::int16_t n);

  // The written block, from A1 to the current row and the widest column (at least six columns
  // when only one was written).
  Range Results();

  // The sheet row where the next line goes.
  std::int32_t currentRow() const { return cursor_.row(); }

 private:
  ResultsStyle style_;
  CellFormatter formatter_;
  ResultsCursor cursor_;
};

}  // namespace orv
