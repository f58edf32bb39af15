// A settings object as a host of its own might implement it: it supplies whatever a test wants, and
// remembers what it was asked.
#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "early_bound/early_bound.h"
#include "runtime/command_line_source.h"

namespace kzcef {

// Lives on the test's stack and does not count its references.
class FakeSettings final : public EarlyBound<ICommandLineSource> {
 public:
  virtual ~FakeSettings() = default;

  // By the name of the property. A text that is missing is yielded as null; a flag or a number that
  // is missing is left as the caller set it.
  std::map<std::string, std::wstring> texts;
  std::map<std::string, VARIANT_BOOL> flags;
  std::map<std::string, long> numbers;
  // Properties whose getter fails, after it wrote what it has.
  std::set<std::string> failing;
  // Nothing: the object does not offer its switches.
  std::optional<CommandLineArgs> switches;
  // The properties read, in order.
  std::vector<std::string> reads;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CopyCommandLineArgs(CommandLineArgs* args) override;

  HRESULT STDMETHODCALLTYPE AddCefCommandLineArg(BSTR, BSTR) override { return E_NOTIMPL; }

#define KZ_FAKE_PROPERTY(Type, Name)                           \
  HRESULT STDMETHODCALLTYPE get_##Name(Type* value) override { \
    return Answer(#Name, value);                               \
  }                                                            \
  HRESULT STDMETHODCALLTYPE put_##Name(Type) override {        \
    return E_NOTIMPL;                                          \
  }
  KZ_FAKE_PROPERTY(BSTR, AcceptLanguageList)
  KZ_FAKE_PROPERTY(BSTR, BrowserSubprocessPath)
  KZ_FAKE_PROPERTY(BSTR, CachePath)
  KZ_FAKE_PROPERTY(VARIANT_BOOL, CommandLineArgsDisabled)
  KZ_FAKE_PROPERTY(BSTR, JavascriptFlags)
  KZ_FAKE_PROPERTY(BSTR, Locale)
  KZ_FAKE_PROPERTY(BSTR, LocalesDirPath)
  KZ_FAKE_PROPERTY(BSTR, LogFile)
  KZ_FAKE_PROPERTY(long, LogSeverity)
  KZ_FAKE_PROPERTY(VARIANT_BOOL, MultiThreadedMessageLoop)
  KZ_FAKE_PROPERTY(VARIANT_BOOL, PackLoadingDisabled)
  KZ_FAKE_PROPERTY(VARIANT_BOOL, PersistSessionCookies)
  KZ_FAKE_PROPERTY(long, RemoteDebuggingPort)
  KZ_FAKE_PROPERTY(BSTR, ResourcesDirPath)
  KZ_FAKE_PROPERTY(long, UncaughtExceptionStackSize)
  KZ_FAKE_PROPERTY(BSTR, UserAgent)
  KZ_FAKE_PROPERTY(BSTR, UserAgentProduct)
  KZ_FAKE_PROPERTY(BSTR, UserDataPath)
  KZ_FAKE_PROPERTY(VARIANT_BOOL, WindowlessRenderingEnabled)
  KZ_FAKE_PROPERTY(BSTR, ApplicationType)
  KZ_FAKE_PROPERTY(BSTR, LangResourceDllPath)
  KZ_FAKE_PROPERTY(long, HubPort)
#undef KZ_FAKE_PROPERTY

 private:
  HRESULT Answer(const std::string& name, BSTR* value);
  HRESULT Answer(const std::string& name, VARIANT_BOOL* value);
  HRESULT Answer(const std::string& name, long* value);
  HRESULT ResultOf(const std::string& name);
};

// The properties that start-up copies, in the order in which it reads them.
std::vector<std::string> PropertiesInOrder();

}  // namespace kzcef
