// What would keep the engine from ending. Chrome's runtime leaves its UI thread only when nothing
// asks it to stay any more, and its windows with developer tools and its downloads do; CEF 123 took
// them along.
#pragma once

#include "include/cef_download_handler.h"
#include "include/cef_download_item.h"

namespace cefbinding {

// Takes note of a browser that is told to show its developer tools. Any thread.
void NoteDevTools(int browser_identifier);

// Takes note of a download whenever something has become of it. UI thread.
void NoteDownload(const CefRefPtr<CefDownloadItem>& item,
                  const CefRefPtr<CefDownloadItemCallback>& callback);

// Closes the tools and cancels the downloads. UI thread.
void EndKeepAlives();

}  // namespace cefbinding
