#include "calc/office_services.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>

#include <string>

namespace orv::calc {

Reference<css::uno::XInterface> createService(const Reference<css::uno::XComponentContext>& context,
                                              const char* service) {
  return remote(std::string("create the office service ") + service, [&] {
    Reference<css::uno::XInterface> made =
        context->getServiceManager()->createInstanceWithContext(OUString::createFromAscii(service), context);
    if (!made.is()) raiseHost(std::string("The office has no service ") + service);
    return made;
  });
}

Reference<css::lang::XComponent> newHiddenSpreadsheet(const Reference<css::uno::XComponentContext>& context) {
  return remote("make a new spreadsheet document", [&] {
    const Reference<css::frame::XComponentLoader> loader(css::frame::Desktop::create(context),
                                                         css::uno::UNO_QUERY_THROW);
    css::uno::Sequence<css::beans::PropertyValue> args(1);
    args.getArray()[0].Name = "Hidden";
    args.getArray()[0].Value <<= true;
    Reference<css::lang::XComponent> document =
        loader->loadComponentFromURL("private:factory/scalc", "_blank", 0, args);
    if (!document.is()) raiseHost("The office made no spreadsheet document");
    return document;
  });
}

}  // namespace orv::calc
