#pragma once
// What the histogram of a frequency table shows besides the table's own cells: the edges of each
// category, their "from - to" labels, the sample's mean and standard deviation, and the counts a
// normal distribution of that mean and deviation expects in each category.
//
// Categories of a binned table are read as the layout writes them: category i starts at its value;
// it ends where the next one starts; a "<" category (first, LessThanCatUsed) has no lower edge, a
// ">=" category (last, GreaterThanCatUsed) no upper edge. An unmarked last category is closed one
// bin width above its start when the table has two or more regular bins (equal widths), and open
// otherwise (a single bin).

#include <optional>
#include <string>
#include <vector>

#include "frame/distribution_functions.h"
#include "frame/value_array.h"
#include "frequency/frequency_results.h"

namespace orv {

// One category's edges; nullopt for an open end.
struct CategoryEdges {
  std::optional<double> lower;
  std::optional<double> upper;
  friend bool operator==(const CategoryEdges&, const CategoryEdges&) = default;
};

struct SampleMoments {
  double mean = 0;
  double standardDeviation = 0;
};

// Edges of the categories of a binned table, from the category values (ascending) and flags.
std::vector<CategoryEdges> binnedCategoryEdges(const std::vector<double>& values, CategoryFlags flags);

// "10 - 15", "<10" and ">=45", with numbers in the sheet's default text form.
std::vector<std::string> rangeLabels(const std::vector<CategoryEdges>& edges);

// How binned counting takes an empty data cell: as the value 0 (the kept rules) or as no
// observation (textbook arithmetic).
enum class EmptyCells { Zero, Skipped };

// Mean and sample standard deviation (n - 1) of the data, each observation counted as often as
// its weight (rounded half to even; all 1 without weights). Empty cells are taken as binned
// counting takes them. Nothing when a cell is neither a number nor a text holding one, when fewer
// than two observations are counted, or when every value is equal.
std::optional<SampleMoments> sampleMoments(const ValueArray1D& data, const std::optional<ValueArray1D>& weights,
                                           EmptyCells empty = EmptyCells::Zero);

// The same from a table alone (pre-counted data): each category's observations taken at its
// middle, or at its one finite edge when it is open.
std::optional<SampleMoments> groupedMoments(const std::vector<CategoryEdges>& edges, const std::vector<double>& counts);

// total x P(lower <= X < upper) for X normal with the given moments, per category, through the
// host's NormDist; open ends take the tails.
std::vector<double> expectedNormalCounts(const std::vector<CategoryEdges>& edges, double total,
                                         const SampleMoments& moments, DistributionFunctions& functions);

}  // namespace orv
