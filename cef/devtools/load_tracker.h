#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "include/internal/cef_types.h"

namespace cefedition {

/// What a navigation asks for, before it is let through.
struct NavigationRequest {
  std::string frame_id;
  std::string url;
  /// A `cef_transition_type_t` with its flags.
  uint32_t transition = TT_LINK;
  bool user_gesture = false;
  bool is_redirect = false;
};

/// A navigation of one frame that has not committed yet.
struct PendingNavigation {
  std::string loader_id;
  std::string url;
  uint32_t transition = TT_LINK;
  bool user_gesture = false;
  bool same_document = false;
  /// The delegate has been asked about `url`.
  bool asked = false;
  bool request_seen = false;
  int http_status = 0;
  cef_errorcode_t error = ERR_NONE;
  /// Why the server's certificate was refused, which the browser reports as an abortion.
  cef_errorcode_t certificate_error = ERR_NONE;
};

/// Follows the loads of one browser's frames from the protocol's events and turns them into what
/// CEF tells its client, in CEF's order. Knows neither the protocol's messages nor CEF's objects.
/// One thread.
class LoadTracker {
 public:
  class Delegate {
   public:
    /// The browser as a whole began or ended to load.
    virtual void OnLoadingChanged(bool loading) = 0;
    /// True cancels the navigation.
    virtual bool OnNavigationStarting(const NavigationRequest& request) = 0;
    virtual void OnDocumentStarted(const std::string& frame_id, uint32_t transition) = 0;
    virtual void OnUrlChanged(const std::string& frame_id, const std::string& url) = 0;
    virtual void OnDocumentEnded(const std::string& frame_id, int http_status) = 0;
    virtual void OnLoadFailed(const std::string& frame_id,
                              cef_errorcode_t error,
                              const std::string& url) = 0;
    /// Whether the user did something in the page just now.
    virtual bool HadRecentInput() const = 0;

   protected:
    ~Delegate() = default;
  };

  explicit LoadTracker(Delegate* delegate);

  bool IsLoading() const { return !loading_.empty(); }

  /// The navigation of a frame that is under way; null when there is none.
  const PendingNavigation* PendingOf(const std::string& frame_id) const;

  /// Says how the next navigation of a frame, which its page did not ask for, came about.
  void ExpectTransition(const std::string& frame_id, uint32_t transition);

  /// The host is about to load a URL for which the browser will announce no request (data:, about:
  /// and the like), so that nobody else will ask. False when the delegate cancelled it.
  bool AskForHost(const std::string& frame_id, const std::string& url);

  /// The page asked for a navigation; `reason` is the protocol's word for the cause.
  void OnRequestedByPage(const std::string& frame_id,
                         const std::string& reason,
                         const std::string& url);

  /// A navigation began. `type` is the protocol's `navigationType`. True when the delegate
  /// cancelled a navigation for which no request will be announced.
  bool OnNavigationStarted(const std::string& frame_id,
                           const std::string& loader_id,
                           const std::string& url,
                           const std::string& type,
                           bool is_main);

  /// A request of a navigation is about to be sent. True when the delegate cancelled it.
  bool OnRequest(const std::string& frame_id, const std::string& url, bool is_main);

  /// The answer to that request: an HTTP status or, if it failed, the error.
  void OnResponse(const std::string& frame_id, int http_status, cef_errorcode_t error);

  /// The certificate of the server that a navigation to `url` came to was refused.
  void OnCertificateRefused(const std::string& url, cef_errorcode_t error);

  /// The browser answered a navigation of the host's with an error. `loader_id` is empty when
  /// nothing was started.
  void OnNavigateFailed(const std::string& frame_id,
                        const std::string& loader_id,
                        const std::string& url,
                        cef_errorcode_t error);

  /// A document took the frame over. `unreachable_url` is set for the browser's own error page.
  void OnCommitted(const std::string& frame_id,
                   const std::string& url,
                   const std::string& unreachable_url,
                   bool is_main);

  /// The address changed without a new document.
  void OnAddressChanged(const std::string& frame_id, const std::string& url);

  void OnStartedLoading(const std::string& frame_id);
  void OnStoppedLoading(const std::string& frame_id);
  void OnFrameRemoved(const std::string& frame_id);

  /// The page's process ended: nothing that was under way will be heard of again.
  void OnCrashed();

 private:
  struct Requested {
    std::string reason;
    std::string url;
  };
  struct Frame {
    std::optional<PendingNavigation> pending;
    std::optional<Requested> requested;
    std::optional<uint32_t> expected_transition;
    /// The URL that `AskForHost` has already asked about.
    std::optional<std::string> asked_url;
    /// The present document's start was reported and its end was not.
    bool document_open = false;
    int http_status = 0;
  };

  void SetLoading(const std::string& frame_id, bool loading);
  bool Ask(const std::string& frame_id, const std::string& url, PendingNavigation& pending);
  void Fail(const std::string& frame_id, const PendingNavigation& pending);
  uint32_t TransitionOf(Frame& frame,
                        const std::string& url,
                        const std::string& type,
                        bool is_main);

  Delegate* const delegate_;
  std::map<std::string, Frame> frames_;
  std::set<std::string> loading_;
};

}  // namespace cefedition
