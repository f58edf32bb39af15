// include/cef_string_visitor.h over the C API.

#include "include/cef_string_visitor.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefStringVisitor>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefStringVisitor::Visit>(functions.visit);
}

}  // namespace cefbinding
