// A plain Win32 window with its controls; it lays them out itself
// and tells its owner what the user does.

#include "ui/browser_window.h"

#include <algorithm>

#include "com/server.h"

namespace kzhost {
namespace {

constexpr wchar_t kWindowClass[] = L"KzHostWindow";
constexpr wchar_t kViewClass[] = L"KzHostView";
constexpr DWORD kWindowStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;

constexpr int kBarHeight = 32;
constexpr int kListHeight = 140;
constexpr int kMargin = 4;
constexpr int kButtonWidth = 70;
constexpr int kCascade = 48;
constexpr LRESULT kLinesKept = 1000;

// IDOK, so that Enter in the address bar means Go.
constexpr int kGoId = IDOK;
constexpr int kRefreshId = 101;

HINSTANCE Module() {
  return GetModuleHandleW(nullptr);
}

void RegisterClassOnce(const wchar_t* name, WNDPROC procedure, HBRUSH background) {
  WNDCLASSW window_class = {};
  window_class.lpfnWndProc = procedure;
  window_class.hInstance = Module();
  window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  window_class.hbrBackground = background;
  window_class.lpszClassName = name;
  RegisterClassW(&window_class);  // a second registration fails and changes nothing
}

// Where the next window goes, so that several do not hide each other.
POINT NextPosition() {
  static int windows = 0;
  const int offset = kCascade * (windows++ % 4);
  return {offset, offset};
}

SIZE WindowSizeFor(int view_width, int view_height) {
  RECT frame = {0, 0, view_width, kBarHeight + view_height + kListHeight};
  AdjustWindowRectEx(&frame, kWindowStyle, FALSE, 0);
  return {frame.right - frame.left, frame.bottom - frame.top};
}

}  // namespace

std::unique_ptr<BrowserWindow> BrowserWindow::Create(const std::wstring& title,
                                                     int view_width,
                                                     int view_height,
                                                     bool is_main,
                                                     Delegate* delegate) {
  RegisterClassOnce(kWindowClass, &BrowserWindow::WindowProcedure, GetSysColorBrush(COLOR_BTNFACE));
  RegisterClassOnce(kViewClass, &DefWindowProcW, GetSysColorBrush(COLOR_WINDOW));

  std::unique_ptr<BrowserWindow> created(new BrowserWindow(delegate));
  const POINT position = NextPosition();
  const SIZE size = WindowSizeFor(view_width, view_height);
  created->window_ =
      CreateWindowExW(0, kWindowClass, title.c_str(), kWindowStyle, position.x, position.y, size.cx,
                      size.cy, nullptr, nullptr, Module(), nullptr);
  if (!created->window_ || !created->CreateControls()) {
    return nullptr;
  }
  SetWindowLongPtrW(created->window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created.get()));
  if (is_main) {
    SetPropW(created->window_, Server::kMainWindowProperty, created->window_);
  }
  created->ResizeView(view_width, view_height);
  created->Layout();
  ShowWindow(created->window_, SW_SHOWNORMAL);
  UpdateWindow(created->window_);
  return created;
}

BrowserWindow::~BrowserWindow() {
  if (window_) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    RemovePropW(window_, Server::kMainWindowProperty);
    DestroyWindow(window_);
  }
}

bool BrowserWindow::CreateControls() {
  const auto control = [this](const wchar_t* window_class, const wchar_t* text, DWORD style,
                              int id) {
    HWND made =
        CreateWindowExW(0, window_class, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), Module(), nullptr);
    const auto font = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessageW(made, WM_SETFONT, font, FALSE);
    return made;
  };
  address_ = control(L"EDIT", L"", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 0);
  go_ = control(L"BUTTON", L"Go", WS_TABSTOP | BS_DEFPUSHBUTTON, kGoId);
  refresh_ = control(L"BUTTON", L"Refresh", WS_TABSTOP, kRefreshId);
  view_ = control(kViewClass, L"", WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0);
  list_ = control(L"LISTBOX", L"",
                  WS_BORDER | WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOSEL | WS_HSCROLL, 0);
  SendMessageW(list_, LB_SETHORIZONTALEXTENT, 2000, 0);
  return address_ && go_ && refresh_ && view_ && list_;
}

void BrowserWindow::ShowAddress(const std::wstring& address) {
  SetWindowTextW(address_, address.c_str());
}

void BrowserWindow::AppendLines(const std::vector<std::wstring>& lines) {
  if (lines.empty()) {
    return;
  }
  // Drawn once for all of them: a page in a hurry makes hundreds a second.
  SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
  for (const std::wstring& line : lines) {
    SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
  }
  LRESULT count = SendMessageW(list_, LB_GETCOUNT, 0, 0);
  for (; count > kLinesKept; --count) {
    SendMessageW(list_, LB_DELETESTRING, 0, 0);
  }
  SendMessageW(list_, LB_SETTOPINDEX, static_cast<WPARAM>(count - 1), 0);
  SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list_, nullptr, TRUE);
}

void BrowserWindow::ResizeView(int width, int height) {
  // By the difference to what it is now: the frame may be the desktop's and not Windows' own.
  RECT window;
  RECT client;
  GetWindowRect(window_, &window);
  GetClientRect(window_, &client);
  const int frame_width = (window.right - window.left) - client.right;
  const int frame_height = (window.bottom - window.top) - client.bottom;
  SetWindowPos(window_, nullptr, 0, 0, width + frame_width,
               kBarHeight + height + kListHeight + frame_height,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void BrowserWindow::BringForward() {
  SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

void BrowserWindow::RequestClose() {
  PostMessageW(window_, WM_CLOSE, 0, 0);
}

void BrowserWindow::Layout() {
  RECT client;
  GetClientRect(window_, &client);
  const int width = client.right;
  const int view_height = std::max(0L, client.bottom - kBarHeight - kListHeight);
  const int control_height = kBarHeight - 2 * kMargin;
  const int buttons = 2 * (kButtonWidth + kMargin) + kMargin;

  MoveWindow(address_, kMargin, kMargin, std::max(0, width - buttons - kMargin), control_height,
             TRUE);
  MoveWindow(go_, width - buttons + kMargin, kMargin, kButtonWidth, control_height, TRUE);
  MoveWindow(refresh_, width - kButtonWidth - kMargin, kMargin, kButtonWidth, control_height, TRUE);
  MoveWindow(view_, 0, kBarHeight, width, view_height, TRUE);
  MoveWindow(list_, 0, kBarHeight + view_height, width,
             std::max(0L, client.bottom - kBarHeight - view_height), TRUE);
  delegate_->OnViewResized(width, view_height);
}

std::wstring BrowserWindow::Address() const {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(address_)) + 1, L'\0');
  const int length = GetWindowTextW(address_, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<size_t>(length));
  return text;
}

LRESULT BrowserWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_SIZE:
      if (wparam != SIZE_MINIMIZED) {
        Layout();
      }
      return 0;
    case WM_COMMAND:
      if (LOWORD(wparam) == kGoId && HIWORD(wparam) == BN_CLICKED) {
        delegate_->OnGo(Address());
      } else if (LOWORD(wparam) == kRefreshId && HIWORD(wparam) == BN_CLICKED) {
        delegate_->OnRefresh();
      }
      return 0;
    case WM_CLOSE:
      delegate_->OnCloseRequested();
      return 0;
    case Server::kPostedMessage:
      delegate_->OnServerMessage(wparam, lparam);
      return 0;
    default:
      return DefWindowProcW(window_, message, wparam, lparam);
  }
}

LRESULT CALLBACK BrowserWindow::WindowProcedure(HWND window,
                                                UINT message,
                                                WPARAM wparam,
                                                LPARAM lparam) {
  auto* self = reinterpret_cast<BrowserWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return self ? self->OnMessage(message, wparam, lparam)
              : DefWindowProcW(window, message, wparam, lparam);
}

}  // namespace kzhost
