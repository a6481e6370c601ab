#pragma once
// The names by which the office knows the extension. They must agree with the package's files:
// the identifier with description.xml, the implementation name with orvella.components and
// ProtocolHandler.xcu, the protocol with ProtocolHandler.xcu and Addons.xcu.

#include <string>
#include <string_view>

namespace orv::extension {

inline constexpr std::string_view kExtensionIdentifier = "org.orvella.statistics";
inline constexpr std::string_view kImplementationName = "org.orvella.statistics.ProtocolHandler";
inline constexpr std::string_view kProtocol = "vnd.orvella:";

// Where the office finds a command's dialog inside the installed package.
inline std::string dialogUrl(std::string_view command) {
  return "vnd.sun.star.extension://" + std::string(kExtensionIdentifier) + "/dialogs/" + std::string(command) + ".xdl";
}

}  // namespace orv::extension
