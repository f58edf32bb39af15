// include/cef_registration.h over the C API.

#include "include/cef_registration.h"

#include "binding.h"

namespace cefbinding {
namespace {

class RegistrationObject final : public LibraryObject<CefRegistration> {
 public:
  explicit RegistrationObject(Struct* object) : LibraryObject(object) {}
};

}  // namespace

template <>
CefRefPtr<CefRegistration> Counterpart<CefRegistration>::LibraryClass::Wrap(Struct* object) {
  return new RegistrationObject(object);
}

}  // namespace cefbinding
