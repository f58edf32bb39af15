// include/cef_download_handler.h over the C API.

#include "include/cef_download_handler.h"

#include <atomic>
#include <map>
#include <mutex>

#include "binding.h"
#include "keep_alives.h"

namespace cefbinding {
namespace {

// Downloads that are not over, by their numbers. CEF cancels one whose callback is let go without
// an answer, say its headers; the engine lets it run into a temporary file, and waits for it at its
// own end (CEF 123 does no less: see CefBeforeDownloadCallbackImpl in download_manager_delegate).
class Downloads {
 public:
  // The download goes on, and `callback` can cancel it.
  void Update(uint32_t number, const CefRefPtr<CefDownloadItemCallback>& callback) {
    {
      const std::lock_guard lock(mutex_);
      Download& download = downloads_[number];
      download.callback = callback;
      if (!download.is_dropped) {
        return;
      }
    }
    callback->Cancel();
  }
  // Nobody wants it.
  void Drop(uint32_t number) {
    CefRefPtr<CefDownloadItemCallback> callback;
    {
      const std::lock_guard lock(mutex_);
      Download& download = downloads_[number];
      download.is_dropped = true;
      callback = download.callback;
    }
    if (callback) {
      callback->Cancel();
    }
  }
  void Forget(uint32_t number) {
    const std::lock_guard lock(mutex_);
    downloads_.erase(number);
  }

 private:
  struct Download {
    CefRefPtr<CefDownloadItemCallback> callback;
    bool is_dropped = false;
  };

  std::mutex mutex_;
  std::map<uint32_t, Download> downloads_;
};

Downloads& RunningDownloads() {
  // Never destroyed: the engine's objects are not to be released when the process is gone.
  static auto* const downloads = new Downloads;
  return *downloads;
}

class BeforeDownloadCallbackObject final : public LibraryObject<CefBeforeDownloadCallback> {
 public:
  BeforeDownloadCallbackObject(Struct* object, uint32_t number)
      : LibraryObject(object), number_(number) {}
  ~BeforeDownloadCallbackObject() override {
    if (!is_answered_) {
      RunningDownloads().Drop(number_);
    }
  }

  void Continue(const CefString& download_path, bool show_dialog) override {
    is_answered_ = true;
    Call(&Struct::cont, download_path, show_dialog);
  }

 private:
  const uint32_t number_;
  std::atomic_bool is_answered_ = false;
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
CefRefPtr<CefDownloadItemCallback> Counterpart<CefDownloadItemCallback>::LibraryClass::Wrap(
    Struct* object) {
  return new DownloadItemCallbackObject(object);
}

template <>
void Counterpart<CefDownloadHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefDownloadHandler::CanDownload>(functions.can_download);
  // The engine wants to know whether the download is taken care of. With CEF 123 it always was: one
  // whose callback was let go without an answer got none of Chrome's own handling.
  functions.on_before_download = [](Struct* self, capi::cef_browser_t* browser,
                                    capi::cef_download_item_t* item,
                                    cef_string_utf16_t* suggested_name,
                                    capi::cef_before_download_callback_t* callback) {
    Contain([&] {
      const auto download = Rewrap<CefDownloadItem>(item);
      const CefRefPtr<CefBeforeDownloadCallback> answer =
          callback ? new BeforeDownloadCallbackObject(callback, download ? download->GetId() : 0)
                   : nullptr;
      ClientObject<CefDownloadHandler>::ObjectOf(self)->OnBeforeDownload(
          Rewrap<CefBrowser>(browser), download, CefString(suggested_name), answer);
    });
    return 1;
  };
  functions.on_download_updated = [](Struct* self, capi::cef_browser_t* browser,
                                     capi::cef_download_item_t* item,
                                     capi::cef_download_item_callback_t* structure) {
    Contain([&] {
      const auto download = Rewrap<CefDownloadItem>(item);
      const auto callback = Rewrap<CefDownloadItemCallback>(structure);
      if (download) {
        NoteDownload(download, callback);
        if (download->IsInProgress()) {
          RunningDownloads().Update(download->GetId(), callback);
        } else {
          RunningDownloads().Forget(download->GetId());
        }
      }
      ClientObject<CefDownloadHandler>::ObjectOf(self)->OnDownloadUpdated(
          Rewrap<CefBrowser>(browser), download, callback);
    });
  };
}

}  // namespace cefbinding
