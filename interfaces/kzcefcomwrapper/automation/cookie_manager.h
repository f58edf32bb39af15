// The host's access to the engine's cookies.
#pragma once

#include "KZCEFComWrapper.h"
#include "com/com_object.h"

namespace kzcef {

class kzCefBridge;

// A thin front of the bridge. Every member answers S_OK whatever happens; what goes wrong shows as
// VT_EMPTY. An object that was made before the engine was started serves no cookies for ever.
// Called on the thread that made it.
class CKZCEFComCookieManager : public CoClass<IKZCEFComCookieManager> {
 public:
  CKZCEFComCookieManager();

  HRESULT STDMETHODCALLTYPE GetUrlCookies(BSTR url, VARIANT* cookies) override;
  // `cookies` holds an array of BSTR, by value or by reference, each the text of one cookie. The
  // answer is VARIANT_TRUE whatever is in it, and VARIANT_FALSE only without an engine: an element
  // that is no cookie is passed over, and so is a value that is no such array.
  HRESULT STDMETHODCALLTYPE SetUrlCookies(BSTR url, VARIANT cookies, VARIANT_BOOL* done) override;
  HRESULT STDMETHODCALLTYPE GetUrlCookiesSync(BSTR url, VARIANT* cookies) override;
  HRESULT STDMETHODCALLTYPE GetAllCookiesSync(VARIANT* cookies) override;

 private:
  // Lives as long as the process; null for an object made before the start.
  kzCefBridge* const bridge_;
};

}  // namespace kzcef
