#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>

#include "event_log.h"
#include "include/cef_download_handler.h"

namespace cefedition {

/// A download handler that writes down what it hears and answers as the test says.
class RecordingDownloads : public CefDownloadHandler {
 public:
  explicit RecordingDownloads(EventLog* log) : log_(log) {}

  // What to answer; set before the download begins.
  bool can_download = true;
  /// Without it the download is dropped.
  std::function<void(const std::string& name, CefRefPtr<CefBeforeDownloadCallback>)> on_before;
  std::function<void(CefRefPtr<CefDownloadItem>, CefRefPtr<CefDownloadItemCallback>)> on_updated;

  /// The largest percentage and the last path of updates in progress.
  int percent() const;
  std::wstring running_path() const;
  /// How many updates there were.
  int updates() const;

  bool CanDownload(CefRefPtr<CefBrowser> browser,
                   const CefString& url,
                   const CefString& request_method) override;
  void OnBeforeDownload(CefRefPtr<CefBrowser> browser,
                        CefRefPtr<CefDownloadItem> download_item,
                        const CefString& suggested_name,
                        CefRefPtr<CefBeforeDownloadCallback> callback) override;
  void OnDownloadUpdated(CefRefPtr<CefBrowser> browser,
                         CefRefPtr<CefDownloadItem> download_item,
                         CefRefPtr<CefDownloadItemCallback> callback) override;

  /// The item of the last call, which has returned since.
  CefRefPtr<CefDownloadItem> last_item() const;

 private:
  EventLog* const log_;
  mutable std::mutex lock_;
  int percent_ = -1;
  int updates_ = 0;
  std::wstring running_path_;
  CefRefPtr<CefDownloadItem> last_item_;

  IMPLEMENT_REFCOUNTING(RecordingDownloads);
};

}  // namespace cefedition
