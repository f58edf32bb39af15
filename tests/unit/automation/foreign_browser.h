// A browser object that is not the library's own.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "KZCEFComWrapper.h"
#include "early_bound/early_bound.h"

namespace kzcef::testing {

// Owned by the test and not by its references, which it only counts, as it does the questions for
// its interface.
class ForeignBrowser final : public EarlyBound<IKZCEFComBrowser> {
 public:
  explicit ForeignBrowser(HWND window) : window_(window) {}
  virtual ~ForeignBrowser() = default;

  int references = 0;
  int queries = 0;
  // Whether it has the browser's interface at all.
  bool is_browser = true;
  VARIANT_BOOL popup = VARIANT_FALSE;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    ++queries;
    if (IsEqualIID(iid, IID_IUnknown) || (is_browser && IsEqualIID(iid, IID_IKZCEFComBrowser))) {
      *object = static_cast<IKZCEFComBrowser*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
  ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }

  HRESULT STDMETHODCALLTYPE GetWindowHandle(INT64* window) override {
    *window = reinterpret_cast<INT64>(window_);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE get_PopupUserBrowser(VARIANT_BOOL* value) override {
    *value = popup;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE put_PopupUserBrowser(VARIANT_BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_URL(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_URL(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ExecuteJS(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE AddJSHandler(BSTR, IDispatch*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RemoveJSHandler(BSTR, IDispatch*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE StartBrowser(INT64) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ResizeBrowser(double, double) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Refresh(VARIANT_BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ResizeBrowserRect(double, double, double, double) override {
    return E_NOTIMPL;
  }

 private:
  const HWND window_;
};

}  // namespace kzcef::testing
