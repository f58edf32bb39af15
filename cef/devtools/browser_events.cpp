// The part of BrowserCore that takes the page's events, one after the other.
#include "devtools/browser_core.h"
#include "devtools/certificate_errors.h"
#include "devtools/context_menus.h"
#include "devtools/dialogs.h"
#include "devtools/draggable_regions.h"
#include "devtools/edition_browser.h"
#include "devtools/focus_report.h"
#include "devtools/inspector.h"
#include "devtools/json_fields.h"
#include "devtools/log.h"
#include "devtools/resource_requests.h"

namespace cefedition {

void BrowserCore::OnEvent(const ProtocolEvent& event) {
  Enqueue([this, event] { Dispatch(event); });
}

void BrowserCore::Enqueue(std::function<void()> task) {
  inbox_.push_back(std::move(task));
  RunInbox();
}

void BrowserCore::RunInbox() {
  if (inbox_running_) {
    return;
  }
  const std::shared_ptr<BrowserCore> alive = shared_from_this();
  inbox_running_ = true;
  while (!inbox_held_ && !inbox_.empty() && !closed_) {
    const std::function<void()> task = std::move(inbox_.front());
    inbox_.pop_front();
    task();
  }
  inbox_running_ = false;
}

void BrowserCore::Dispatch(const ProtocolEvent& event) {
  const std::string& method = event.method;
  const Json& params = event.params;
  script_contexts_.OnEvent(event);
  queries_.OnEvent(event);
  if (!first_document_over_) {
    if (method == "Page.frameStoppedLoading") {
      first_document_over_ = true;
      OpenPageIfReady();
    } else if (method == "Runtime.executionContextCreated") {
      OnContextCreated(params);
    }
    return;
  }
  if (method == "Page.screencastFrame") {
    view_.OnFrame(params);
  } else if (method == "Page.frameStartedNavigating") {
    OnFrameStartedNavigating(params);
  } else if (method == "Page.frameRequestedNavigation") {
    loads_.OnRequestedByPage(TextField(params, "frameId"), TextField(params, "reason"),
                             TextField(params, "url"));
  } else if (method == "Page.frameStartedLoading") {
    loads_.OnStartedLoading(TextField(params, "frameId"));
  } else if (method == "Page.frameStoppedLoading") {
    loads_.OnStoppedLoading(TextField(params, "frameId"));
  } else if (method == "Page.frameNavigated") {
    OnFrameNavigated(params);
  } else if (method == "Page.navigatedWithinDocument") {
    OnWithinDocument(params);
  } else if (method == "Page.frameAttached") {
    frames_->Touch(TextField(params, "frameId"), TextField(params, "parentFrameId"));
  } else if (method == "Page.frameDetached") {
    frames_->Remove(TextField(params, "frameId"));
    loads_.OnFrameRemoved(TextField(params, "frameId"));
  } else if (method == "Fetch.requestPaused") {
    OnRequestPaused(params);
  } else if (method == "Runtime.executionContextCreated") {
    OnContextCreated(params);
  } else if (method == "Runtime.consoleAPICalled" || method == "Runtime.exceptionThrown" ||
             method == "Log.entryAdded") {
    OnConsole(method, params);
  } else if (method == "Runtime.bindingCalled") {
    OnBindingCalled(params);
  } else if (method == "Page.javascriptDialogOpening") {
    dialog_open_ = true;
    OnDialogOpening(*this, params);
  } else if (method == "Page.javascriptDialogClosed") {
    dialog_open_ = false;
    // A page that asked whether it may be left, and may not, stays.
    closing_ = closing_ && BoolField(params, "result");
    OnDialogClosed(*this);
  } else if (method == "Security.certificateError") {
    OnCertificateErrorEvent(*this, params);
  } else if (method == "Page.windowOpen") {
    popups_.OnWindowOpen(params);
  }
}

void BrowserCore::OnBindingCalled(const Json& params) {
  OnPageReport(params);
  OnFocusReport(*this, params);
  menus_->OnReport(params);
  OnDraggableRegions(*this, params);
  if (inspector_) {
    inspector_->OnCall(params);
  }
}

void BrowserCore::OnContextCreated(const Json& params) {
  const Json& context = Field(params, "context");
  const Json& data = Field(context, "auxData");
  if (!BoolField(data, "isDefault")) {
    return;
  }
  if (const auto frame = frames_->Find(TextField(data, "frameId"))) {
    frame->SetContext(TextField(context, "uniqueId"));
  }
}

void BrowserCore::OnPopupPage(const Json& target_info, const std::string& session_id) {
  Enqueue([this, target_info, session_id] { popups_.OnPage(target_info, session_id); });
}

void BrowserCore::OnPageCrashed(const std::string& status) {
  Enqueue([this, status] {
    Log(LOGSEVERITY_ERROR, "The page process of browser " + std::to_string(id_) + " " + status);
    cef_termination_status_t reason = TS_PROCESS_CRASHED;
    if (status == "killed") {
      reason = TS_PROCESS_WAS_KILLED;
    } else if (status == "oom") {
      reason = TS_PROCESS_OOM;
    } else if (status == "abnormal") {
      reason = TS_ABNORMAL_TERMINATION;
    }
    loads_.OnCrashed();
    queries_.OnCrashed();
    if (requests_) {
      requests_->OnCrashed();
    }
    if (const auto handler = client_ ? client_->GetRequestHandler() : nullptr) {
      handler->OnRenderProcessTerminated(browser_, reason);
    }
  });
}

}  // namespace cefedition
