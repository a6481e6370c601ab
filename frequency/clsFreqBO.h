#pragma once
// clsFreqBO: the calculation object of the frequency analysis, one per analysed variable.
//
// Set DataType, DataAreStartPoints, Data and, where given, Frequencies (weights) and Bin, call
// Analyse once, then read the five result arrays (indices 1..k) and the two flags. Input forms:
//   - Data without Bin: one category per distinct value (numerical: ascending, held as text) or
//     item (nominal: order of first appearance, exact and case-sensitive).
//   - Data with Bin (numerical only): bin b holds Bin(b) <= x < Bin(b+1), the last bin is open
//     upwards; a "<" category is put in front for values below the first bin, and with equal
//     bin widths (four-decimal fixed point) a ">=" category for values at or beyond the closed
//     top of the last bin. Empty data cells count as the value 0 here.
//   - Bin and Frequencies without Data: pre-counted, each bin gets the frequencies given for it.
// Weights are rounded half to even to 32-bit integers. Categories are compared by their text
// form (numberToText for numbers), so a number equals the category made from its own text.
//
// Errors (ComponentError, source "Line 0 in ORVDescriptives.clsFreqBO.<procedure>"):
//   5002 pre-counted without Bin, 5086 pre-counted without Frequencies; Overflow (6) beyond 32767
//   observations or bins (16-bit loop counters, deliberate) and for 32-bit count sums; a zero
//   total fails the percentages (11 or 6); Type mismatch (13) for nominal analysis without Data
//   and for a non-numeric text where a number is needed; Subscript out of range (9) for an empty
//   Data array or weights shorter than the data they weigh.
// Textbook (off by default) replaces the kept rules by textbook arithmetic: loops over observations
// and bins count in 64 bits (a whole sheet column), and an empty data cell is no observation in
// binned counting and in the proposed bins either. Sums of counts stay 32-bit.
//
// Nothing is cleared by Analyse: an object serves one analysis.

#include <cstdint>
#include <optional>

#include "frame/value_array.h"
#include "frequency/counting_rules.h"

namespace orv {

class clsFreqBO {  // NOLINT(readability-identifier-naming): the component's own class name
 public:
  clsFreqBO();  // numerical, nothing set

  // Each setter stores a copy and does nothing else.
  void Data(const ValueArray1D& data);
  void Frequencies(const ValueArray1D& weights);
  void Bin(const ValueArray1D& bins);
  void DataType(std::int32_t type);
  // Kept without effect: bin values are always the lower edges of their bins.
  void DataAreStartPoints(bool v);
  // Textbook arithmetic instead of the kept rules.
  void Textbook(bool v);

  // Copies of the results; empty arrays and False before Analyse.
  ValueArray1D Values() const;
  Array1D<std::int32_t> Counts() const;
  Array1D<std::int32_t> CumCounts() const;
  Array1D<double> Percents() const;
  Array1D<double> CumPercents() const;
  bool LessThanCatUsed() const;
  bool GreaterThanCatUsed() const;

  // AnalyseCategorical when DataType is non-zero, else AnalyseNumerical.
  void Analyse();
  void AnalyseNumerical();
  void AnalyseCategorical();

  // Counts per category. Exact mode: each category gets the weights of the data equal to it.
  // Binned mode: see above; may lengthen `categories` and sets the two flags.
  Array1D<std::int32_t> UniqueCounts(ValueArray1D& categories, const ValueArray1D& data, const ValueArray1D& weights,
                                     bool binned);
  // The distinct values of `data` as texts, ascending (numbers, then texts; an empty cell
  // makes no category unless every cell is empty).
  ValueArray1D UniqueNumbers(const ValueArray1D& data);
  // The distinct items in order of first appearance: the first datum as it stands (it always
  // makes a category, even empty), later ones as texts; an empty cell makes no category.
  ValueArray1D UniqueItems(const ValueArray1D& data);
  // Bins (texts, lower edges, equal width) that cover the data, or nothing when every value is
  // equal. The width is 2, 3, 5, 7.5 or 10 times a power of ten, giving about 10 bins, and never
  // less than the smallest gap between neighbouring values.
  std::optional<ValueArray1D> ProposeBins(const ValueArray1D& data);

 private:
  void cumulate();

  std::optional<ValueArray1D> data_;
  std::optional<ValueArray1D> frequencies_;
  std::optional<ValueArray1D> bin_;
  std::int32_t dataType_ = 0;
  CountingRules rules_;
  bool dataAreStartPoints_ = false;
  ValueArray1D values_;
  Array1D<std::int32_t> counts_;
  Array1D<std::int32_t> cumCounts_;
  Array1D<double> percents_;
  Array1D<double> cumPercents_;
  bool lessThanCatUsed_ = false;
  bool greaterThanCatUsed_ = false;
};

}  // namespace orv
