// Keeps what has to be ended before the engine.

#include "keep_alives.h"

#include <map>
#include <mutex>
#include <set>
#include <utility>

#include "binding.h"
#include "include/cef_browser.h"

namespace cefbinding {
namespace {

struct KeepAlives {
  std::mutex mutex;
  // Browsers by their identifiers; those that are gone are found no more.
  std::set<int> with_dev_tools;
  // Those under way, by their identifiers.
  std::map<uint32_t, CefRefPtr<CefDownloadItemCallback>> downloads;
};

// Never destroyed: it holds objects of the engine's.
KeepAlives& TheKeepAlives() {
  static auto& keep_alives = *new KeepAlives;
  return keep_alives;
}

}  // namespace

void NoteDevTools(int browser_identifier) {
  KeepAlives& keep_alives = TheKeepAlives();
  const std::lock_guard lock(keep_alives.mutex);
  keep_alives.with_dev_tools.insert(browser_identifier);
}

void NoteDownload(const CefRefPtr<CefDownloadItem>& item,
                  const CefRefPtr<CefDownloadItemCallback>& callback) {
  KeepAlives& keep_alives = TheKeepAlives();
  const std::lock_guard lock(keep_alives.mutex);
  if (item->IsInProgress()) {
    keep_alives.downloads.insert_or_assign(item->GetId(), callback);
  } else {
    keep_alives.downloads.erase(item->GetId());
  }
}

void EndKeepAlives() {
  std::set<int> with_dev_tools;
  std::map<uint32_t, CefRefPtr<CefDownloadItemCallback>> downloads;
  {
    KeepAlives& keep_alives = TheKeepAlives();
    const std::lock_guard lock(keep_alives.mutex);
    with_dev_tools.swap(keep_alives.with_dev_tools);
    downloads.swap(keep_alives.downloads);
  }
  for (const int identifier : with_dev_tools) {
    const CefRefPtr<CefBrowser> browser =
        CallEngine(&capi::Functions::cef_browser_host_get_browser_by_identifier, identifier);
    if (browser) {
      browser->GetHost()->CloseDevTools();
    }
  }
  for (const auto& [identifier, callback] : downloads) {
    callback->Cancel();
  }
}

}  // namespace cefbinding
