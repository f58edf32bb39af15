// include/cef_frame.h over the C API.

#include "include/cef_browser.h"
#include "include/cef_frame.h"

#include "binding.h"

namespace cefbinding {
namespace {

class FrameObject final : public LibraryObject<CefFrame> {
 public:
  explicit FrameObject(Struct* object) : LibraryObject(object) {}

  bool IsValid() override { return Call(&Struct::is_valid); }
  void Undo() override { Call(&Struct::undo); }
  void Redo() override { Call(&Struct::redo); }
  void Cut() override { Call(&Struct::cut); }
  void Copy() override { Call(&Struct::copy); }
  void Paste() override { Call(&Struct::paste); }
  void Delete() override { Call(&Struct::del); }
  void SelectAll() override { Call(&Struct::select_all); }
  void ViewSource() override { Call(&Struct::view_source); }
  void GetSource(CefRefPtr<CefStringVisitor> visitor) override {
    Call(&Struct::get_source, visitor);
  }
  void GetText(CefRefPtr<CefStringVisitor> visitor) override { Call(&Struct::get_text, visitor); }
  void LoadRequest(CefRefPtr<CefRequest> request) override { Call(&Struct::load_request, request); }
  void LoadURL(const CefString& url) override { Call(&Struct::load_url, Needed(url)); }
  void ExecuteJavaScript(const CefString& code,
                         const CefString& script_url,
                         int start_line) override {
    Call(&Struct::execute_java_script, Needed(code), script_url, start_line);
  }
  bool IsMain() override { return Call(&Struct::is_main); }
  bool IsFocused() override { return Call(&Struct::is_focused); }
  CefString GetName() override { return Call(&Struct::get_name); }
  CefString GetIdentifier() override { return Call(&Struct::get_identifier); }
  CefRefPtr<CefFrame> GetParent() override { return Call(&Struct::get_parent); }
  CefString GetURL() override { return Call(&Struct::get_url); }
  CefRefPtr<CefBrowser> GetBrowser() override { return Call(&Struct::get_browser); }
  void SendProcessMessage(CefProcessId target_process,
                          CefRefPtr<CefProcessMessage> message) override {
    Call(&Struct::send_process_message, target_process, message);
  }
};

}  // namespace

template <>
CefRefPtr<CefFrame> Counterpart<CefFrame>::LibraryClass::Wrap(Struct* object) {
  return new FrameObject(object);
}

}  // namespace cefbinding
