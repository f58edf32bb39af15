// include/internal/cef_win.h of CEF 123, as far as it is used here: what
// the API takes from Windows, as C++ classes.
#pragma once

#include "include/internal/cef_types_win.h"
#include "include/internal/cef_types_wrappers.h"

#define CefCursorHandle cef_cursor_handle_t
#define CefEventHandle cef_event_handle_t
#define CefWindowHandle cef_window_handle_t

class CefMainArgs : public cef_main_args_t {
 public:
  CefMainArgs() : cef_main_args_t{} {}
  CefMainArgs(const cef_main_args_t& r) : cef_main_args_t(r) {}
  explicit CefMainArgs(HINSTANCE hInstance) : cef_main_args_t{hInstance} {}
};

struct CefWindowInfoTraits : CefStructTraits<cef_window_info_t, &cef_window_info_t::window_name> {};

// How the window of a browser is made.
class CefWindowInfo : public CefStructBase<CefWindowInfoTraits> {
 public:
  CefWindowInfo() = default;
  explicit CefWindowInfo(const cef_window_info_t& r) : CefStructBase(r) {}
  explicit CefWindowInfo(const CefWindowInfo& r) : CefStructBase(r) {}
  CefWindowInfo& operator=(const CefWindowInfo&) = default;
  CefWindowInfo& operator=(CefWindowInfo&&) = default;

  // A visible child of |parent|, |windowBounds| in pixels of its client area.
  void SetAsChild(CefWindowHandle parent, const CefRect& windowBounds) {
    style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_TABSTOP | WS_VISIBLE;
    parent_window = parent;
    bounds = windowBounds;
  }

  // A visible top-level window of the system's default size, owned by |parent| if there is one.
  void SetAsPopup(CefWindowHandle parent, const CefString& windowName) {
    style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_VISIBLE;
    parent_window = parent;
    bounds = {CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT};
    cef_string_copy(windowName.c_str(), windowName.length(), &window_name);
  }

  // No window; |parent| is where dialogs and the monitor are taken from.
  void SetAsWindowless(CefWindowHandle parent) {
    windowless_rendering_enabled = TRUE;
    parent_window = parent;
  }
};
