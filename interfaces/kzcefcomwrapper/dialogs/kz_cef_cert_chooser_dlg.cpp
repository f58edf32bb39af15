// The dialog's procedure: fills the list of certificates when the dialog opens
// and reads the selection when the user presses OK.

#include "dialogs/kz_cef_cert_chooser_dlg.h"

#include <commctrl.h>

#include <array>
#include <string>
#include <utility>

#include "com/module.h"
#include "dialogs/chooser_texts.h"
#include "dialogs/resource_ids.h"

namespace kzcef {
namespace {

constexpr std::array<UINT, 4> kColumns = {KZ_COLUMN_SUBJECT, KZ_COLUMN_ISSUER,
                                          KZ_COLUMN_SERIAL_NUMBER, KZ_COLUMN_EXPIRATION_DATE};

// Empty when there is none.
std::wstring ResourceText(UINT identifier) {
  const wchar_t* text = nullptr;
  // With a length of 0 it returns where the text stands in the resources, without a terminator.
  const int length = LoadStringW(ModuleStateScope::ResourceModule(), identifier,
                                 reinterpret_cast<LPWSTR>(&text), 0);
  return {text, static_cast<size_t>(length)};
}

std::wstring WindowText(HWND window) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)), L'\0');
  // The terminator has its place behind the text.
  text.resize(
      static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
  return text;
}

}  // namespace

void kzCefCertChooserDlg::SetCertificateTexts(const CefString* site_text,
                                              const std::vector<CefString>& subjects,
                                              const std::vector<CefString>& issuers,
                                              const std::vector<CefString>& serial_numbers,
                                              const std::vector<CefString>& expiry_dates) {
  site_text_ = site_text ? std::optional(*site_text) : std::nullopt;
  subjects_ = subjects;
  issuers_ = issuers;
  serial_numbers_ = serial_numbers;
  expiry_dates_ = expiry_dates;
}

INT_PTR kzCefCertChooserDlg::DoModal() {
  const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&classes);
  const INT_PTR result =
      DialogBoxParamW(ModuleStateScope::ResourceModule(), MAKEINTRESOURCEW(KZ_CERT_CHOOSER),
                      parent_, &kzCefCertChooserDlg::Procedure, reinterpret_cast<LPARAM>(this));
  window_ = nullptr;
  list_ = nullptr;
  if (error_) {
    std::rethrow_exception(std::exchange(error_, nullptr));
  }
  return result;
}

INT_PTR CALLBACK kzCefCertChooserDlg::Procedure(HWND window,
                                                UINT message,
                                                WPARAM wparam,
                                                LPARAM lparam) {
  if (message == WM_INITDIALOG) {
    auto& self = *reinterpret_cast<kzCefCertChooserDlg*>(lparam);
    SetWindowLongPtrW(window, DWLP_USER, lparam);
    self.window_ = window;
    try {
      return self.OnInitDialog() ? TRUE : FALSE;
    } catch (...) {
      self.error_ = std::current_exception();
      EndDialog(window, -1);
      return TRUE;
    }
  }
  if (message == WM_NCDESTROY) {
    // Destroyed along with its owner, the dialog would be missed only at the thread's next message.
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
    return FALSE;
  }
  auto* const self = reinterpret_cast<kzCefCertChooserDlg*>(GetWindowLongPtrW(window, DWLP_USER));
  if (!self || message != WM_COMMAND) {
    return FALSE;
  }
  switch (LOWORD(wparam)) {
    case IDOK:
      self->OnOK();
      return TRUE;
    // Esc and the closing of the window come as this, too.
    case IDCANCEL:
      EndDialog(window, IDCANCEL);
      return TRUE;
    default:
      return FALSE;
  }
}

bool kzCefCertChooserDlg::OnInitDialog() {
  list_ = GetDlgItem(window_, KZ_CERT_CHOOSER_LIST);
  InsertColumns();
  InsertCertificates();
  ListView_SetExtendedListViewStyle(
      list_, ListView_GetExtendedListViewStyle(list_) | LVS_EX_FULLROWSELECT);
  const bool any = !subjects_.empty();
  if (any) {
    SetFocus(list_);
    ListView_SetItemState(list_, 0, LVIS_SELECTED, LVIS_SELECTED);
  }
  FillPrompt();
  return !any;
}

void kzCefCertChooserDlg::InsertColumns() {
  RECT rectangle = {};
  GetWindowRect(list_, &rectangle);
  const int width = (rectangle.right - rectangle.left) / static_cast<int>(kColumns.size());
  for (size_t i = 0; i < kColumns.size(); ++i) {
    std::wstring text = ResourceText(kColumns[i]);
    LVCOLUMNW column = {};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT;
    column.fmt = LVCFMT_LEFT;
    column.cx = width;
    column.pszText = text.data();
    SendMessageW(list_, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
  }
}

void kzCefCertChooserDlg::InsertCertificates() {
  for (size_t i = 0; i < subjects_.size(); ++i) {
    LVITEMW item = {};
    item.iItem = static_cast<int>(i);
    const auto send = [&](UINT message, UINT mask, int column, const CefString& text) {
      std::wstring shown = text.ToWString();
      item.mask = mask;
      item.iSubItem = column;
      item.pszText = shown.data();
      SendMessageW(list_, message, 0, reinterpret_cast<LPARAM>(&item));
    };
    send(LVM_INSERTITEMW, LVIF_TEXT, 0, subjects_[i]);
    send(LVM_SETITEMW, LVIF_TEXT, 1, issuers_.at(i));
    send(LVM_SETITEMW, LVIF_TEXT, 2, serial_numbers_.at(i));
    send(LVM_SETITEMW, LVIF_TEXT, 3, expiry_dates_.at(i));
    item.lParam = static_cast<LPARAM>(i);
    send(LVM_SETITEMW, LVIF_PARAM, 0, CefString());
  }
}

void kzCefCertChooserDlg::FillPrompt() {
  const HWND prompt = GetDlgItem(window_, KZ_CERT_CHOOSER_PROMPT);
  const std::optional<std::wstring> site =
      site_text_ ? std::optional(site_text_->ToWString()) : std::nullopt;
  SetWindowTextW(prompt, PromptText(WindowText(prompt), site ? site->c_str() : nullptr).c_str());
}

void kzCefCertChooserDlg::OnOK() {
  const int count = static_cast<int>(subjects_.size());
  LVITEMW item = {};
  item.mask = LVIF_PARAM;
  for (int i = 0; i < count; ++i) {
    item.iItem = i;
    // Kept: without a selection the scan ends on the last row, which stands in for it.
    if (ListView_GetItemState(list_, i, LVIS_SELECTED) != 0) {
      break;
    }
  }
  if (count > 0 && SendMessageW(list_, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item))) {
    chosen_index_ = static_cast<std::int32_t>(item.lParam);
  }
  EndDialog(window_, IDOK);
}

}  // namespace kzcef
