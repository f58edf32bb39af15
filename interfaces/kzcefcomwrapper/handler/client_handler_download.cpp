// Downloads of files.
#include <string>
#include <string_view>

#include "handler/contained_notification.h"
#include "handler/download_path.h"
#include "handler/downloads_folder.h"
#include "handler/in_out_text.h"
#include "handler/kz_cef_client_handler.h"
#include "include/wrapper/cef_helpers.h"

namespace kzcef {
namespace {

// The contract's numbers for what becomes of a download.
enum DownloadStatus : long { kInProgress = 0, kComplete = 1, kCancelled = 2 };

bool IsFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void ContinueAsTheHostSays(const CefRefPtr<CefBrowser>& browser,
                           const CefString& suggested_name,
                           const CefRefPtr<CefBeforeDownloadCallback>& callback) {
  const std::wstring default_path =
      DefaultDownloadPath<wchar_t>(DownloadsFolder(), suggested_name.ToWString());
  std::wstring wanted = default_path;
  // What happens when nobody answers: the file goes where the user's downloads go.
  VARIANT_BOOL can_be_downloaded = default_path.empty() ? VARIANT_FALSE : VARIANT_TRUE;
  VARIANT_BOOL show_save_as_dialog = VARIANT_FALSE;
  RaiseContained(browser, [&](HostNotifications& host, HWND window) {
    InOutText path_name(default_path);
    host.BeforeDownloadNotify(window, path_name.address(), &can_be_downloaded,
                              &show_save_as_dialog);
    wanted = path_name.text();
  });
  // Deliberately strict: a host's 1 forbids the download as its 0 does.
  if (can_be_downloaded != VARIANT_TRUE) {
    return;
  }
  callback->Continue(ChosenDownloadPath<wchar_t>(wanted, default_path, IsFolder),
                     show_save_as_dialog != VARIANT_FALSE);
}

DownloadStatus StatusOf(const CefRefPtr<CefDownloadItem>& item) {
  if (item->IsInProgress()) {
    return kInProgress;
  }
  if (item->IsComplete()) {
    return kComplete;
  }
  // Deliberately so for an interrupted download, which hosts see as still running.
  return item->IsCanceled() ? kCancelled : kInProgress;
}

}  // namespace

void kzCefClientHandler::OnBeforeDownload(CefRefPtr<CefBrowser> browser,
                                          CefRefPtr<CefDownloadItem> /*download_item*/,
                                          const CefString& suggested_name,
                                          CefRefPtr<CefBeforeDownloadCallback> callback) {
  CEF_REQUIRE_UI_THREAD();
  Contained([&] { ContinueAsTheHostSays(browser, suggested_name, callback); });
}

void kzCefClientHandler::OnDownloadUpdated(CefRefPtr<CefBrowser> browser,
                                           CefRefPtr<CefDownloadItem> download_item,
                                           CefRefPtr<CefDownloadItemCallback> /*callback*/) {
  CEF_REQUIRE_UI_THREAD();
  RaiseContained(browser, [&](HostNotifications& host, HWND window) {
    host.DownloadUpdatedNotify(window, download_item->GetFullPath().ToWString(),
                               StatusOf(download_item), download_item->GetPercentComplete());
  });
  if (download_item->IsComplete()) {
    RaiseContained(browser, [&](HostNotifications& host, HWND window) {
      host.DownloadCompletedNotify(window, download_item->GetFullPath().ToWString());
    });
  }
}

}  // namespace kzcef
