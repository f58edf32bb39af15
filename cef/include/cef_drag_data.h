// include/cef_drag_data.h of CEF 123, as far as it is used here: what is dragged.
#pragma once

#include <vector>

#include "include/cef_base.h"
#include "include/cef_image.h"

// The data of a drag.
class CefDragData : public virtual CefBaseRefCounted {
 public:
  static CefRefPtr<CefDragData> Create();
  virtual CefRefPtr<CefDragData> Clone() = 0;
  virtual bool IsReadOnly() = 0;
  virtual bool IsLink() = 0;
  virtual bool IsFragment() = 0;
  virtual bool IsFile() = 0;
  virtual CefString GetLinkURL() = 0;
  virtual CefString GetLinkTitle() = 0;
  virtual CefString GetLinkMetadata() = 0;
  virtual CefString GetFragmentText() = 0;
  virtual CefString GetFragmentHtml() = 0;
  virtual CefString GetFragmentBaseURL() = 0;
  virtual CefString GetFileName() = 0;
  virtual bool GetFileNames(std::vector<CefString>& names) = 0;
  virtual bool GetFilePaths(std::vector<CefString>& paths) = 0;
  virtual void SetLinkURL(const CefString& url) = 0;
  virtual void SetLinkTitle(const CefString& title) = 0;
  virtual void SetLinkMetadata(const CefString& data) = 0;
  virtual void SetFragmentText(const CefString& text) = 0;
  virtual void SetFragmentHtml(const CefString& html) = 0;
  virtual void SetFragmentBaseURL(const CefString& base_url) = 0;
  virtual void ResetFileContents() = 0;
  virtual void AddFile(const CefString& path, const CefString& display_name) = 0;
  virtual void ClearFilenames() = 0;
  virtual CefRefPtr<CefImage> GetImage() = 0;
  virtual CefPoint GetImageHotspot() = 0;
  virtual bool HasImage() = 0;
};
