// include/cef_response_filter.h over the C API.

#include "include/cef_response_filter.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefResponseFilter>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefResponseFilter::InitFilter>(functions.init_filter);
  cefbinding::Bind<&CefResponseFilter::Filter>(functions.filter);
}

}  // namespace cefbinding
