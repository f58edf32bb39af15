// A host's handler object that expects what it is told.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <gmock/gmock.h>

#include <string>

#include "KZCEFComWrapper.h"
#include "early_bound/early_bound.h"

namespace kzcef::testing {

// Whether a BSTR holds exactly `text`, which for an empty text leaves out the null BSTR.
MATCHER_P(IsBstr, text, "") {
  const std::wstring expected = text;
  return arg && std::wstring(arg, SysStringLen(arg)) == expected;
}

// Owned by the test and not by its references, which it only counts. Has the handler interfaces up
// to the `newest`.
class MockHandler : public EarlyBound<IKZCEFComBrowserHandler3> {
 public:
  explicit MockHandler(int newest = 3) : newest_(newest) {}
  virtual ~MockHandler() = default;
  ULONG references() const { return references_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ||
        IsEqualIID(iid, IID_IKZCEFComBrowserHandler) ||
        (newest_ >= 2 && IsEqualIID(iid, IID_IKZCEFComBrowserHandler2)) ||
        (newest_ >= 3 && IsEqualIID(iid, IID_IKZCEFComBrowserHandler3))) {
      *object = static_cast<IKZCEFComBrowserHandler3*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }

  MOCK_METHOD(HRESULT, AddressChangeNotify, (BSTR), (override));
  MOCK_METHOD(HRESULT, BeforePopupNotify, (BSTR, VARIANT_BOOL*, VARIANT_BOOL*), (override));
  MOCK_METHOD(HRESULT, LoadEndNotify, (LONG), (override));
  MOCK_METHOD(HRESULT, LoadStartNotify, (LONG), (override));
  MOCK_METHOD(HRESULT,
              LoadingStateChangeNotify,
              (VARIANT_BOOL, VARIANT_BOOL, VARIANT_BOOL),
              (override));
  MOCK_METHOD(HRESULT, BrowserCreatedNotify, (), (override));
  MOCK_METHOD(HRESULT, BeforeDownloadNotify, (BSTR*, VARIANT_BOOL*, VARIANT_BOOL*), (override));
  MOCK_METHOD(HRESULT, DownloadCompletedNotify, (BSTR), (override));
  MOCK_METHOD(HRESULT,
              BeforeBrowseNotify,
              (BSTR, VARIANT_BOOL, VARIANT_BOOL, VARIANT_BOOL*),
              (override));
  MOCK_METHOD(HRESULT, ResourceRedirectNotify, (BSTR, BSTR*, LONG), (override));
  MOCK_METHOD(HRESULT, ResourceResponseNotify, (BSTR*, VARIANT_BOOL*, LONG), (override));
  MOCK_METHOD(HRESULT, BeforeResourceLoadNotify, (BSTR*, BSTR*), (override));
  MOCK_METHOD(HRESULT,
              GetAuthCredentialsNotify,
              (BSTR*, VARIANT_BOOL*, BSTR*, LONG, BSTR*, BSTR*, VARIANT_BOOL*, BSTR*, BSTR*),
              (override));
  MOCK_METHOD(HRESULT, ResourceLoadCompleteNotify, (BSTR, BSTR), (override));
  MOCK_METHOD(HRESULT, EscapeKeyNotify, (), (override));
  MOCK_METHOD(HRESULT, SetOwnerWndHandle, (INT64), (override));
  MOCK_METHOD(HRESULT, DownloadUpdatedNotify, (BSTR, LONG, LONG), (override));
  MOCK_METHOD(HRESULT, BeforeContextMenuNotify, (VARIANT_BOOL*), (override));
  MOCK_METHOD(HRESULT, KeyStrokeNotify, (LONG, VARIANT_BOOL*), (override));

 private:
  const int newest_;
  ULONG references_ = 0;
};

}  // namespace kzcef::testing
