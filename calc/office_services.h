#pragma once
// What the host needs of an office, given its component context: services by name and new
// hidden documents. The same whether the host runs in a process of its own connected to an
// office (office_connection.h) or inside the office.

#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include "calc/uno_support.h"

namespace orv::calc {

using css::uno::Reference;

// A new instance of a service of the office, such as "com.sun.star.sheet.FunctionAccess"; a
// host failure when the office has none.
Reference<css::uno::XInterface> createService(const Reference<css::uno::XComponentContext>& context,
                                              const char* service);

// A new, empty spreadsheet document that is never shown.
Reference<css::lang::XComponent> newHiddenSpreadsheet(const Reference<css::uno::XComponentContext>& context);

}  // namespace orv::calc
