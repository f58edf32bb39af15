// A handler of which every notification does the same.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "KZCEFComWrapper.h"
#include "early_bound/early_bound.h"

// Every notification returns what `HRESULT Handler::Noted()` returns, and late-bound calls are
// refused. Everything in which handlers differ, identity and life included, is left to the derived
// class. Any thread.
template <typename Handler>
class AlikeHandler : public EarlyBound<IKZCEFComBrowserHandler3> {
 public:
  HRESULT STDMETHODCALLTYPE AddressChangeNotify(BSTR) override { return Noted(); }
  HRESULT STDMETHODCALLTYPE BeforePopupNotify(BSTR, VARIANT_BOOL*, VARIANT_BOOL*) override {
    return Noted();
  }
  HRESULT STDMETHODCALLTYPE LoadEndNotify(LONG) override { return Noted(); }
  HRESULT STDMETHODCALLTYPE LoadStartNotify(LONG) override { return Noted(); }
  HRESULT STDMETHODCALLTYPE LoadingStateChangeNotify(VARIANT_BOOL,
                                                     VARIANT_BOOL,
                                                     VARIANT_BOOL) override {
    return Noted();
  }
  HRESULT STDMETHODCALLTYPE BrowserCreatedNotify() override { return Noted(); }
  HRESULT STDMETHODCALLTYPE BeforeDownloadNotify(BSTR*, VARIANT_BOOL*, VARIANT_BOOL*) override {
    return Noted();
  }
  HRESULT STDMETHODCALLTYPE DownloadCompletedNotify(BSTR) override { return Noted(); }
  HRESULT STDMETHODCALLTYPE BeforeBrowseNotify(BSTR,
                                               VARIANT_BOOL,
                                               VARIANT_BOOL,
                                               VARIANT_BOOL*) override {
    return Noted();
  }
  HRESULT STDMETHODCALLTYPE ResourceRedirectNotify(BSTR, BSTR*, LONG) override { return Noted(); }
  HRESULT STDMETHODCALLTYPE ResourceResponseNotify(BSTR*, VARIANT_BOOL*, LONG) override {
    return Noted();
  }
  HRESULT STDMETHODCALLTYPE BeforeResourceLoadNotify(BSTR*, BSTR*) override { return Noted(); }
  HRESULT STDMETHODCALLTYPE GetAuthCredentialsNotify(BSTR*,
                                                     VARIANT_BOOL*,
                                                     BSTR*,
                                                     LONG,
                                                     BSTR*,
                                                     BSTR*,
                                                     VARIANT_BOOL*,
                                                     BSTR*,
                                                     BSTR*) override {
    return Noted();
  }
  HRESULT STDMETHODCALLTYPE ResourceLoadCompleteNotify(BSTR, BSTR) override { return Noted(); }
  HRESULT STDMETHODCALLTYPE EscapeKeyNotify() override { return Noted(); }
  HRESULT STDMETHODCALLTYPE SetOwnerWndHandle(INT64) override { return Noted(); }
  HRESULT STDMETHODCALLTYPE DownloadUpdatedNotify(BSTR, LONG, LONG) override { return Noted(); }
  HRESULT STDMETHODCALLTYPE BeforeContextMenuNotify(VARIANT_BOOL*) override { return Noted(); }
  HRESULT STDMETHODCALLTYPE KeyStrokeNotify(LONG, VARIANT_BOOL*) override { return Noted(); }

 protected:
  ~AlikeHandler() = default;

 private:
  HRESULT Noted() { return static_cast<Handler*>(this)->Noted(); }
};
