// Implements the handler interfaces member by member: each collects its arguments, asks the answer
// table, sets the in/out arguments and adds the notification to the log.

#include "com/browser_handler.h"

#include <atomic>
#include <cstdint>
#include <new>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "KZCEFComWrapper.h"
#include "wide_text.h"

namespace kzhost {
namespace {

using Microsoft::WRL::ComPtr;

// Replaces an in/out text: the callee frees what came in and the caller what goes out.
void Replace(BSTR& place, const std::string& text) {
  Bstr fresh = MakeBstr(ToWide(text));
  SysFreeString(place);
  place = fresh.release();
}

// Collects the arguments of one notification, then writes what is answered into the in/out ones.
class Exchange {
 public:
  void Text(const char* name, BSTR value) { arguments_[name] = BstrToUtf8(value); }
  void Flag(const char* name, VARIANT_BOOL value) { arguments_[name] = value != VARIANT_FALSE; }
  void Number(const char* name, long value) { arguments_[name] = value; }

  void TextInOut(const char* name, BSTR* place) {
    arguments_[name] = place ? Json(BstrToUtf8(*place)) : Json(nullptr);
    places_.push_back({name, place});
  }

  // A text that is shown and written down nowhere, only whether there is one.
  void SecretInOut(const char* name, BSTR* place) {
    arguments_[name] = place ? Json(SysStringLen(*place) == 0 ? "" : kMask) : Json(nullptr);
    places_.push_back({name, place, true});
  }

  void FlagInOut(const char* name, VARIANT_BOOL* place) {
    arguments_[name] = place ? Json(*place != VARIANT_FALSE) : Json(nullptr);
    places_.push_back({name, place});
  }

  const Json& arguments() const { return arguments_; }

  // Returns what was written.
  Json Write(const Json& answers) const {
    Json written = Json::object();
    for (const Place& place : places_) {
      const auto answer = answers.find(place.name);
      if (answer != answers.end() && WriteOne(place, *answer)) {
        written[place.name] = place.is_secret ? Json(kMask) : *answer;
      }
    }
    return written;
  }

 private:
  struct Place {
    std::string name;
    std::variant<BSTR*, VARIANT_BOOL*> where;
    bool is_secret = false;
  };

  static constexpr char kMask[] = "***";

  static bool WriteOne(const Place& place, const Json& answer) {
    if (BSTR* const* text = std::get_if<BSTR*>(&place.where)) {
      if (*text && answer.is_string()) {
        Replace(**text, answer.get_ref<const std::string&>());
        return true;
      }
      return false;
    }
    VARIANT_BOOL* flag = std::get<VARIANT_BOOL*>(place.where);
    if (!flag || !(answer.is_boolean() || answer.is_number_integer())) {
      return false;
    }
    if (answer.is_boolean()) {
      *flag = answer.get<bool>() ? VARIANT_TRUE : VARIANT_FALSE;
    } else {
      *flag = answer.get<VARIANT_BOOL>();  // as it is: some members take -1 alone for true
    }
    return true;
  }

  Json arguments_ = Json::object();
  std::vector<Place> places_;
};

class BrowserHandler final : public IKZCEFComBrowserHandler3 {
 public:
  BrowserHandler(std::string browser,
                 std::shared_ptr<NotificationLog> log,
                 std::shared_ptr<AnswerTable> answers,
                 ComPtr<ITypeInfo> information)
      : browser_(std::move(browser)),
        log_(std::move(log)),
        answers_(std::move(answers)),
        information_(std::move(information)) {}

  // IUnknown
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) {
      return E_POINTER;
    }
    *object = nullptr;
    if (id != __uuidof(IUnknown) && id != __uuidof(IDispatch) &&
        id != __uuidof(IKZCEFComBrowserHandler) && id != __uuidof(IKZCEFComBrowserHandler2) &&
        id != __uuidof(IKZCEFComBrowserHandler3)) {
      return E_NOINTERFACE;
    }
    // One line of inheritance: each interface is the start of the next.
    *object = static_cast<IKZCEFComBrowserHandler3*>(this);
    AddRef();
    return S_OK;
  }

  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }

  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }

  // IDispatch, by the type library
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (!count) {
      return E_POINTER;
    }
    *count = 1;
    return S_OK;
  }

  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** information) override {
    if (!information) {
      return E_POINTER;
    }
    *information = nullptr;
    return index == 0 ? information_.CopyTo(information) : DISP_E_BADINDEX;
  }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return information_->GetIDsOfNames(names, count, ids);
  }

  STDMETHODIMP Invoke(DISPID member,
                      REFIID,
                      LCID,
                      WORD kind,
                      DISPPARAMS* parameters,
                      VARIANT* result,
                      EXCEPINFO* exception,
                      UINT* wrong_argument) override {
    return information_->Invoke(static_cast<IKZCEFComBrowserHandler3*>(this), member, kind,
                                parameters, result, exception, wrong_argument);
  }

  // IKZCEFComBrowserHandler
  STDMETHODIMP AddressChangeNotify(BSTR address) override {
    return Deliver("AddressChangeNotify", [&](Exchange& x) { x.Text("NewAddress", address); });
  }

  STDMETHODIMP BeforePopupNotify(BSTR url, VARIANT_BOOL* popup, VARIANT_BOOL* proceed) override {
    return Deliver("BeforePopupNotify", [&](Exchange& x) {
      x.Text("URL", url);
      x.FlagInOut("Popup", popup);
      x.FlagInOut("Continue", proceed);
    });
  }

  STDMETHODIMP LoadEndNotify(long status) override {
    return Deliver("LoadEndNotify", [&](Exchange& x) { x.Number("httpStatus", status); });
  }

  STDMETHODIMP LoadStartNotify(long transition) override {
    return Deliver("LoadStartNotify", [&](Exchange& x) { x.Number("TransitionType", transition); });
  }

  STDMETHODIMP LoadingStateChangeNotify(VARIANT_BOOL loading,
                                        VARIANT_BOOL can_go_back,
                                        VARIANT_BOOL can_go_forward) override {
    return Deliver("LoadingStateChangeNotify", [&](Exchange& x) {
      x.Flag("IsLoading", loading);
      x.Flag("CanGoBack", can_go_back);
      x.Flag("CanGoForward", can_go_forward);
    });
  }

  STDMETHODIMP BrowserCreatedNotify() override {
    return Deliver("BrowserCreatedNotify", [](Exchange&) {});
  }

  STDMETHODIMP BeforeDownloadNotify(BSTR* path,
                                    VARIANT_BOOL* allowed,
                                    VARIANT_BOOL* show_dialog) override {
    return Deliver("BeforeDownloadNotify", [&](Exchange& x) {
      x.TextInOut("DownloadPathName", path);
      x.FlagInOut("CanBeDownloaded", allowed);
      x.FlagInOut("ShowSaveAsDialog", show_dialog);
    });
  }

  STDMETHODIMP DownloadCompletedNotify(BSTR path) override {
    return Deliver("DownloadCompletedNotify",
                   [&](Exchange& x) { x.Text("DownloadPathName", path); });
  }

  STDMETHODIMP BeforeBrowseNotify(BSTR url,
                                  VARIANT_BOOL user_gesture,
                                  VARIANT_BOOL is_redirect,
                                  VARIANT_BOOL* cancel) override {
    return Deliver("BeforeBrowseNotify", [&](Exchange& x) {
      x.Text("RequestURL", url);
      x.Flag("UserGesture", user_gesture);
      x.Flag("IsRedirect", is_redirect);
      x.FlagInOut("cancelNavigation", cancel);
    });
  }

  STDMETHODIMP ResourceRedirectNotify(BSTR old_url, BSTR* new_url, long status) override {
    return Deliver("ResourceRedirectNotify", [&](Exchange& x) {
      x.Text("OldURLStr", old_url);
      x.TextInOut("NewURLStr", new_url);
      x.Number("StatusCode", status);
    });
  }

  STDMETHODIMP ResourceResponseNotify(BSTR* url, VARIANT_BOOL* modify, long type) override {
    return Deliver("ResourceResponseNotify", [&](Exchange& x) {
      x.TextInOut("URLStr", url);
      x.FlagInOut("ModifyRequest", modify);
      x.Number("ResourceType", type);
    });
  }

  STDMETHODIMP BeforeResourceLoadNotify(BSTR* url, BSTR* type_name) override {
    return Deliver("BeforeResourceLoadNotify", [&](Exchange& x) {
      x.TextInOut("URLStr", url);
      x.TextInOut("requestTypeName", type_name);
    });
  }

  STDMETHODIMP GetAuthCredentialsNotify(BSTR* origin_url,
                                        VARIANT_BOOL* is_proxy,
                                        BSTR* host,
                                        long port,
                                        BSTR* realm,
                                        BSTR* scheme,
                                        VARIANT_BOOL* proceed,
                                        BSTR* user_name,
                                        BSTR* password) override {
    return Deliver("GetAuthCredentialsNotify", [&](Exchange& x) {
      x.TextInOut("origin_url", origin_url);
      x.FlagInOut("isProxy", is_proxy);
      x.TextInOut("host", host);
      x.Number("port", port);
      x.TextInOut("realm", realm);
      x.TextInOut("scheme", scheme);
      x.FlagInOut("shouldContinue", proceed);
      x.SecretInOut("username", user_name);
      x.SecretInOut("password", password);
    });
  }

  STDMETHODIMP ResourceLoadCompleteNotify(BSTR url, BSTR json) override {
    return Deliver("ResourceLoadCompleteNotify", [&](Exchange& x) {
      x.Text("RequestURL", url);
      x.Text("jsonStr", json);
    });
  }

  STDMETHODIMP EscapeKeyNotify() override {
    return Deliver("EscapeKeyNotify", [](Exchange&) {});
  }

  // Not a notification: names the browser window that the next one is about.
  STDMETHODIMP SetOwnerWndHandle(__int64 window) override {
    owner_window_ = window;
    return S_OK;
  }

  // IKZCEFComBrowserHandler2
  STDMETHODIMP DownloadUpdatedNotify(BSTR path, long status, long percent) override {
    return Deliver("DownloadUpdatedNotify", [&](Exchange& x) {
      x.Text("DownloadPathName", path);
      x.Number("DownloadStatus", status);
      x.Number("PercentComplete", percent);
    });
  }

  STDMETHODIMP BeforeContextMenuNotify(VARIANT_BOOL* clear_model) override {
    return Deliver("BeforeContextMenuNotify",
                   [&](Exchange& x) { x.FlagInOut("ClearModel", clear_model); });
  }

  // IKZCEFComBrowserHandler3
  STDMETHODIMP KeyStrokeNotify(long key_code, VARIANT_BOOL* handled) override {
    return Deliver("KeyStrokeNotify", [&](Exchange& x) {
      x.Number("windowsKeyCode", key_code);
      x.FlagInOut("isEventHandled", handled);
    });
  }

 private:
  ~BrowserHandler() = default;

  // Everything that throws is caught here: no exception may leave a COM member.
  template <typename Collect>
  HRESULT Deliver(const char* name, Collect&& collect) noexcept {
    try {
      Exchange exchange;
      collect(exchange);
      Notification notification;
      notification.browser = browser_;
      notification.name = name;
      notification.arguments = exchange.arguments();
      const Answer answer = answers_->Find(name, exchange.arguments());
      // A handler that is to take its time does so in the middle of the call, as a real one would.
      if (answer.delay.count() > 0) {
        Sleep(static_cast<DWORD>(answer.delay.count()));
      }
      notification.answered = exchange.Write(answer.arguments);
      notification.owner_window = owner_window_;
      notification.thread = GetCurrentThreadId();
      log_->Add(std::move(notification));
      return S_OK;
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    } catch (...) {
      return E_UNEXPECTED;
    }
  }

  const std::string browser_;
  const std::shared_ptr<NotificationLog> log_;
  const std::shared_ptr<AnswerTable> answers_;
  const ComPtr<ITypeInfo> information_;
  std::atomic<std::int64_t> owner_window_ = 0;
  // The first reference is the ComPtr's that takes the new object.
  std::atomic<ULONG> references_ = 0;
};

}  // namespace

ComPtr<IDispatch> MakeBrowserHandler(std::string browser,
                                     std::shared_ptr<NotificationLog> log,
                                     std::shared_ptr<AnswerTable> answers,
                                     ComPtr<ITypeInfo> information) {
  return ComPtr<IDispatch>(new BrowserHandler(std::move(browser), std::move(log),
                                              std::move(answers), std::move(information)));
}

}  // namespace kzhost
