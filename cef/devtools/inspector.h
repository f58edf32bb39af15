#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "devtools/protocol_connection.h"
#include "include/internal/cef_types_wrappers.h"

namespace cefedition {

class BrowserCore;

/// What makes a browser a DevTools window. Its page is the edition's own small inspector
/// (inspector_page.cpp), for the browser gives its own one out only over a debugging port. The page
/// speaks the protocol with the page that it inspects, over a session of its own. UI thread.
class Inspector {
 public:
  /// `window` is the browser that shows the inspector, and owns this object.
  Inspector(BrowserCore& window, std::weak_ptr<BrowserCore> inspected);
  ~Inspector();
  Inspector(const Inspector&) = delete;
  Inspector& operator=(const Inspector&) = delete;

  /// The inspector's page, as a "data:" URL.
  static std::string PageUrl();

  /// The commands that connect the inspector's page, as method and parameters.
  std::vector<std::pair<std::string, Json>> Commands() const;

  /// Takes `Runtime.bindingCalled` of the window's page; other bindings are ignored.
  void OnCall(const Json& params);
  /// The inspected page exists now.
  void OnPageReady();
  /// An event of any session; true if it was for the inspector.
  bool TakeEvent(const ProtocolEvent& event);
  /// Chooses the node at a point of the inspected view.
  void InspectAt(const CefPoint& point);
  /// The window is gone.
  void Close();

 private:
  void Attach();
  void OnAttached(const std::string& session_id);
  void SendToPage(const Json& message);

  BrowserCore& window_;
  const std::weak_ptr<BrowserCore> inspected_;
  bool page_loaded_ = false;
  bool attaching_ = false;
  bool closed_ = false;
  std::string session_id_;
  std::optional<CefPoint> point_;
};

}  // namespace cefedition
