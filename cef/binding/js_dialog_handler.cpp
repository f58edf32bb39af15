// The handler of JavaScript's dialogs that every client has towards the engine.

#include "js_dialog_handler.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "binding.h"
#include "forced_closes.h"
#include "include/cef_frame.h"
#include "include/cef_parser.h"
#include "page_dialog.h"

namespace cefbinding {
namespace {

class JSDialogCallbackObject final : public LibraryObject<CefJSDialogCallback> {
 public:
  explicit JSDialogCallbackObject(Struct* object) : LibraryObject(object) {}

  void Continue(bool success, const CefString& user_input) override {
    Call(&Struct::cont, success, user_input);
  }
};

struct Shown {
  std::shared_ptr<PageDialog> dialog;
  CefRefPtr<CefJSDialogCallback> callback;
};

// By the identifiers of their browsers; on TID_UI only. What a browser had last stays here until it
// has another one or closes. Never destroyed, as their threads are not.
std::map<int, Shown>& Dialogs() {
  static auto* const dialogs = new std::map<int, Shown>;
  return *dialogs;
}

// The dialog of a browser, which is forgotten.
std::optional<Shown> TakeDialogOf(int browser_id) {
  auto node = Dialogs().extract(browser_id);
  return node ? std::optional(std::move(node.mapped())) : std::nullopt;
}

// Host and port as Chromium shows them to users; none for an address that has no host.
std::optional<std::wstring> OriginOf(const CefString& url) {
  CefURLParts parts;
  if (!CefParseURL(url, parts) || CefString(&parts.host).empty()) {
    return std::nullopt;
  }
  const CefString shown = CallEngine(&capi::Functions::cef_format_url_for_security_display, url);
  std::wstring origin = shown.ToWString();
  for (const std::wstring_view scheme : {L"https://", L"http://"}) {
    if (origin.starts_with(scheme)) {
      origin.erase(0, scheme.size());
    }
  }
  return origin;
}

// Chromium's own words.
std::wstring TitleOf(CefBrowser& browser, const CefString& origin_url) {
  const std::optional<std::wstring> origin = OriginOf(origin_url);
  const CefRefPtr<CefFrame> main_frame = browser.GetMainFrame();
  const bool is_embedded = main_frame && OriginOf(main_frame->GetURL()) != origin;
  if (!origin) {
    return is_embedded ? L"An embedded page on this page says" : L"This page says";
  }
  return (is_embedded ? L"An embedded page at " : L"") + *origin + L" says";
}

PageDialogKind KindOf(cef_jsdialog_type_t type) {
  switch (type) {
    case JSDIALOGTYPE_CONFIRM:
      return PageDialogKind::kConfirm;
    case JSDIALOGTYPE_PROMPT:
      return PageDialogKind::kPrompt;
    default:
      return PageDialogKind::kAlert;
  }
}

// Null for a browser that has no window any more.
HWND ViewOf(CefBrowser& browser) {
  const CefRefPtr<CefBrowserHost> host = browser.GetHost();
  return host ? host->GetWindowHandle() : nullptr;
}

void ShowDialog(CefBrowser& browser,
                HWND view,
                PageDialogKind kind,
                PageDialogTexts texts,
                const CefRefPtr<CefJSDialogCallback>& callback) {
  // A frame's dialog takes the place of another frame's. That one is answered before the new one is
  // known: the engine takes down whatever the browser shows then.
  if (const std::optional<Shown> before = TakeDialogOf(browser.GetIdentifier())) {
    before->dialog->Dismiss();
    before->callback->Continue(false, CefString());
  }
  const auto dialog = PageDialog::Show(view, kind, std::move(texts),
                                       [callback](bool accepted, const std::wstring& input) {
                                         callback->Continue(accepted, input);
                                       });
  Dialogs()[browser.GetIdentifier()] = {dialog, callback};
}

class JavaScriptDialogHandler final : public CefJSDialogHandler {
 public:
  bool OnJSDialog(CefRefPtr<CefBrowser> browser,
                  const CefString& origin_url,
                  cef_jsdialog_type_t dialog_type,
                  const CefString& message_text,
                  const CefString& default_prompt_text,
                  CefRefPtr<CefJSDialogCallback> callback,
                  bool& suppress_message) override {
    const HWND view = ViewOf(*browser);
    if (!IsWindowVisible(view)) {
      // Nobody can see it: CEF 123 let an alert's page go on, and refused the others.
      if (dialog_type == JSDIALOGTYPE_ALERT) {
        callback->Continue(true, CefString());
        return true;
      }
      suppress_message = true;
      return false;
    }
    ShowDialog(*browser, view, KindOf(dialog_type),
               {.title = TitleOf(*browser, origin_url),
                .message = message_text.ToWString(),
                .input = default_prompt_text.ToWString()},
               callback);
    return true;
  }

  // In Chromium's words, but not in its dialog: the engine does not survive a host that ends while
  // that one is open. A browser that is closing in any case goes without a question, as with CEF
  // 123, and so does one that nobody can see.
  bool OnBeforeUnloadDialog(CefRefPtr<CefBrowser> browser,
                            const CefString& /*message_text*/,
                            bool is_reload,
                            CefRefPtr<CefJSDialogCallback> callback) override {
    const HWND view = ViewOf(*browser);
    if (IsForcedToClose(*browser) || !IsWindowVisible(view)) {
      callback->Continue(true, CefString());
      return true;
    }
    ShowDialog(*browser, view, PageDialogKind::kConfirm,
               {.title = is_reload ? L"Reload site?" : L"Leave site?",
                .message = L"Changes you made may not be saved.",
                .input = {},
                .agreement = is_reload ? L"Reload" : L"Leave"},
               callback);
    return true;
  }

  void OnResetDialogState(CefRefPtr<CefBrowser> browser) override {
    DismissDialogOf(browser->GetIdentifier());
  }
  void OnDialogClosed(CefRefPtr<CefBrowser> browser) override {
    DismissDialogOf(browser->GetIdentifier());
  }

 private:
  IMPLEMENT_REFCOUNTING(JavaScriptDialogHandler);
};

}  // namespace

CefRefPtr<CefJSDialogHandler> JavaScriptDialogs() {
  return new JavaScriptDialogHandler;
}

void DismissDialogOf(int browser_id) {
  if (const std::optional<Shown> shown = TakeDialogOf(browser_id)) {
    shown->dialog->Dismiss();
  }
}

template <>
CefRefPtr<CefJSDialogCallback> Counterpart<CefJSDialogCallback>::LibraryClass::Wrap(
    Struct* object) {
  return new JSDialogCallbackObject(object);
}

template <>
void Counterpart<CefJSDialogHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefJSDialogHandler::OnJSDialog>(functions.on_jsdialog);
  cefbinding::Bind<&CefJSDialogHandler::OnBeforeUnloadDialog>(functions.on_before_unload_dialog);
  cefbinding::Bind<&CefJSDialogHandler::OnResetDialogState>(functions.on_reset_dialog_state);
  cefbinding::Bind<&CefJSDialogHandler::OnDialogClosed>(functions.on_dialog_closed);
}

}  // namespace cefbinding
