#pragma once
// HostSession: the process-wide link to the running host, and two small services of the add-in.

#include <optional>
#include <string>
#include <string_view>

#include "frame/cell_value.h"

namespace orv {

class Application;

class HostSession {
 public:
  // The host application every range lookup, worksheet function and chart call goes through.
  // "Object required" (424) when no host is attached.
  static orv::Application& Application();
  // Attaches the host that runs the component (nullptr detaches). The caller keeps ownership.
  static void Attach(orv::Application* host);

  // The ordinal of the whole number in `text`: "1st", "2nd", "3rd", "4th", "11th", "12th",
  // "13th", "21st", "101st", "111th". Blanks around the number are dropped and a sign is kept
  // ("-1st"). A text that holds no whole number ("", "2.5", "abc") is returned unchanged.
  static std::string Ordinal(std::string_view text);

  // True exactly when a stored value was never assigned or holds nothing.
  static bool IsUnassigned(const CellValue& value) { return value.isEmpty(); }
  template <class T>
  static bool IsUnassigned(const std::optional<T>& value) {
    return !value.has_value();
  }
};

}  // namespace orv
