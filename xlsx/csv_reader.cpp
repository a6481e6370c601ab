#include "xlsx/csv_reader.h"

#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <vector>

#include "frame/reference.h"
#include "workbook/in_memory_application.h"
#include "workbook/sheet_names.h"
#include "xlsx/reader_errors.h"
#include "xlsx/reader_text.h"
#include "xlsx/reader_workbook.h"

namespace orv {
namespace {

constexpr std::uint64_t kMaxTextBytes = std::uint64_t{2} << 30;
constexpr std::size_t kSampleBytes = 64 * 1024;
constexpr int kSampleRecords = 50;

// Fields per record of the opening records, quotes respected; the last record is dropped when
// the sample cut it.
std::vector<int> fieldCounts(std::string_view sample, char delimiter, bool cut) {
  std::vector<int> counts;
  int count = 0;
  bool quoted = false;
  bool content = false;
  for (std::size_t i = 0; i < sample.size() && counts.size() < kSampleRecords; ++i) {
    const char c = sample[i];
    if (quoted) {
      if (c == '"') quoted = false;
      continue;
    }
    if (c == '"') {
      quoted = true;
      content = true;
    } else if (c == delimiter) {
      ++count;
      content = true;
    } else if (c == '\n' || c == '\r') {
      if (c == '\r' && i + 1 < sample.size() && sample[i + 1] == '\n') ++i;
      if (content) counts.push_back(count);
      count = 0;
      content = false;
    } else {
      content = true;
    }
  }
  if (content && !cut) counts.push_back(count);
  return counts;
}

bool isPlainNumber(std::string_view s) {
  std::size_t i = 0;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
  std::size_t digits = 0;
  while (i < s.size() && s[i] >= '0' && s[i] <= '9') ++i, ++digits;
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') ++i, ++digits;
  }
  if (digits == 0) return false;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    std::size_t exponent = 0;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') ++i, ++exponent;
    if (exponent == 0) return false;
  }
  return i == s.size();
}

std::string readWholeFile(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) raiseDamaged("cannot be opened (it does not exist or may not be read)");
  std::string text;
  std::array<char, 1 << 16> chunk{};
  while (in) {
    in.read(chunk.data(), chunk.size());
    const auto got = static_cast<std::size_t>(in.gcount());
    if (text.size() + got > kMaxTextBytes) raiseDamaged("is larger than the 2 GiB a text file may have");
    text.append(chunk.data(), got);
  }
  if (in.bad()) raiseDamaged("cannot be read to its end");
  return text;
}

}  // namespace

char detectDelimiter(std::string_view text, char fallback) {
  const bool cut = text.size() > kSampleBytes;
  const std::string_view sample = text.substr(0, kSampleBytes);
  // Tab and semicolon first: a semicolon file often holds decimal commas, a comma file rarely
  // holds semicolons on every line.
  constexpr std::array<char, 3> kCandidates = {'\t', ';', ','};
  char best = 0;
  std::size_t bestLines = 0;
  for (const char d : kCandidates) {
    const std::vector<int> counts = fieldCounts(sample, d, cut);
    if (counts.empty()) continue;
    const bool consistent =
        counts.front() > 0 && std::all_of(counts.begin(), counts.end(), [&](int n) { return n == counts.front(); });
    if (consistent) return d;
    const auto lines =
        static_cast<std::size_t>(std::count_if(counts.begin(), counts.end(), [](int n) { return n > 0; }));
    if (lines > bestLines) {
      best = d;
      bestLines = lines;
    }
  }
  return best != 0 ? best : fallback;
}

void parseDelimited(std::string_view text, char delimiter,
                    const std::function<void(std::int32_t, std::int32_t, std::string&&)>& field) {
  std::int64_t row = 1;
  std::int64_t column = 1;
  std::string value;
  std::size_t i = 0;
  const std::size_t n = text.size();
  auto emit = [&] {
    if (value.empty()) return;
    if (row > kMaxRows) raiseDamaged("has more lines than the 1048576 rows a sheet holds");
    if (column > kMaxColumns) raiseDamaged("has a line with more than the 16384 fields a sheet row holds");
    field(static_cast<std::int32_t>(row), static_cast<std::int32_t>(column), std::move(value));
    value.clear();
  };
  while (i < n) {
    // One field.
    if (text[i] == '"') {
      ++i;
      for (;;) {
        const auto quote = text.find('"', i);
        if (quote == std::string_view::npos) {  // unterminated: the rest of the file is the field
          value.append(text.substr(i));
          i = n;
          break;
        }
        value.append(text.substr(i, quote - i));
        i = quote + 1;
        if (i < n && text[i] == '"') {
          value.push_back('"');
          ++i;
        } else {
          break;
        }
      }
    }
    // Unquoted text, or whatever stands between a closing quote and the delimiter.
    const std::size_t start = i;
    while (i < n && text[i] != delimiter && text[i] != '\n' && text[i] != '\r') ++i;
    value.append(text.substr(start, i - start));
    emit();
    if (i >= n) break;
    if (text[i] == delimiter) {
      ++column;
      ++i;
      if (i == n) break;
      continue;
    }
    // End of record.
    if (text[i] == '\r' && i + 1 < n && text[i + 1] == '\n') ++i;
    ++i;
    ++row;
    column = 1;
  }
}

CellValue csvFieldValue(std::string&& field) {
  std::string_view s = field;
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  if (isPlainNumber(s)) {
    if (s.front() == '+') s.remove_prefix(1);
    double number = 0;
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), number);
    if (ec == std::errc() && end == s.data() + s.size() && std::isfinite(number)) return number;
  }
  return CellValue(std::move(field));
}

std::string sheetNameForFile(const std::filesystem::path& file) {
  const std::string stem = file.stem().string();
  std::string name;
  std::size_t characters = 0;
  for (std::size_t i = 0; i < stem.size() && characters < kMaxSheetNameLength; ++i) {
    const char c = stem[i];
    // Count UTF-8 characters, not bytes: continuation bytes travel with their lead byte.
    if ((static_cast<unsigned char>(c) & 0xC0) == 0x80) {
      name.push_back(c);
      continue;
    }
    ++characters;
    const bool forbidden = c == ':' || c == '\\' || c == '/' || c == '?' || c == '*' || c == '[' || c == ']' ||
                           static_cast<unsigned char>(c) < 0x20;
    name.push_back(forbidden ? '_' : c);
  }
  while (!name.empty() && name.front() == '\'') name.erase(0, 1);
  while (!name.empty() && name.back() == '\'') name.pop_back();
  if (name.empty() || !isValidUtf8(name)) return "Sheet1";
  return name;
}

InMemoryWorkbook& loadDelimitedText(InMemoryApplication& app, const std::filesystem::path& file,
                                    const ReadLimits& limits) {
  std::string text = namingFile(file, [&] { return readWholeFile(file); });
  if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
  if (!isValidUtf8(text)) text = windows1252ToUtf8(text);
  const std::string extension = file.extension().string();
  const char delimiter = detectDelimiter(text, extension == ".tsv" || extension == ".TSV" ? '\t' : ',');

  InMemoryWorkbook& book = app.AddWorkbook(file.filename().string(), {sheetNameForFile(file)});
  InMemoryWorksheet& sheet = book.Worksheets(1);
  // The host stores each column from its first to its last cell: count those slots as the
  // records come, in order, so that the budget holds before anything is allocated.
  std::vector<std::int32_t> lastRow;
  std::uint64_t slots = 0;
  namingFile(file, [&] {
    parseDelimited(text, delimiter, [&](std::int32_t row, std::int32_t column, std::string&& field) {
      if (field.size() > limits.maxStringBytes) {
        raiseDamaged("is refused: the field in row " + std::to_string(row) + ", column " + std::to_string(column) +
                     " is longer than " + std::to_string(limits.maxStringBytes) + " bytes (the text length limit)");
      }
      const auto index = static_cast<std::size_t>(column - 1);
      if (lastRow.size() <= index) lastRow.resize(index + 1, 0);
      slots += lastRow[index] == 0 ? 1 : static_cast<std::uint64_t>(row - lastRow[index]);
      lastRow[index] = row;
      if (slots > limits.maxStoredCells) {
        raiseDamaged("is refused: its fields spread over more than " + std::to_string(limits.maxStoredCells) +
                     " cell slots, more than this program holds in memory (the cell count limit)");
      }
      sheet.storeRaw(row, column, csvFieldValue(std::move(field)));
    });
  });
  return book;
}

}  // namespace orv
