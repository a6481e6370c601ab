#pragma once
// The skeleton that the descriptive and circular drivers share: the check of the input's areas,
// the results table of one row per selected statistic and one column per data column, filled
// column by column by a fresh calculation object, and the writing of that table.
//
// An analysis brings its layout table (an array of rows, each with `on`, the key of the option
// that selects it, so that a label exists only there), the rows switched on when nothing is
// selected, and what a calculation object makes of one column.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "frame/errors.h"
#include "frame/numerics.h"
#include "frame/range.h"
#include "frame/value_array.h"
#include "support/column_failure.h"
#include "support/input_columns.h"
#include "support/kept_rules.h"
#include "support/ordered_parallel.h"

namespace orv {

// The Get* options of an analysis: one flag per statistic. Key is an enumeration whose last
// member is kCount.
template <class Key>
class Selection {
 public:
  bool& operator[](Key k) { return on_[static_cast<std::size_t>(k)]; }
  bool operator[](Key k) const { return on_[static_cast<std::size_t>(k)]; }
  Selection& operator|=(const Selection& other) {
    for (std::size_t i = 0; i < on_.size(); ++i) on_[i] = on_[i] || other.on_[i];
    return *this;
  }

 private:
  std::array<bool, static_cast<std::size_t>(Key::kCount)> on_{};
};

// Every column of every area passes `checkColumn` (which raises its own error), and every area
// is as high as the first: error 5038, raised once the area's columns have passed. The row count
// is the host's own (32-bit): a column of 32767 observations under a header row spans 32768
// rows. The 16-bit limit is on the observations, in the engines.
template <class CheckColumn>
void checkInputAreas(const Range& input, CheckColumn&& checkColumn) {
  std::int32_t rowCount = input.RowsCount();
  for (std::int32_t a = 1; a <= input.AreasCount(); ++a) {
    const Range area = input.Areas(a);
    for (std::int32_t c = 1; c <= area.ColumnsCount(); ++c) checkColumn(area.Columns(c));
    if (area.RowsCount() != rowCount) raise(err::kAreaHeights);
    rowCount = area.RowsCount();
  }
}

// The number of data columns over all areas, counted in 16 bits.
Int16 countColumns(const Range& input);

// The layout rows that `selection` switches on, in layout order. When it switches on none,
// `defaults` are switched on in `selection` first.
template <class Row, std::size_t N, class Key, std::size_t D>
std::vector<const Row*> selectedRows(const std::array<Row, N>& layout, Selection<Key>& selection,
                                     const std::array<Key, D>& defaults) {
  std::vector<const Row*> rows;
  for (int pass = 0; pass < 2 && rows.empty(); ++pass) {
    if (pass == 1) {
      for (Key k : defaults) selection[k] = true;
    }
    for (const Row& row : layout) {
      if (selection[row.on]) rows.push_back(&row);
    }
  }
  return rows;
}

// The results table: a label in column 1 of every row, data column j's values in column j + 1,
// and the data columns' names (1..C).
struct StatisticsTable {
  StatisticsTable(Int16 rows, Int16 columns);

  // Column 1: labelOf(row) for every selected row, in order.
  template <class Row, class LabelOf>
  void writeLabels(const std::vector<const Row*>& rows, LabelOf&& labelOf) {
    for (std::size_t r = 0; r < rows.size(); ++r) matrix(Int16::from(r + 1), 1) = labelOf(*rows[r]);
  }

  ValueArray2D matrix;
  Array1D<std::string> names;
};

// The values of one column's selected rows, in order, what else an analysis keeps of it, and
// what the kept rules changed in it.
template <class Extra>
struct ColumnResults {
  std::vector<CellValue> values;
  Extra extra{};
  ColumnFindings findings{};
};

// Where one column's calculation stands, for the failure record: step(k) before the k-th
// selected row, step(rows) for whatever an analysis does after them.
class ColumnProgress {
 public:
  ColumnProgress(ColumnSteps& steps, std::size_t column) : steps_(&steps), column_(column) {}
  void step(std::size_t k) const { steps_->step(column_, static_cast<std::int32_t>(k)); }

 private:
  ColumnSteps* steps_;
  std::size_t column_;
};

// valueOf(row) for every selected row, in order, each a step of the column's progress.
template <class Row, class ValueOf>
std::vector<CellValue> rowValues(const std::vector<const Row*>& rows, const ColumnProgress& progress,
                                 ValueOf&& valueOf) {
  std::vector<CellValue> values;
  values.reserve(rows.size());
  for (std::size_t k = 0; k < rows.size(); ++k) {
    progress.step(k);
    values.push_back(valueOf(*rows[k]));
  }
  return values;
}

// An analysis's data columns: the input, the first data row of every area (2 below a row of
// names), and whether that row of names is there.
struct DataColumns {
  const Range& input;
  std::int32_t firstDataRow;
  bool headers;
};

// Fills the table's value columns and names, data column by data column: each column is read on
// the calling thread, `compute(ColumnValues, ColumnProgress)` makes its ColumnResults<Extra> (on
// helper threads when `parallel`), and its values, its name and then `keep(extra)` are taken in
// column order. The first failing column, in that order, is the one whose error leaves, as it
// came; beside it `failure` records the column and the step, stepLabel(k) naming step k (reading
// the data, handing them to the engine included, has no label). Each column's findings become
// notes, in column order.
template <class Extra, class Compute, class Keep, class StepLabel>
void fillColumns(StatisticsTable& table, const DataColumns& data, bool parallel, Compute&& compute, Keep&& keep,
                 StepLabel&& stepLabel, std::optional<ColumnFailure>& failure, std::vector<ArithmeticNote>& notes) {
  const std::vector<InputColumn> places = inputColumns(data.input);
  ColumnSteps steps(places.size());
  struct Read {
    std::size_t column;
    ColumnValues values;
  };
  const auto read = [&](std::size_t i) {
    steps.reading(i);
    Read column{i, readColumn(data.input, places[i], data.firstDataRow)};
    steps.done(i);  // read, and not started: a failure elsewhere is not this column's
    return column;
  };
  const auto calculate = [&](Read column) {
    steps.reading(column.column);
    ColumnResults<Extra> results = compute(std::move(column.values), ColumnProgress(steps, column.column));
    steps.done(column.column);
    return results;
  };
  const auto collect = [&](std::size_t i, ColumnResults<Extra> column) {
    const std::int32_t j = static_cast<std::int32_t>(i) + 2;
    for (std::size_t r = 0; r < column.values.size(); ++r) {
      table.matrix(static_cast<std::int64_t>(r) + 1, j) = std::move(column.values[r]);
    }
    table.names(j - 1) = columnName(data.input, places[i], data.headers);
    if (!column.findings.changed.empty()) {
      addColumnNotes(notes, table.names(j - 1), columnData(data.input, places[i], data.firstDataRow), column.findings);
    }
    keep(std::move(column.extra));
  };
  try {
    orderedPipeline<Read, ColumnResults<Extra>>(places.size(), parallel, read, calculate, collect);
  } catch (const ComponentError&) {
    if (const auto failed = steps.firstUnfinished()) {
      const auto [i, k] = *failed;
      failure = ColumnFailure{columnName(data.input, places[i], data.headers),
                              columnData(data.input, places[i], data.firstDataRow),
                              k == ColumnSteps::kReading ? std::string() : stepLabel(static_cast<std::size_t>(k))};
    }
    throw;
  }
}

// "Data!$A$1:$C$20": the range's sheet name, "!" and its absolute address.
std::string sheetAddress(const Range& range);

// The heading with the input's address (and the comment line below it, when there is one), a
// blank line, the table with its names row (firstRow receives the sheet row of the table's first
// row) and a blank line, through the analysis's results writer (clsDSOutput, or any writer with
// its OutputHeader, InsertBlankLines and OutputMatrix).
template <class Writer>
void writeStatisticsTable(Writer& writer, const Range& input, const StatisticsTable& table, Int16& firstRow,
                          const std::string& comment) {
  writer.OutputHeader(sheetAddress(input), comment);
  writer.InsertBlankLines(1);
  writer.OutputMatrix(table.names, table.matrix, firstRow);
  writer.InsertBlankLines(1);
}

}  // namespace orv
