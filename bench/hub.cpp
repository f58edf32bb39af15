// Turns the hub on by binding the tests' hub library while the registry is redirected.

#include "hub.h"

#include <stdexcept>

#include "hub_place.h"
#include "include/cef_request.h"
#include "utils/hub_connector.h"
#include "utils/process_settings.h"

namespace kzbench {

kzhub::Plan& TurnHubOn(int port) {
  kzcef::SetConfiguredHubPort(port);
  // Only until the library is bound, which then stays: the engine needs the machine's registry.
  kzhub::HubPlace place;
  kzhub::Plan& plan = place.Install();
  const CefRefPtr<CefRequest> request = CefRequest::Create();
  request->SetURL("http://page.test/");
  kzcef::RewriteRequestForHub(request);
  if (plan.calls != 1)
    throw std::runtime_error("the hub library is not asked");
  return plan;
}

}  // namespace kzbench
