// The members of the browser object, each passed on to the bridge with this browser's instance.

#include "automation/browser.h"

#include "automation/kzcef_com.h"
#include "bridge/kz_cef_bridge.h"
#include "com/member.h"
#include "com/text.h"

namespace kzcef {
namespace {

// The result of most members: whether there was a bridge to act on.
HRESULT Acted(bool acted) {
  return acted ? S_OK : S_FALSE;
}

}  // namespace

CKZCEFComBrowser::CKZCEFComBrowser()
    : bridge_(KZCEFCom::Get()->bridge()), life_(std::make_shared<BrowserLife>(this)) {
  KZCEFCom::Get()->AddBrowser(this, life_);
}

void CKZCEFComBrowser::FinalRelease() noexcept {
  // First of all, so that no walk comes here any more while the rest goes.
  life_->End();
  ComMember([&] {
    if (bridge_) {
      bridge_->DestroyInstance(instance_);
    }
    bridge_ = nullptr;
    instance_ = nullptr;
    KZCEFCom::Get()->ForgetBrowser(this);
    return S_OK;
  });
}

HRESULT CKZCEFComBrowser::GetWindowHandle(__int64* window) {
  return ComMember([&] {
    if (bridge_ && window) {
      *window = reinterpret_cast<__int64>(WindowHandle());
    }
    return Acted(bridge_);
  });
}

HRESULT CKZCEFComBrowser::get_URL(BSTR* url) {
  return ComMember([&] {
    std::wstring current;
    if (bridge_) {
      bridge_->GetURL(current, instance_);
    }
    if (url) {
      *url = NewBstr(current);
    }
    return S_OK;
  });
}

HRESULT CKZCEFComBrowser::put_URL(BSTR url) {
  return ComMember([&] {
    url_ = TextOf(url);
    return Acted(WindowHandle() && bridge_->LoadURL(url_.c_str(), instance_));
  });
}

HRESULT CKZCEFComBrowser::ExecuteJS(BSTR script) {
  return ComMember([&] {
    if (bridge_) {
      bridge_->ExecuteJS(script, instance_);
    }
    return Acted(bridge_);
  });
}

HRESULT CKZCEFComBrowser::AddJSHandler(BSTR name, IDispatch* object) {
  return ComMember([&] {
    if (bridge_ && instance_) {
      bridge_->AddJSHandler(name, object, instance_);
    } else {
      pending_script_handlers_.try_emplace(TextOf(name), object);
    }
    return S_OK;
  });
}

HRESULT CKZCEFComBrowser::RemoveJSHandler(BSTR name, IDispatch* object) {
  return ComMember([&] {
    if (bridge_) {
      bridge_->RemoveJSHandler(name, object, instance_);
    }
    return Acted(bridge_);
  });
}

HRESULT CKZCEFComBrowser::StartBrowser(__int64 parent) {
  return ComMember([&] {
    if (bridge_) {
      // The engine may report the new browser before the bridge has returned; its notification must
      // find the instance here.
      life_->While([&] {
        kzCefInstance* const before = bridge_->GetInstance();
        window_ = bridge_->StartBrowser(reinterpret_cast<HWND>(parent), url_.c_str());
        // A start that the bridge refuses leaves another browser's instance current.
        if (kzCefInstance* const current = bridge_->GetInstance(); current != before) {
          instance_ = current;
        }
      });
    }
    return S_OK;
  });
}

HRESULT CKZCEFComBrowser::ResizeBrowser(double width, double height) {
  return ComMember([&] {
    if (bridge_) {
      bridge_->ResizeBrowser(width, height, instance_);
    }
    return Acted(bridge_);
  });
}

HRESULT CKZCEFComBrowser::get_PopupUserBrowser(VARIANT_BOOL* popup) {
  return ComLeafMember([&] {
    if (popup) {
      *popup = popup_user_browser_;
    }
    return S_OK;
  });
}

HRESULT CKZCEFComBrowser::put_PopupUserBrowser(VARIANT_BOOL popup) {
  return ComLeafMember([&] {
    popup_user_browser_ = popup;
    return S_OK;
  });
}

HRESULT CKZCEFComBrowser::Refresh(VARIANT_BOOL ignore_cache) {
  return ComMember([&] {
    // The bridge's boolean as it is: a reload is 1, which as an HRESULT is S_FALSE.
    return static_cast<HRESULT>(bridge_ &&
                                bridge_->Refresh(ignore_cache != VARIANT_FALSE, instance_));
  });
}

HRESULT CKZCEFComBrowser::ResizeBrowserRect(double x, double y, double width, double height) {
  return ComMember([&] {
    if (bridge_) {
      bridge_->ResizeBrowserRect(x, y, width, height, instance_);
    }
    return Acted(bridge_);
  });
}

HWND CKZCEFComBrowser::WindowHandle() const {
  return bridge_ ? bridge_->GetWindowHandle(instance_) : nullptr;
}

ScriptHandlerOffer CKZCEFComBrowser::PendingScriptHandlers() const {
  if (!bridge_ || !instance_) {
    return {};
  }
  return {bridge_, instance_, {pending_script_handlers_.begin(), pending_script_handlers_.end()}};
}

void ScriptHandlerOffer::Send() const {
  for (const auto& [name, object] : handlers) {
    bridge->AddJSHandler(name.c_str(), object, instance);
  }
}

}  // namespace kzcef
