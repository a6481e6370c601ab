#include "xlsx/reader_errors.h"

#include "frame/errors.h"

namespace orv {

std::string unreadableDescription(const std::filesystem::path& file, std::string_view what) {
  std::string s = "\"";
  s.append(file.filename().string()).append("\" ").append(what).append(". ");
  s.append(kAcceptedFiles);
  return s;
}

void raiseUnreadable(const std::filesystem::path& file, std::string_view what) {
  raise(err::kFileUnreadable, unreadableDescription(file, what));
}

void raiseDamaged(std::string_view detail) { raise(err::kFileUnreadable, detail); }

}  // namespace orv
