// Each getter is recorded, and supplies its value, leaves it alone or fails, as the test has set
// it.

#include "fake_settings.h"

namespace kzcef {

HRESULT FakeSettings::QueryInterface(REFIID iid, void** object) {
  const bool answers = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ||
                       IsEqualIID(iid, __uuidof(IKZCEFComSettings)) ||
                       (switches && IsEqualIID(iid, __uuidof(ICommandLineSource)));
  *object = answers ? this : nullptr;
  return answers ? S_OK : E_NOINTERFACE;
}

HRESULT FakeSettings::CopyCommandLineArgs(CommandLineArgs* args) {
  *args = *switches;
  return S_OK;
}

HRESULT FakeSettings::Answer(const std::string& name, BSTR* value) {
  const auto found = texts.find(name);
  // A getter that fails hands out no text, as automation wants it.
  const bool yields = found != texts.end() && !failing.contains(name);
  *value = yields ? SysAllocStringLen(found->second.data(), static_cast<UINT>(found->second.size()))
                  : nullptr;
  return ResultOf(name);
}

HRESULT FakeSettings::Answer(const std::string& name, VARIANT_BOOL* value) {
  if (const auto found = flags.find(name); found != flags.end()) {
    *value = found->second;
  }
  return ResultOf(name);
}

HRESULT FakeSettings::Answer(const std::string& name, long* value) {
  if (const auto found = numbers.find(name); found != numbers.end()) {
    *value = found->second;
  }
  return ResultOf(name);
}

HRESULT FakeSettings::ResultOf(const std::string& name) {
  reads.push_back(name);
  return failing.contains(name) ? E_FAIL : S_OK;
}

std::vector<std::string> PropertiesInOrder() {
  return {"BrowserSubprocessPath",
          "CachePath",
          "CommandLineArgsDisabled",
          "JavascriptFlags",
          "Locale",
          "LocalesDirPath",
          "LogFile",
          "LogSeverity",
          "MultiThreadedMessageLoop",
          "PackLoadingDisabled",
          "PersistSessionCookies",
          "RemoteDebuggingPort",
          "ResourcesDirPath",
          "UncaughtExceptionStackSize",
          "UserAgent",
          "UserAgentProduct",
          "WindowlessRenderingEnabled",
          "ApplicationType",
          "AcceptLanguageList",
          "LangResourceDllPath",
          "HubPort"};
}

}  // namespace kzcef
