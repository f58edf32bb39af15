// include/cef_callback.h over the C API.

#include "include/cef_callback.h"

#include "binding.h"

namespace cefbinding {
namespace {

class CallbackObject final : public LibraryObject<CefCallback> {
 public:
  explicit CallbackObject(Struct* object) : LibraryObject(object) {}

  void Continue() override { Call(&Struct::cont); }
  void Cancel() override { Call(&Struct::cancel); }
};

}  // namespace

template <>
CefRefPtr<CefCallback> Counterpart<CefCallback>::LibraryClass::Wrap(Struct* object) {
  return new CallbackObject(object);
}

template <>
void Counterpart<CefCompletionCallback>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefCompletionCallback::OnComplete>(functions.on_complete);
}

}  // namespace cefbinding
