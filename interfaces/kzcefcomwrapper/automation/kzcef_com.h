// KZCEFCom: what all automation objects of the process share.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "handler/host_notifications.h"

namespace kzcef {

class BrowserLife;
class HandlerReference;
class kzCefBridge;

// The process-wide registry: the host's handlers and the browsers that they serve, the bridge, and
// the flags by which host and engine agree on closing. Its dispatchers (HostNotifications) carry
// the engine's notifications to the handlers.
//
// The engine's threads walk immutable snapshots of the tables, which are replaced when the host
// registers or unregisters, so a walk costs no copy and may register and unregister itself. A
// handler stays alive until the last walk that knows it has ended; a browser object that is gone is
// not called any more, whatever a walk still holds. Any thread.
class KZCEFCom final : public HostNotifications {
 public:
  // Returns the registry, which is made on the first call, then publishes its dispatchers, and
  // lives until the process ends. Callers keep the reference for the duration of a call.
  static std::shared_ptr<KZCEFCom> Get();
  // Returns the registry if it was made already, or null.
  static std::shared_ptr<KZCEFCom> Existing();

  KZCEFCom() = default;
  KZCEFCom(const KZCEFCom&) = delete;
  KZCEFCom& operator=(const KZCEFCom&) = delete;

  // Enters `handler` with its add-in and takes a reference to it. A second registration takes
  // another, which nothing ever releases: hosts count on it.
  void AddHandler(IUnknown* handler, long addin_id);
  // Pairs a handler with the browser that it serves; the first one stays. No reference.
  void PairWithBrowser(IUnknown* handler, IUnknown* browser);
  // Takes `handler` out of both tables and releases the table's reference.
  void RemoveHandler(IUnknown* handler);
  // Takes out every pair with `browser`, and the handlers of these pairs from the handler table.
  void RemoveHandlersOf(IUnknown* browser);
  bool HasHandlers() const;

  // Returns null until InitCef has succeeded.
  kzCefBridge* bridge() const { return bridge_; }
  void set_bridge(kzCefBridge* bridge) { bridge_ = bridge; }

  // Makes a new browser object known, whoever created it, so that handlers can be paired with it.
  // `identity` is its IKZCEFComBrowser pointer.
  void AddBrowser(IUnknown* identity, std::shared_ptr<BrowserLife> life);
  // Appends a known browser object to the browser list, or null for one that could not be made.
  void ListBrowser(IUnknown* identity);
  // Takes a browser object that is going away out of the list, and every pair with it.
  void ForgetBrowser(IUnknown* identity);

  // Returns true once InitCef has run, whatever came of it.
  bool started() const { return started_; }
  void set_started() { started_ = true; }
  void ExchangeHostClosing(bool closing) { host_closing_.exchange(closing); }
  bool IsProcessing() const { return processing_ > 0; }

  // HostNotifications:
  bool IsHostClosing() const override { return host_closing_.load(); }
  bool ExchangeProcessing(bool processing) override {
    return (processing ? processing_++ : processing_--) > 0;
  }
  bool IsAnyoneListening() const override { return !Snapshot()->empty(); }
  void AddressChangeNotify(HWND window, const std::wstring& new_address) override;
  void BeforeBrowseNotify(HWND window,
                          const std::wstring& request_url,
                          VARIANT_BOOL user_gesture,
                          VARIANT_BOOL is_redirect,
                          VARIANT_BOOL* cancel_navigation) override;
  void BeforeContextMenuNotify(HWND window, VARIANT_BOOL* clear_model) override;
  void BeforeDownloadNotify(HWND window,
                            BSTR* download_path_name,
                            VARIANT_BOOL* can_be_downloaded,
                            VARIANT_BOOL* show_save_as_dialog) override;
  void BeforePopupNotify(HWND window,
                         const std::wstring& url,
                         VARIANT_BOOL* popup,
                         VARIANT_BOOL* proceed) override;
  void BeforeResourceLoadNotify(HWND window, BSTR* url, BSTR* request_type_name) override;
  void BrowserCreatedNotify(HWND window) override;
  void DownloadCompletedNotify(HWND window, const std::wstring& download_path_name) override;
  void DownloadUpdatedNotify(HWND window,
                             const std::wstring& download_path_name,
                             long download_status,
                             long percent_complete) override;
  void EscapeKeyNotify(HWND window) override;
  void GetAuthCredentialsNotify(HWND window,
                                BSTR* origin_url,
                                VARIANT_BOOL* is_proxy,
                                BSTR* host,
                                long port,
                                BSTR* realm,
                                BSTR* scheme,
                                VARIANT_BOOL* should_continue,
                                BSTR* username,
                                BSTR* password) override;
  void KeyStrokeNotify(HWND window, long windows_key_code, VARIANT_BOOL* is_handled) override;
  void LoadEndNotify(HWND window, long http_status) override;
  void LoadStartNotify(HWND window, long transition_type) override;
  void LoadingStateChangeNotify(HWND window,
                                VARIANT_BOOL is_loading,
                                VARIANT_BOOL can_go_back,
                                VARIANT_BOOL can_go_forward) override;
  void ResourceLoadCompleteNotify(HWND window,
                                  const std::wstring& request_url,
                                  const std::wstring& json) override;
  void ResourceRedirectNotify(HWND window,
                              const std::wstring& old_url,
                              BSTR* new_url,
                              long status_code) override;
  void ResourceResponseNotify(HWND window,
                              BSTR* url,
                              VARIANT_BOOL* modify_request,
                              long resource_type) override;

 private:
  // Pointers are compared by their numeric value.
  template <typename Value>
  using PointerMap = std::map<std::uintptr_t, Value>;

  // One step of a walk: a handler, the browser that it serves, and what keeps both callable.
  struct Pair {
    IUnknown* handler;
    IUnknown* browser;
    std::shared_ptr<HandlerReference> handler_reference;
    // Null for a browser object that is not this library's own.
    std::shared_ptr<BrowserLife> browser_life;
  };
  // In ascending order of the handlers' pointers.
  using Pairs = std::vector<Pair>;
  using BrowserList = std::vector<std::shared_ptr<BrowserLife>>;

  // Both with changes_ held.
  std::shared_ptr<HandlerReference> TakeOut(std::uintptr_t handler);
  void PublishPairs();

  void PassPendingScriptHandlers(HWND window) const;
  static bool Serves(const Pair& pair, HWND window, VARIANT_BOOL* popup);
  std::shared_ptr<const Pairs> Snapshot() const { return published_pairs_.load(); }
  template <typename Interface, typename Notify>
  void Walk(HWND window, Notify&& notify, VARIANT_BOOL* popup = nullptr) const;
  template <typename Interface, typename Notify>
  static void WalkThrough(const Pairs& pairs,
                          HWND window,
                          Notify&& notify,
                          VARIANT_BOOL* popup = nullptr);

  // Guards the tables below against other changes, never while somebody else's code runs.
  mutable std::mutex changes_;
  PointerMap<long> handlers_;
  PointerMap<Pair> pairs_;
  // The one COM reference that the handler table holds on each handler, shared with the walks.
  PointerMap<std::shared_ptr<HandlerReference>> references_;
  kzCefBridge* bridge_ = nullptr;
  std::atomic<std::shared_ptr<const BrowserList>> browsers_{std::make_shared<const BrowserList>()};
  bool started_ = false;
  std::atomic<bool> host_closing_{false};
  // How many notifications are under way: the engine's threads raise them side by side.
  std::atomic<int> processing_{0};
  // Every browser object that exists, listed or not, by its IKZCEFComBrowser pointer.
  PointerMap<std::shared_ptr<BrowserLife>> lives_;
  // What walks see of pairs_.
  std::atomic<std::shared_ptr<const Pairs>> published_pairs_{std::make_shared<const Pairs>()};
};

}  // namespace kzcef
