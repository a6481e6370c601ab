#pragma once
// OfficeConnection: the UNO connection to an office started by OfficeProcess.
//
// Construction waits until the office answers on its port, starting it again when it exits after
// making its profile (OfficeProcess::kRestartCode). It raises OfficeError, quoting the office's
// log, when the office exits otherwise or has not answered within the time allowed.
//
// Documents: `load` opens a file hidden (never shown, even where the office has a screen) with
// the office's import filter for its kind; `store` writes a document to a path with an export
// filter. Both raise OfficeError naming the file.

#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include <chrono>
#include <filesystem>
#include <string>

#include "calc/office_process.h"
#include "calc/uno_support.h"

namespace orv::calc {

using css::uno::Reference;

class OfficeConnection {
 public:
  OfficeConnection(OfficeProcess& office, std::chrono::seconds timeout);
  OfficeConnection(const OfficeConnection&) = delete;
  OfficeConnection& operator=(const OfficeConnection&) = delete;

  const Reference<css::uno::XComponentContext>& context() const { return context_; }
  const Reference<css::frame::XDesktop2>& desktop() const { return desktop_; }
  // `filterName` and `filterOptions` empty: the office picks the import filter itself.
  Reference<css::lang::XComponent> load(const std::filesystem::path& file, const std::string& filterName,
                                        const std::string& filterOptions) const;
  void store(const Reference<css::lang::XComponent>& document, const std::filesystem::path& file,
             const std::string& filterName) const;

 private:
  Reference<css::uno::XComponentContext> context_;
  Reference<css::frame::XDesktop2> desktop_;
};

// A file path as the office's URL ("file:///tmp/a%20b.xlsx").
OUString fileUrl(const std::filesystem::path& file);

}  // namespace orv::calc
