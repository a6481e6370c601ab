#pragma once
// HostConstants: the host's enumeration values by meaning, so the analyses hold none themselves.

#include "frame/range.h"

namespace orv {

struct HostConstants {
  // Results blocks are pasted with values and formats, so labels stay bold and numbers keep
  // their formats in the user's sheet. The results sheet has no fill, so nothing else travels.
  static constexpr orv::PasteType PasteType() { return orv::PasteType::All; }
};

}  // namespace orv
