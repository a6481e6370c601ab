#include "calc/uno_support.h"

namespace orv::calc {

OUString toUno(std::string_view utf8) {
  return OUString(utf8.data(), static_cast<sal_Int32>(utf8.size()), RTL_TEXTENCODING_UTF8);
}

std::string fromUno(const OUString& text) {
  const OString utf8 = OUStringToOString(text, RTL_TEXTENCODING_UTF8);
  return std::string(utf8.getStr(), static_cast<std::size_t>(utf8.getLength()));
}

CellBlock blockOf(const css::table::CellRangeAddress& a) {
  return CellBlock{a.StartRow + 1, a.StartColumn + 1, a.EndRow + 1, a.EndColumn + 1};
}

namespace {

// The bridge raises DisposedException once the office's end has gone, and a plain
// RuntimeException naming the bridge while a call was in flight when the socket closed.
bool isConnectionLoss(const std::string& message) {
  return message.find("URP bridge") != std::string::npos || message.find("Connection lost") != std::string::npos ||
         message.find("broken pipe") != std::string::npos;
}

}  // namespace

std::string failureText(std::string_view what, const css::uno::Exception& e, bool disposed) {
  const std::string message = fromUno(e.Message);
  if (disposed || isConnectionLoss(message)) {
    return "Lost the connection to the office (it has stopped) while trying to " + std::string(what);
  }
  std::string text = "The office could not " + std::string(what);
  if (!message.empty()) text += ": " + message;
  return text;
}

}  // namespace orv::calc
