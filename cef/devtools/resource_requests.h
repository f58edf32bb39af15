#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "devtools/resource_request.h"
#include "include/cef_client.h"
#include "include/cef_request_context.h"
#include "include/cef_request_context_handler.h"

namespace cefedition {

class BrowserCore;

/// The requests of one page, halted for the client's resource callbacks.
///
/// What the protocol reports is handed to the IO thread in its order, documents by way of the UI
/// thread; everything else happens on the IO thread. A callback that takes its time holds up
/// requests and nothing besides, and the UI thread holds up documents only.
class ResourceRequests : public std::enable_shared_from_this<ResourceRequests> {
 public:
  /// Null when neither the browser's client nor its request context has a handler to ask.
  static std::shared_ptr<ResourceRequests> Create(BrowserCore& core);

  explicit ResourceRequests(BrowserCore& core);

  /// On the thread that reads the protocol. True when the event was of interest to nobody else:
  /// what concerns documents has to be asked of the UI thread first.
  bool TakeEvent(const std::string& method, const Json& params);

  // UI thread.

  /// `Fetch.requestPaused` for a document. `accept_language` replaces the header that the page
  /// sends, unless it is empty; `is_download` says that the document is to be saved only.
  void OnDocumentPaused(const Json& params,
                        uint32_t transition,
                        const std::string& accept_language,
                        bool is_download);
  /// A frame keeps its document: what answered its navigation is saved instead.
  void OnDocumentKept(const std::string& frame_id, const std::string& url);
  void OnFrameRemoved(const std::string& frame_id);
  /// The page's process is gone.
  void OnCrashed();
  /// The browser is closed: all requests end as cancelled.
  void Close();

 private:
  class Link;
  struct Entry {
    std::shared_ptr<ResourceRequest> request;
    /// Belongs to the request.
    Link* link = nullptr;
    std::string frame_id;
    /// The document that asks, once it is known; empty for a navigation.
    std::string loader_id;
  };
  using Entries = std::map<std::string, Entry>;
  /// What was heard of requests by their ids, of which another event may still speak. The oldest
  /// are forgotten.
  class Recent {
   public:
    void Set(const std::string& id, const std::string& text);
    /// Null for an id that is not known.
    const std::string* Find(const std::string& id) const;

   private:
    std::map<std::string, std::string> texts_;
    std::deque<std::string> order_;
  };

  // IO thread.
  void OnPaused(const Json& params,
                uint32_t transition,
                const std::string& accept_language,
                bool is_download);
  /// False when the browser is closed.
  bool FindOrigin(const Json& params, RequestOrigin& origin) const;
  void SetLoader(Entry& entry, const std::string& id, const std::string& loader_id);
  void Begin(const std::string& id, const Json& params, const RequestOrigin& origin);
  /// Decides a request for which nobody wants callbacks.
  void PassBy(const std::string& halt_id,
              Request& request,
              const RequestOrigin& origin,
              bool disable_default_handling);
  /// A server or a proxy demands credentials.
  void OnAuthRequired(const Json& params);
  void OnNetworkEvent(const std::string& method, const Json& params);
  void OnDocument(const Json& frame);
  void OnWillBeSent(const std::string& id, const Json& params);
  /// Ends the requests for which `ends` holds.
  template <typename Predicate>
  void CancelIf(Predicate ends);
  void Forget(const std::string& id);
  void Send(const std::string& method,
            Json params,
            std::function<void(const ProtocolReply& reply)> on_reply);
  Entries::iterator FindPaused(const Json& params);

  const std::weak_ptr<BrowserCore> core_;
  const CefRefPtr<CefRequestHandler> client_handler_;
  const CefRefPtr<CefRequestContextHandler> context_handler_;

  /// By the network's id for the request; a request that has none, by that of its halt.
  Entries entries_;
  /// Requests that ended before their halt was known, or may still be halted though they are over.
  Recent ended_;
  /// The documents that requests belong to, which is told before or after the halt. An empty one is
  /// that of a worker's script: the worker, to which nobody listens, would report its end.
  Recent loaders_;
  /// The URLs of the documents in the page's frames.
  std::map<std::string, std::string> documents_;
  bool closed_ = false;
};

}  // namespace cefedition
