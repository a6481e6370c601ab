#pragma once
// PlotRows: which sheet rows of the results table hold the values the box and error plots need.
// Filled while the table is built (rows of the matrix), then turned into sheet rows once the
// table's first row on the sheet is known. Every field is a 16-bit row number.

#include "frame/numerics.h"

namespace orv {

struct PlotRows {
  Int16 columns;  // number of data columns
  Int16 header;   // the row of column names, just above the table
  Int16 lowerPercentile;
  Int16 upperPercentile;
  Int16 minimum;
  Int16 maximum;
  Int16 median;
  Int16 centre;  // mean or median, per ErrorCentre
  Int16 upperError;
  Int16 lowerError;
};

}  // namespace orv
