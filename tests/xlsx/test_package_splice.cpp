// Rewriting the head of a deflated part while keeping the compressed rest.

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "test_packages.h"
#include "xlsx/package_splice.h"
#include "xlsx/writer_sheet_splice.h"

namespace orv::test {
namespace {

std::string bigSheet(std::size_t rows, bool selected) {
  std::string xml = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?><worksheet xmlns=")" + kMainNs +
                    R"("><sheetViews><sheetView )" + (selected ? R"(tabSelected="1" )" : "") +
                    R"(workbookViewId="0"/></sheetViews><sheetData>)";
  std::mt19937 random(7);
  std::uniform_real_distribution<double> value(0, 1000);
  for (std::size_t r = 1; r <= rows; ++r) {
    xml += "<row r=\"" + std::to_string(r) + "\">";
    for (char column : std::string("ABCD")) {
      xml +=
          std::string("<c r=\"") + column + std::to_string(r) + "\"><v>" + std::to_string(value(random)) + "</v></c>";
    }
    xml += "</row>";
  }
  return xml + "</sheetData></worksheet>";
}

CompressedEntry deflated(const std::string& text, int level) {
  z_stream s{};
  EXPECT_EQ(deflateInit2(&s, level, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY), Z_OK);
  std::string out(deflateBound(&s, static_cast<uLong>(text.size())), '\0');
  s.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
  s.avail_in = static_cast<uInt>(text.size());
  s.next_out = reinterpret_cast<Bytef*>(out.data());
  s.avail_out = static_cast<uInt>(out.size());
  EXPECT_EQ(deflate(&s, Z_FINISH), Z_STREAM_END);
  out.resize(out.size() - s.avail_out);
  deflateEnd(&s);
  return {out, crcOf(text), text.size()};
}

std::optional<std::string> deselect(std::string_view head) {
  std::string cleared = withoutTabSelected(head);
  if (cleared.size() == head.size()) return std::nullopt;
  return cleared;
}

TEST(HeadSplice, SplicesKeepingTheCompressedRestOrSaysWhyNot) {
  const std::string original = bigSheet(40000, true);
  const std::string expected = withoutTabSelected(original);
  ASSERT_NE(expected, original);
  for (int level : {1, 6, 9}) {
    SCOPED_TRACE(level);
    const CompressedEntry entry = deflated(original, level);
    const HeadSplice splice = spliceDeflatedHead(entry, "sheetData", deselect);
    ASSERT_EQ(splice.outcome, HeadSplice::Outcome::Spliced);
    EXPECT_EQ(splice.part.size, expected.size());
    EXPECT_EQ(splice.part.crc, crcOf(expected));
    EXPECT_TRUE(inflateRaw(splice.part.bytes, expected.size()) == expected);
    // The rest was kept, not recompressed: the original's compressed bytes end the spliced part.
    const std::size_t kept = splice.keptBytes;
    ASSERT_GT(kept, 0U);
    ASSERT_LT(kept, splice.part.bytes.size());
    EXPECT_TRUE(splice.part.bytes.compare(splice.part.bytes.size() - kept, kept, entry.bytes, entry.bytes.size() - kept,
                                          kept) == 0);
  }

  EXPECT_EQ(spliceDeflatedHead(deflated(bigSheet(40000, false), 6), "sheetData", deselect).outcome,
            HeadSplice::Outcome::Unchanged);  // nothing to edit
  const CompressedEntry entry = deflated(original, 6);
  CompressedEntry truncated = entry;
  truncated.bytes.resize(2000);
  // An edit that reaches past the marker would shift what the kept blocks refer back to.
  const auto reachesPast = [](std::string_view head) -> std::optional<std::string> {
    std::string edited(head);
    edited[edited.size() - 1] = '#';
    return edited;
  };
  const struct {
    const char* what;
    HeadSplice splice;
  } refused[] = {
      {"shorter than the window", spliceDeflatedHead(deflated(bigSheet(20, true), 6), "sheetData", deselect)},
      {"no marker", spliceDeflatedHead(entry, "noSuchMarker", deselect)},
      {"truncated stream", spliceDeflatedHead(truncated, "sheetData", deselect)},
      {"no boundary within the limit", spliceDeflatedHead(entry, "sheetData", deselect, 100)},
      {"edit past the marker", spliceDeflatedHead(entry, "sheetData", reachesPast)},
  };
  for (const auto& r : refused) EXPECT_EQ(r.splice.outcome, HeadSplice::Outcome::NotPossible) << r.what;
}

}  // namespace
}  // namespace orv::test
