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

// The handler and the browser of a registration as the tables are to know them; null where the
// object passed is not one.
struct Registration {
  IUnknown* handler;
  IUnknown* browser;
};

void Register(long addin_id, const Registration& registration) {
  const auto registry = KZCEFCom::Get();
  if (registration.handler) {
    registry->AddHandler(registration.handler, addin_id);
    if (registration.browser) {
      registry->PairWithBrowser(registration.handler, registration.browser);
    }
  }
}

void Unregister(const Registration& registration) {
  const auto registry = KZCEFCom::Get();
  if (!registry->HasHandlers()) {
    return;
  }
  if (registration.handler) {
    registry->RemoveHandler(registration.handler);
  }
  if (registration.browser) {
    registry->RemoveHandlersOf(registration.browser);
  }
}

}  // namespace

HRESULT CKZCEFComApplication::GetToken(BSTR product_key, VARIANT, IKZCEFComToken**) {
  return ComMember([&] {
    std::wstring kind = TextOf(product_key);
    if (IsKnownHostKind(kind)) {
      SetHostKind(std::move(kind));
    }
    return S_OK;
  });
}

HRESULT CKZCEFComApplication::GetKzCEFBrowser(IKZCEFComToken*, long, IKZCEFComBrowser** browser) {
  return ComMember([&] {
    ComPtr<IKZCEFComBrowser> created;
    CreateComObject<CKZCEFComBrowser>(nullptr, IID_PPV_ARGS(created.GetAddressOf()));
    // Also when there is none: the list counts the attempts.
    KZCEFCom::Get()->ListBrowser(created.Get());
    if (created && browser) {
      *browser = created.Detach();
    }
    return S_OK;
  });
}

HRESULT CKZCEFComApplication::RegisterKzCEFBrowserCallback(IKZCEFComToken*,
                                                           long addin_id,
                                                           IKZCEFComBrowser* browser,
                                                           IKZCEFComBrowserHandler* handler) {
  if (!browser || !handler) {
    return S_OK;
  }
  return ComMember([&] {
    const auto known_handler = Query<IKZCEFComBrowserHandler>(handler);
    const auto known_browser = Query<IKZCEFComBrowser>(browser);
    Register(addin_id, {known_handler.Get(), known_browser.Get()});
    return S_OK;
  });
}

HRESULT CKZCEFComApplication::UnRegisterKzCEFBrowserCallback(IKZCEFComToken*,
                                                             long,
                                                             IKZCEFComBrowser* browser,
                                                             IKZCEFComBrowserHandler* handler) {
  if (!browser || !handler) {
    return S_OK;
  }
  return ComMember([&] {
    const auto known_handler = Query<IKZCEFComBrowserHandler>(handler);
    const auto known_browser = Query<IKZCEFComBrowser>(browser);
    Unregister({known_handler.Get(), known_browser.Get()});
    return S_OK;
  });
}

HRESULT CKZCEFComApplication::GetCookieManager(IKZCEFComToken*,
                                               long,
                                               IKZCEFComCookieManager** manager) {
  return ComMember([&] {
    CreateComObject<CKZCEFComCookieManager>(nullptr, IID_PPV_ARGS(manager));
    return S_OK;
  });
}

HRESULT CKZCEFComApplication::InitCef(IKZCEFComToken*, IKZCEFComSettings* settings) {
  return ComMember([&] {
    const auto registry = KZCEFCom::Get();
    if (!registry->started()) {
      // Set before anything can fail: a failed start is not tried again.
      registry->set_started();
      registry->set_bridge(InitCefRuntime(nullptr, settings));
    }
    return S_OK;
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
  if (!browser || !handler) {
    return S_OK;
  }
  return ComMember([&] {
    const bool is_handler = Query<IKZCEFComBrowserHandler>(handler) != nullptr;
    const bool is_browser = Query<IKZCEFComBrowser>(browser) != nullptr;
    Register(addin_id, {is_handler ? handler : nullptr, is_browser ? browser : nullptr});
    return S_OK;
  });
}

HRESULT CKZCEFComApplication::UnRegisterKzCEFBrowserCallback2(IUnknown*,
                                                              long,
                                                              IUnknown* browser,
                                                              IUnknown* handler) {
  if (!browser || !handler) {
    return S_OK;
  }
  return ComMember([&] {
    const bool is_handler = Query<IKZCEFComBrowserHandler>(handler) != nullptr;
    const bool is_browser = Query<IKZCEFComBrowser>(browser) != nullptr;
    Unregister({is_handler ? handler : nullptr, is_browser ? browser : nullptr});
    return S_OK;
  });
}

HRESULT CKZCEFComApplication::HostClosing(VARIANT_BOOL is_closing) {
  return ComLeafMember([&] {
    KZCEFCom::Get()->ExchangeHostClosing(is_closing != VARIANT_FALSE);
    return S_OK;
  });
}

HRESULT CKZCEFComApplication::IsProcessingNotifications(VARIANT_BOOL* is_processing) {
  return ComLeafMember([&] {
    if (is_processing) {
      *is_processing = KZCEFCom::Get()->IsProcessing() ? VARIANT_TRUE : VARIANT_FALSE;
    }
    return S_OK;
  });
}

}  // namespace kzcef
