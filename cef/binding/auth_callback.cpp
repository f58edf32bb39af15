// include/cef_auth_callback.h over the C API.

#include "include/cef_auth_callback.h"

#include "binding.h"

namespace cefbinding {
namespace {

class AuthCallbackObject final : public LibraryObject<CefAuthCallback> {
 public:
  explicit AuthCallbackObject(Struct* object) : LibraryObject(object) {}

  void Continue(const CefString& username, const CefString& password) override {
    Call(&Struct::cont, username, password);
  }
  void Cancel() override { Call(&Struct::cancel); }
};

}  // namespace

template <>
CefRefPtr<CefAuthCallback> Counterpart<CefAuthCallback>::LibraryClass::Wrap(Struct* object) {
  return new AuthCallbackObject(object);
}

}  // namespace cefbinding
