#pragma once
// A command's dialog: the package's dialog file (dialogs/<Command>.xdl) with one control per
// option of the command that belongs in a dialog, the control's id being the option's name
// (command_options.h):
//   Flag        check box
//   Text        text field
//   Choice      combo box offering the texts the class knows; any other text may be typed
//   Byte, Long  numeric field without decimals, bounded by the property's type
//   DataType    list box of the enumeration's members in their order
//   DataRange   text field
//   OutputRange the option buttons "OutputNewSheet" and "OutputCell" with the text field
//               "OutputRange"; a new sheet stands for the empty reference
// OverWrite is a check box too. The dialog is filled from option values when it opens and read
// back into option values after OK, so that every control goes through the table.

#include <com/sun/star/awt/XControlContainer.hpp>
#include <com/sun/star/awt/XDialog.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include "calc/extension/command_options.h"

namespace orv::extension {

class OptionsDialog {
 public:
  // Makes the dialog (not shown yet) over the frame's window. UNO exceptions pass through.
  OptionsDialog(const css::uno::Reference<css::uno::XComponentContext>& context,
                const css::uno::Reference<css::frame::XFrame>& frame, const CommandInfo& command);

  void fill(const OptionValues& values);
  // Shows the dialog until the user closes it: true for OK.
  bool execute();
  OptionValues values() const;

 private:
  css::uno::Reference<css::beans::XPropertySet> model(std::string_view control) const;

  const CommandInfo& command_;
  css::uno::Reference<css::awt::XDialog> dialog_;
  css::uno::Reference<css::awt::XControlContainer> controls_;
};

}  // namespace orv::extension
