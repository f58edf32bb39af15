// Gap: a page's pixels, drawn by another process than the window's.
//
// Wine 8: what one process draws into a window of another is lost, for the window's surface belongs
// to the process of the window.
// Chromium: without a GPU, the GPU process draws into the browser process's window with GetDC and
// BitBlt. For windows with the property "Chrome.WindowTranslucent" it does otherwise: it puts the
// pixels into memory that it shares with the browser process, has that process call
// UpdateLayeredWindow, and waits until it has (components/viz: use_layered_window.cc,
// software_output_device_win.cc and layered_window_updater_impl.cc). So here every window has the
// property, in either process, and UpdateLayeredWindow draws into windows that are no layered ones.
// Superfluous: when a page is seen without these three functions.
#pragma once

#include <windows.h>

namespace kz::wine {

HANDLE WINAPI SuppliedGetPropW(HWND window, LPCWSTR name);
LONG WINAPI SuppliedSetWindowLongW(HWND window, int index, LONG value);
BOOL WINAPI SuppliedUpdateLayeredWindow(HWND window,
                                        HDC screen,
                                        POINT* position,
                                        SIZE* size,
                                        HDC source,
                                        POINT* source_position,
                                        COLORREF key,
                                        BLENDFUNCTION* blend,
                                        DWORD flags);

}  // namespace kz::wine
