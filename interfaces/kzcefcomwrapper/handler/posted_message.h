// The message that asks the host for its thread, and the way back from the host's message loop.
#pragma once

#include <windows.h>

#include <cstdint>

#include "handler/host_thread_dispatcher.h"

namespace kzcef {

// The message that hosts look for in the window procedure of their main window. wParam is the
// identifier of the parked request, lParam the address of the client handler that parked it.
inline constexpr UINT kHostThreadMessage = 0x8142;
static_assert(kHostThreadMessage == WM_APP + 0x142);

// Makes `dispatcher` the one that messages of the client handler at `handler` lead to; null forgets
// the handler, as its destructor must. Any thread.
void RememberDispatcher(const kzCefClientHandler* handler,
                        CefRefPtr<HostThreadDispatcher> dispatcher);

// Finishes the request that a message named, through the dispatcher of the client handler at
// `handler`. Does nothing when no living handler with a dispatcher has that address, which is only
// compared and never followed. Throws nothing. Host's thread.
void FinishPostedRequest(std::uint32_t identifier, const kzCefClientHandler* handler) noexcept;

}  // namespace kzcef
