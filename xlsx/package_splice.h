#pragma once
// Editing the head of a large deflated part without inflating and deflating all of it.
//
// Giving the results sheet the selection means taking `tabSelected` out of the sheet view of the
// sheet that had it, a few bytes near the start of what may be a hundred megabytes of sheet XML.
// A deflate stream is a run of blocks whose back-references reach at most 32 KiB behind them, so
// the blocks that start more than 32 KiB after the last edited byte still decode to the same
// text after any edit in front of them. Such a part is inflated only up to a block boundary that
// lies on a byte boundary and that far past the marker (for a sheet: "sheetData", before which
// every edit happens); that head is edited and deflated again, closed by a sync flush (which
// ends on a byte boundary, as a non-final block), and the original compressed bytes from the
// boundary on follow unchanged. The new CRC-32 comes from the old one and the two heads'.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "xlsx/package_deflate.h"

namespace orv {

// A deflated entry as it lies in the package.
struct CompressedEntry {
  std::string bytes;       // the raw deflate stream
  std::uint32_t crc = 0;   // CRC-32 of the uncompressed content
  std::uint64_t size = 0;  // length of the uncompressed content
};

struct HeadSplice {
  enum class Outcome {
    Spliced,      // `part` holds the edited entry
    Unchanged,    // the edit changed nothing
    NotPossible,  // no usable boundary (short stream, marker missing, corrupt data): edit it whole
  };
  Outcome outcome = Outcome::NotPossible;
  DeflatedPart part;
  std::size_t keptBytes = 0;  // how many of the original's compressed bytes end `part`
};

// `edit` gets the inflated head (the marker and at least 32 KiB after it) and returns it edited,
// or nothing when it has nothing to change; it must leave the text from the marker on alone.
// No boundary is looked for past `headLimit` bytes of inflated text. The entry is taken by value:
// moved in, its bytes become the spliced part's, so that a part of a hundred megabytes is not
// held twice.
HeadSplice spliceDeflatedHead(CompressedEntry entry, std::string_view marker,
                              const std::function<std::optional<std::string>(std::string_view)>& edit,
                              std::size_t headLimit = std::size_t{16} << 20);

}  // namespace orv
