// include/cef_preference.h over the C API.

#include "include/cef_preference.h"

#include "preference_methods.h"

namespace cefbinding {
namespace {

class PreferenceManagerObject final : public PreferenceMethods<CefPreferenceManager> {
 public:
  explicit PreferenceManagerObject(Struct* object) : PreferenceMethods(object) {}
};

}  // namespace

template <>
CefRefPtr<CefPreferenceManager> Counterpart<CefPreferenceManager>::LibraryClass::Wrap(
    Struct* object) {
  return new PreferenceManagerObject(object);
}

}  // namespace cefbinding
