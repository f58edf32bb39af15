#pragma once

#include <deque>
#include <string>

#include "devtools/protocol_connection.h"
#include "include/cef_life_span_handler.h"

namespace cefedition {

class BrowserCore;

/// The windows that a page asks for. The protocol announces each twice: first the wish with its URL
/// and features, then the new page, which waits until it is told to go on. UI thread.
class PopupRequests {
 public:
  explicit PopupRequests(BrowserCore& opener);

  /// `Page.windowOpen`.
  void OnWindowOpen(const Json& params);

  /// The new page. Asks the client; a refused page is closed, an allowed one becomes a browser.
  void OnPage(const Json& target_info, const std::string& session_id);

 private:
  struct Wish {
    std::string url;
    std::string name;
    CefPopupFeatures features;
    cef_window_open_disposition_t disposition = CEF_WOD_NEW_FOREGROUND_TAB;
    bool user_gesture = false;
  };

  BrowserCore& opener_;
  std::deque<Wish> wishes_;
};

}  // namespace cefedition
