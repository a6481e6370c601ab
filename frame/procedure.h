#pragma once
// The error trap every procedure of the component runs inside.
//
// A failure anywhere below leaves the procedure as a ComponentError whose number and description
// are those of the first failure, and whose source is "Line 0 in ORVDescriptives.<class>.<proc>".
// Because every level re-stamps the source, the caller sees the outermost procedure.
//
//   double clsDSBO::Mean() { return kProc("Mean", [&] { ... }); }

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "frame/errors.h"

namespace orv {

// "Line 0 in ORVDescriptives.clsDS.Results"
std::string procedureSource(std::string_view cls, std::string_view proc);

// How a trap treats a source that is already there.
enum class SourceRule {
  Replace,          // every procedure: the source becomes this procedure's
  AppendAfterLine,  // a source that already holds "Line " gets "." + procedure appended instead
};

// Re-stamps an error that passes through procedure `proc` of class `cls`.
ComponentError restamp(const ComponentError& e, std::string_view cls, std::string_view proc, SourceRule rule);

class Procedures {
 public:
  constexpr explicit Procedures(std::string_view cls, SourceRule rule = SourceRule::Replace) : cls_(cls), rule_(rule) {}

  template <class Body>
  decltype(auto) operator()(std::string_view proc, Body&& body) const {
    try {
      return std::forward<Body>(body)();
    } catch (const ComponentError& e) {
      throw restamp(e, cls_, proc, rule_);
    } catch (const std::bad_alloc&) {
      throw ComponentError(err::kOutOfMemory, procedureSource(cls_, proc),
                           std::string(err::standardDescription(err::kOutOfMemory)));
    }
  }

  std::string_view className() const { return cls_; }

 private:
  std::string_view cls_;
  SourceRule rule_;
};

}  // namespace orv
