#include "calc/extension/options_dialog.h"

#include <com/sun/star/awt/XControl.hpp>
#include <com/sun/star/awt/XDialogProvider2.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>

#include "calc/extension/extension_identity.h"
#include "calc/uno_support.h"

namespace orv::extension {

using ::rtl::OUString;

namespace {

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

constexpr std::string_view kNewSheet = "OutputNewSheet";
constexpr std::string_view kOutputCell = "OutputCell";

sal_Int16 checkState(bool on) { return on ? 1 : 0; }

css::uno::Sequence<OUString> texts(std::span<const std::string_view> items) {
  css::uno::Sequence<OUString> out(static_cast<sal_Int32>(items.size()));
  for (std::size_t i = 0; i < items.size(); ++i) out.getArray()[i] = calc::toUno(items[i]);
  return out;
}

}  // namespace

OptionsDialog::OptionsDialog(const Reference<css::uno::XComponentContext>& context,
                             const Reference<css::frame::XFrame>& frame, const CommandInfo& command)
    : command_(command) {
  const Reference<css::awt::XDialogProvider2> provider(
      context->getServiceManager()->createInstanceWithContext("com.sun.star.awt.DialogProvider2", context),
      UNO_QUERY_THROW);
  css::uno::Sequence<css::beans::NamedValue> arguments(1);
  arguments.getArray()[0].Name = "ParentWindow";
  arguments.getArray()[0].Value <<= Reference<css::awt::XWindowPeer>(frame->getContainerWindow(), UNO_QUERY_THROW);
  dialog_ = provider->createDialogWithArguments(calc::toUno(dialogUrl(command.name)), arguments);
  if (!dialog_.is()) throw css::uno::RuntimeException("the package holds no dialog for " + calc::toUno(command.name));
  controls_.set(dialog_, UNO_QUERY_THROW);
  dialog_->setTitle(calc::toUno(command.title));
}

Reference<css::beans::XPropertySet> OptionsDialog::model(std::string_view control) const {
  const Reference<css::awt::XControl> found = controls_->getControl(calc::toUno(control));
  if (!found.is()) throw css::uno::RuntimeException("the dialog has no control " + calc::toUno(control));
  return Reference<css::beans::XPropertySet>(found->getModel(), UNO_QUERY_THROW);
}

void OptionsDialog::fill(const OptionValues& values) {
  for (const PropertyInfo& option : command_.options) {
    const auto given = values.find(option.name);
    if (!option.inDialog || given == values.end()) continue;
    const Reference<css::beans::XPropertySet> m = model(option.name);
    const OptionValue& v = given->second;
    switch (option.kind) {
      case Kind::Flag: m->setPropertyValue("State", Any(checkState(std::get<bool>(v)))); break;
      case Kind::Choice:
        m->setPropertyValue("StringItemList", Any(texts(option.choices)));
        m->setPropertyValue("Text", Any(calc::toUno(std::get<std::string>(v))));
        break;
      case Kind::Text:
      case Kind::DataRange: m->setPropertyValue("Text", Any(calc::toUno(std::get<std::string>(v)))); break;
      case Kind::OutputRange: {
        const std::string& cell = std::get<std::string>(v);
        m->setPropertyValue("Text", Any(calc::toUno(cell)));
        model(kNewSheet)->setPropertyValue("State", Any(checkState(cell.empty())));
        model(kOutputCell)->setPropertyValue("State", Any(checkState(!cell.empty())));
        break;
      }
      case Kind::Byte:
      case Kind::Long: {
        const WholeRange range = wholeRangeOf(option.kind);
        m->setPropertyValue("ValueMin", Any(static_cast<double>(range.least)));
        m->setPropertyValue("ValueMax", Any(static_cast<double>(range.most)));
        m->setPropertyValue("Value", Any(static_cast<double>(std::get<std::int64_t>(v))));
        break;
      }
      case Kind::DataType: {
        css::uno::Sequence<sal_Int16> selected(1);
        selected.getArray()[0] = static_cast<sal_Int16>(std::get<std::int64_t>(v));
        m->setPropertyValue("SelectedItems", Any(selected));
        break;
      }
    }
  }
}

bool OptionsDialog::execute() { return dialog_->execute() == 1; }

OptionValues OptionsDialog::values() const {
  OptionValues values;
  for (const PropertyInfo& option : command_.options) {
    if (!option.inDialog) continue;
    const Reference<css::beans::XPropertySet> m = model(option.name);
    switch (option.kind) {
      case Kind::Flag: values[std::string(option.name)] = m->getPropertyValue("State").get<sal_Int16>() == 1; break;
      case Kind::Text:
      case Kind::Choice:
      case Kind::DataRange:
        values[std::string(option.name)] = calc::fromUno(m->getPropertyValue("Text").get<OUString>());
        break;
      case Kind::OutputRange: {
        const bool newSheet = model(kNewSheet)->getPropertyValue("State").get<sal_Int16>() == 1;
        values[std::string(option.name)] =
            newSheet ? std::string() : calc::fromUno(m->getPropertyValue("Text").get<OUString>());
        break;
      }
      case Kind::Byte:
      case Kind::Long: {
        // An emptied field has no value: the property's initial one stands.
        const Any value = m->getPropertyValue("Value");
        values[std::string(option.name)] =
            value.hasValue() ? static_cast<std::int64_t>(value.get<double>()) : std::get<std::int64_t>(option.initial);
        break;
      }
      case Kind::DataType: {
        const css::uno::Sequence<sal_Int16> selected =
            m->getPropertyValue("SelectedItems").get<css::uno::Sequence<sal_Int16>>();
        values[std::string(option.name)] = static_cast<std::int64_t>(selected.hasElements() ? selected[0] : 0);
        break;
      }
    }
  }
  return values;
}

}  // namespace orv::extension
