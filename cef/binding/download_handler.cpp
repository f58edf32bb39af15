// include/cef_download_handler.h over the C API.

#include "include/cef_download_handler.h"

#include "binding.h"
#include "keep_alives.h"

namespace cefbinding {
namespace {

class BeforeDownloadCallbackObject final : public LibraryObject<CefBeforeDownloadCallback> {
 public:
  explicit BeforeDownloadCallbackObject(Struct* object) : LibraryObject(object) {}

  void Continue(const CefString& download_path, bool show_dialog) override {
    Call(&Struct::cont, download_path, show_dialog);
  }
};

class DownloadItemCallbackObject final : public LibraryObject<CefDownloadItemCallback> {
 public:
  explicit DownloadItemCallbackObject(Struct* object) : LibraryObject(object) {}

  void Cancel() override { Call(&Struct::cancel); }
  void Pause() override { Call(&Struct::pause); }
  void Resume() override { Call(&Struct::resume); }
};

}  // namespace

template <>
CefRefPtr<CefBeforeDownloadCallback> Counterpart<CefBeforeDownloadCallback>::LibraryClass::Wrap(
    Struct* object) {
  return new BeforeDownloadCallbackObject(object);
}

template <>
CefRefPtr<CefDownloadItemCallback> Counterpart<CefDownloadItemCallback>::LibraryClass::Wrap(
    Struct* object) {
  return new DownloadItemCallbackObject(object);
}

template <>
void Counterpart<CefDownloadHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefDownloadHandler::CanDownload>(functions.can_download);
  // The engine wants to know whether the download is taken care of. With CEF 123 it always was: one
  // whose callback was let go without an answer got none of Chrome's own handling.
  functions.on_before_download = [](Struct* self, auto... arguments) {
    CallEntry<&CefDownloadHandler::OnBeforeDownload, void>(self, arguments...);
    return 1;
  };
  functions.on_download_updated = [](Struct* self, capi::cef_browser_t* browser,
                                     capi::cef_download_item_t* download_item,
                                     capi::cef_download_item_callback_t* item_callback) {
    const auto item = Rewrap<CefDownloadItem>(download_item);
    const auto callback = Rewrap<CefDownloadItemCallback>(item_callback);
    NoteDownload(item, callback);
    Contain([&] {
      ClientObject<CefDownloadHandler>::ObjectOf(self)->OnDownloadUpdated(
          Rewrap<CefBrowser>(browser), item, callback);
    });
  };
}

}  // namespace cefbinding
