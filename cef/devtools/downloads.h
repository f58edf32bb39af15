#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stop_token>
#include <string>

#include "devtools/download_files.h"
#include "devtools/download_item.h"
#include "devtools/download_sources.h"
#include "devtools/protocol_connection.h"
#include "devtools/save_dialog.h"
#include "include/cef_download_handler.h"

namespace cefedition {

class BrowserCore;
class Engine;

/// The downloads of all browsers. The browser process writes them into a private folder, where they
/// begin at once; a file gets to its place when the client has named one and the file is whole.
///
/// A download that the client does not continue, one that no client wants, and one whose browser
/// process goes are ended without a trace. One whose browser is closed goes on in silence, as in
/// CEF. UI thread, but for the callbacks that the client gets.
class Downloads : public std::enable_shared_from_this<Downloads> {
 public:
  Downloads(Engine& engine, std::shared_ptr<DownloadFolder> folder);
  ~Downloads();
  Downloads(const Downloads&) = delete;
  Downloads& operator=(const Downloads&) = delete;

  /// Has the browser write its downloads into the folder and report them. Any thread.
  void Begin();

  /// `Browser.downloadWillBegin`; `core` (null when nobody knows the page) is where it begins.
  void OnWillBegin(const Json& params,
                   const std::shared_ptr<BrowserCore>& core,
                   const DownloadSource& source);
  /// `Browser.downloadProgress`.
  void OnProgress(const Json& params);
  /// Ends all downloads: what is unfinished is removed, and nobody hears of it.
  void Stop();

 private:
  class BeforeCallback;
  class ItemCallback;
  enum class Step {
    /// The client has not said where the file goes.
    kUnanswered,
    kDialog,
    /// The target is known; the transfer may be over already.
    kAnswered,
    kMoving,
  };
  struct Download {
    std::weak_ptr<BrowserCore> core;
    DownloadState state;
    Step step = Step::kUnanswered;
    bool transferred = false;
    bool cancel_requested = false;
    std::unique_ptr<SaveDialog> dialog;
    std::stop_source stop;
  };
  using Entries = std::map<std::string, Download>;

  void OnContinue(const std::string& guid, const std::wstring& path, bool show_dialog);
  void OnDropped(const std::string& guid);
  void OnPathChosen(const std::string& guid, const std::wstring& path);
  void SetTarget(const std::string& guid, const std::wstring& path);
  void OnTransferred(const std::string& guid);
  void MoveIfReady(const std::string& guid);
  void OnMoved(const std::string& guid, cef_download_interrupt_reason_t reason);
  void Cancel(const std::string& guid);
  void CancelAtBrowser(const std::string& guid);
  /// Ends a download of which nobody shall hear any more.
  void Drop(const std::string& guid);
  /// Ends a download and tells the client how.
  void Finish(const std::string& guid,
              DownloadState::Progress progress,
              cef_download_interrupt_reason_t reason);
  /// Tells the client how the download stands.
  void Update(const std::string& guid);
  static CefRefPtr<CefDownloadHandler> HandlerOf(const std::shared_ptr<BrowserCore>& core);

  Engine& engine_;
  const std::shared_ptr<DownloadFolder> folder_;
  uint32_t last_id_ = 0;
  Entries entries_;
  /// Dropped, but the browser may still write them.
  std::set<std::string> dropped_;
};

}  // namespace cefedition
