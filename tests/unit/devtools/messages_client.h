#pragma once

#include <map>
#include <string>

#include "include/wrapper/cef_message_router.h"
#include "recording_client.h"

namespace cefedition {

/// A client with a message router, whose one handler does what the request says, and which writes
/// down every message that the router leaves.
class MessagesClient : public RecordingClient, public CefMessageRouterBrowserSide::Handler {
 public:
  explicit MessagesClient(EventLog* log);

  /// Answers a query that was kept, on the UI thread: with success, or else with failure 5. Any
  /// thread.
  void Answer(const std::string& request, bool success, const std::string& text);

  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser,
                                CefRefPtr<CefFrame> frame,
                                CefProcessId source_process,
                                CefRefPtr<CefProcessMessage> message) override;
  bool OnBeforeBrowse(CefRefPtr<CefBrowser> browser,
                      CefRefPtr<CefFrame> frame,
                      CefRefPtr<CefRequest> request,
                      bool user_gesture,
                      bool is_redirect) override;
  void OnBeforeClose(CefRefPtr<CefBrowser> browser) override;

  /// "echo <text>", "fail <text>" and "keep..." are answered so; others are not taken.
  bool OnQuery(CefRefPtr<CefBrowser> browser,
               CefRefPtr<CefFrame> frame,
               int64_t query_id,
               const CefString& request,
               bool persistent,
               CefRefPtr<Callback> callback) override;
  /// The same bytes backwards.
  bool OnQuery(CefRefPtr<CefBrowser> browser,
               CefRefPtr<CefFrame> frame,
               int64_t query_id,
               CefRefPtr<const CefBinaryBuffer> request,
               bool persistent,
               CefRefPtr<Callback> callback) override;
  void OnQueryCanceled(CefRefPtr<CefBrowser> browser,
                       CefRefPtr<CefFrame> frame,
                       int64_t query_id) override;

 private:
  void AnswerNow(const std::string& request, bool success, const std::string& text);

  EventLog* const log_;
  // UI thread.
  CefRefPtr<CefMessageRouterBrowserSide> router_;
  std::map<std::string, CefRefPtr<Callback>> kept_;
  std::map<int64_t, std::string> names_;
};

}  // namespace cefedition
