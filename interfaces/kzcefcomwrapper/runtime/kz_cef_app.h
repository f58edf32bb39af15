// The application object that CEF consults while it starts.
#pragma once

#include "include/cef_app.h"

namespace kzcef {

// Completes the browser process's command line; everything else is left to CEF's defaults. One
// object per process, called on the thread that starts CEF.
class kzCefApp : public CefApp {
 public:
  // Adds the hub's proxy when there is a hub, print preview, and then the host's own switches in
  // the order of their names, so that the host has the last word on each switch.
  void OnBeforeCommandLineProcessing(const CefString& process_type,
                                     CefRefPtr<CefCommandLine> command_line) override;

 private:
  IMPLEMENT_REFCOUNTING(kzCefApp);
};

}  // namespace kzcef
