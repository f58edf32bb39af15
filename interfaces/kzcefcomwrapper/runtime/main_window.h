// The window that stands for the host: messages to the host's thread go there, and dialogs belong
// to it.
#pragma once

#include <windows.h>

namespace kzcef {

// A host marks its main window with a property of this name and any value but zero (SetPropW).
inline constexpr wchar_t kMainWindowProperty[] = L"KZCEFComWrapper.MainWindow";

// Takes the calling thread for the host's, on which FindMainWindow looks for windows.
void UseThisThreadAsTheHosts() noexcept;

// Returns the host's main window as of now: the marked one among the process's top-level windows,
// visible or not; without one, the visible top-level window without an owner on the host's thread.
// Of several it is the topmost. Returns null when there is none. Any thread.
HWND FindMainWindow() noexcept;

}  // namespace kzcef
