#include "devtools/dialogs.h"

#include <atomic>

#include "devtools/browser_core.h"
#include "devtools/edition_browser.h"
#include "devtools/json_fields.h"
#include "include/cef_jsdialog_handler.h"

namespace cefedition {
namespace {

class DialogCallback : public CefJSDialogCallback {
 public:
  DialogCallback(std::weak_ptr<BrowserCore> core, bool is_alert)
      : core_(std::move(core)), is_alert_(is_alert) {}
  ~DialogCallback() override { Answer(is_alert_, {}); }

  void Continue(bool success, const CefString& user_input) override {
    Answer(success, user_input.ToString());
  }

  /// From now on somebody else answers.
  void Disarm() { answered_ = true; }

 private:
  void Answer(bool accept, const std::string& text) {
    if (answered_.exchange(true)) {
      return;
    }
    if (const std::shared_ptr<BrowserCore> core = core_.lock()) {
      core->session().Send("Page.handleJavaScriptDialog",
                           {{"accept", accept}, {"promptText", text}});
    }
  }

  const std::weak_ptr<BrowserCore> core_;
  const bool is_alert_;
  std::atomic<bool> answered_{false};

  IMPLEMENT_REFCOUNTING(DialogCallback);
};

cef_jsdialog_type_t DialogType(const std::string& type) {
  if (type == "confirm") {
    return JSDIALOGTYPE_CONFIRM;
  }
  return type == "prompt" ? JSDIALOGTYPE_PROMPT : JSDIALOGTYPE_ALERT;
}

CefRefPtr<CefJSDialogHandler> DialogHandler(BrowserCore& core) {
  const CefRefPtr<CefClient> client = core.client();
  return client ? client->GetJSDialogHandler() : nullptr;
}

}  // namespace

void OnDialogOpening(BrowserCore& core, const Json& params) {
  const std::string type = TextField(params, "type");
  const std::string message = TextField(params, "message");
  const bool leaving = type == "beforeunload";
  CefRefPtr<DialogCallback> callback = new DialogCallback(core.weak_from_this(), type == "alert");
  bool taken = false;
  if (const auto handler = DialogHandler(core)) {
    if (leaving) {
      taken = handler->OnBeforeUnloadDialog(core.browser(), message, /*is_reload=*/false, callback);
    } else {
      bool suppress = false;
      taken = handler->OnJSDialog(core.browser(), TextField(params, "url"), DialogType(type),
                                  message, TextField(params, "defaultPrompt"), callback, suppress);
    }
  }
  if (taken) {
    return;
  }
  callback->Disarm();
  core.session().Send("Page.handleJavaScriptDialog",
                      {{"accept", leaving || type == "alert"}, {"promptText", ""}});
}

void OnDialogClosed(BrowserCore& core) {
  if (const auto handler = DialogHandler(core)) {
    handler->OnDialogClosed(core.browser());
  }
}

}  // namespace cefedition
