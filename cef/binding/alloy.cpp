// The application and the browser process handler in front of the host's.

#include "alloy.h"

#include <utility>

#include "alloy_preferences.h"
#include "alloy_switches.h"
#include "log.h"

namespace cefbinding {
namespace {

class AlloyBrowserProcess final : public CefBrowserProcessHandler {
 public:
  AlloyBrowserProcess(CefRefPtr<CefBrowserProcessHandler> host, const AlloyOptions& options)
      : host_(std::move(host)), options_(options) {}

  void OnContextInitialized() override {
    Contain([&] { RestorePreferences(options_); });
    if (host_) {
      host_->OnContextInitialized();
    }
  }
  void OnBeforeChildProcessLaunch(CefRefPtr<CefCommandLine> command_line) override {
    if (host_) {
      host_->OnBeforeChildProcessLaunch(command_line);
    }
  }
  // Taken care of in any case: the engine would open a window of Chrome's
  // (chrome_startup_browser_creator.cc), where CEF 123 wrote a line into its log.
  bool OnAlreadyRunningAppRelaunch(CefRefPtr<CefCommandLine> command_line,
                                   const CefString& current_directory) override {
    Contain([&] {
      if (host_) {
        host_->OnAlreadyRunningAppRelaunch(command_line, current_directory);
      }
    });
    return true;
  }

 private:
  const CefRefPtr<CefBrowserProcessHandler> host_;
  const AlloyOptions options_;

  IMPLEMENT_REFCOUNTING(AlloyBrowserProcess);
};

class AlloyApp final : public CefApp {
 public:
  AlloyApp(CefRefPtr<CefApp> application, const AlloyOptions& options)
      : application_(std::move(application)), options_(options) {}

  void OnBeforeCommandLineProcessing(const CefString& process_type,
                                     CefRefPtr<CefCommandLine> command_line) override {
    // Sub-processes are handed what they need by the browser process, which has no type.
    if (!process_type.empty()) {
      AskApplication(process_type, command_line);
      return;
    }
    AppendAlloySwitches(*command_line, options_.logs);
    const FeatureSwitches features(*command_line);
    Contain([&] { AskApplication(process_type, command_line); });
    features.PutTogetherWith(*command_line);
  }
  CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() override {
    return new AlloyBrowserProcess(
        application_ ? application_->GetBrowserProcessHandler() : nullptr, options_);
  }
  CefRefPtr<CefRenderProcessHandler> GetRenderProcessHandler() override {
    return application_ ? application_->GetRenderProcessHandler() : nullptr;
  }

 private:
  void AskApplication(const CefString& process_type,
                      const CefRefPtr<CefCommandLine>& command_line) const {
    if (application_) {
      application_->OnBeforeCommandLineProcessing(process_type, command_line);
    }
  }

  const CefRefPtr<CefApp> application_;
  const AlloyOptions options_;

  IMPLEMENT_REFCOUNTING(AlloyApp);
};

}  // namespace

AlloyOptions::AlloyOptions(const CefSettings& settings)
    : has_languages(settings.accept_language_list.length > 0),
      keeps_session_cookies(settings.persist_session_cookies != 0),
      logs(settings.log_severity != LOGSEVERITY_DISABLE) {}

CefRefPtr<CefApp> WithAlloyBehaviour(CefRefPtr<CefApp> application, const AlloyOptions& options) {
  return new AlloyApp(std::move(application), options);
}

}  // namespace cefbinding
