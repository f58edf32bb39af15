#pragma once

#include <deque>
#include <string>

#include "devtools/protocol_connection.h"

namespace cefedition {

/// What the halts of a page's documents tell about a download that one of them becomes.
struct DownloadSource {
  /// The protocol's id for the halt.
  std::string halt_id;
  std::string url;
  /// The first of the redirects that led to `url`.
  std::string original_url;
  std::string method;
  std::string content_disposition;
  /// Without parameters, in lower case.
  std::string mime_type;
  /// The frame navigates, as against a link that is to be saved: that one leaves the frame alone.
  bool is_navigation = true;
};

/// Remembers the documents that one page has asked for lately, of which the beginning of a download
/// tells only the URL. One thread.
class DownloadSources {
 public:
  /// `Fetch.requestPaused` for a document, with or without its response. False when the document is
  /// asked for in order to be saved, not to be shown.
  bool OnPaused(const Json& params);

  /// The last document that was asked for under this URL; for one that was not, what its URL tells.
  DownloadSource Find(const std::string& url) const;

 private:
  std::deque<DownloadSource> recent_;
};

}  // namespace cefedition
