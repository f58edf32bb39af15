#include "recording_downloads.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "include/wrapper/cef_helpers.h"
#include "recording_resources.h"

namespace cefedition {
namespace {

std::string EndOf(CefRefPtr<CefDownloadItem> item) {
  std::string text;
  for (const auto& [holds, name] :
       {std::pair(item->IsComplete(), "complete"), std::pair(item->IsCanceled(), "cancelled"),
        std::pair(item->IsInterrupted(), "interrupted")}) {
    text += holds ? name : "";
  }
  return text;
}

}  // namespace

int RecordingDownloads::percent() const {
  std::lock_guard hold(lock_);
  return percent_;
}

std::wstring RecordingDownloads::running_path() const {
  std::lock_guard hold(lock_);
  return running_path_;
}

int RecordingDownloads::updates() const {
  std::lock_guard hold(lock_);
  return updates_;
}

CefRefPtr<CefDownloadItem> RecordingDownloads::last_item() const {
  std::lock_guard hold(lock_);
  return last_item_;
}

bool RecordingDownloads::CanDownload(CefRefPtr<CefBrowser>,
                                     const CefString& url,
                                     const CefString& request_method) {
  EXPECT_TRUE(CefCurrentlyOn(TID_UI));
  log_->Add("can-download " + request_method.ToString() + " " + PathOf(url));
  return can_download;
}

void RecordingDownloads::OnBeforeDownload(CefRefPtr<CefBrowser> browser,
                                          CefRefPtr<CefDownloadItem> download_item,
                                          const CefString& suggested_name,
                                          CefRefPtr<CefBeforeDownloadCallback> callback) {
  EXPECT_TRUE(CefCurrentlyOn(TID_UI));
  EXPECT_TRUE(download_item->IsValid());
  EXPECT_TRUE(download_item->IsInProgress());
  EXPECT_EQ(download_item->GetSuggestedFileName().ToString(), suggested_name.ToString());
  EXPECT_TRUE(download_item->GetFullPath().empty());
  EXPECT_GT(download_item->GetStartTime().val, 0);
  {
    std::lock_guard hold(lock_);
    last_item_ = download_item;
  }
  log_->Add(std::string(browser->IsPopup() ? "popup " : "") + "before " +
            suggested_name.ToString() + " [" + download_item->GetMimeType().ToString() + "] " +
            PathOf(download_item->GetOriginalUrl()) + " " + PathOf(download_item->GetURL()));
  if (on_before) {
    on_before(suggested_name.ToString(), callback);
  }
}

void RecordingDownloads::OnDownloadUpdated(CefRefPtr<CefBrowser>,
                                           CefRefPtr<CefDownloadItem> download_item,
                                           CefRefPtr<CefDownloadItemCallback> callback) {
  EXPECT_TRUE(CefCurrentlyOn(TID_UI));
  const std::string end = EndOf(download_item);
  EXPECT_EQ(download_item->IsInProgress(), end.empty());
  {
    std::lock_guard hold(lock_);
    last_item_ = download_item;
    ++updates_;
    if (end.empty()) {
      percent_ = std::max(percent_, download_item->GetPercentComplete());
      running_path_ = download_item->GetFullPath().ToWString();
    }
  }
  if (on_updated) {
    on_updated(download_item, callback);
  }
  log_->Add(end.empty() ? "running"
                        : end + " " + std::to_string(download_item->GetPercentComplete()) + " " +
                              std::to_string(download_item->GetReceivedBytes()) + " " +
                              std::to_string(download_item->GetInterruptReason()));
}

}  // namespace cefedition
