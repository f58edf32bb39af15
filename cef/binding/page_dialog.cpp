// A dialog window for JavaScript's alert, confirm and prompt, and for the question whether a page
// may be left.

#include "page_dialog.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace cefbinding {
namespace {

constexpr int kMessageId = 100;
constexpr int kInputId = 101;

// No page needs a longer text to be understood, and one with millions of characters would keep the
// dialog's thread busy for minutes.
constexpr size_t kLongestMessage = 10'000;

// In dialog units, a quarter of the average character's width and an eighth of its height.
constexpr int kWidth = 240;
constexpr int kMargin = 7;
constexpr int kGap = 6;
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;
constexpr int kInputHeight = 13;
constexpr int kTallestMessage = 160;

// An empty dialog with the system's message font. What is in it depends on its texts' size, which
// only the window knows.
struct Template {
  DLGTEMPLATE head = {DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU,
                      WS_EX_DLGMODALFRAME,
                      0,
                      0,
                      0,
                      kWidth,
                      kMargin};
  WORD menu = 0;
  WORD window_class = 0;
  WORD title = 0;
  WORD point_size = 8;
  wchar_t font[sizeof(L"MS Shell Dlg") / sizeof(wchar_t)] = L"MS Shell Dlg";
};
static_assert(offsetof(Template, menu) == 18);

// Pages end lines as Unix does.
std::wstring WithWindowsLines(const std::wstring& text) {
  std::wstring result;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'\n' && (i == 0 || text[i - 1] != L'\r')) {
      result += L'\r';
    }
    result += text[i];
  }
  return result;
}

// A rectangle in dialog units as one in pixels.
RECT Pixels(HWND window, RECT units) {
  MapDialogRect(window, &units);
  return units;
}

// The height that `text` needs at `width`, in pixels.
int HeightOf(HWND window, const std::wstring& text, int width) {
  const HDC context = GetDC(window);
  const HGDIOBJ before =
      SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)));
  RECT rect = {0, 0, width, 0};
  DrawTextW(context, text.c_str(), -1, &rect,
            DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX | DT_EXPANDTABS);
  SelectObject(context, before);
  ReleaseDC(window, context);
  return rect.bottom;
}

HWND AddControl(HWND window,
                const wchar_t* window_class,
                const wchar_t* text,
                DWORD style,
                int id,
                const RECT& place) {
  const HWND control =
      CreateWindowExW((style & WS_BORDER) ? WS_EX_CLIENTEDGE : 0, window_class, text,
                      WS_CHILD | WS_VISIBLE | (style & ~static_cast<DWORD>(WS_BORDER)), place.left,
                      place.top, place.right - place.left, place.bottom - place.top, window,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(SendMessageW(window, WM_GETFONT, 0, 0)), 0);
  return control;
}

// Empty for null.
std::wstring TextOf(HWND control) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(control)), L'\0');
  text.resize(
      static_cast<size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()) + 1)));
  return text;
}

// In the middle of `owner`, with a client area of that height.
void Place(HWND window, HWND owner, int client_height) {
  RECT client;
  GetClientRect(window, &client);
  RECT frame = {0, 0, client.right, client_height};
  AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)), FALSE,
                     static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)));
  RECT around = {};
  GetWindowRect(owner, &around);
  const int width = frame.right - frame.left;
  const int height = frame.bottom - frame.top;
  SetWindowPos(window, nullptr, std::max<int>(around.left + around.right - width, 0) / 2,
               std::max<int>(around.top + around.bottom - height, 0) / 2, width, height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

std::shared_ptr<PageDialog> PageDialog::Show(HWND owner,
                                             PageDialogKind kind,
                                             PageDialogTexts texts,
                                             Answer answer) {
  std::shared_ptr<PageDialog> dialog(
      new PageDialog(owner, kind, std::move(texts), std::move(answer)));
  // Nobody waits for the thread: taking the window down may need the owner's thread, which may be
  // the one that would wait.
  std::thread([dialog] { dialog->Run(); }).detach();
  return dialog;
}

PageDialog::PageDialog(HWND owner, PageDialogKind kind, PageDialogTexts texts, Answer answer)
    : owner_(owner), kind_(kind), texts_(std::move(texts)), answer_(std::move(answer)) {}

void PageDialog::Dismiss() {
  const std::lock_guard lock(mutex_);
  is_dismissed_ = true;
  if (window_) {
    // Wakes the dialog's thread.
    PostMessageW(window_, WM_NULL, 0, 0);
  }
}

bool PageDialog::IsDismissed() {
  const std::lock_guard lock(mutex_);
  return is_dismissed_;
}

void PageDialog::Run() {
  const Template empty;
  const HWND window = CreateDialogIndirectParamW(nullptr, &empty.head, owner_, &Procedure,
                                                 reinterpret_cast<LPARAM>(this));
  if (window) {
    HandleMessages(window);
  }
  if (!IsDismissed()) {
    answer_(is_accepted_ || kind_ == PageDialogKind::kAlert, input_);
  }
}

void PageDialog::HandleMessages(HWND window) {
  {
    const std::lock_guard lock(mutex_);
    window_ = window;
  }
  ShowWindow(window, SW_SHOW);
  // A thread's first window does not take the keyboard from another thread's by itself. The system
  // refuses this while another program has the keyboard.
  SetForegroundWindow(window);
  MSG message;
  while (!is_done_ && !IsDismissed() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (!IsDialogMessageW(window, &message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
  {
    const std::lock_guard lock(mutex_);
    window_ = nullptr;
  }
  // Fails when it went with its owner.
  DestroyWindow(window);
}

void PageDialog::Arrange(HWND window) {
  SetWindowTextW(window, texts_.title.c_str());
  const RECT inner = Pixels(window, {kMargin, kMargin, kWidth - kMargin, kTallestMessage});
  const RECT units = Pixels(window, {kGap, kInputHeight, kButtonWidth, kButtonHeight});

  const std::wstring message = WithWindowsLines(texts_.message.substr(0, kLongestMessage));
  const int needed = HeightOf(window, message, inner.right - inner.left);
  const bool scrolls = needed > inner.bottom - inner.top;
  RECT place = inner;
  place.bottom = scrolls ? inner.bottom : inner.top + needed;
  AddControl(window, L"EDIT", message.c_str(),
             static_cast<DWORD>(ES_MULTILINE | ES_READONLY | (scrolls ? WS_VSCROLL : 0)),
             kMessageId, place);

  HWND focus = nullptr;
  if (kind_ == PageDialogKind::kPrompt) {
    place.top = place.bottom + units.left;
    place.bottom = place.top + units.top;
    focus = AddControl(window, L"EDIT", texts_.input.c_str(),
                       WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, kInputId, place);
    SendMessageW(focus, EM_SETLIMITTEXT, 0, 0);
    SendMessageW(focus, EM_SETSEL, 0, -1);
  }

  place.top = place.bottom + units.left;
  place.bottom = place.top + units.bottom;
  if (kind_ != PageDialogKind::kAlert) {
    place.left = place.right - units.right;
    AddControl(window, L"BUTTON", L"Cancel", WS_TABSTOP | BS_PUSHBUTTON, IDCANCEL, place);
    place.right = place.left - units.left;
  }
  place.left = place.right - units.right;
  const HWND ok = AddControl(window, L"BUTTON", texts_.agreement.c_str(),
                             WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK, place);
  SendMessageW(window, DM_SETDEFID, IDOK, 0);
  SetFocus(focus ? focus : ok);
  Place(window, owner_, place.bottom + inner.top);
}

INT_PTR PageDialog::Handle(HWND window, UINT message, WPARAM wparam) {
  switch (message) {
    case WM_INITDIALOG:
      Arrange(window);
      // The focus is where it belongs.
      return FALSE;
    case WM_COMMAND: {
      const int id = LOWORD(wparam);
      if (id == IDOK || id == IDCANCEL) {
        is_accepted_ = id == IDOK;
        input_ = TextOf(GetDlgItem(window, kInputId));
        is_done_ = true;
        return TRUE;
      }
      return FALSE;
    }
    case WM_NCDESTROY:
      // Its owner's end takes the window along.
      PostQuitMessage(0);
      return FALSE;
    default:
      return FALSE;
  }
}

INT_PTR CALLBACK PageDialog::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lparam);
  }
  auto* const dialog = reinterpret_cast<PageDialog*>(GetWindowLongPtrW(window, DWLP_USER));
  return dialog ? dialog->Handle(window, message, wparam) : FALSE;
}

}  // namespace cefbinding
