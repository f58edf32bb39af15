#include "devtools/navigation_request.h"

#include "devtools/request_content.h"

namespace cefedition {

CefRefPtr<CefRequest> MakeRequest(const NavigationRequest& navigation,
                                  const Json* request,
                                  bool is_main) {
  const CefRefPtr<Request> content = RequestFromProtocol(request ? *request : Json::object());
  content->SetURL(navigation.url);
  content->SetResourceType(is_main ? RT_MAIN_FRAME : RT_SUB_FRAME);
  content->SetTransitionType(static_cast<cef_transition_type_t>(navigation.transition));
  content->SetReadOnly(true);
  return content;
}

}  // namespace cefedition
