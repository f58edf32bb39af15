// The host's access to the engine's cookies.
#pragma once

#include "KZCEFComWrapper.h"
#include "com/com_object.h"

namespace kzcef {

class kzCefBridge;

// A thin layer over the bridge. Every member returns S_OK whatever happens; what goes wrong shows
// as VT_EMPTY. An object that was made before the engine was started never has any cookies. Called
// on the thread that made it.
class CKZCEFComCookieManager : public CoClass<IKZCEFComCookieManager> {
 public:
  CKZCEFComCookieManager();

  HRESULT STDMETHODCALLTYPE GetUrlCookies(BSTR url, VARIANT* cookies) override;
  // `cookies` holds an array of BSTR, by value or by reference, each the text of one cookie. An
  // element that is no cookie is passed over, and so is a value that is no such array. `done`
  // becomes VARIANT_TRUE whatever came of it, and VARIANT_FALSE only without an engine.
  HRESULT STDMETHODCALLTYPE SetUrlCookies(BSTR url, VARIANT cookies, VARIANT_BOOL* done) override;
  HRESULT STDMETHODCALLTYPE GetUrlCookiesSync(BSTR url, VARIANT* cookies) override;
  HRESULT STDMETHODCALLTYPE GetAllCookiesSync(VARIANT* cookies) override;

 private:
  // Lives as long as the process; null for an object made before the start.
  kzCefBridge* const bridge_;
};

}  // namespace kzcef
