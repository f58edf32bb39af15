// include/cef_browser_process_handler.h of CEF 123, as far as it is used
// here: callbacks about the browser process.
#pragma once

#include "include/cef_base.h"
#include "include/cef_command_line.h"

// Callbacks of the browser process as a whole.
class CefBrowserProcessHandler : public virtual CefBaseRefCounted {
 public:
  virtual void OnContextInitialized() {}
  virtual void OnBeforeChildProcessLaunch(CefRefPtr<CefCommandLine> /*command_line*/) {}
  virtual bool OnAlreadyRunningAppRelaunch(CefRefPtr<CefCommandLine> /*command_line*/,
                                           const CefString& /*current_directory*/) {
    return false;
  }
};
