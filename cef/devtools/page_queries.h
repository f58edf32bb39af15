#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "devtools/protocol_connection.h"
#include "include/cef_frame.h"
#include "include/cef_process_message.h"

namespace cefedition {

class BrowserCore;

/// The message router's renderer side for one browser: gives every frame the functions `cefQuery`
/// and `cefQueryCancel`, sends what they are called with to the client as process messages, and
/// takes the client's answers back to the page. UI thread.
///
/// The functions reach the engine by a binding that they take away from the page before any of its
/// scripts runs. Answers go to `cefQuery` itself, which knows them by a secret word; the page
/// cannot put another function in its place.
class PageQueries {
 public:
  explicit PageQueries(BrowserCore& core);

  /// The commands that install the functions in a page, as method and parameters.
  std::vector<std::pair<std::string, Json>> Commands() const;

  /// Any event of the page. What was asked in a script context that is gone is cancelled.
  void OnEvent(const ProtocolEvent& event);
  /// The page's process is gone, of which the router hears on its own.
  void OnCrashed();
  /// A message of the client's to the renderer; anything but an answer is ignored.
  void OnMessage(const CefRefPtr<CefProcessMessage>& message);

 private:
  /// A script context with queries.
  struct Context {
    /// By which the messages name it.
    int id = 0;
    std::string unique_id;
    CefRefPtr<CefFrame> frame;
    /// The queries without a last answer, and whether they are persistent.
    std::map<int, bool> pending;
  };

  void OnCall(const Json& params);
  void OnQuery(Context& context, const Json& call);
  /// The context with this number of the protocol's, null when it is unknown.
  Context* FindOrAdd(int number);
  void Cancel(const Context& context, int request);
  /// The context is gone.
  void Release(const Context& context);

  BrowserCore& core_;
  const std::string binding_;
  const std::string secret_;
  int last_id_ = 0;
  /// By the protocol's numbers.
  std::map<int, Context> contexts_;
};

}  // namespace cefedition
