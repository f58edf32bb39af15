// include/internal/cef_types_win.h of CEF 123, as far as it is
// used here: handles and windows on Windows.
#pragma once

#include <windows.h>

#include "include/internal/cef_string.h"
#include "include/internal/cef_types_geometry.h"

#define cef_cursor_handle_t HCURSOR
#define cef_event_handle_t MSG*
#define cef_window_handle_t HWND

#define kNullCursorHandle NULL
#define kNullEventHandle NULL
#define kNullWindowHandle NULL

extern "C" {

// What the program was started with.
typedef struct _cef_main_args_t {
  HINSTANCE instance;
} cef_main_args_t;

// How the window of a browser is made. |bounds| are in pixels, relative to the parent's client area
// for a child; |window| receives the handle.
typedef struct _cef_window_info_t {
  DWORD ex_style;
  cef_string_t window_name;
  DWORD style;
  cef_rect_t bounds;
  cef_window_handle_t parent_window;
  HMENU menu;
  int windowless_rendering_enabled;
  int shared_texture_enabled;
  int external_begin_frame_enabled;
  cef_window_handle_t window;
} cef_window_info_t;

}  // extern "C"
