#pragma once

#include <map>
#include <memory>
#include <string>

#include "devtools/download_sources.h"
#include "devtools/protocol_connection.h"

namespace cefedition {

class BrowserCore;
class Engine;

/// Downloads that the host asks for by their URL. The protocol has no command for that: an unseen
/// page of the download's own navigates there, and what answers is declared an attachment. The page
/// goes once the download has begun. UI thread.
class DownloadPages {
 public:
  explicit DownloadPages(Engine& engine) : engine_(engine) {}

  void Start(const std::shared_ptr<BrowserCore>& core, const std::string& url);

  /// True when the event belongs to one of the pages.
  bool OnEvent(const ProtocolEvent& event);

  /// The browser for which the page of this target was opened, null for any other page.
  std::shared_ptr<BrowserCore> BrowserOf(const std::string& target_id,
                                         const std::string& url,
                                         DownloadSource& source) const;
  /// The page has done what it was opened for.
  void Close(const std::string& target_id);

 private:
  struct Page {
    std::string session_id;
    std::weak_ptr<BrowserCore> core;
    DownloadSources sources;
  };

  void OnOpened(const std::string& target_id,
                const std::string& session_id,
                const std::shared_ptr<BrowserCore>& core,
                const std::string& url);
  void OnPaused(Page& page, const Json& params);

  Engine& engine_;
  /// By target.
  std::map<std::string, Page> pages_;
};

}  // namespace cefedition
