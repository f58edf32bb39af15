#include "devtools/protocol_execution.h"

#include <windows.h>

#include <shellapi.h>

#include <atomic>

#include "devtools/browser_core.h"
#include "devtools/engine_threads.h"
#include "devtools/handler_choice.h"
#include "devtools/log.h"
#include "devtools/navigation_request.h"
#include "devtools/request_content.h"
#include "devtools/text.h"
#include "include/cef_request_context_handler.h"
#include "include/cef_resource_request_handler.h"

namespace cefedition {
namespace {

void ExecuteByShell(const std::wstring& url) {
  const HINSTANCE result =
      ShellExecuteW(nullptr, L"open", url.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  // By contract an error code up to 32, else not an instance at all.
  if (reinterpret_cast<INT_PTR>(result) <= 32) {
    Log(LOGSEVERITY_WARNING, "No program took the URL " + WideToUtf8(url));
  }
}

std::atomic<void (*)(const std::wstring&)> g_execute = &ExecuteByShell;

// A page's origin as a request names it.
std::string InitiatorOf(const EditionFrame& frame, uint32_t transition) {
  const std::string origin = OriginText(frame.url());
  return origin.empty() || (transition & TT_DIRECT_LOAD_FLAG) != 0 ? "null" : origin;
}

// IO thread.
bool IsAllowed(const CefRefPtr<CefClient>& client,
               const CefRefPtr<CefRequestContext>& context,
               const CefRefPtr<CefBrowser>& browser,
               const CefRefPtr<CefFrame>& frame,
               const CefRefPtr<CefRequest>& request,
               const std::string& initiator) {
  bool disable_default = false;
  const CefRefPtr<CefRequestContextHandler> of_context = context ? context->GetHandler() : nullptr;
  const CefRefPtr<CefResourceRequestHandler> handler =
      ChooseHandler(client->GetRequestHandler(), of_context, browser, frame, request,
                    /*is_navigation=*/true, /*is_download=*/false, initiator, disable_default);
  bool allowed = false;
  if (handler) {
    handler->OnProtocolExecution(browser, frame, request, allowed);
  }
  return allowed;
}

}  // namespace

void AskToExecute(BrowserCore& core, const NavigationRequest& navigation) {
  const CefRefPtr<CefClient> client = core.client();
  const CefRefPtr<EditionFrame> frame = core.frames().Find(navigation.frame_id);
  if (!client || !frame) {
    return;
  }
  // A frame's first document has no origin yet; what it loads, its parent asked for.
  const CefRefPtr<EditionFrame> parent = core.frames().Find(frame->parent_id());
  const std::string initiator =
      InitiatorOf(frame->url().empty() && parent ? *parent : *frame, navigation.transition);
  const CefRefPtr<CefRequest> request = MakeRequest(navigation, nullptr, frame->IsMain());
  PostToIo([client, context = core.request_context(), browser = core.browser(), frame, request,
            initiator] {
    if (IsAllowed(client, context, browser, frame, request, initiator)) {
      // The system may take its time over it.
      PostToBackground([url = request->GetURL().ToWString()] { g_execute.load()(url); });
    }
  });
}

void ReplaceProtocolExecution(void (*execute)(const std::wstring& url)) {
  g_execute = execute ? execute : &ExecuteByShell;
}

}  // namespace cefedition
