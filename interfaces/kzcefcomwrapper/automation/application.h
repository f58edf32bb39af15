// The host's entry object.
#pragma once

#include "KZCEFComWrapper.h"
#include "com/com_object.h"

namespace kzcef {

// Stateless: all application objects of a process act on the one KZCEFCom. Tokens and cookies
// (`token`, `cookie`) are accepted and never read. But for GetKzCEFComSettings and ExitCef, every
// member answers S_OK whatever happened and ignores bad arguments. Called on the host's thread.
class CKZCEFComApplication : public CoClass<IKZCEFComApplication2, IKZCEFComApplication> {
 public:
  // Takes `product_key` as the host kind if it names one, in any letter case. Never hands out a
  // token: the out pointer keeps what the caller passed.
  HRESULT STDMETHODCALLTYPE GetToken(BSTR product_key,
                                     VARIANT keys,
                                     IKZCEFComToken** token) override;
  // A new browser object in `browser`, which the caller owns and the browser list mentions.
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
  // S_FALSE when the shut-down failed. The engine cannot be started again.
  HRESULT STDMETHODCALLTYPE ExitCef(IKZCEFComToken* token) override;
  // A new settings object with default values, which the caller owns. E_POINTER, E_OUTOFMEMORY.
  HRESULT STDMETHODCALLTYPE GetKzCEFComSettings(IKZCEFComToken* token,
                                                IKZCEFComSettings** settings) override;
  // As their namesakes, for callers that hold IUnknown only: the tables then know the objects by
  // the very pointers passed.
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
