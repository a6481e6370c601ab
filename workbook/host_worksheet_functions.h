#pragma once
// The worksheet functions of the in-memory host, computed with Boost.Math under the spreadsheet
// functions' argument rules. Every argument fault and every result that cannot be represented
// is a host failure (1004) "Unable to get the <function> property of the WorksheetFunction class".
//
//   TInv(p, df)       p in (0, 1], df truncated, at least 1    two-tailed: TInv(0.05, 10) = 2.2281
//   NormDist(x, m, s) s > 0                                     cumulative or density
//   ChiInv(p, df)     p in (0, 1], df truncated, 1 to 10^10     upper tail: ChiInv(0.05, 1) = 3.8415
//   Min, Max          numbers of every area; texts, Booleans and empty cells ignored; 0 when the
//                     range holds no number; an error value fails
//
// TInv, NormDist and ChiInv keep no state and touch no host object, so they may be called from
// any thread at once; Min and Max read the sheet and belong to the calling thread like every
// other host call.

#include "frame/host.h"

namespace orv {

class HostWorksheetFunctions final : public WorksheetFunction {
 public:
  double TInv(double probability, double degreesOfFreedom) override;
  double NormDist(double x, double mean, double standardDeviation, bool cumulative) override;
  double ChiInv(double probability, double degreesOfFreedom) override;
  bool callableFromAnyThread() const override { return true; }
  double Min(const Range& range) override;
  double Max(const Range& range) override;
};

}  // namespace orv
