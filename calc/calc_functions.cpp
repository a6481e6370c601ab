#include "calc/calc_functions.h"

#include <com/sun/star/table/XCellRange.hpp>

#include <cmath>
#include <string>

#include "calc/calc_worksheet.h"

namespace orv::calc {
namespace {

using css::uno::Any;

[[noreturn]] void fail(std::string_view name) {
  raiseHost("Unable to get the " + std::string(name) + " property of the WorksheetFunction class");
}

}  // namespace

CalcWorksheetFunctions::CalcWorksheetFunctions(Reference<css::sheet::XFunctionAccess> functions)
    : functions_(std::move(functions)), owner_(std::this_thread::get_id()) {}

double CalcWorksheetFunctions::call(std::string_view name, std::string_view officeName,
                                    const std::vector<Any>& arguments) {
  if (std::this_thread::get_id() != owner_) {
    raiseHost("The office's " + std::string(officeName) +
              " was called from a thread other than the one that called Results; the office's objects "
              "belong to that thread alone");
  }
  double result = 0;
  bool number = false;
  try {
    const Any value = functions_->callFunction(
        toUno(officeName), css::uno::Sequence<Any>(arguments.data(), static_cast<sal_Int32>(arguments.size())));
    number = value >>= result;
  } catch (const css::lang::DisposedException& e) {
    raiseHost(failureText("compute " + std::string(officeName), e, true));
  } catch (const css::uno::RuntimeException& e) {
    // A lost connection is no fault of the arguments: say so rather than blame the function.
    const std::string text = failureText("compute " + std::string(officeName), e);
    if (text.rfind("Lost the connection", 0) == 0) raiseHost(text);
    fail(name);
  } catch (const css::uno::Exception&) {
    fail(name);
  }
  if (!number || !std::isfinite(result)) fail(name);
  return result;
}

double CalcWorksheetFunctions::TInv(double probability, double degreesOfFreedom) {
  return call("TInv", "TINV", {Any(probability), Any(degreesOfFreedom)});
}

// The office ignores a Boolean for the cumulative flag; it takes the number 1 or 0.
double CalcWorksheetFunctions::NormDist(double x, double mean, double standardDeviation, bool cumulative) {
  return call("NormDist", "NORMDIST", {Any(x), Any(mean), Any(standardDeviation), Any(cumulative ? 1.0 : 0.0)});
}

double CalcWorksheetFunctions::ChiInv(double probability, double degreesOfFreedom) {
  return call("ChiInv", "CHIINV", {Any(probability), Any(degreesOfFreedom)});
}

namespace {

std::vector<Any> areasOf(const Range& range) {
  auto* sheet = dynamic_cast<CalcWorksheet*>(&range.Parent());
  if (sheet == nullptr) raiseHost("A range of another host was given to the office's worksheet functions");
  sheet->flushValues();
  return remote("find the cells of " + range.AddressWithSheet(), [&] {
    std::vector<Any> areas;
    for (const CellBlock& a : range.areas()) {
      areas.emplace_back(Reference<css::table::XCellRange>(
          sheet->sheet()->getCellRangeByPosition(a.left - 1, a.top - 1, a.right - 1, a.bottom - 1)));
    }
    return areas;
  });
}

}  // namespace

double CalcWorksheetFunctions::Min(const Range& range) { return call("Min", "MIN", areasOf(range)); }

double CalcWorksheetFunctions::Max(const Range& range) { return call("Max", "MAX", areasOf(range)); }

}  // namespace orv::calc
