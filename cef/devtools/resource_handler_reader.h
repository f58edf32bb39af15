#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/response.h"
#include "include/cef_resource_handler.h"

namespace cefedition {

/// Reads the response that a client's `CefResourceHandler` gives in place of the network.
///
/// The handler opens and reads on the background thread, where a slow one holds up nobody's
/// requests; it is asked for the headers, and told of a cancellation, on the IO thread. So are the
/// functions that are given here called, at most once each and not after `Cancel`.
class ResourceHandlerReader : public std::enable_shared_from_this<ResourceHandlerReader> {
 public:
  struct Head {
    /// `ERR_NONE` when there is a response.
    cef_errorcode_t error = ERR_NONE;
    CefRefPtr<CefResponse> response;
    /// Of the whole body, -1 when it is not known.
    int64_t length = -1;
    /// A URL that may be relative, empty for no redirect.
    std::string redirect_url;
  };
  using OnHead = std::function<void(const Head& head)>;
  /// `error` is `ERR_NONE` when the body is complete.
  using OnBody = std::function<void(cef_errorcode_t error, const std::string& body)>;

  ResourceHandlerReader(CefRefPtr<CefResourceHandler> handler, CefRefPtr<CefRequest> request);

  // IO thread.

  void Open(OnHead on_head);
  /// Reads the body, after the head has come without an error. The first `skip` bytes are left out.
  void Read(int64_t skip, OnBody on_body);
  /// Tells the handler, unless it has given everything.
  void Cancel();

 private:
  class OpenCallback;
  class ReadCallback;

  // Background thread.
  void OpenNow();
  void OnOpened(int step, bool opened);
  void Step();
  /// True when there is more to do at once.
  bool SkipSome();
  bool ReadSome();
  bool ReadSomeTheOldWay();
  void OnSkipped(int step, int64_t count);
  void OnRead(int step, int count);
  void OnReadable(int step, bool readable);
  void EndBody(cef_errorcode_t error);

  // IO thread.
  void TakeHead(bool opened);

  const CefRefPtr<CefResourceHandler> handler_;
  const CefRefPtr<CefRequest> request_;
  std::atomic<bool> over_{false};
  OnHead on_head_;
  OnBody on_body_;

  // Handed from one thread to the other together with the turn.
  /// Counts the calls that may be answered later, so that an answer is taken once.
  int step_ = 0;
  int64_t length_ = -1;
  int64_t left_to_skip_ = 0;
  bool old_way_ = false;
  std::vector<char> chunk_;
  std::string body_;
};

}  // namespace cefedition
