#pragma once

#include <atomic>
#include <string>

#include "include/cef_download_item.h"

namespace cefedition {

/// What is known of one download.
struct DownloadState {
  enum class Progress { kRunning, kComplete, kCancelled, kInterrupted };

  uint32_t id = 0;
  Progress progress = Progress::kRunning;
  cef_download_interrupt_reason_t reason = CEF_DOWNLOAD_INTERRUPT_REASON_NONE;
  /// 0 while the size is not known.
  int64_t total_bytes = 0;
  int64_t received_bytes = 0;
  CefBaseTime start_time;
  CefBaseTime end_time;
  /// Where the file is to be; empty until that is decided.
  std::wstring full_path;
  std::string url;
  /// The first of the redirects that led to `url`.
  std::string original_url;
  /// A safe name for a file, without a folder.
  std::string suggested_name;
  std::string content_disposition;
  std::string mime_type;
};

/// The client's view of a download at one moment. Any thread.
class EditionDownloadItem : public CefDownloadItem {
 public:
  explicit EditionDownloadItem(DownloadState state);

  /// The callback that handed the item over has returned.
  void Invalidate() { valid_ = false; }

  bool IsValid() override { return valid_; }
  bool IsInProgress() override;
  bool IsComplete() override;
  bool IsCanceled() override;
  bool IsInterrupted() override;
  cef_download_interrupt_reason_t GetInterruptReason() override { return state_.reason; }
  int64_t GetCurrentSpeed() override;
  int GetPercentComplete() override;
  int64_t GetTotalBytes() override { return state_.total_bytes; }
  int64_t GetReceivedBytes() override { return state_.received_bytes; }
  CefBaseTime GetStartTime() override { return state_.start_time; }
  CefBaseTime GetEndTime() override { return state_.end_time; }
  CefString GetFullPath() override { return state_.full_path; }
  uint32_t GetId() override { return state_.id; }
  CefString GetURL() override { return state_.url; }
  CefString GetOriginalUrl() override { return state_.original_url; }
  CefString GetSuggestedFileName() override { return state_.suggested_name; }
  CefString GetContentDisposition() override { return state_.content_disposition; }
  CefString GetMimeType() override { return state_.mime_type; }

 private:
  const DownloadState state_;
  const CefBaseTime taken_;
  std::atomic<bool> valid_{true};

  IMPLEMENT_REFCOUNTING(EditionDownloadItem);
};

}  // namespace cefedition
