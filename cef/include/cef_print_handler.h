#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_print_settings.h"

// Ends a print dialog.
class CefPrintDialogCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(CefRefPtr<CefPrintSettings> settings) = 0;
  virtual void Cancel() = 0;
};

// Ends a print job.
class CefPrintJobCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue() = 0;
};

// Printing where the platform has no print dialog of its own.
class CefPrintHandler : public virtual CefBaseRefCounted {
 public:
  virtual void OnPrintStart(CefRefPtr<CefBrowser> browser) = 0;
  virtual void OnPrintSettings(CefRefPtr<CefBrowser> browser,
                               CefRefPtr<CefPrintSettings> settings,
                               bool get_defaults) = 0;
  virtual bool OnPrintDialog(CefRefPtr<CefBrowser> browser,
                             bool has_selection,
                             CefRefPtr<CefPrintDialogCallback> callback) = 0;
  virtual bool OnPrintJob(CefRefPtr<CefBrowser> browser,
                          const CefString& document_name,
                          const CefString& pdf_file_path,
                          CefRefPtr<CefPrintJobCallback> callback) = 0;
  virtual void OnPrintReset(CefRefPtr<CefBrowser> browser) = 0;
  virtual CefSize GetPdfPaperSize(CefRefPtr<CefBrowser> browser, int device_units_per_inch) {
    return CefSize();
  }
};
