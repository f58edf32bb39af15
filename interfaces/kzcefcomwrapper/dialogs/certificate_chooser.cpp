// Shows the chooser's dialog under the library's own module state, and lets no error out.

#include "dialogs/certificate_chooser.h"

#include "com/module.h"
#include "dialogs/certificate_texts.h"
#include "dialogs/kz_cef_cert_chooser_dlg.h"

namespace kzcef {

std::optional<int> ChooseCertificate(
    HWND main_window,
    const CefString& site_text,
    const CefRequestHandler::X509CertificateList& certificates) noexcept {
  const ModuleStateScope module_state;
  if (!main_window) {
    return std::nullopt;
  }
  try {
    const CertificateTexts texts = TextsOf(certificates);
    kzCefCertChooserDlg dialog(main_window);
    dialog.SetCertificateTexts(&site_text, texts.subjects, texts.issuers, texts.serial_numbers,
                               texts.expiry_dates);
    return dialog.DoModal() == IDOK ? dialog.chosen_index() : -1;
  } catch (...) {
    return std::nullopt;
  }
}

}  // namespace kzcef
