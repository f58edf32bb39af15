// Receives the favicon that a client handler asked for.
#pragma once

#include "handler/kz_cef_client_handler.h"

namespace kzcef {

// Passes the image on to the handler's owner. Lives until CEF drops it after the one completion.
class ClientDownloadImageCallback : public CefDownloadImageCallback {
 public:
  explicit ClientDownloadImageCallback(CefRefPtr<kzCefClientHandler> handler);
  ClientDownloadImageCallback(const ClientDownloadImageCallback&) = delete;
  ClientDownloadImageCallback& operator=(const ClientDownloadImageCallback&) = delete;

  // Without an image the download failed, and nothing happens.
  void OnDownloadImageFinished(const CefString& image_url,
                               int http_status_code,
                               CefRefPtr<CefImage> image) override;

 private:
  const CefRefPtr<kzCefClientHandler> handler_;

  IMPLEMENT_REFCOUNTING(ClientDownloadImageCallback);
};

}  // namespace kzcef
