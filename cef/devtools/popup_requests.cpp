#include "devtools/popup_requests.h"

#include <charconv>

#include "devtools/browser_core.h"
#include "devtools/engine.h"
#include "devtools/json_fields.h"
#include "devtools/url_kinds.h"

namespace cefedition {
namespace {

constexpr int kDefaultWidth = 800;
constexpr int kDefaultHeight = 600;

// One feature of window.open, "width=300"; a feature without a number is a mere wish.
void ReadFeature(const std::string& feature, CefPopupFeatures& features) {
  const size_t equals = feature.find('=');
  if (equals == std::string::npos) {
    return;
  }
  const std::string name = feature.substr(0, equals);
  int value = 0;
  const char* end = feature.data() + feature.size();
  if (std::from_chars(feature.data() + equals + 1, end, value).ec != std::errc()) {
    return;
  }
  if (name == "left") {
    features.x = value;
    features.xSet = true;
  } else if (name == "top") {
    features.y = value;
    features.ySet = true;
  } else if (name == "width") {
    features.width = value;
    features.widthSet = true;
  } else if (name == "height") {
    features.height = value;
    features.heightSet = true;
  }
}

// The outer size of a window whose client area has the size asked for.
CefRect WindowBounds(const CefPopupFeatures& features, DWORD style) {
  RECT rect = {0, 0, features.widthSet ? features.width : kDefaultWidth,
               features.heightSet ? features.height : kDefaultHeight};
  AdjustWindowRect(&rect, style, FALSE);
  return {features.xSet ? features.x : CW_USEDEFAULT, features.ySet ? features.y : CW_USEDEFAULT,
          static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)};
}

}  // namespace

PopupRequests::PopupRequests(BrowserCore& opener) : opener_(opener) {}

void PopupRequests::OnWindowOpen(const Json& params) {
  Wish wish;
  wish.url = TextField(params, "url");
  wish.name = TextField(params, "windowName");
  wish.user_gesture = BoolField(params, "userGesture");
  for (const Json& feature : Field(params, "windowFeatures")) {
    if (feature.is_string()) {
      ReadFeature(feature.get<std::string>(), wish.features);
    }
  }
  const CefPopupFeatures& features = wish.features;
  wish.features.isPopup = features.xSet || features.ySet || features.widthSet || features.heightSet;
  wish.disposition = wish.features.isPopup ? CEF_WOD_NEW_POPUP : CEF_WOD_NEW_FOREGROUND_TAB;
  if (wish.name == "_blank") {
    wish.name.clear();
  }
  wishes_.push_back(std::move(wish));
}

void PopupRequests::OnPage(const Json& target_info, const std::string& session_id) {
  const std::string target_id = TextField(target_info, "targetId");
  Wish wish;
  if (!wishes_.empty()) {
    wish = std::move(wishes_.front());
    wishes_.pop_front();
  } else {
    wish.url = TextField(target_info, "url");
  }

  BrowserSpec spec;
  spec.window_info.SetAsPopup(nullptr, CefString());
  spec.window_info.bounds = WindowBounds(wish.features, spec.window_info.style);
  spec.client = opener_.client();
  spec.request_context = opener_.request_context();
  spec.opener = opener_.shared_from_this();
  bool refused = false;
  const CefRefPtr<CefClient> client = opener_.client();
  if (const auto handler = client ? client->GetLifeSpanHandler() : nullptr) {
    CefRefPtr<CefFrame> frame = opener_.frames().Find(TextField(target_info, "openerFrameId"));
    if (!frame) {
      frame = opener_.frames().main();
    }
    CefRefPtr<CefDictionaryValue> extra_info;
    bool no_javascript_access = false;
    refused =
        handler->OnBeforePopup(opener_.browser(), frame, wish.url, wish.name, wish.disposition,
                               wish.user_gesture, wish.features, spec.window_info, spec.client,
                               spec.settings, extra_info, &no_javascript_access);
  }
  Engine& engine = opener_.engine();
  if (refused || !engine.AdoptPopup(spec, target_id, session_id)) {
    engine.RefusePopup(target_id, session_id, IsInterceptable(wish.url));
  }
}

}  // namespace cefedition
