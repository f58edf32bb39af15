// A host's handler of the simplest kind.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <functional>

#include "KZCEFComWrapper.h"

namespace kzbench {

/// Counts the notifications, calls `on_load_end` for each LoadEndNotify, and otherwise does
/// nothing. Owned by whoever made it and not by its references; early-bound only. Any thread.
class PlainHandler final : public IKZCEFComBrowserHandler {
 public:
  PlainHandler() = default;
  virtual ~PlainHandler() = default;
  PlainHandler(const PlainHandler&) = delete;
  PlainHandler& operator=(const PlainHandler&) = delete;

  std::function<void()> on_browser_created;
  std::function<void()> on_load_end;
  long long calls() const { return calls_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (IsEqualIID(iid, __uuidof(IKZCEFComBrowserHandler)) || IsEqualIID(iid, IID_IDispatch) ||
        IsEqualIID(iid, IID_IUnknown)) {
      *object = static_cast<IKZCEFComBrowserHandler*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    return static_cast<ULONG>(InterlockedDecrement(&references_));
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE
  Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }

  HRESULT STDMETHODCALLTYPE AddressChangeNotify(BSTR) override { return Count(); }
  HRESULT STDMETHODCALLTYPE BeforePopupNotify(BSTR, VARIANT_BOOL*, VARIANT_BOOL*) override {
    return Count();
  }
  HRESULT STDMETHODCALLTYPE LoadEndNotify(LONG) override {
    if (on_load_end)
      on_load_end();
    return Count();
  }
  HRESULT STDMETHODCALLTYPE LoadStartNotify(LONG) override { return Count(); }
  HRESULT STDMETHODCALLTYPE LoadingStateChangeNotify(VARIANT_BOOL,
                                                     VARIANT_BOOL,
                                                     VARIANT_BOOL) override {
    return Count();
  }
  HRESULT STDMETHODCALLTYPE BrowserCreatedNotify() override {
    if (on_browser_created)
      on_browser_created();
    return Count();
  }
  HRESULT STDMETHODCALLTYPE BeforeDownloadNotify(BSTR*, VARIANT_BOOL*, VARIANT_BOOL*) override {
    return Count();
  }
  HRESULT STDMETHODCALLTYPE DownloadCompletedNotify(BSTR) override { return Count(); }
  HRESULT STDMETHODCALLTYPE BeforeBrowseNotify(BSTR,
                                               VARIANT_BOOL,
                                               VARIANT_BOOL,
                                               VARIANT_BOOL*) override {
    return Count();
  }
  HRESULT STDMETHODCALLTYPE ResourceRedirectNotify(BSTR, BSTR*, LONG) override { return Count(); }
  HRESULT STDMETHODCALLTYPE ResourceResponseNotify(BSTR*, VARIANT_BOOL*, LONG) override {
    return Count();
  }
  HRESULT STDMETHODCALLTYPE BeforeResourceLoadNotify(BSTR*, BSTR*) override { return Count(); }
  HRESULT STDMETHODCALLTYPE GetAuthCredentialsNotify(BSTR*,
                                                     VARIANT_BOOL*,
                                                     BSTR*,
                                                     LONG,
                                                     BSTR*,
                                                     BSTR*,
                                                     VARIANT_BOOL*,
                                                     BSTR*,
                                                     BSTR*) override {
    return Count();
  }
  HRESULT STDMETHODCALLTYPE ResourceLoadCompleteNotify(BSTR, BSTR) override { return Count(); }
  HRESULT STDMETHODCALLTYPE EscapeKeyNotify() override { return Count(); }
  HRESULT STDMETHODCALLTYPE SetOwnerWndHandle(INT64 window) override {
    window_ = window;
    return S_OK;
  }

 private:
  HRESULT Count() {
    ++calls_;
    return S_OK;
  }

  volatile LONG references_ = 0;
  volatile INT64 window_ = 0;
  long long calls_ = 0;
};

}  // namespace kzbench
