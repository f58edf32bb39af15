// Downloads whose state a test sets, and callbacks that record what becomes of them.
#pragma once

#include <cstdint>
#include <vector>

#include "include/cef_download_handler.h"
#include "include/cef_download_item.h"

namespace recording_cef {

// A download for tests that is what its members say.
class FakeDownloadItem final : public CefDownloadItem {
 public:
  bool is_in_progress = false;
  bool is_complete = false;
  bool is_canceled = false;
  bool is_interrupted = false;
  int percent_complete = -1;
  CefString full_path;

  bool IsValid() override { return true; }
  bool IsInProgress() override { return is_in_progress; }
  bool IsComplete() override { return is_complete; }
  bool IsCanceled() override { return is_canceled; }
  bool IsInterrupted() override { return is_interrupted; }
  cef_download_interrupt_reason_t GetInterruptReason() override {
    return CEF_DOWNLOAD_INTERRUPT_REASON_NONE;
  }
  int64_t GetCurrentSpeed() override { return 0; }
  int GetPercentComplete() override { return percent_complete; }
  int64_t GetTotalBytes() override { return 0; }
  int64_t GetReceivedBytes() override { return 0; }
  CefBaseTime GetStartTime() override { return {}; }
  CefBaseTime GetEndTime() override { return {}; }
  CefString GetFullPath() override { return full_path; }
  uint32_t GetId() override { return 1; }
  CefString GetURL() override { return {}; }
  CefString GetOriginalUrl() override { return {}; }
  CefString GetSuggestedFileName() override { return {}; }
  CefString GetContentDisposition() override { return {}; }
  CefString GetMimeType() override { return {}; }

  IMPLEMENT_REFCOUNTING(FakeDownloadItem);
};

// One call of CefBeforeDownloadCallback::Continue.
struct DownloadContinuation {
  CefString path;
  bool show_dialog = false;
};

class FakeBeforeDownloadCallback final : public CefBeforeDownloadCallback {
 public:
  std::vector<DownloadContinuation> continuations;

  void Continue(const CefString& download_path, bool show_dialog) override {
    continuations.push_back({download_path, show_dialog});
  }

  IMPLEMENT_REFCOUNTING(FakeBeforeDownloadCallback);
};

// The control of a running download: what it was asked to do, by name.
class FakeDownloadItemCallback final : public CefDownloadItemCallback {
 public:
  std::vector<const char*> commands;

  void Cancel() override { commands.push_back("Cancel"); }
  void Pause() override { commands.push_back("Pause"); }
  void Resume() override { commands.push_back("Resume"); }

  IMPLEMENT_REFCOUNTING(FakeDownloadItemCallback);
};

}  // namespace recording_cef
