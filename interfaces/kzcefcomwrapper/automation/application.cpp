// The members of the application object: each acts on the process-wide registry or makes an object.

#include "automation/application.h"

#include <wrl/client.h>

#include "automation/browser.h"
#include "automation/cookie_manager.h"
#include "automation/kzcef_com.h"
#include "automation/settings.h"
#include "bridge/init_cef_runtime.h"
#include "bridge/kz_cef_bridge.h"
#include "bridge/kz_cef_bridge_impl.h"
#include "com/member.h"
#include "com/text.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

using Microsoft::WRL::ComPtr;

template <typename Interface>
ComPtr<Interface> Query(IUnknown* object) {
  ComPtr<Interface> answer;
  object->QueryInterface(IID_PPV_ARGS(answer.GetAddressOf()));
  return answer;
}

// The pointer by which the tables know an object: the typed members take its interface pointer, the
// generic ones the pointer that was passed.
struct ByInterface {
  static IUnknown* Of(IUnknown* /*passed*/, IUnknown* queried) { return queried; }
};
struct ByPointer {
  static IUnknown* Of(IUnknown* passed, IUnknown* /*queried*/) { return passed; }
};

template <typename Identity>
HRESULT Register(long addin_id, IUnknown* browser, IUnknown* handler) noexcept {
  if (!browser || !handler) {
    return S_OK;
  }
  return UnfailingComMember([&] {
    const auto known_handler = Query<IKZCEFComBrowserHandler>(handler);
    if (!known_handler) {
      return;
    }
    const auto registry = KZCEFCom::Get();
    IUnknown* const identity = Identity::Of(handler, known_handler.Get());
    registry->AddHandler(identity, addin_id);
    if (const auto known_browser = Query<IKZCEFComBrowser>(browser)) {
      registry->PairWithBrowser(identity, Identity::Of(browser, known_browser.Get()));
    }
  });
}

template <typename Identity>
HRESULT Unregister(IUnknown* browser, IUnknown* handler) noexcept {
  if (!browser || !handler) {
    return S_OK;
  }
  return UnfailingComMember([&] {
    const auto registry = KZCEFCom::Get();
    if (!registry->HasHandlers()) {
      return;
    }
    if (const auto known_handler = Query<IKZCEFComBrowserHandler>(handler)) {
      registry->RemoveHandler(Identity::Of(handler, known_handler.Get()));
    }
    if (const auto known_browser = Query<IKZCEFComBrowser>(browser)) {
      registry->RemoveHandlersOf(Identity::Of(browser, known_browser.Get()));
    }
  });
}

}  // namespace

HRESULT CKZCEFComApplication::GetToken(BSTR product_key, VARIANT, IKZCEFComToken**) {
  return UnfailingComMember([&] {
    std::wstring kind = TextOf(product_key);
    if (IsKnownHostKind(kind)) {
      SetHostKind(std::move(kind));
    }
  });
}

HRESULT CKZCEFComApplication::GetKzCEFBrowser(IKZCEFComToken*, long, IKZCEFComBrowser** browser) {
  return UnfailingComMember([&] {
    ComPtr<IKZCEFComBrowser> created;
    CreateComObject<CKZCEFComBrowser>(nullptr, IID_PPV_ARGS(created.GetAddressOf()));
    if (created && browser) {
      created.CopyTo(browser);
    }
    // Also when there is none: the list counts the attempts.
    KZCEFCom::Get()->ListBrowser(created.Get());
  });
}

HRESULT CKZCEFComApplication::RegisterKzCEFBrowserCallback(IKZCEFComToken*,
                                                           long addin_id,
                                                           IKZCEFComBrowser* browser,
                                                           IKZCEFComBrowserHandler* handler) {
  return Register<ByInterface>(addin_id, browser, handler);
}

HRESULT CKZCEFComApplication::UnRegisterKzCEFBrowserCallback(IKZCEFComToken*,
                                                             long,
                                                             IKZCEFComBrowser* browser,
                                                             IKZCEFComBrowserHandler* handler) {
  return Unregister<ByInterface>(browser, handler);
}

HRESULT CKZCEFComApplication::GetCookieManager(IKZCEFComToken*,
                                               long,
                                               IKZCEFComCookieManager** manager) {
  return UnfailingComMember(
      [&] { CreateComObject<CKZCEFComCookieManager>(nullptr, IID_PPV_ARGS(manager)); });
}

HRESULT CKZCEFComApplication::InitCef(IKZCEFComToken*, IKZCEFComSettings* settings) {
  return UnfailingComMember([&] {
    const auto registry = KZCEFCom::Get();
    if (!registry->started()) {
      // Set before anything can fail: a failed start is not tried again.
      registry->set_started();
      registry->set_bridge(InitCefRuntime(nullptr, settings));
    }
  });
}

HRESULT CKZCEFComApplication::ExitCef(IKZCEFComToken*) {
  return ComMember([&] {
    kzCefBridge* const bridge = KZCEFCom::Get()->bridge();
    if (!bridge) {
      return S_OK;
    }
    try {
      return bridge->Shutdown() ? S_OK : S_FALSE;
    } catch (...) {
      return S_FALSE;
    }
  });
}

HRESULT CKZCEFComApplication::GetKzCEFComSettings(IKZCEFComToken*, IKZCEFComSettings** settings) {
  return ComMember(
      [&] { return CreateComObject<CKZCEFComSettings>(nullptr, IID_PPV_ARGS(settings)); });
}

HRESULT CKZCEFComApplication::RegisterKzCEFBrowserCallback2(IUnknown*,
                                                            long addin_id,
                                                            IUnknown* browser,
                                                            IUnknown* handler) {
  return Register<ByPointer>(addin_id, browser, handler);
}

HRESULT CKZCEFComApplication::UnRegisterKzCEFBrowserCallback2(IUnknown*,
                                                              long,
                                                              IUnknown* browser,
                                                              IUnknown* handler) {
  return Unregister<ByPointer>(browser, handler);
}

HRESULT CKZCEFComApplication::HostClosing(VARIANT_BOOL is_closing) {
  return UnfailingComMember(
      [&] { KZCEFCom::Get()->ExchangeHostClosing(is_closing != VARIANT_FALSE); });
}

HRESULT CKZCEFComApplication::IsProcessingNotifications(VARIANT_BOOL* is_processing) {
  return UnfailingComMember([&] {
    if (is_processing) {
      *is_processing = KZCEFCom::Get()->IsProcessing() ? VARIANT_TRUE : VARIANT_FALSE;
    }
  });
}

}  // namespace kzcef
