// Passes a favicon on to whoever owns the client handler by then.

#include "handler/client_download_image_callback.h"

#include <utility>

namespace kzcef {

ClientDownloadImageCallback::ClientDownloadImageCallback(CefRefPtr<kzCefClientHandler> handler)
    : handler_(std::move(handler)) {}

void ClientDownloadImageCallback::OnDownloadImageFinished(const CefString& /*image_url*/,
                                                          int /*http_status_code*/,
                                                          CefRefPtr<CefImage> image) {
  kzCefClientHandler::Delegate* const owner = handler_->delegate();
  if (image && owner) {
    owner->OnSetFavicon(image);
  }
}

}  // namespace kzcef
