#include "frequency/histogram_series.h"

#include <cmath>

#include "frame/conversions.h"
#include "frame/numerics.h"

namespace orv {
namespace {

// A data cell as binned counting reads it; nothing for a cell that is no number.
std::optional<double> observation(const CellValue& cell) {
  if (cell.isEmpty()) return 0.0;
  if (cell.isNumber()) return cell.number();
  if (cell.isText()) return parsePlainNumber(cell.text());
  return std::nullopt;
}

// Two passes (mean, then squared deviations), so large values far from zero keep their spread.
std::optional<SampleMoments> momentsOf(const std::vector<double>& x, const std::vector<double>& w) {
  double n = 0;
  double sum = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    n += w[i];
    sum += w[i] * x[i];
  }
  if (n < 2) return std::nullopt;
  const double mean = divide(sum, n);
  double squares = 0;
  for (std::size_t i = 0; i < x.size(); ++i) squares += w[i] * (x[i] - mean) * (x[i] - mean);
  const double sd = squareRoot(divide(checked(squares), n - 1));
  if (!(sd > 0)) return std::nullopt;
  return SampleMoments{mean, sd};
}

}  // namespace

std::vector<CategoryEdges> binnedCategoryEdges(const std::vector<double>& values, CategoryFlags flags) {
  const std::size_t k = values.size();
  std::vector<CategoryEdges> edges(k);
  const std::size_t firstBin = flags.LessThanCatUsed ? 1 : 0;
  for (std::size_t i = 0; i < k; ++i) {
    if (!(i == 0 && flags.LessThanCatUsed)) edges[i].lower = values[i];
    if (i + 1 < k) edges[i].upper = values[i + 1];
  }
  // The last category: open when marked or alone among the bins, else one width high.
  if (k > 0 && !flags.GreaterThanCatUsed && k - firstBin >= 2) {
    edges[k - 1].upper = values[k - 1] + (values[k - 1] - values[k - 2]);
  }
  return edges;
}

std::vector<std::string> rangeLabels(const std::vector<CategoryEdges>& edges) {
  std::vector<std::string> labels;
  labels.reserve(edges.size());
  for (const CategoryEdges& e : edges) {
    if (!e.lower && e.upper) {
      labels.push_back("<" + numberToText(*e.upper));
    } else if (e.lower && !e.upper) {
      labels.push_back(">=" + numberToText(*e.lower));
    } else if (e.lower && e.upper) {
      labels.push_back(numberToText(*e.lower) + " - " + numberToText(*e.upper));
    } else {
      labels.emplace_back();
    }
  }
  return labels;
}

std::optional<SampleMoments> sampleMoments(const ValueArray1D& data, const std::optional<ValueArray1D>& weights,
                                           EmptyCells empty) {
  std::vector<double> x;
  std::vector<double> w;
  for (std::int32_t i = 1; i <= data.size(); ++i) {
    if (empty == EmptyCells::Skipped && data(i).isEmpty()) continue;
    const std::optional<double> value = observation(data(i));
    if (!value) return std::nullopt;
    double weight = 1;
    if (weights) {
      if (i > weights->size()) return std::nullopt;
      const std::optional<double> given = observation((*weights)(i));
      if (!given) return std::nullopt;
      weight = roundHalfEven(*given);
    }
    x.push_back(*value);
    w.push_back(weight);
  }
  return momentsOf(x, w);
}

std::optional<SampleMoments> groupedMoments(const std::vector<CategoryEdges>& edges,
                                            const std::vector<double>& counts) {
  std::vector<double> x;
  std::vector<double> w;
  for (std::size_t i = 0; i < edges.size() && i < counts.size(); ++i) {
    const CategoryEdges& e = edges[i];
    if (!e.lower && !e.upper) return std::nullopt;
    x.push_back(e.lower && e.upper ? (*e.lower + *e.upper) / 2 : (e.lower ? *e.lower : *e.upper));
    w.push_back(counts[i]);
  }
  return momentsOf(x, w);
}

std::vector<double> expectedNormalCounts(const std::vector<CategoryEdges>& edges, double total,
                                         const SampleMoments& moments, DistributionFunctions& functions) {
  const auto below = [&](const std::optional<double>& edge, double open) {
    return edge ? functions.NormDist(*edge, moments.mean, moments.standardDeviation, true) : open;
  };
  std::vector<double> counts;
  counts.reserve(edges.size());
  for (const CategoryEdges& e : edges) {
    counts.push_back(multiply(total, below(e.upper, 1.0) - below(e.lower, 0.0)));
  }
  return counts;
}

}  // namespace orv
