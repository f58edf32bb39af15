#include "devtools/load_tracker.h"

#include <utility>

#include "devtools/url_kinds.h"

namespace cefedition {
namespace {

uint32_t MainFrameTransition(const std::string& reason) {
  if (reason == "formSubmissionGet" || reason == "formSubmissionPost") {
    return TT_FORM_SUBMIT;
  }
  if (reason == "reload") {
    return TT_RELOAD;
  }
  if (reason == "metaTagRefresh" || reason == "httpHeaderRefresh") {
    return TT_LINK | TT_CLIENT_REDIRECT_FLAG;
  }
  return TT_LINK;
}

bool IsReload(const std::string& type) {
  return type == "reload" || type == "reloadBypassingCache";
}

bool IsHistory(const std::string& type) {
  return type.starts_with("history") || type.starts_with("restore");
}

}  // namespace

LoadTracker::LoadTracker(Delegate* delegate) : delegate_(delegate) {}

const PendingNavigation* LoadTracker::PendingOf(const std::string& frame_id) const {
  const auto found = frames_.find(frame_id);
  return found != frames_.end() && found->second.pending ? &*found->second.pending : nullptr;
}

void LoadTracker::ExpectTransition(const std::string& frame_id, uint32_t transition) {
  frames_[frame_id].expected_transition = transition;
}

bool LoadTracker::AskForHost(const std::string& frame_id, const std::string& url) {
  SetLoading(frame_id, true);
  PendingNavigation pending;
  pending.url = url;
  pending.transition = TT_EXPLICIT | TT_DIRECT_LOAD_FLAG;
  if (!Ask(frame_id, url, pending)) {
    frames_[frame_id].asked_url = url;
    return true;
  }
  pending.error = ERR_ABORTED;
  Fail(frame_id, pending);
  SetLoading(frame_id, false);
  return false;
}

void LoadTracker::OnRequestedByPage(const std::string& frame_id,
                                    const std::string& reason,
                                    const std::string& url) {
  frames_[frame_id].requested = Requested{reason, url};
}

uint32_t LoadTracker::TransitionOf(Frame& frame,
                                   const std::string& url,
                                   const std::string& type,
                                   bool is_main) {
  const std::optional<Requested> requested = std::exchange(frame.requested, std::nullopt);
  const std::optional<uint32_t> expected = std::exchange(frame.expected_transition, std::nullopt);
  const bool by_page = requested && requested->url == url;
  if (IsReload(type)) {
    return TT_RELOAD;
  }
  if (!is_main) {
    const bool initial = by_page && requested->reason == "initialFrameNavigation";
    const uint32_t source = initial || !by_page ? TT_AUTO_SUBFRAME : TT_MANUAL_SUBFRAME;
    return IsHistory(type) ? source | TT_FORWARD_BACK_FLAG : source;
  }
  if (IsHistory(type)) {
    return TT_LINK | TT_FORWARD_BACK_FLAG;
  }
  if (expected) {
    return *expected;
  }
  return by_page ? MainFrameTransition(requested->reason) : TT_EXPLICIT | TT_DIRECT_LOAD_FLAG;
}

bool LoadTracker::OnNavigationStarted(const std::string& frame_id,
                                      const std::string& loader_id,
                                      const std::string& url,
                                      const std::string& type,
                                      bool is_main) {
  Frame& frame = frames_[frame_id];
  const std::optional<PendingNavigation> replaced = std::exchange(frame.pending, std::nullopt);
  PendingNavigation pending;
  pending.loader_id = loader_id;
  pending.url = url;
  pending.same_document = type == "sameDocument" || type == "historySameDocument";
  pending.transition = TransitionOf(frame, url, type, is_main);
  const bool by_host = (pending.transition & TT_DIRECT_LOAD_FLAG) != 0;
  pending.user_gesture = !by_host && delegate_->HadRecentInput();
  pending.asked = std::exchange(frame.asked_url, std::nullopt) == url;
  frame.pending = pending;
  if (replaced && !replaced->same_document) {
    PendingNavigation aborted = *replaced;
    aborted.error = ERR_ABORTED;
    Fail(frame_id, aborted);
  }
  SetLoading(frame_id, true);
  if (pending.same_document || pending.asked || IsInterceptable(url)) {
    return false;
  }
  const bool cancelled = Ask(frame_id, url, pending);
  const auto found = frames_.find(frame_id);
  if (found != frames_.end() && found->second.pending) {
    found->second.pending->asked = true;
    found->second.pending->error = cancelled ? ERR_ABORTED : ERR_NONE;
  }
  return cancelled;
}

bool LoadTracker::OnRequest(const std::string& frame_id, const std::string& url, bool is_main) {
  Frame& frame = frames_[frame_id];
  if (!frame.pending) {
    // The start of a new window's first navigation comes before anybody listens.
    frame.pending.emplace();
    frame.pending->transition = TransitionOf(frame, url, {}, is_main);
  }
  frame.pending->url = url;
  frame.pending->certificate_error = ERR_NONE;
  SetLoading(frame_id, true);
  PendingNavigation& pending = frames_[frame_id].pending.value();
  if (pending.asked && !pending.request_seen) {
    pending.request_seen = true;
    return pending.error == ERR_ABORTED;
  }
  const PendingNavigation asked = pending;
  pending.request_seen = true;
  PendingNavigation copy = asked;
  return Ask(frame_id, url, copy);
}

void LoadTracker::OnResponse(const std::string& frame_id, int http_status, cef_errorcode_t error) {
  const auto found = frames_.find(frame_id);
  if (found == frames_.end() || !found->second.pending) {
    return;
  }
  found->second.pending->http_status = http_status;
  found->second.pending->error = error;
}

void LoadTracker::OnCertificateRefused(const std::string& url, cef_errorcode_t error) {
  for (auto& [id, frame] : frames_) {
    if (frame.pending && frame.pending->url == url) {
      frame.pending->certificate_error = error;
    }
  }
}

void LoadTracker::OnNavigateFailed(const std::string& frame_id,
                                   const std::string& loader_id,
                                   const std::string& url,
                                   cef_errorcode_t error) {
  Frame& frame = frames_[frame_id];
  if (!loader_id.empty()) {
    if (frame.pending && frame.pending->loader_id == loader_id) {
      frame.pending->error = error;
    }
    return;
  }
  frame.asked_url.reset();
  frame.expected_transition.reset();
  PendingNavigation refused;
  refused.url = url;
  refused.error = error;
  Fail(frame_id, refused);
  if (!frames_[frame_id].pending) {
    SetLoading(frame_id, false);
  }
}

void LoadTracker::OnCommitted(const std::string& frame_id,
                              const std::string& url,
                              const std::string& unreachable_url,
                              bool is_main) {
  Frame& frame = frames_[frame_id];
  if (!frame.pending) {
    frame.pending.emplace();
    frame.pending->transition = TransitionOf(frame, url, {}, is_main);
  }
  PendingNavigation pending = *std::exchange(frame.pending, std::nullopt);
  if (!unreachable_url.empty()) {
    frame.document_open = false;
    pending.url = unreachable_url;
    if (pending.error == ERR_NONE) {
      pending.error = ERR_FAILED;
    }
    Fail(frame_id, pending);
    return;
  }
  frame.document_open = true;
  frame.http_status = pending.http_status;
  delegate_->OnDocumentStarted(frame_id, pending.transition);
  if (is_main) {
    delegate_->OnUrlChanged(frame_id, url);
  }
}

void LoadTracker::OnAddressChanged(const std::string& frame_id, const std::string& url) {
  Frame& frame = frames_[frame_id];
  if (frame.pending && frame.pending->same_document) {
    frame.pending.reset();
  }
  delegate_->OnUrlChanged(frame_id, url);
}

void LoadTracker::OnStartedLoading(const std::string& frame_id) {
  SetLoading(frame_id, true);
}

void LoadTracker::OnStoppedLoading(const std::string& frame_id) {
  const auto found = frames_.find(frame_id);
  if (found == frames_.end() || !loading_.contains(frame_id)) {
    return;
  }
  Frame& frame = found->second;
  if (std::exchange(frame.document_open, false)) {
    const int status = frame.http_status;
    // The end of the old document is not the end of the navigation that will replace it.
    const bool is_left = frame.pending && !frame.pending->same_document;
    delegate_->OnDocumentEnded(frame_id, status);
    if (is_left && !IsForOtherPrograms(frame.pending->url)) {
      return;
    }
  }
  if (frame.pending && !frame.pending->same_document) {
    PendingNavigation aborted = *std::exchange(frame.pending, std::nullopt);
    if (aborted.error == ERR_NONE) {
      aborted.error = ERR_ABORTED;
    }
    Fail(frame_id, aborted);
  }
  frame.pending.reset();
  SetLoading(frame_id, false);
}

void LoadTracker::OnFrameRemoved(const std::string& frame_id) {
  frames_.erase(frame_id);
  SetLoading(frame_id, false);
}

void LoadTracker::OnCrashed() {
  frames_.clear();
  if (IsLoading()) {
    loading_.clear();
    delegate_->OnLoadingChanged(false);
  }
}

void LoadTracker::SetLoading(const std::string& frame_id, bool loading) {
  const bool before = IsLoading();
  if (loading) {
    loading_.insert(frame_id);
  } else {
    loading_.erase(frame_id);
  }
  if (before != IsLoading()) {
    delegate_->OnLoadingChanged(!before);
  }
}

bool LoadTracker::Ask(const std::string& frame_id,
                      const std::string& url,
                      PendingNavigation& pending) {
  NavigationRequest request;
  request.frame_id = frame_id;
  request.url = url;
  request.transition = pending.transition;
  request.user_gesture = pending.user_gesture;
  request.is_redirect = pending.request_seen;
  return delegate_->OnNavigationStarting(request);
}

void LoadTracker::Fail(const std::string& frame_id, const PendingNavigation& pending) {
  const bool refused = pending.certificate_error != ERR_NONE;
  delegate_->OnLoadFailed(frame_id, refused ? pending.certificate_error : pending.error,
                          pending.url);
}

}  // namespace cefedition
