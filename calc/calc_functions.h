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
// Threads: the office's object model belongs to the thread that called Results, so the
// functions may not be called from any other (callableFromAnyThread is false, and the drivers
// then compute on the calling thread). A call from another thread is refused with a host failure
// naming the fault, rather than racing the component's own calls to the office.

#include <com/sun/star/sheet/XFunctionAccess.hpp>

#include <string_view>
#include <thread>
#include <vector>

#include "calc/uno_support.h"
#include "frame/host.h"

namespace orv::calc {

using css::uno::Reference;

class CalcWorksheetFunctions final : public WorksheetFunction {
 public:
  // The thread that constructs the service is the one whose calls it takes.
  explicit CalcWorksheetFunctions(Reference<css::sheet::XFunctionAccess> functions);

  double TInv(double probability, double degreesOfFreedom) override;
  double NormDist(double x, double mean, double standardDeviation, bool cumulative) override;
  double ChiInv(double probability, double degreesOfFreedom) override;
  double Min(const Range& range) override;
  double Max(const Range& range) override;
  bool callableFromAnyThread() const override { return false; }

 private:
  double call(std::string_view name, std::string_view officeName, const std::vector<css::uno::Any>& arguments);

  Reference<css::sheet::XFunctionAccess> functions_;
  std::thread::id owner_;
};

}  // namespace orv::calc
