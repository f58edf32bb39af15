#include "automation/cookie_manager.h"

#include "com/member.h"

namespace kzcef {
namespace {

HRESULT NoCookies(VARIANT* cookies) {
  return ComMember([&] {
    if (cookies) {
      VariantInit(cookies);
    }
    return S_OK;
  });
}

}  // namespace

HRESULT CKZCEFComCookieManager::GetUrlCookies(BSTR, VARIANT* cookies) {
  return NoCookies(cookies);
}

HRESULT CKZCEFComCookieManager::SetUrlCookies(BSTR, VARIANT, VARIANT_BOOL* done) {
  return ComMember([&] {
    if (done) {
      *done = VARIANT_FALSE;
    }
    return S_OK;
  });
}

HRESULT CKZCEFComCookieManager::GetUrlCookiesSync(BSTR, VARIANT* cookies) {
  return NoCookies(cookies);
}

HRESULT CKZCEFComCookieManager::GetAllCookiesSync(VARIANT* cookies) {
  return NoCookies(cookies);
}

}  // namespace kzcef
