#pragma once
// How the file readers report a file they cannot take (kFileUnreadable, frame/errors.h).
//
// The description names the file, says what it is or what is wrong with it, and ends with what
// the readers accept, so that a person knows what to do next:
//   "data.xls" is a legacy binary workbook (.xls). Orvella reads .xlsx and .xlsm workbooks and
//   .csv, .tsv and .txt text files.

#include <filesystem>
#include <string>
#include <string_view>

namespace orv {

inline constexpr std::string_view kAcceptedFiles =
    "Orvella reads .xlsx and .xlsm workbooks and .csv, .tsv and .txt text files.";

// `"<file name>" <what>. <kAcceptedFiles>`; `what` starts lower case without a final stop.
std::string unreadableDescription(const std::filesystem::path& file, std::string_view what);

[[noreturn]] void raiseUnreadable(const std::filesystem::path& file, std::string_view what);

// For the parsers below the loader, which do not know the file: raises kFileUnreadable with
// `detail` alone; the loader puts the file name in front (see reader_workbook.cpp).
[[noreturn]] void raiseDamaged(std::string_view detail);

}  // namespace orv

namespace orv {

// Runs a reading step whose failures come from raiseDamaged and puts the file name in front of
// their detail, so that every kFileUnreadable leaving the step reads like raiseUnreadable's.
template <class Body>
decltype(auto) namingFile(const std::filesystem::path& file, Body&& body);

}  // namespace orv

#include "frame/errors.h"

template <class Body>
decltype(auto) orv::namingFile(const std::filesystem::path& file, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const ComponentError& e) {
    if (e.number() != err::kFileUnreadable) throw;
    throw ComponentError(e.number(), e.source(), unreadableDescription(file, e.description()));
  }
}
