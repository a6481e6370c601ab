#include "cli/result_records.h"

#include <algorithm>
#include <cstdint>

#include "cli/arithmetic_notes.h"
#include "cli/unavailable_reasons.h"
#include "frame/conversions.h"
#include "support/input_columns.h"

namespace orv::cli {
namespace {

constexpr std::int32_t kFrequencyColumns = 5;  // category, N, Cum. N, %, Cum. %

bool rowEmpty(const ValueArray2D& block, std::int32_t r, std::int32_t from = 1, std::int32_t to = 0) {
  const std::int32_t last = to == 0 ? block.columns() : std::min(to, block.columns());
  for (std::int32_t c = from; c <= last; ++c) {
    if (!block(r, c).isEmpty()) return false;
  }
  return true;
}

bool isUnavailable(const CellValue& v) { return v.isText() && (v.text() == "-" || v.text() == "n/a"); }

// The data cells of every variable of `range`: its columns (rows with `rows`), area by area,
// below (right of) a header cell.
std::vector<Range> variableCells(const Range& range, bool headers, bool rows) {
  std::vector<Range> cells;
  const std::int32_t skip = headers ? 1 : 0;
  for (const CellBlock& area : range.areas()) {
    const std::int32_t count = rows ? area.rows() : area.columns();
    for (std::int32_t v = 0; v < count; ++v) {
      // A variable of its header cell alone (refused before the run) keeps that cell.
      const std::int32_t from = (rows ? area.columns() : area.rows()) > skip ? skip : 0;
      cells.emplace_back(range.Parent(), rows ? CellBlock{area.top + v, area.left + from, area.top + v, area.right}
                                              : CellBlock{area.top + from, area.left + v, area.bottom, area.left + v});
    }
  }
  return cells;
}

// Describe and circular: the row of names stands just above the first labelled row.
std::vector<ColumnRecord> statisticRecords(const ValueArray2D& block, const RecordSource& source) {
  std::int32_t names = 0;
  for (std::int32_t r = 3; r < block.rows() && names == 0; ++r) {
    if (block(r, 1).isEmpty() && block(r + 1, 1).isText()) names = r;
  }
  if (names == 0) return {};
  std::vector<Range> cells;
  if (source.input) {
    for (const InputColumn& at : inputColumns(*source.input)) {
      cells.push_back(columnData(*source.input, at, source.headers ? 2 : 1));
    }
  }
  std::vector<ColumnRecord> columns;
  for (std::int32_t c = 2; c <= block.columns(); ++c) {
    const std::size_t index = static_cast<std::size_t>(c - 2);
    ColumnRecord column;
    column.name = toText(block(names, c));
    if (index < cells.size()) column.range = cells[index].AddressWithSheet();
    for (std::int32_t r = names + 1; r <= block.rows() && !block(r, 1).isEmpty(); ++r) {
      StatisticRecord s;
      s.label = toText(block(r, 1));
      s.value = block(r, c);
      s.count = s.label == "Count";
      if (isUnavailable(s.value) && index < cells.size()) {
        s.unavailable = unavailableReason(source.analysis, s.label, cells[index], source.textbook);
      }
      column.statistics.push_back(std::move(s));
    }
    columns.push_back(std::move(column));
  }
  return columns;
}

std::string formatAt(const std::vector<std::string>& formats, const ValueArray2D& block, std::int32_t r,
                     std::int32_t c) {
  const auto at =
      static_cast<std::size_t>(r - 1) * static_cast<std::size_t>(block.columns()) + static_cast<std::size_t>(c - 1);
  return at < formats.size() ? formats[at] : std::string();
}

// The open categories' marks are the leading "<" or ">=" of the category cell's number format.
std::string markOf(const std::string& format) {
  if (format.starts_with(">=")) return ">=";
  if (format.starts_with("<")) return "<";
  return {};
}

double numberAt(const ValueArray2D& block, std::int32_t r, std::int32_t c) {
  const CellValue& v = block(r, c);
  return v.isNumber() ? v.number() : 0.0;
}

// One table: the names row below its heading, then categories down to an empty row.
void readFrequencyTable(const ValueArray2D& block, const std::vector<std::string>& formats, std::int32_t heading,
                        std::vector<ColumnRecord>& columns) {
  const std::int32_t names = heading + 1;
  if (names > block.rows()) return;
  const std::int32_t variables = block.columns() / kFrequencyColumns;
  for (std::int32_t v = 0; v < variables; ++v) {
    const std::int32_t left = v * kFrequencyColumns + 1;
    if (block(names, left + 1).isEmpty()) continue;  // no "N": no variable here
    if (static_cast<std::size_t>(v) >= columns.size()) columns.resize(static_cast<std::size_t>(v) + 1);
    ColumnRecord& column = columns[static_cast<std::size_t>(v)];
    column.name = toText(block(names, left));
    FrequencyTableRecord table{toText(block(heading, 1)), {}};
    for (std::int32_t r = names + 1; r <= block.rows() && !rowEmpty(block, r); ++r) {
      if (rowEmpty(block, r, left, left + kFrequencyColumns - 1)) continue;
      table.rows.push_back({block(r, left), markOf(formatAt(formats, block, r, left)), numberAt(block, r, left + 1),
                            numberAt(block, r, left + 2), numberAt(block, r, left + 3), numberAt(block, r, left + 4)});
    }
    column.tables.push_back(std::move(table));
  }
}

std::vector<ColumnRecord> frequencyRecords(const ValueArray2D& block, const std::vector<std::string>& formats,
                                           const RecordSource& source) {
  std::vector<ColumnRecord> columns;
  for (std::int32_t r = 1; r < block.rows(); ++r) {
    const CellValue& first = block(r, 1);
    if (!first.isText() || !rowEmpty(block, r, 2)) continue;
    if (first.text() == "Frequency Distribution" || first.text() == "Frequency Distribution (Bin)") {
      readFrequencyTable(block, formats, r, columns);
    }
  }
  const std::vector<Range> data =
      source.input ? variableCells(*source.input, source.headers, source.rows) : std::vector<Range>{};
  const std::vector<Range> weights =
      source.frequencies ? variableCells(*source.frequencies, source.headers, source.rows) : std::vector<Range>{};
  for (std::size_t v = 0; v < columns.size(); ++v) {
    // Weighted data count the first data variable once per column of weights.
    const std::size_t d = weights.empty() ? v : 0;
    if (d < data.size()) columns[v].range = data[d].AddressWithSheet();
    if (v < weights.size()) columns[v].weights = weights[v].AddressWithSheet();
  }
  return columns;
}

}  // namespace

void addArithmeticNotes(std::vector<ColumnRecord>& columns, const std::vector<ArithmeticNote>& notes) {
  for (const ArithmeticNote& note : notes) {
    const std::string cells = note.cells.AddressWithSheet();
    const auto column = std::find_if(columns.begin(), columns.end(), [&](const ColumnRecord& c) {
      return c.range ? *c.range == cells : c.name == note.column;
    });
    if (column == columns.end()) continue;
    for (const ChangedValue& changed : note.values) {
      for (StatisticRecord& s : column->statistics) {
        if (s.label != changed.statistic) continue;
        s.textbook = changed.textbook;
        s.note = noteSentence(note);
      }
    }
  }
}

std::vector<ColumnRecord> readRecords(const ValueArray2D& block, const std::vector<std::string>& formats,
                                      const RecordSource& source) {
  if (source.analysis == "frequency") return frequencyRecords(block, formats, source);
  return statisticRecords(block, source);
}

}  // namespace orv::cli
