#pragma once
// The records of a run (cli/result_records.h) as JSON and as CSV.
//
// JSON, one object per column, members in this order:
//   {"name": "Control", "range": "Heights!$A$2:$A$13",
//    "statistics": {"Mean": 21.64, ..., "Count": 12, "P(Kurtosis)": null},
//    "unavailable": {"P(Kurtosis)": "needs at least 20 observations; the column has 12"}}
// counts as integers, "-" and "n/a" as null with the reason under the same label in
// "unavailable", and where a kept rule of the arithmetic changed a value, its textbook value and
// the note under the same label in "notes" ({"textbook": 1.23, "note": "..."}); frequency columns hold "tables"
// instead, keyed by the table's heading, each a list of {"category", "n", "cumulative_n", "percent",
// "cumulative_percent"} with "open": "<" or
// ">=" on the open categories of a binned table, and "weights" beside "range" when the counts
// came weighted.
//
// CSV (RFC 4180: a field holding a comma, a quote or a line break is quoted, quotes doubled),
// with a header line:
//   describe, circular: column,statistic,value     one line per column and statistic; "-" and
//                                                  "n/a" as an empty value
//   frequency: column,table,category,n,cumulative_n,percent,cumulative_percent
//                                                  one line per category; open categories with
//                                                  their mark ("<200")
// Numbers in both at full precision (the shortest text that reads back as the same double).

#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "cli/result_records.h"

namespace orv::cli {

nlohmann::ordered_json recordsToJson(const std::vector<ColumnRecord>& columns);

// `frequency`: the frequency tables' form, whatever the records hold.
std::string recordsToCsv(const std::vector<ColumnRecord>& columns, bool frequency);

// One CSV field, quoted where needed.
std::string csvField(std::string_view text);

}  // namespace orv::cli
