// include/cef_resource_handler.h over the C API.

#include "include/cef_resource_handler.h"

#include "binding.h"

namespace cefbinding {
namespace {

class ResourceSkipCallbackObject final : public LibraryObject<CefResourceSkipCallback> {
 public:
  explicit ResourceSkipCallbackObject(Struct* object) : LibraryObject(object) {}

  void Continue(int64_t bytes_skipped) override { Call(&Struct::cont, bytes_skipped); }
};

class ResourceReadCallbackObject final : public LibraryObject<CefResourceReadCallback> {
 public:
  explicit ResourceReadCallbackObject(Struct* object) : LibraryObject(object) {}

  void Continue(int bytes_read) override { Call(&Struct::cont, bytes_read); }
};

}  // namespace

template <>
CefRefPtr<CefResourceSkipCallback> Counterpart<CefResourceSkipCallback>::LibraryClass::Wrap(
    Struct* object) {
  return new ResourceSkipCallbackObject(object);
}

template <>
CefRefPtr<CefResourceReadCallback> Counterpart<CefResourceReadCallback>::LibraryClass::Wrap(
    Struct* object) {
  return new ResourceReadCallbackObject(object);
}

template <>
void Counterpart<CefResourceHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefResourceHandler::Open>(functions.open);
  cefbinding::Bind<&CefResourceHandler::ProcessRequest>(functions.process_request);
  cefbinding::Bind<&CefResourceHandler::GetResponseHeaders>(functions.get_response_headers);
  cefbinding::Bind<&CefResourceHandler::Skip>(functions.skip);
  cefbinding::Bind<&CefResourceHandler::Read>(functions.read);
  cefbinding::Bind<&CefResourceHandler::ReadResponse>(functions.read_response);
  cefbinding::Bind<&CefResourceHandler::Cancel>(functions.cancel);
}

}  // namespace cefbinding
