#pragma once

#include "include/cef_process_message.h"

namespace cefedition {

// A message as it arrives: nobody may change its arguments.
CefRefPtr<CefProcessMessage> MakeReceivedMessage(const CefString& name,
                                                 CefRefPtr<CefListValue> arguments);

}  // namespace cefedition
