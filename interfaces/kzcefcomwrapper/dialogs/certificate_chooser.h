// The user's choice among client certificates.
#pragma once

#include <windows.h>

#include <optional>

#include "include/cef_request_handler.h"

namespace kzcef {

// Lets the user choose a certificate for the server `site_text`, in a dialog that is modal to
// `main_window`. Returns the index of the chosen certificate, or -1 for none: Cancel, a closed
// window, an empty list. Returns no value when nothing was shown: without a main window, or after
// an error, which ends here. Runs the dialog's message loop on the calling thread, which is the
// host's.
std::optional<int> ChooseCertificate(
    HWND main_window,
    const CefString& site_text,
    const CefRequestHandler::X509CertificateList& certificates) noexcept;

}  // namespace kzcef
