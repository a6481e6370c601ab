#pragma once
// Shared by the clsFreqBO source files; not part of the component's surface.

#include <cstdint>
#include <string>

#include "frame/cell_value.h"
#include "frame/conversions.h"
#include "frame/numerics.h"
#include "frame/platform_loop.h"
#include "frame/procedure.h"
#include "frame/value_array.h"
#include "frequency/counting_rules.h"

namespace orv::detail {

inline constexpr Procedures kFreqBO{"clsFreqBO"};

// The key under which two cell values are the same category: their text form. A number equals
// the text made from it ("3" and 3), an empty cell equals the empty text, and texts compare
// byte for byte (Red and red differ). As an equivalence it lets a hash table find, in one probe,
// the category that a scan over all categories would find.
inline std::string categoryKey(const CellValue& v) { return toText(v); }

// A weight as the counts take it: a number (text that reads as one, empty as 0) rounded half to
// even to 32 bits.
inline std::int32_t weightOf(const CellValue& v) { return toInt32(toNumber(v)); }

// Exact-mode counting: category i gets the weights of every datum equal to it. Errors surface
// as the category-by-category, datum-by-datum scan meets them (see clsFreqBO_exact.cpp).
Array1D<std::int32_t> exactCounts(const ValueArray1D& categories, const ValueArray1D& data, const ValueArray1D& weights,
                                  CountingRules rules);

// Binned counting with the "<" and ">=" categories; may lengthen `categories` and sets the flags
// it reports on (see clsFreqBO_binned.cpp).
Array1D<std::int32_t> binnedCounts(ValueArray1D& categories, const ValueArray1D& data, const ValueArray1D& weights,
                                   bool& lessThanCatUsed, bool& greaterThanCatUsed, CountingRules rules);

}  // namespace orv::detail
