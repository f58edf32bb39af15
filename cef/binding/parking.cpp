// Hidden windows in which browsers' windows come into being.

#include "parking.h"

#include "include/base/cef_bind.h"
#include "include/wrapper/cef_closure_task.h"

namespace cefbinding {
namespace {

// On the hidden window: the parent for which it stands.
constexpr wchar_t kParent[] = L"KzParkedFor";

}  // namespace

HWND MakeParking(HWND parent) {
  if (!IsWindow(parent)) {
    return nullptr;
  }
  // The engine looks whether the browser is to be kept above other windows.
  const LONG_PTR style = GetWindowLongPtrW(GetAncestor(parent, GA_ROOT), GWL_EXSTYLE);
  const HWND parking = CreateWindowExW(
      WS_EX_TOOLWINDOW | (static_cast<DWORD>(style) & WS_EX_TOPMOST), L"STATIC", nullptr,
      WS_POPUP | WS_CLIPCHILDREN, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
  if (parking) {
    SetPropW(parking, kParent, parent);
  }
  return parking;
}

void LeaveParking(const CefRefPtr<CefBrowser>& browser) {
  const HWND window = browser->GetHost()->GetWindowHandle();
  const HWND parking = window ? GetAncestor(window, GA_PARENT) : nullptr;
  const HWND parent = parking ? static_cast<HWND>(GetPropW(parking, kParent)) : nullptr;
  if (!parent) {
    return;
  }
  RemovePropW(parking, kParent);
  SetParent(window, parent);
  // With the browser's window, if the parent is gone: when the engine has finished with both.
  CefPostTask(TID_UI, base::BindOnce([](HWND empty) { DestroyWindow(empty); }, parking));
}

}  // namespace cefbinding
