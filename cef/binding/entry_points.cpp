// The functions that reach for the running engine: browsers, tasks, and what all browsers share.
// They stand apart from the objects that they return, so that a test can put its own in their
// place.

#include "binding.h"
#include "context_start.h"
#include "include/base/cef_bind.h"
#include "include/cef_browser.h"
#include "include/cef_client.h"
#include "include/cef_cookie.h"
#include "include/cef_request_context.h"
#include "include/cef_task.h"
#include "include/wrapper/cef_closure_task.h"
#include "parking.h"
#include "settings.h"

using cefbinding::CallEngine;

bool CefBrowserHost::CreateBrowser(const CefWindowInfo& windowInfo,
                                   CefRefPtr<CefClient> client,
                                   const CefString& url,
                                   const CefBrowserSettings& settings,
                                   CefRefPtr<CefDictionaryValue> extra_info,
                                   CefRefPtr<CefRequestContext> request_context) {
  if (cefbinding::EngineHasEnded() || !cefbinding::Engine().refusal.empty()) {
    return false;
  }
  // As the engine's own function does it, but for the parking.
  cefbinding::PostWithContext(base::BindOnce(
      [](const CefWindowInfo& description, const CefRefPtr<CefClient>& browser_client,
         const CefString& address, const CefBrowserSettings& browser_settings,
         const CefRefPtr<CefDictionaryValue>& information,
         const CefRefPtr<CefRequestContext>& context) {
        CefWindowInfo window_info(description);
        if (window_info.parent_window) {
          window_info.parent_window = cefbinding::MakeParking(window_info.parent_window);
          if (!window_info.parent_window) {
            return;
          }
        }
        const CefRefPtr<CefBrowser> browser = CreateBrowserSync(
            window_info, browser_client, address, browser_settings, information, context);
        if (browser) {
          cefbinding::LeaveParking(browser);
        }
      },
      windowInfo, client, url, settings, extra_info, request_context));
  return true;
}

CefRefPtr<CefBrowser> CefBrowserHost::CreateBrowserSync(
    const CefWindowInfo& windowInfo,
    CefRefPtr<CefClient> client,
    const CefString& url,
    const CefBrowserSettings& settings,
    CefRefPtr<CefDictionaryValue> extra_info,
    CefRefPtr<CefRequestContext> request_context) {
  return CallEngine(&capi::Functions::cef_browser_host_create_browser_sync, windowInfo, client, url,
                    settings, extra_info, request_context);
}

CefRefPtr<CefCookieManager> CefCookieManager::GetGlobalManager(
    CefRefPtr<CefCompletionCallback> callback) {
  return CallEngine(&capi::Functions::cef_cookie_manager_get_global_manager, callback);
}

CefRefPtr<CefRequestContext> CefRequestContext::GetGlobalContext() {
  return CallEngine(&capi::Functions::cef_request_context_get_global_context);
}

CefRefPtr<CefTaskRunner> CefTaskRunner::GetForCurrentThread() {
  return CallEngine(&capi::Functions::cef_task_runner_get_for_current_thread);
}

CefRefPtr<CefTaskRunner> CefTaskRunner::GetForThread(CefThreadId threadId) {
  return CallEngine(&capi::Functions::cef_task_runner_get_for_thread, threadId);
}

bool CefCurrentlyOn(CefThreadId threadId) {
  return CallEngine(&capi::Functions::cef_currently_on, threadId);
}

bool CefPostTask(CefThreadId threadId, CefRefPtr<CefTask> task) {
  return CallEngine(&capi::Functions::cef_post_task, threadId, task);
}

bool CefPostDelayedTask(CefThreadId threadId, CefRefPtr<CefTask> task, int64_t delay_ms) {
  return CallEngine(&capi::Functions::cef_post_delayed_task, threadId, task, delay_ms);
}
