// The switches that give Chrome's runtime the behaviour of CEF 123's own.

#include "alloy.h"

#include <string>

namespace cefbinding {
namespace {

// Names of Chrome's features, after those that the command line disables already.
void DisableFeatures(CefCommandLine& command_line, const std::string& features) {
  const std::string present = command_line.GetSwitchValue("disable-features");
  command_line.AppendSwitchWithValue("disable-features",
                                     present.empty() ? features : present + "," + features);
}

void RestoreAlloyBehaviour(CefCommandLine& command_line) {
  command_line.AppendSwitch("disable-popup-blocking");
  command_line.AppendSwitch("disable-chrome-login-prompt");
  // CEF 123's runtime had no profiler, which suspends threads at random moments. Wine loses a
  // thread that is suspended in the middle of a request to its server.
  command_line.AppendSwitch("disable-stack-profiler");
  DisableFeatures(command_line,
                  "BackForwardCache,CalculateNativeWinOcclusion,DocumentPictureInPictureAPI");
}

class AlloyApp final : public CefApp {
 public:
  explicit AlloyApp(CefRefPtr<CefApp> application) : application_(std::move(application)) {}

  void OnBeforeCommandLineProcessing(const CefString& process_type,
                                     CefRefPtr<CefCommandLine> command_line) override {
    // Sub-processes are handed what they need by the browser process, which has no type.
    if (process_type.empty()) {
      RestoreAlloyBehaviour(*command_line);
    }
    if (application_) {
      application_->OnBeforeCommandLineProcessing(process_type, command_line);
    }
  }
  CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() override {
    return application_ ? application_->GetBrowserProcessHandler() : nullptr;
  }
  CefRefPtr<CefRenderProcessHandler> GetRenderProcessHandler() override {
    return application_ ? application_->GetRenderProcessHandler() : nullptr;
  }

 private:
  const CefRefPtr<CefApp> application_;

  IMPLEMENT_REFCOUNTING(AlloyApp);
};

}  // namespace

CefRefPtr<CefApp> WithAlloyBehaviour(CefRefPtr<CefApp> application) {
  return new AlloyApp(std::move(application));
}

}  // namespace cefbinding
