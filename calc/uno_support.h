#pragma once
// Small bridges between the component's types and UNO's: texts both ways, cell blocks from the
// office's range addresses, and UNO exceptions turned into the component's host failures, so that
// nothing the office raises escapes the component's error convention.

#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <com/sun/star/uno/Exception.hpp>
#include <com/sun/star/uno/RuntimeException.hpp>
#include <rtl/ustring.hxx>

#include <string>
#include <string_view>

#include "frame/errors.h"
#include "frame/reference.h"

namespace orv::calc {

namespace css = ::com::sun::star;
using ::rtl::OString;
using ::rtl::OUString;

// UTF-8 to and from the office's UTF-16 texts.
OUString toUno(std::string_view utf8);
std::string fromUno(const OUString& text);

// The office's 0-based range address as the component's 1-based block (the sheet index apart).
CellBlock blockOf(const css::table::CellRangeAddress& address);

// The description of a host failure caused by a UNO exception: what was being done and what
// the office said. A lost connection (the bridge disposed, or the socket closed during a call)
// says so in words a user can act on.
std::string failureText(std::string_view what, const css::uno::Exception& e, bool disposed = false);

// Runs `body`, which talks to the office; a UNO exception leaves as a host failure (1004) that
// names what was being done: `what` is a verb phrase ("read the cells of Data!$A$1:$B$3"). The
// component's own errors pass through unchanged.
template <class Body>
decltype(auto) remote(std::string_view what, Body&& body) {
  try {
    return body();
  } catch (const css::lang::DisposedException& e) {
    raiseHost(failureText(what, e, true));
  } catch (const css::uno::Exception& e) {
    raiseHost(failureText(what, e));
  }
}

}  // namespace orv::calc
