// include/cef_download_handler.h of CEF 123, as far as it is used here: callbacks about downloads.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_download_item.h"

// Continues a download. An empty path means the temporary folder under the suggested name.
class CefBeforeDownloadCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(const CefString& download_path, bool show_dialog) = 0;
};

// Cancels, pauses or resumes a running download.
class CefDownloadItemCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Cancel() = 0;
  virtual void Pause() = 0;
  virtual void Resume() = 0;
};

// Downloads, on the UI thread. A download that is not continued is saved nowhere, but stays in
// progress until it is cancelled.
class CefDownloadHandler : public virtual CefBaseRefCounted {
 public:
  virtual bool CanDownload(CefRefPtr<CefBrowser> /*browser*/,
                           const CefString& /*url*/,
                           const CefString& /*request_method*/) {
    return true;
  }
  virtual void OnBeforeDownload(CefRefPtr<CefBrowser> browser,
                                CefRefPtr<CefDownloadItem> download_item,
                                const CefString& suggested_name,
                                CefRefPtr<CefBeforeDownloadCallback> callback) = 0;
  virtual void OnDownloadUpdated(CefRefPtr<CefBrowser> /*browser*/,
                                 CefRefPtr<CefDownloadItem> /*download_item*/,
                                 CefRefPtr<CefDownloadItemCallback> /*callback*/) {}
};
