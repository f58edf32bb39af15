#include "devtools/view/view_window.h"

#include <windowsx.h>

#include <exception>
#include <optional>
#include <utility>

#include "devtools/view/frame_painter.h"
#include "devtools/view/input_translation.h"
#include "devtools/view/window_input.h"

namespace cefedition {
namespace {

constexpr wchar_t kClassName[] = L"CefEditionView";
constexpr double kDefaultDpi = 96.0;

HINSTANCE ThisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&ThisModule), &module);
  return module;
}

/// Whether `owner` still is the object of `window`: a call that ends in the delegate may have
/// deleted it.
bool IsOurs(HWND window, const void* owner) {
  return GetWindowLongPtrW(window, GWLP_USERDATA) == reinterpret_cast<LONG_PTR>(owner);
}

bool IsMouseMessage(UINT message) {
  return (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) || message == WM_MOUSELEAVE;
}

/// Gives up focus and visibility so that destroying the window sends nothing to the parent, whose
/// thread may be waiting for this one.
void LeaveParent(HWND window) {
  if (GetFocus() == window)
    SetFocus(nullptr);
  const HWND parent = GetAncestor(window, GA_PARENT);
  if ((GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) == 0 || !parent)
    return;
  RECT rect{};
  GetWindowRect(window, &rect);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
  SetWindowPos(window, nullptr, 0, 0, 0, 0,
               SWP_HIDEWINDOW | SWP_NOREDRAW | SWP_DEFERERASE | SWP_NOACTIVATE | SWP_NOMOVE |
                   SWP_NOSIZE | SWP_NOZORDER);
  // The parent paints the place anew when it comes to it.
  InvalidateRect(parent, &rect, TRUE);
}

class ViewWindowImpl final : public ViewWindow {
 public:
  explicit ViewWindowImpl(Delegate* delegate) : delegate_(delegate) {}

  ~ViewWindowImpl() override {
    if (const HWND window = std::exchange(hwnd_, nullptr)) {
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      LeaveParent(window);
      DestroyWindow(window);
    }
  }

  bool CreateIn(HWND parent, DWORD style, const RECT& rect);

  HWND hwnd() const override { return hwnd_; }
  Size GetSize() const override;
  void SetFrame(DecodedImage frame) override;
  void SetTitle(const std::wstring& title) override { SetWindowTextW(hwnd_, title.c_str()); }

 private:
  static bool RegisterWindowClass();
  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  /// Nothing for messages that the system is to handle.
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
  std::optional<LRESULT> OnMouse(UINT message, WPARAM wparam, LPARAM lparam);
  std::optional<LRESULT> OnKey(UINT message, WPARAM wparam, LPARAM lparam);
  void OnDestroyed();
  void AnnounceSize();
  MSG MessageOf(const WindowMessage& message) const;
  void TrackLeaving();
  void HoldCaptureWhileButtonsAreDown(UINT message, WPARAM wparam);

  Delegate* const delegate_;
  HWND hwnd_ = nullptr;
  // The delegate hears nothing from inside Create.
  bool created_ = false;
  bool tracks_leaving_ = false;
  FramePainter painter_;
  ClickCounter clicks_;
  TextAssembler text_;
};

bool ViewWindowImpl::RegisterWindowClass() {
  WNDCLASSEXW info{};
  info.cbSize = sizeof(info);
  info.lpfnWndProc = &ViewWindowImpl::WindowProc;
  info.hInstance = ThisModule();
  info.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  info.lpszClassName = kClassName;
  return RegisterClassExW(&info) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

bool ViewWindowImpl::CreateIn(HWND parent, DWORD style, const RECT& rect) {
  static const bool registered = RegisterWindowClass();
  if (!registered)
    return false;
  const bool default_size = !parent && rect.right == CW_USEDEFAULT;
  const int width = default_size ? CW_USEDEFAULT : rect.right - rect.left;
  const int height = default_size ? CW_USEDEFAULT : rect.bottom - rect.top;
  DWORD extended_style = 0;
  if (parent) {
    style |= WS_CHILD;
    // The parent's thread may be waiting for this one, and then cannot take its messages.
    extended_style |= WS_EX_NOPARENTNOTIFY;
  }
  // WM_NCCREATE sets hwnd_.
  if (!CreateWindowExW(extended_style, kClassName, L"", style, rect.left, rect.top, width, height,
                       parent, nullptr, ThisModule(), this))
    return false;
  created_ = true;
  return true;
}

ViewWindow::Size ViewWindowImpl::GetSize() const {
  RECT client{};
  if (!hwnd_ || !GetClientRect(hwnd_, &client))
    return {};
  const UINT dpi = GetDpiForWindow(hwnd_);
  return {client.right, client.bottom, dpi != 0 ? dpi / kDefaultDpi : 1.0};
}

void ViewWindowImpl::SetFrame(DecodedImage frame) {
  if (painter_.SetFrame(std::move(frame)) && hwnd_)
    InvalidateRect(hwnd_, nullptr, FALSE);
}

LRESULT CALLBACK ViewWindowImpl::WindowProc(HWND window,
                                            UINT message,
                                            WPARAM wparam,
                                            LPARAM lparam) {
  if (message == WM_NCCREATE) {
    auto* self = static_cast<ViewWindowImpl*>(
        reinterpret_cast<const CREATESTRUCTW*>(lparam)->lpCreateParams);
    self->hwnd_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<ViewWindowImpl*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!self)
    return DefWindowProcW(window, message, wparam, lparam);
  try {
    if (const std::optional<LRESULT> result = self->OnMessage(message, wparam, lparam))
      return *result;
  } catch (const std::exception&) {
    // Memory ran out: the one message is lost, the window stays.
    return 0;
  }
  return DefWindowProcW(window, message, wparam, lparam);
}

// A call to the delegate may delete this object: nothing of it is touched after one.
std::optional<LRESULT> ViewWindowImpl::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      painter_.PaintWindow(hwnd_);
      return 0;
    case WM_PRINTCLIENT:
      painter_.PaintClient(hwnd_, reinterpret_cast<HDC>(wparam));
      return 0;
    case WM_SIZE:
    case WM_DPICHANGED_AFTERPARENT:
      AnnounceSize();
      return 0;
    case WM_DPICHANGED: {
      const auto* rect = reinterpret_cast<const RECT*>(lparam);
      const HWND window = hwnd_;
      SetWindowPos(window, nullptr, rect->left, rect->top, rect->right - rect->left,
                   rect->bottom - rect->top, SWP_NOZORDER | SWP_NOACTIVATE);
      if (IsOurs(window, this))
        AnnounceSize();
      return 0;
    }
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      if (created_)
        delegate_->OnViewFocus(message == WM_SETFOCUS);
      return 0;
    case WM_CLOSE:
      delegate_->OnViewCloseRequested();
      return 0;
    case WM_NCDESTROY:
      OnDestroyed();
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS;
    // The system would ask the parent about these two, whose thread may be waiting for this one.
    case WM_MOUSEACTIVATE:
      return MA_ACTIVATE;
    case WM_SETCURSOR:
      if (LOWORD(lparam) != HTCLIENT)
        return std::nullopt;
      SetCursor(LoadCursorW(nullptr, IDC_ARROW));
      return TRUE;
    case WM_CHAR:
    case WM_IME_CHAR:
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP:
    case WM_UNICHAR:
      return OnKey(message, wparam, lparam);
    default:
      return IsMouseMessage(message) ? OnMouse(message, wparam, lparam) : std::nullopt;
  }
}

std::optional<LRESULT> ViewWindowImpl::OnMouse(UINT message, WPARAM wparam, LPARAM lparam) {
  const std::optional<InputCommand> command = TranslateMouseMessage(
      {message, wparam, lparam}, ReadMouseContext(hwnd_, GetSize().scale), clicks_);
  if (!command)
    return std::nullopt;
  if (message == WM_MOUSELEAVE)
    tracks_leaving_ = false;
  else
    TrackLeaving();
  const HWND window = hwnd_;
  HoldCaptureWhileButtonsAreDown(message, wparam);
  if (IsOurs(window, this))
    delegate_->OnViewInput(*command);
  const bool x_button = message == WM_XBUTTONDOWN || message == WM_XBUTTONUP;
  return x_button ? TRUE : 0;
}

std::optional<LRESULT> ViewWindowImpl::OnKey(UINT message, WPARAM wparam, LPARAM lparam) {
  const WindowMessage key{message, wparam, lparam};
  const KeyContext context = ReadKeyContext(key);
  const bool of_a_key = message != WM_IME_CHAR && message != WM_UNICHAR;
  if (const std::optional<InputCommand> command = TranslateKeyMessage(key, context, text_)) {
    if (of_a_key)
      delegate_->OnViewKey({MakeKeyEvent(key, context), MessageOf(key), *command});
    else
      delegate_->OnViewInput(*command);
  }
  switch (message) {
    // Alt+F4, Alt+Space and the menu keys keep their meaning.
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP:
      return std::nullopt;
    // Whoever sends it asks first whether it is understood.
    case WM_UNICHAR:
      return wparam == UNICODE_NOCHAR ? TRUE : FALSE;
    default:
      return 0;
  }
}

MSG ViewWindowImpl::MessageOf(const WindowMessage& message) const {
  MSG full{};
  full.hwnd = hwnd_;
  full.message = message.message;
  full.wParam = message.wparam;
  full.lParam = message.lparam;
  full.time = static_cast<DWORD>(GetMessageTime());
  return full;
}

void ViewWindowImpl::OnDestroyed() {
  SetWindowLongPtrW(hwnd_, GWLP_USERDATA, 0);
  hwnd_ = nullptr;
  if (created_)
    delegate_->OnViewDestroyed();
}

void ViewWindowImpl::AnnounceSize() {
  if (!created_)
    return;
  const Size size = GetSize();
  delegate_->OnViewResized(size.width_px, size.height_px, size.scale);
}

void ViewWindowImpl::TrackLeaving() {
  if (tracks_leaving_)
    return;
  TRACKMOUSEEVENT request{};
  request.cbSize = sizeof(request);
  request.dwFlags = TME_LEAVE;
  request.hwndTrack = hwnd_;
  tracks_leaving_ = TrackMouseEvent(&request) != FALSE;
}

void ViewWindowImpl::HoldCaptureWhileButtonsAreDown(UINT message, WPARAM wparam) {
  constexpr WPARAM kAnyButton = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON | MK_XBUTTON1 | MK_XBUTTON2;
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_XBUTTONDOWN:
      SetCapture(hwnd_);
      SetFocus(hwnd_);
      break;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
    case WM_XBUTTONUP:
      if ((wparam & kAnyButton) == 0 && GetCapture() == hwnd_)
        ReleaseCapture();
      break;
    default:
      break;
  }
}

}  // namespace

std::unique_ptr<ViewWindow> ViewWindow::Create(HWND parent,
                                               DWORD style,
                                               const RECT& rect,
                                               Delegate* delegate) {
  if (parent && !IsWindow(parent))
    return nullptr;
  auto view = std::make_unique<ViewWindowImpl>(delegate);
  if (!view->CreateIn(parent, style, rect))
    return nullptr;
  return view;
}

}  // namespace cefedition
