#include "calc/extension/uno_arguments.h"

#include <limits>

#include "calc/uno_support.h"

namespace orv::extension {

using ::rtl::OUString;

namespace {

using css::uno::TypeClass;

ArgumentValue valueOf(const css::uno::Any& any) {
  switch (any.getValueTypeClass()) {
    case TypeClass::TypeClass_VOID: return std::monostate();
    case TypeClass::TypeClass_BOOLEAN: return any.get<bool>();
    case TypeClass::TypeClass_BYTE:
    case TypeClass::TypeClass_SHORT:
    case TypeClass::TypeClass_UNSIGNED_SHORT:
    case TypeClass::TypeClass_LONG:
    case TypeClass::TypeClass_UNSIGNED_LONG:
    case TypeClass::TypeClass_HYPER: return static_cast<std::int64_t>(any.get<sal_Int64>());
    case TypeClass::TypeClass_UNSIGNED_HYPER: {
      const sal_uInt64 n = any.get<sal_uInt64>();
      if (n <= static_cast<sal_uInt64>(std::numeric_limits<std::int64_t>::max())) return static_cast<std::int64_t>(n);
      return static_cast<double>(n);
    }
    case TypeClass::TypeClass_FLOAT:
    case TypeClass::TypeClass_DOUBLE: return any.get<double>();
    case TypeClass::TypeClass_STRING: return calc::fromUno(any.get<OUString>());
    default: return OtherType{calc::fromUno(any.getValueTypeName())};
  }
}

}  // namespace

std::vector<Argument> argumentsOf(const css::uno::Sequence<css::beans::PropertyValue>& arguments) {
  std::vector<Argument> converted;
  converted.reserve(static_cast<std::size_t>(arguments.getLength()));
  for (const css::beans::PropertyValue& p : arguments) converted.push_back({calc::fromUno(p.Name), valueOf(p.Value)});
  return converted;
}

}  // namespace orv::extension
