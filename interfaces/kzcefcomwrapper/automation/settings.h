// The start-up settings of the engine, as a host collects them before InitCef.
#pragma once

#include <windows.h>

#include <string>

#include "KZCEFComWrapper.h"
#include "com/com_object.h"
#include "runtime/command_line_source.h"

namespace kzcef {

template <>
struct Described<ICommandLineSource> {
  using Interface = IKZCEFComSettings;
};

// A plain property bag. Nothing is checked and nothing takes effect before InitCef reads it, once,
// through the interface. Every member returns S_OK; texts that come in are copied, texts that go
// out belong to the caller. Called on the thread that created the object.
class CKZCEFComSettings : public CoClass<ICommandLineSource, IKZCEFComSettings> {
 public:
  // Starts with the engine's own defaults, and with no hub.
  CKZCEFComSettings();

  HRESULT STDMETHODCALLTYPE get_AcceptLanguageList(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_AcceptLanguageList(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_BrowserSubprocessPath(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_BrowserSubprocessPath(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_CachePath(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_CachePath(BSTR value) override;
  // Keeps the first value given for a name. Names that differ in letter case only are different,
  // and both texts are kept as given.
  HRESULT STDMETHODCALLTYPE AddCefCommandLineArg(BSTR name, BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_CommandLineArgsDisabled(VARIANT_BOOL* value) override;
  HRESULT STDMETHODCALLTYPE put_CommandLineArgsDisabled(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_JavascriptFlags(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_JavascriptFlags(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_Locale(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_Locale(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_LocalesDirPath(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_LocalesDirPath(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_LogFile(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_LogFile(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_LogSeverity(long* value) override;
  HRESULT STDMETHODCALLTYPE put_LogSeverity(long value) override;
  HRESULT STDMETHODCALLTYPE get_MultiThreadedMessageLoop(VARIANT_BOOL* value) override;
  HRESULT STDMETHODCALLTYPE put_MultiThreadedMessageLoop(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_PackLoadingDisabled(VARIANT_BOOL* value) override;
  HRESULT STDMETHODCALLTYPE put_PackLoadingDisabled(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_PersistSessionCookies(VARIANT_BOOL* value) override;
  HRESULT STDMETHODCALLTYPE put_PersistSessionCookies(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_RemoteDebuggingPort(long* value) override;
  HRESULT STDMETHODCALLTYPE put_RemoteDebuggingPort(long value) override;
  HRESULT STDMETHODCALLTYPE get_ResourcesDirPath(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_ResourcesDirPath(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_UncaughtExceptionStackSize(long* value) override;
  HRESULT STDMETHODCALLTYPE put_UncaughtExceptionStackSize(long value) override;
  HRESULT STDMETHODCALLTYPE get_UserAgent(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_UserAgent(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_UserAgentProduct(BSTR* value) override;
  // Stores the engine's own product with `value` directly behind it. There is no separator, and
  // hosts rely on that: one that wants a token of its own passes a text that begins with a blank.
  HRESULT STDMETHODCALLTYPE put_UserAgentProduct(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_UserDataPath(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_UserDataPath(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_WindowlessRenderingEnabled(VARIANT_BOOL* value) override;
  HRESULT STDMETHODCALLTYPE put_WindowlessRenderingEnabled(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_ApplicationType(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_ApplicationType(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_LangResourceDllPath(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE put_LangResourceDllPath(BSTR value) override;
  // The port of the local hub on the loopback interface; -1 for none.
  HRESULT STDMETHODCALLTYPE get_HubPort(long* value) override;
  HRESULT STDMETHODCALLTYPE put_HubPort(long value) override;

  // ICommandLineSource:
  HRESULT STDMETHODCALLTYPE CopyCommandLineArgs(CommandLineArgs* args) override;

 private:
  std::wstring accept_language_list_;
  std::wstring browser_subprocess_path_;
  std::wstring cache_path_;
  VARIANT_BOOL command_line_args_disabled_ = VARIANT_FALSE;
  std::wstring javascript_flags_;
  std::wstring locale_;
  std::wstring locales_dir_path_;
  std::wstring log_file_;
  long log_severity_ = 0;
  VARIANT_BOOL multi_threaded_message_loop_ = VARIANT_FALSE;
  VARIANT_BOOL pack_loading_disabled_ = VARIANT_FALSE;
  VARIANT_BOOL persist_session_cookies_ = VARIANT_FALSE;
  long remote_debugging_port_ = 0;
  std::wstring resources_dir_path_;
  long uncaught_exception_stack_size_ = 0;
  std::wstring user_agent_;
  std::wstring user_agent_product_;
  std::wstring user_data_path_;
  VARIANT_BOOL windowless_rendering_enabled_ = VARIANT_FALSE;
  std::wstring application_type_;
  std::wstring lang_resource_dll_path_;
  CommandLineArgs command_line_args_;
  long hub_port_ = -1;
};

}  // namespace kzcef
