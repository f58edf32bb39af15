// Requests for the pictures of pages.

#include "favicon_requests.h"

#include <list>
#include <mutex>
#include <set>
#include <utility>

#include "include/cef_parser.h"

namespace cefbinding {
namespace {

struct Download {
  int browser_id;
  CefString url;
  std::set<uint64_t> requests;
};

struct Downloads {
  std::mutex mutex;
  std::list<Download> pending;
};

// Never destroyed: the engine's threads may outlive static objects.
Downloads& TheDownloads() {
  static auto* const downloads = new Downloads;
  return *downloads;
}

// As the engine spells it.
CefString Canonical(const CefString& url) {
  CefURLParts parts;
  return CefParseURL(url, parts) ? CefString(CefString(&parts.spec).ToString16()) : url;
}

class ExpectedDownload final : public CefDownloadImageCallback {
 public:
  ExpectedDownload(int browser_id,
                   const CefString& url,
                   CefRefPtr<CefDownloadImageCallback> callback)
      : callback_(std::move(callback)) {
    Downloads& downloads = TheDownloads();
    const std::lock_guard lock(downloads.mutex);
    place_ = downloads.pending.insert(downloads.pending.end(), {browser_id, Canonical(url), {}});
  }
  ExpectedDownload(const ExpectedDownload&) = delete;
  ExpectedDownload& operator=(const ExpectedDownload&) = delete;
  ~ExpectedDownload() override {
    Downloads& downloads = TheDownloads();
    const std::lock_guard lock(downloads.mutex);
    downloads.pending.erase(place_);
  }

  void OnDownloadImageFinished(const CefString& image_url,
                               int http_status_code,
                               CefRefPtr<CefImage> image) override {
    callback_->OnDownloadImageFinished(image_url, http_status_code, image);
  }

 private:
  const CefRefPtr<CefDownloadImageCallback> callback_;
  std::list<Download>::iterator place_;

  IMPLEMENT_REFCOUNTING(ExpectedDownload);
};

class RefusingHandler final : public CefResourceRequestHandler {
  ReturnValue OnBeforeResourceLoad(CefRefPtr<CefBrowser> /*browser*/,
                                   CefRefPtr<CefFrame> /*frame*/,
                                   CefRefPtr<CefRequest> /*request*/,
                                   CefRefPtr<CefCallback> /*callback*/) override {
    return RV_CANCEL;
  }

  IMPLEMENT_REFCOUNTING(RefusingHandler);
};

}  // namespace

CefRefPtr<CefDownloadImageCallback> ExpectFavicon(int browser_id,
                                                  const CefString& url,
                                                  CefRefPtr<CefDownloadImageCallback> callback) {
  return new ExpectedDownload(browser_id, url, std::move(callback));
}

bool IsExpectedFavicon(int browser_id, CefRequest& request) {
  const CefString url = request.GetURL();
  const uint64_t identifier = request.GetIdentifier();
  Downloads& downloads = TheDownloads();
  const std::lock_guard lock(downloads.mutex);
  for (Download& download : downloads.pending) {
    if (download.browser_id == browser_id &&
        (download.url == url || download.requests.contains(identifier))) {
      download.requests.insert(identifier);
      return true;
    }
  }
  return false;
}

CefRefPtr<CefResourceRequestHandler> Refusal() {
  return new RefusingHandler;
}

}  // namespace cefbinding
