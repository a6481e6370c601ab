#pragma once
// Checks of what a run printed: lines of the table, and the --json block against the workbook.

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "frame/host.h"

namespace orv::test {

// The first printed line that starts with `start`; empty when there is none.
inline std::string lineStarting(const std::string& text, const std::string& start) {
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    if (line.rfind(start, 0) == 0) return line;
  }
  return {};
}

inline std::vector<std::string> words(const std::string& line) {
  std::istringstream in(line);
  std::vector<std::string> out;
  for (std::string w; in >> w;) out.push_back(w);
  return out;
}

// `block` starts at (top, left) of `sheet`: numbers must match at full precision, texts exactly,
// nulls must be empty cells.
inline void expectSheetHolds(const nlohmann::json& block, const Worksheet& sheet,
                             std::int32_t top = 1, std::int32_t left = 1) {
  for (std::size_t r = 0; r < block.size(); ++r) {
    for (std::size_t c = 0; c < block[r].size(); ++c) {
      SCOPED_TRACE(testing::Message() << "row " << r + 1 << " column " << c + 1);
      const CellValue v = sheet.cellValue(top + static_cast<std::int32_t>(r),
                                          left + static_cast<std::int32_t>(c));
      const nlohmann::json& j = block[r][c];
      if (j.is_null()) {
        EXPECT_TRUE(v.isEmpty());
      } else if (j.is_number()) {
        ASSERT_TRUE(v.isNumber());
        EXPECT_EQ(v.number(), j.get<double>());
      } else {
        ASSERT_TRUE(v.isText());
        EXPECT_EQ(v.text(), j.get<std::string>());
      }
    }
  }
}

// The row of `block` whose first cell is `label`; block.size() when there is none.
inline std::size_t rowLabelled(const nlohmann::json& block, const std::string& label) {
  for (std::size_t r = 0; r < block.size(); ++r) {
    if (!block[r].empty() && block[r][0] == label) return r;
  }
  return block.size();
}

}  // namespace orv::test
