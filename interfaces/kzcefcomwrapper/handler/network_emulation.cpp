// Sends the DevTools command that emulates network conditions, of which only being offline is used.

#include "handler/network_emulation.h"

#include "include/cef_values.h"

namespace kzcef {

void EmulateNetwork(const CefRefPtr<CefBrowser>& browser, bool offline) {
  const CefRefPtr<CefBrowserHost> host = browser ? browser->GetHost() : nullptr;
  if (!host) {
    return;
  }
  const CefRefPtr<CefDictionaryValue> conditions = CefDictionaryValue::Create();
  conditions->SetBool("offline", offline);
  conditions->SetDouble("latency", 0.0);
  conditions->SetDouble("downloadThroughput", 0.0);
  conditions->SetDouble("uploadThroughput", 0.0);
  constexpr int kAnyMessageId = 0;
  host->ExecuteDevToolsMethod(kAnyMessageId, "Network.emulateNetworkConditions", conditions);
}

}  // namespace kzcef
