#pragma once
// A dispatch's arguments as UNO delivers them (PropertyValue: a name and an Any) in the form
// dispatch_arguments.h checks.

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/uno/Sequence.hxx>

#include <vector>

#include "calc/extension/dispatch_arguments.h"

namespace orv::extension {

std::vector<Argument> argumentsOf(const css::uno::Sequence<css::beans::PropertyValue>& arguments);

}  // namespace orv::extension
