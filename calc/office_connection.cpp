#include "calc/office_connection.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/bridge/XUnoUrlResolver.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <osl/file.hxx>

#include <cstdlib>
#include <thread>
#include <vector>

namespace orv::calc {
namespace {

using css::beans::PropertyValue;
using css::uno::Any;
using css::uno::Sequence;
using css::uno::UNO_QUERY_THROW;

constexpr std::chrono::milliseconds kRetry{100};

// The client side of UNO, made once per process. Bootstrapping reads the office's fundamental
// settings through URE_BOOTSTRAP; without it the bootstrap fails inside the library. The context
// is never destroyed: the URE libraries must not be torn down while static objects unwind.
Reference<css::uno::XComponentContext> localContext() {
  static const auto* context = [] {
    ::setenv("URE_BOOTSTRAP", "vnd.sun.star.pathname:" ORV_OFFICE_PROGRAM_DIR "/fundamentalrc", 0);
    try {
      return new Reference<css::uno::XComponentContext>(cppu::defaultBootstrap_InitialComponentContext());
    } catch (const css::uno::Exception& e) {
      throw OfficeError("cannot start UNO in this process: " + fromUno(e.Message));
    }
  }();
  return *context;
}

PropertyValue property(const char* name, Any value) {
  PropertyValue p;
  p.Name = OUString::createFromAscii(name);
  p.Value = std::move(value);
  return p;
}

Sequence<PropertyValue> sequenceOf(const std::vector<PropertyValue>& properties) {
  return Sequence<PropertyValue>(properties.data(), static_cast<sal_Int32>(properties.size()));
}

std::string withLog(std::string message, const OfficeProcess& office) {
  const std::string log = office.logTail();
  if (!log.empty()) message += "; the office wrote:\n" + log;
  return message;
}

}  // namespace

OUString fileUrl(const std::filesystem::path& file) {
  OUString url;
  const std::string absolute = std::filesystem::absolute(file).lexically_normal().string();
  if (osl::FileBase::getFileURLFromSystemPath(toUno(absolute), url) != osl::FileBase::E_None) {
    throw OfficeError("cannot turn the path \"" + absolute + "\" into a URL for the office");
  }
  return url;
}

OfficeConnection::OfficeConnection(OfficeProcess& office, std::chrono::seconds timeout) {
  const Reference<css::bridge::XUnoUrlResolver> resolver = css::bridge::UnoUrlResolver::create(localContext());
  const OUString url = toUno("uno:" + office.connectionDescription() + ";StarOffice.ComponentContext");
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  bool restarted = false;
  while (!context_.is()) {
    if (const std::optional<int> code = office.exitCode()) {
      if (*code == OfficeProcess::kRestartCode && !restarted) {
        restarted = true;
        office.respawn();
        continue;
      }
      throw OfficeError(withLog("LibreOffice (process " + std::to_string(office.pid()) +
                                    ") stopped before it answered (exit code " + std::to_string(*code) + ")",
                                office));
    }
    try {
      context_.set(resolver->resolve(url), UNO_QUERY_THROW);
      break;
    } catch (const css::connection::NoConnectException&) {
      // Not listening yet.
    } catch (const css::uno::Exception& e) {
      throw OfficeError(withLog("cannot connect to LibreOffice: " + fromUno(e.Message), office));
    }
    if (std::chrono::steady_clock::now() > deadline) {
      throw OfficeError(withLog("LibreOffice (process " + std::to_string(office.pid()) + ") did not answer within " +
                                    std::to_string(timeout.count()) + " s",
                                office));
    }
    std::this_thread::sleep_for(kRetry);
  }
  try {
    desktop_ = css::frame::Desktop::create(context_);
  } catch (const css::uno::Exception& e) {
    throw OfficeError(withLog("LibreOffice answered but cannot be used: " + fromUno(e.Message), office));
  }
}

Reference<css::lang::XComponent> OfficeConnection::load(const std::filesystem::path& file,
                                                        const std::string& filterName,
                                                        const std::string& filterOptions) const {
  std::vector<PropertyValue> args = {
      property("Hidden", Any(true)),
      // A file from elsewhere runs no macros and updates no links to other files.
      property("MacroExecutionMode", Any(css::document::MacroExecMode::NEVER_EXECUTE)),
      property("UpdateDocMode", Any(css::document::UpdateDocMode::NO_UPDATE)),
  };
  if (!filterName.empty()) args.push_back(property("FilterName", Any(toUno(filterName))));
  if (!filterOptions.empty()) args.push_back(property("FilterOptions", Any(toUno(filterOptions))));
  const std::string name = file.string();
  Reference<css::lang::XComponent> document;
  try {
    const Reference<css::frame::XComponentLoader> loader(desktop_, UNO_QUERY_THROW);
    document = loader->loadComponentFromURL(fileUrl(file), "_blank", 0, sequenceOf(args));
  } catch (const css::uno::Exception& e) {
    throw OfficeError("LibreOffice cannot open \"" + name + "\": " + failureText("open it", e));
  }
  if (!document.is()) throw OfficeError("LibreOffice cannot open \"" + name + "\" as a spreadsheet");
  return document;
}

void OfficeConnection::store(const Reference<css::lang::XComponent>& document, const std::filesystem::path& file,
                             const std::string& filterName) const {
  const std::vector<PropertyValue> args = {property("FilterName", Any(toUno(filterName))),
                                           property("Overwrite", Any(true))};
  try {
    const Reference<css::frame::XStorable> storable(document, UNO_QUERY_THROW);
    storable->storeToURL(fileUrl(file), sequenceOf(args));
  } catch (const css::uno::Exception& e) {
    throw OfficeError("LibreOffice cannot write \"" + file.string() + "\": " + failureText("write it", e));
  }
}

}  // namespace orv::calc
