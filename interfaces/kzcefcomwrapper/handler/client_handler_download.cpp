// Downloads of files.
#include "handler/kz_cef_client_handler.h"

namespace kzcef {

void kzCefClientHandler::OnBeforeDownload(CefRefPtr<CefBrowser> /*browser*/,
                                          CefRefPtr<CefDownloadItem> /*download_item*/,
                                          const CefString& /*suggested_name*/,
                                          CefRefPtr<CefBeforeDownloadCallback> /*callback*/) {}

}  // namespace kzcef
