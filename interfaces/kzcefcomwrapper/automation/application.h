// The host's entry object.
#pragma once

#include "KZCEFComWrapper.h"
#include "com/com_object.h"

namespace kzcef {

// Stateless: all application objects of a process act on the one KZCEFCom. Tokens and cookies
// (`token`, `cookie`) are accepted and never read. Except for GetKzCEFComSettings and ExitCef,
// every member returns S_OK whatever happens and ignores bad arguments. Called on the host's
// thread.
class CKZCEFComApplication : public CoClass<IKZCEFComApplication2, IKZCEFComApplication> {
 public:
  // Takes `product_key` as the host kind if it names one, in any letter case. Never hands out a
  // token; the out pointer keeps its value.
  HRESULT STDMETHODCALLTYPE GetToken(BSTR product_key,
                                     VARIANT keys,
                                     IKZCEFComToken** token) override;
  // Makes a new browser object, which is added to the browser list and belongs to the caller.
  HRESULT STDMETHODCALLTYPE GetKzCEFBrowser(IKZCEFComToken* token,
                                            long cookie,
                                            IKZCEFComBrowser** browser) override;
  HRESULT STDMETHODCALLTYPE RegisterKzCEFBrowserCallback(IKZCEFComToken* token,
                                                         long addin_id,
                                                         IKZCEFComBrowser* browser,
                                                         IKZCEFComBrowserHandler* handler) override;
  HRESULT STDMETHODCALLTYPE
  UnRegisterKzCEFBrowserCallback(IKZCEFComToken* token,
                                 long addin_id,
                                 IKZCEFComBrowser* browser,
                                 IKZCEFComBrowserHandler* handler) override;
  HRESULT STDMETHODCALLTYPE GetCookieManager(IKZCEFComToken* token,
                                             long cookie,
                                             IKZCEFComCookieManager** manager) override;
  // Starts the engine on the first call of the process, and never again, also after a failure.
  HRESULT STDMETHODCALLTYPE InitCef(IKZCEFComToken* token, IKZCEFComSettings* settings) override;
  // Returns S_FALSE when the shut-down failed. The engine cannot be started again.
  HRESULT STDMETHODCALLTYPE ExitCef(IKZCEFComToken* token) override;
  // Makes a new settings object with default values, which belongs to the caller. Returns S_OK,
  // E_POINTER or E_OUTOFMEMORY.
  HRESULT STDMETHODCALLTYPE GetKzCEFComSettings(IKZCEFComToken* token,
                                                IKZCEFComSettings** settings) override;
  // Like the members without the 2, for callers that hold IUnknown only: the tables then know the
  // objects by the very pointers passed.
  HRESULT STDMETHODCALLTYPE RegisterKzCEFBrowserCallback2(IUnknown* token,
                                                          long addin_id,
                                                          IUnknown* browser,
                                                          IUnknown* handler) override;
  HRESULT STDMETHODCALLTYPE UnRegisterKzCEFBrowserCallback2(IUnknown* token,
                                                            long addin_id,
                                                            IUnknown* browser,
                                                            IUnknown* handler) override;
  HRESULT STDMETHODCALLTYPE HostClosing(VARIANT_BOOL is_closing) override;
  HRESULT STDMETHODCALLTYPE IsProcessingNotifications(VARIANT_BOOL* is_processing) override;
};

}  // namespace kzcef
