// The functions the office's shared-library loader looks up in the extension's library
// (orvella.components names the library and the one implementation it holds). They are the
// only symbols the library exports.

#include <uno/environment.h>
#include <uno/lbnames.h>
#include <cppuhelper/factory.hxx>
#include <cppuhelper/implementationentry.hxx>

#include "calc/extension/protocol_handler.h"

namespace {

css::uno::Reference<css::uno::XInterface> SAL_CALL
create(const css::uno::Reference<css::uno::XComponentContext>& context) {
  return static_cast<cppu::OWeakObject*>(new orv::extension::ProtocolHandler(context));
}

const cppu::ImplementationEntry kEntries[] = {
    {create, orv::extension::ProtocolHandler::implementationName, orv::extension::ProtocolHandler::serviceNames,
     cppu::createSingleComponentFactory, nullptr, 0},
    {nullptr, nullptr, nullptr, nullptr, nullptr, 0},
};

}  // namespace

extern "C" SAL_DLLPUBLIC_EXPORT void* SAL_CALL component_getFactory(const char* implementationName,
                                                                    void* serviceManager, void* registryKey) {
  return cppu::component_getFactoryHelper(implementationName, serviceManager, registryKey, kEntries);
}

extern "C" SAL_DLLPUBLIC_EXPORT void SAL_CALL component_getImplementationEnvironment(const char** environmentTypeName,
                                                                                     uno_Environment**) {
  *environmentTypeName = CPPU_CURRENT_LANGUAGE_BINDING_NAME;
}
