// The user's choice among client certificates.
#pragma once

#include <windows.h>

#include <optional>

#include "include/cef_request_handler.h"

namespace kzcef {

// Lets the user choose for `site_text`, the server that asks for a certificate, in a dialog that is
// modal to `main_window`. Answers the place of the chosen certificate in the list, or -1 for none:
// Cancel, a closed window, an empty list. No value when nothing was shown: without a main window,
// or after an error, which ends here. Runs the dialog's message loop on the calling thread, the
// host's.
std::optional<int> ChooseCertificate(
    HWND main_window,
    const CefString& site_text,
    const CefRequestHandler::X509CertificateList& certificates) noexcept;

}  // namespace kzcef
