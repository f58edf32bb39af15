// The dialog in which the user chooses a client certificate.
#pragma once

#include <windows.h>

#include <cstdint>
#include <exception>
#include <optional>
#include <vector>

#include "include/cef_base.h"

namespace kzcef {

// A modal dialog from this module's resources, in the language that Windows picks for the calling
// thread. Used once, on the thread that makes it, inside a ModuleStateScope.
class kzCefCertChooserDlg {
 public:
  explicit kzCefCertChooserDlg(HWND parent) : parent_(parent) {}
  kzCefCertChooserDlg(const kzCefCertChooserDlg&) = delete;
  kzCefCertChooserDlg& operator=(const kzCefCertChooserDlg&) = delete;

  // Sets what the dialog is to show: the server that asks (null: the prompt names none) and one
  // text per certificate in each of the lists. Copies all of it.
  void SetCertificateTexts(const CefString* site_text,
                           const std::vector<CefString>& subjects,
                           const std::vector<CefString>& issuers,
                           const std::vector<CefString>& serial_numbers,
                           const std::vector<CefString>& expiry_dates);

  // Shows the dialog until the user ends it, and returns IDOK or IDCANCEL; anything else when it
  // could not be shown or its parent was destroyed. Throws the error that kept it from being
  // filled, such as std::bad_alloc.
  INT_PTR DoModal();

  // Returns the index of the certificate that was chosen with OK; -1 before that, and with empty
  // lists. By contract a 32-bit number.
  std::int32_t chosen_index() const { return chosen_index_; }

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  // Returns whether Windows is to choose the focus.
  bool OnInitDialog();
  void OnOK();
  void InsertColumns();
  void InsertCertificates();
  void FillPrompt();

  HWND list_ = nullptr;
  std::vector<CefString> subjects_;
  std::vector<CefString> issuers_;
  std::vector<CefString> serial_numbers_;
  std::vector<CefString> expiry_dates_;
  std::optional<CefString> site_text_;
  std::int32_t chosen_index_ = -1;

  const HWND parent_;
  // While the dialog is shown.
  HWND window_ = nullptr;
  // Windows' own frames lie between OnInitDialog and DoModal: no error may cross them.
  std::exception_ptr error_;
};

}  // namespace kzcef
