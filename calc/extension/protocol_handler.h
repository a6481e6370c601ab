#pragma once
// The extension's entry point in the office: the handler of "vnd.orvella:" URLs, made by the
// office for every frame that dispatches one (ProtocolHandler.xcu), the frame arriving through
// initialize.
//
// "vnd.orvella:Describe", "vnd.orvella:Circular" and "vnd.orvella:Frequency" run the command on
// the frame's spreadsheet document:
//   - with arguments (named as the class's properties, dispatch_arguments.h), at once, without
//     a dialog or a message box: what a macro or a test asks for;
//   - without, through the command's dialog (options_dialog.h), filled with the class's initial
//     options and the current selection as input; OK runs the command, a failure is shown in a
//     message box in the words the orvella command prints, and the dialog comes back with the
//     values as they were, until the run succeeds or the user cancels. When the kept arithmetic
//     rules changed values of a successful run, one information box says so in the sentences the
//     command prints as warnings.
// A dispatch with notification always ends with dispatchFinished, whatever happened, its result
// a sequence of texts: SUCCESS with the pasted block's reference ("Sheet2!$A$1:$D$7") followed
// by one sentence per note, FAILURE with the one sentence saying why, DONTKNOW with none when
// the dialog was cancelled (nothing was done).

#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/frame/XNotifyingDispatch.hpp>
#include <com/sun/star/lang/XInitialization.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cppuhelper/implbase4.hxx>
#include <cppuhelper/weakref.hxx>

namespace orv::extension {

class ProtocolHandler final
    : public cppu::WeakImplHelper4<css::frame::XDispatchProvider, css::frame::XNotifyingDispatch,
                                   css::lang::XInitialization, css::lang::XServiceInfo> {
 public:
  explicit ProtocolHandler(css::uno::Reference<css::uno::XComponentContext> context);

  static rtl::OUString implementationName();
  static css::uno::Sequence<rtl::OUString> serviceNames();

  // XInitialization
  void SAL_CALL initialize(const css::uno::Sequence<css::uno::Any>& arguments) override;

  // XDispatchProvider
  css::uno::Reference<css::frame::XDispatch> SAL_CALL queryDispatch(const css::util::URL& url,
                                                                    const rtl::OUString& targetFrame,
                                                                    sal_Int32 searchFlags) override;
  css::uno::Sequence<css::uno::Reference<css::frame::XDispatch>> SAL_CALL
  queryDispatches(const css::uno::Sequence<css::frame::DispatchDescriptor>& requests) override;

  // XDispatch
  void SAL_CALL dispatch(const css::util::URL& url,
                         const css::uno::Sequence<css::beans::PropertyValue>& arguments) override;
  void SAL_CALL addStatusListener(const css::uno::Reference<css::frame::XStatusListener>& listener,
                                  const css::util::URL& url) override;
  void SAL_CALL removeStatusListener(const css::uno::Reference<css::frame::XStatusListener>& listener,
                                     const css::util::URL& url) override;

  // XNotifyingDispatch
  void SAL_CALL
  dispatchWithNotification(const css::util::URL& url, const css::uno::Sequence<css::beans::PropertyValue>& arguments,
                           const css::uno::Reference<css::frame::XDispatchResultListener>& listener) override;

  // XServiceInfo
  rtl::OUString SAL_CALL getImplementationName() override;
  sal_Bool SAL_CALL supportsService(const rtl::OUString& name) override;
  css::uno::Sequence<rtl::OUString> SAL_CALL getSupportedServiceNames() override;

 private:
  css::uno::Reference<css::uno::XComponentContext> context_;
  css::uno::WeakReference<css::frame::XFrame> frame_;
};

}  // namespace orv::extension
