#pragma once
// The worksheet functions of the live host: the office's own functions through its
// com.sun.star.sheet.FunctionAccess service (TINV, NORMDIST, CHIINV, MIN, MAX). A function the
// office refuses, or a result that is no finite number, is a host failure (1004) "Unable to get
// the <function> property of the WorksheetFunction class", as in the in-memory host.
//
// Min and Max hand the office the cells themselves, one argument an area, after sending the
// sheet's pending values, so that texts, Booleans and empty cells are ignored and an error value
// fails exactly as the office's MIN and MAX decide.
//
// Threads: the office's object model belongs to the thread that called Results. The calculation
// objects may still call TInv, NormDist and ChiInv from helper threads; those calls are
// serialised here, one remote call at a time.

#include <com/sun/star/sheet/XFunctionAccess.hpp>

#include <mutex>
#include <string_view>
#include <vector>

#include "calc/uno_support.h"
#include "frame/host.h"

namespace orv::calc {

using css::uno::Reference;

class CalcWorksheetFunctions final : public WorksheetFunction {
 public:
  explicit CalcWorksheetFunctions(Reference<css::sheet::XFunctionAccess> functions);

  double TInv(double probability, double degreesOfFreedom) override;
  double NormDist(double x, double mean, double standardDeviation, bool cumulative) override;
  double ChiInv(double probability, double degreesOfFreedom) override;
  double Min(const Range& range) override;
  double Max(const Range& range) override;

 private:
  double call(std::string_view name, std::string_view officeName, const std::vector<css::uno::Any>& arguments);

  Reference<css::sheet::XFunctionAccess> functions_;
  std::mutex mutex_;
};

}  // namespace orv::calc
