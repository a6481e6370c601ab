#include "frame/procedure.h"

namespace orv {

std::string procedureSource(std::string_view cls, std::string_view proc) {
  // The procedures carry no numbered lines, so the line part is always 0.
  std::string s = "Line 0 in ORVDescriptives.";
  s.append(cls).append(".").append(proc);
  return s;
}

ComponentError restamp(const ComponentError& e, std::string_view cls, std::string_view proc, SourceRule rule) {
  if (rule == SourceRule::AppendAfterLine && e.source().find("Line ") != std::string::npos) {
    std::string s = e.source();
    s.append(".").append(proc);
    return e.withSource(std::move(s));
  }
  return e.withSource(procedureSource(cls, proc));
}

}  // namespace orv
