// include/cef_download_item.h over the C API.

#include "include/cef_download_item.h"

#include "binding.h"

namespace cefbinding {
namespace {

class DownloadItemObject final : public LibraryObject<CefDownloadItem> {
 public:
  explicit DownloadItemObject(Struct* object) : LibraryObject(object) {}

  bool IsValid() override { return Call(&Struct::is_valid); }
  bool IsInProgress() override { return Call(&Struct::is_in_progress); }
  bool IsComplete() override { return Call(&Struct::is_complete); }
  bool IsCanceled() override { return Call(&Struct::is_canceled); }
  bool IsInterrupted() override { return Call(&Struct::is_interrupted); }
  cef_download_interrupt_reason_t GetInterruptReason() override {
    return Call(&Struct::get_interrupt_reason);
  }
  int64_t GetCurrentSpeed() override { return Call(&Struct::get_current_speed); }
  int GetPercentComplete() override { return Call(&Struct::get_percent_complete); }
  int64_t GetTotalBytes() override { return Call(&Struct::get_total_bytes); }
  int64_t GetReceivedBytes() override { return Call(&Struct::get_received_bytes); }
  CefBaseTime GetStartTime() override { return Call(&Struct::get_start_time); }
  CefBaseTime GetEndTime() override { return Call(&Struct::get_end_time); }
  CefString GetFullPath() override { return Call(&Struct::get_full_path); }
  uint32_t GetId() override { return Call(&Struct::get_id); }
  CefString GetURL() override { return Call(&Struct::get_url); }
  CefString GetOriginalUrl() override { return Call(&Struct::get_original_url); }
  CefString GetSuggestedFileName() override { return Call(&Struct::get_suggested_file_name); }
  CefString GetContentDisposition() override { return Call(&Struct::get_content_disposition); }
  CefString GetMimeType() override { return Call(&Struct::get_mime_type); }
};

}  // namespace

template <>
CefRefPtr<CefDownloadItem> Counterpart<CefDownloadItem>::LibraryClass::Wrap(Struct* object) {
  return new DownloadItemObject(object);
}

}  // namespace cefbinding
