// include/cef_process_message.h over the C API.

#include "include/cef_process_message.h"

#include "binding.h"

namespace cefbinding {
namespace {

class ProcessMessageObject final : public LibraryObject<CefProcessMessage> {
 public:
  explicit ProcessMessageObject(Struct* object) : LibraryObject(object) {}

  bool IsValid() override { return Call(&Struct::is_valid); }
  bool IsReadOnly() override { return Call(&Struct::is_read_only); }
  CefRefPtr<CefProcessMessage> Copy() override { return Call(&Struct::copy); }
  CefString GetName() override { return Call(&Struct::get_name); }
  CefRefPtr<CefListValue> GetArgumentList() override { return Call(&Struct::get_argument_list); }
};

}  // namespace

template <>
CefRefPtr<CefProcessMessage> Counterpart<CefProcessMessage>::LibraryClass::Wrap(Struct* object) {
  return new ProcessMessageObject(object);
}

}  // namespace cefbinding

using cefbinding::CallEngine;
using cefbinding::Needed;

CefRefPtr<CefProcessMessage> CefProcessMessage::Create(const CefString& name) {
  return CallEngine(&capi::Functions::cef_process_message_create, Needed(name));
}
