// The host's access to the engine's cookies.
#pragma once

#include "KZCEFComWrapper.h"
#include "com/com_object.h"

namespace kzcef {

// Offers no cookies yet: every member answers S_OK with the result of a manager that was made
// before the engine was started, VT_EMPTY from the getters and VARIANT_FALSE from SetUrlCookies.
class CKZCEFComCookieManager : public CoClass<IKZCEFComCookieManager> {
 public:
  HRESULT STDMETHODCALLTYPE GetUrlCookies(BSTR url, VARIANT* cookies) override;
  HRESULT STDMETHODCALLTYPE SetUrlCookies(BSTR url, VARIANT cookies, VARIANT_BOOL* done) override;
  HRESULT STDMETHODCALLTYPE GetUrlCookiesSync(BSTR url, VARIANT* cookies) override;
  HRESULT STDMETHODCALLTYPE GetAllCookiesSync(VARIANT* cookies) override;
};

}  // namespace kzcef
