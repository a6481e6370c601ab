#include "cli/records_output.h"

#include <charconv>
#include <cmath>
#include <cstdint>

#include "frame/conversions.h"

namespace orv::cli {
namespace {

using Json = nlohmann::ordered_json;

// The shortest text that reads back as the same double.
std::string fullNumber(double x) {
  char buffer[32];
  const auto [end, failure] = std::to_chars(buffer, buffer + sizeof buffer, x);
  return failure == std::errc() ? std::string(buffer, end) : numberToText(x);
}

bool wholeNumber(double x) { return std::trunc(x) == x && std::fabs(x) < 9.0e15; }

Json countJson(double x) { return wholeNumber(x) ? Json(static_cast<std::int64_t>(x)) : Json(x); }

Json valueJson(const CellValue& v, bool count) {
  switch (v.kind()) {
    case CellValue::Kind::Empty: return nullptr;
    case CellValue::Kind::Number: return count ? countJson(v.number()) : Json(v.number());
    case CellValue::Kind::Text: return v.text();
    case CellValue::Kind::Boolean: return v.boolean();
    case CellValue::Kind::Error: return toText(v);
  }
  return nullptr;
}

void statisticsJson(const ColumnRecord& column, Json& entry) {
  Json statistics = Json::object();
  Json unavailable = Json::object();
  Json notes = Json::object();
  for (const StatisticRecord& s : column.statistics) {
    if (s.note) notes[s.label] = {{"textbook", s.textbook ? Json(*s.textbook) : Json(nullptr)}, {"note", *s.note}};
    if (s.unavailable) {
      statistics[s.label] = nullptr;
      unavailable[s.label] = *s.unavailable;
    } else {
      statistics[s.label] = valueJson(s.value, s.count);
    }
  }
  entry["statistics"] = std::move(statistics);
  entry["unavailable"] = std::move(unavailable);
  entry["notes"] = std::move(notes);
}

Json tablesJson(const ColumnRecord& column) {
  Json tables = Json::object();
  for (const FrequencyTableRecord& table : column.tables) {
    Json rows = Json::array();
    for (const FrequencyRecord& f : table.rows) {
      Json row = {{"category", valueJson(f.category, false)},
                  {"n", countJson(f.n)},
                  {"cumulative_n", countJson(f.cumulativeN)},
                  {"percent", f.percent},
                  {"cumulative_percent", f.cumulativePercent}};
      if (!f.mark.empty()) row["open"] = f.mark;
      rows.push_back(std::move(row));
    }
    tables[table.title] = std::move(rows);
  }
  return tables;
}

std::string csvValue(const CellValue& v) {
  if (v.isNumber()) return fullNumber(v.number());
  return csvField(toText(v));
}

std::string statisticsCsv(const std::vector<ColumnRecord>& columns) {
  std::string out = "column,statistic,value\n";
  for (const ColumnRecord& column : columns) {
    for (const StatisticRecord& s : column.statistics) {
      out += csvField(column.name) + "," + csvField(s.label) + "," + (s.unavailable ? "" : csvValue(s.value)) + "\n";
    }
  }
  return out;
}

std::string frequencyCsv(const std::vector<ColumnRecord>& columns) {
  std::string out = "column,table,category,n,cumulative_n,percent,cumulative_percent\n";
  for (const ColumnRecord& column : columns) {
    for (const FrequencyTableRecord& table : column.tables) {
      for (const FrequencyRecord& f : table.rows) {
        const std::string category = f.mark.empty() ? csvValue(f.category) : csvField(f.mark + toText(f.category));
        out += csvField(column.name) + "," + csvField(table.title) + "," + category + "," + fullNumber(f.n) + "," +
               fullNumber(f.cumulativeN) + "," + fullNumber(f.percent) + "," + fullNumber(f.cumulativePercent) + "\n";
      }
    }
  }
  return out;
}

}  // namespace

nlohmann::ordered_json recordsToJson(const std::vector<ColumnRecord>& columns) {
  Json list = Json::array();
  for (const ColumnRecord& column : columns) {
    Json entry = {{"name", column.name}, {"range", column.range ? Json(*column.range) : Json(nullptr)}};
    if (column.weights) entry["weights"] = *column.weights;
    if (column.tables.empty()) {
      statisticsJson(column, entry);
    } else {
      entry["tables"] = tablesJson(column);
    }
    list.push_back(std::move(entry));
  }
  return list;
}

std::string recordsToCsv(const std::vector<ColumnRecord>& columns, bool frequency) {
  return frequency ? frequencyCsv(columns) : statisticsCsv(columns);
}

std::string csvField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  return out + "\"";
}

}  // namespace orv::cli
