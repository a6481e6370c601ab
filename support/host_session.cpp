#include "support/host_session.h"

#include <cstddef>

#include "frame/errors.h"
#include "frame/host.h"
#include "frame/procedure.h"

namespace orv {
namespace {

constexpr Procedures kProc("HostSession");

// Non-owning: the program that runs the component owns its host and outlives every analysis.
orv::Application* attachedHost = nullptr;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view trimBlanks(std::string_view s) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

}  // namespace

orv::Application& HostSession::Application() {
  return kProc("Application", []() -> orv::Application& {
    if (attachedHost == nullptr) raise(err::kObjectRequired);
    return *attachedHost;
  });
}

void HostSession::Attach(orv::Application* host) { attachedHost = host; }

std::string HostSession::Ordinal(std::string_view text) {
  return kProc("Ordinal", [text] {
    const std::string_view number = trimBlanks(text);
    std::size_t first = 0;
    if (!number.empty() && (number.front() == '-' || number.front() == '+')) first = 1;
    const std::string_view digits = number.substr(first);
    bool whole = !digits.empty();
    for (char c : digits) whole = whole && isDigit(c);
    if (!whole) return std::string(text);

    // Only the last two digits decide the suffix, so a number of any length works without
    // converting it: 11, 12 and 13 (also 111, 212 ...) take "th" whatever their last digit.
    const int last = digits.back() - '0';
    const int tens = digits.size() >= 2 ? digits[digits.size() - 2] - '0' : 0;
    const char* suffix = "th";
    if (tens != 1) {
      if (last == 1) suffix = "st";
      if (last == 2) suffix = "nd";
      if (last == 3) suffix = "rd";
    }
    std::string out(number);
    out += suffix;
    return out;
  });
}

}  // namespace orv
