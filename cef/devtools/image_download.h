#pragma once

#include <memory>
#include <string>

#include "include/cef_browser.h"

namespace cefedition {

class BrowserCore;

/// Fetches an image with the page's cookies and hands it to the callback on the UI thread, or null
/// when it cannot be fetched or decoded; always with the HTTP status, 0 where there is none. The
/// callback is called exactly once, also when the browser closes meanwhile. A picture larger than
/// `max_size` either way is scaled down; 0 means no limit.
void StartImageDownload(std::shared_ptr<BrowserCore> core,
                        const std::string& url,
                        uint32_t max_size,
                        bool bypass_cache,
                        CefRefPtr<CefDownloadImageCallback> callback);

}  // namespace cefedition
