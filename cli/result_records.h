#pragma once
// A run's results as records for scripts, read back from the block the analysis wrote: per data
// column its name, its cells and its statistics keyed by their row labels (describe, circular),
// or its frequency tables (frequency).
//
// The block keeps the layout of the results tables: heading lines, a row of column names with an
// empty first cell, then one row per statistic labelled in its first cell, ended by a row whose
// first cell is empty. Frequency tables stand under their heading ("Frequency Distribution",
// "Frequency Distribution (Bin)"), five columns per variable (category, N, Cum. N, %, Cum. %),
// the variable's name above its categories, ended by an empty row.

#include <optional>
#include <string>
#include <vector>

#include "frame/cell_value.h"
#include "frame/range.h"
#include "frame/value_array.h"
#include "support/kept_rules.h"

namespace orv::cli {

struct StatisticRecord {
  std::string label;  // "Mean", "Lower 95%CL", "P(Kurtosis)"
  CellValue value;    // as written; a number, or a text such as a mode of several values
  // Why the cell holds "-" or "n/a" instead of a value (cli/unavailable_reasons.h); none when it
  // holds one.
  std::optional<std::string> unavailable;
  bool count = false;  // a whole count ("Count"), given as an integer
  // Where a kept rule of the arithmetic changed the value (support/kept_rules.h): the textbook
  // value and the note's sentence (cli/arithmetic_notes.h).
  std::optional<double> textbook;
  std::optional<std::string> note;
};

struct FrequencyRecord {
  CellValue category;  // the value or item counted, or the bin value
  std::string mark;    // "<" or ">=" for the open categories of a binned table, else empty
  double n = 0;
  double cumulativeN = 0;
  double percent = 0;
  double cumulativePercent = 0;
};

struct FrequencyTableRecord {
  std::string title;  // the heading the table stands under
  std::vector<FrequencyRecord> rows;
};

struct ColumnRecord {
  std::string name;
  std::optional<std::string> range;    // "Heights!$A$2:$A$13": the data cells below the header
  std::optional<std::string> weights;  // frequency: the cells that weigh (or count) them
  std::vector<StatisticRecord> statistics;
  std::vector<FrequencyTableRecord> tables;
};

// Where the records' columns come from.
struct RecordSource {
  std::string analysis;              // "describe", "circular", "frequency"
  std::optional<Range> input;        // the data range as analysed (whole columns cut)
  std::optional<Range> frequencies;  // frequency: the --frequencies range
  bool headers = false;
  bool rows = false;      // frequency: variables along rows
  bool textbook = false;  // textbook arithmetic made the table
};

// `formats` row by row, one per cell of `block` (the open categories' marks are formats).
// Reads the input's cells through the host to work out the reasons for "-" and "n/a".
std::vector<ColumnRecord> readRecords(const ValueArray2D& block, const std::vector<std::string>& formats,
                                      const RecordSource& source);

// Puts each note's textbook values and sentence beside the statistics it changed, in the column
// read from the same cells.
void addArithmeticNotes(std::vector<ColumnRecord>& columns, const std::vector<ArithmeticNote>& notes);

}  // namespace orv::cli
