#pragma once
// The formats a cell carries in the host model, and a patch that changes some of them.

#include <cstdint>
#include <optional>
#include <string>

namespace orv {

// Host colour index values with a meaning of their own.
inline constexpr std::int32_t kColorIndexAutomatic = -4105;
inline constexpr std::int32_t kColorIndexNone = -4142;

enum class HAlign : std::uint8_t { General, Left, Center, Right };

struct CellFormat {
  std::string numberFormat = "General";
  bool bold = false;
  double fontSize = 11.0;
  std::int32_t fontColorIndex = kColorIndexAutomatic;
  std::int32_t interiorColorIndex = kColorIndexNone;
  HAlign horizontalAlignment = HAlign::General;

  friend bool operator==(const CellFormat&, const CellFormat&) = default;
};

// Only the fields that are set are changed.
struct FormatPatch {
  std::optional<std::string> numberFormat;
  std::optional<bool> bold;
  std::optional<double> fontSize;
  std::optional<std::int32_t> fontColorIndex;
  std::optional<std::int32_t> interiorColorIndex;
  std::optional<HAlign> horizontalAlignment;

  void applyTo(CellFormat& f) const;
};

}  // namespace orv
