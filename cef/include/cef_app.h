// include/cef_app.h of CEF 123, as far as it is used here: starting and stopping the engine, and
// the application object that it consults.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser_process_handler.h"
#include "include/cef_command_line.h"
#include "include/cef_render_process_handler.h"

class CefApp;

// Runs the calling program as a sub-process if its command line says so, and returns the exit code
// to leave with. Returns -1 in the browser process, which then goes on.
int CefExecuteProcess(const CefMainArgs& args,
                      CefRefPtr<CefApp> application,
                      void* windows_sandbox_info);

// Starts the engine on the calling thread, once per process. Returns false when it could not be
// started.
bool CefInitialize(const CefMainArgs& args,
                   const CefSettings& settings,
                   CefRefPtr<CefApp> application,
                   void* windows_sandbox_info);

// Stops the engine. Called on the thread of CefInitialize, after all browsers have closed.
void CefShutdown();

// Process-wide hooks. The embedder implements it and hands it to CefInitialize and
// CefExecuteProcess; every getter may be called more than once and may return null.
class CefApp : public virtual CefBaseRefCounted {
 public:
  virtual void OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                             CefRefPtr<CefCommandLine> /*command_line*/) {}
  virtual CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() { return nullptr; }
  virtual CefRefPtr<CefRenderProcessHandler> GetRenderProcessHandler() { return nullptr; }
};
