#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"

// Ends a file dialog that the client shows itself.
class CefFileDialogCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(const std::vector<CefString>& file_paths) = 0;
  virtual void Cancel() = 0;
};

// File-dialog requests, on the UI thread.
class CefDialogHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_file_dialog_mode_t FileDialogMode;

  virtual bool OnFileDialog(CefRefPtr<CefBrowser> browser,
                            FileDialogMode mode,
                            const CefString& title,
                            const CefString& default_file_path,
                            const std::vector<CefString>& accept_filters,
                            CefRefPtr<CefFileDialogCallback> callback) {
    return false;
  }
};
