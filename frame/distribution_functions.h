#pragma once
// The distribution functions that the calculation objects need (Student's t, the normal and the
// chi-square distribution), as the host's worksheet functions provide them. A driver hands the
// host's service to each calculation object it creates; the objects never look for a host of
// their own.
//
// Threads: a calculation object may run on a helper thread, and then calls the service from
// there. A service says whether that is allowed: functions computed in-process without touching
// any host object (the in-memory host's) may be called from any thread at once; a live
// spreadsheet's may be called only from the thread that called Results. The default is the safe
// answer, no.

namespace orv {

class DistributionFunctions {
 public:
  virtual ~DistributionFunctions() = default;
  // Two-tailed inverse of Student's t: p in (0, 1], degrees of freedom truncated, at least 1.
  virtual double TInv(double probability, double degreesOfFreedom) = 0;
  // Normal distribution; cumulative or density.
  virtual double NormDist(double x, double mean, double standardDeviation, bool cumulative) = 0;
  // Upper-tail inverse of chi-square: p in (0, 1], degrees of freedom truncated, 1 to 10^10.
  virtual double ChiInv(double probability, double degreesOfFreedom) = 0;

  // True when the three functions above may be called from several threads at once.
  virtual bool callableFromAnyThread() const { return false; }
};

}  // namespace orv
