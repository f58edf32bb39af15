// The members of the cookie manager, passed on to the bridge; what fails there ends here.

#include "automation/cookie_manager.h"

#include "automation/cookie_array.h"
#include "automation/kzcef_com.h"
#include "bridge/kz_cef_bridge.h"
#include "com/member.h"

namespace kzcef {
namespace {

// The frame of a member that returns the cookies which `read` finds, and none when it throws, as it
// does above all when a language cookie's text lacks a member.
template <typename Read>
HRESULT AnswerCookies(kzCefBridge* bridge, VARIANT* cookies, Read&& read) {
  return UnfailingComMember([&] {
    if (cookies) {
      VariantInit(cookies);
    }
    if (!bridge) {
      return;
    }
    VARIANT found = read(*bridge);
    if (cookies) {
      *cookies = found;
    } else {
      VariantClear(&found);
    }
  });
}

}  // namespace

CKZCEFComCookieManager::CKZCEFComCookieManager() : bridge_(KZCEFCom::Get()->bridge()) {
  if (bridge_) {
    bridge_->PrepareCookieAccess();
  }
}

HRESULT CKZCEFComCookieManager::GetUrlCookies(BSTR url, VARIANT* cookies) {
  return AnswerCookies(bridge_, cookies,
                       [&](kzCefBridge& bridge) { return bridge.GetUrlCookies(url); });
}

HRESULT CKZCEFComCookieManager::SetUrlCookies(BSTR url, VARIANT cookies, VARIANT_BOOL* done) {
  return UnfailingComMember([&] {
    if (done) {
      *done = bridge_ ? VARIANT_TRUE : VARIANT_FALSE;
    }
    if (!bridge_) {
      return;
    }
    ForEachCookieText(cookies, [&](BSTR text) {
      // A text that is no cookie must not keep the others from being set.
      UnfailingComLeafMember([&] { bridge_->SetUrlCookies(url, text); });
    });
  });
}

HRESULT CKZCEFComCookieManager::GetUrlCookiesSync(BSTR url, VARIANT* cookies) {
  return AnswerCookies(bridge_, cookies,
                       [&](kzCefBridge& bridge) { return bridge.GetCookiesSync(false, url); });
}

HRESULT CKZCEFComCookieManager::GetAllCookiesSync(VARIANT* cookies) {
  return AnswerCookies(bridge_, cookies,
                       [](kzCefBridge& bridge) { return bridge.GetCookiesSync(true, nullptr); });
}

}  // namespace kzcef
