// include/cef_download_item.h of CEF 123, as far as it is used here: the state of one download.
#pragma once

#include "include/cef_base.h"

// One download. Valid only inside the callback that hands it over.
class CefDownloadItem : public virtual CefBaseRefCounted {
 public:
  virtual bool IsValid() = 0;
  virtual bool IsInProgress() = 0;
  virtual bool IsComplete() = 0;
  virtual bool IsCanceled() = 0;
  virtual bool IsInterrupted() = 0;
  virtual cef_download_interrupt_reason_t GetInterruptReason() = 0;
  virtual int64_t GetCurrentSpeed() = 0;
  virtual int GetPercentComplete() = 0;
  virtual int64_t GetTotalBytes() = 0;
  virtual int64_t GetReceivedBytes() = 0;
  virtual CefBaseTime GetStartTime() = 0;
  virtual CefBaseTime GetEndTime() = 0;
  virtual CefString GetFullPath() = 0;
  virtual uint32_t GetId() = 0;
  virtual CefString GetURL() = 0;
  virtual CefString GetOriginalUrl() = 0;
  virtual CefString GetSuggestedFileName() = 0;
  virtual CefString GetContentDisposition() = 0;
  virtual CefString GetMimeType() = 0;
};
