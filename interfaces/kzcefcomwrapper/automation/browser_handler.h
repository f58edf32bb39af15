// The registered coclass behind the handler interfaces.
#pragma once

#include "KZCEFComWrapper.h"
#include "com/com_object.h"

namespace kzcef {

// Exists so that the three interfaces have a class; hosts register objects of their own. Every
// member returns E_NOTIMPL and leaves its arguments alone.
class CKZCEFComBrowserHandler
    : public CoClass<IKZCEFComBrowserHandler3, IKZCEFComBrowserHandler2, IKZCEFComBrowserHandler> {
 public:
  HRESULT STDMETHODCALLTYPE AddressChangeNotify(BSTR) override;
  HRESULT STDMETHODCALLTYPE BeforePopupNotify(BSTR, VARIANT_BOOL*, VARIANT_BOOL*) override;
  HRESULT STDMETHODCALLTYPE LoadEndNotify(LONG) override;
  HRESULT STDMETHODCALLTYPE LoadStartNotify(LONG) override;
  HRESULT STDMETHODCALLTYPE LoadingStateChangeNotify(VARIANT_BOOL,
                                                     VARIANT_BOOL,
                                                     VARIANT_BOOL) override;
  HRESULT STDMETHODCALLTYPE BrowserCreatedNotify() override;
  HRESULT STDMETHODCALLTYPE BeforeDownloadNotify(BSTR*, VARIANT_BOOL*, VARIANT_BOOL*) override;
  HRESULT STDMETHODCALLTYPE DownloadCompletedNotify(BSTR) override;
  HRESULT STDMETHODCALLTYPE BeforeBrowseNotify(BSTR,
                                               VARIANT_BOOL,
                                               VARIANT_BOOL,
                                               VARIANT_BOOL*) override;
  HRESULT STDMETHODCALLTYPE ResourceRedirectNotify(BSTR, BSTR*, LONG) override;
  HRESULT STDMETHODCALLTYPE ResourceResponseNotify(BSTR*, VARIANT_BOOL*, LONG) override;
  HRESULT STDMETHODCALLTYPE BeforeResourceLoadNotify(BSTR*, BSTR*) override;
  HRESULT STDMETHODCALLTYPE GetAuthCredentialsNotify(BSTR*,
                                                     VARIANT_BOOL*,
                                                     BSTR*,
                                                     LONG,
                                                     BSTR*,
                                                     BSTR*,
                                                     VARIANT_BOOL*,
                                                     BSTR*,
                                                     BSTR*) override;
  HRESULT STDMETHODCALLTYPE ResourceLoadCompleteNotify(BSTR, BSTR) override;
  HRESULT STDMETHODCALLTYPE EscapeKeyNotify() override;
  HRESULT STDMETHODCALLTYPE SetOwnerWndHandle(INT64) override;
  HRESULT STDMETHODCALLTYPE DownloadUpdatedNotify(BSTR, LONG, LONG) override;
  HRESULT STDMETHODCALLTYPE BeforeContextMenuNotify(VARIANT_BOOL*) override;
  HRESULT STDMETHODCALLTYPE KeyStrokeNotify(LONG, VARIANT_BOOL*) override;
};

}  // namespace kzcef
