// The members of the settings object: the getter and setter of each
// property, and the defaults, which are CEF's own.

#include "automation/settings.h"

#include <oleauto.h>

#include "com/member.h"
#include "com/text.h"
#include "include/cef_version.h"
#include "include/internal/cef_types_wrappers.h"

namespace kzcef {
namespace {

std::wstring EngineProduct() {
  std::wstring product = L"Chrome/";
  for (const int number : {CHROME_VERSION_MAJOR, CHROME_VERSION_MINOR, CHROME_VERSION_BUILD}) {
    product += std::to_wstring(number) + L'.';
  }
  return product + std::to_wstring(CHROME_VERSION_PATCH);
}

std::wstring DefaultText(const cef_string_t& text) {
  return CefString(&text).ToWString();
}

VARIANT_BOOL DefaultFlag(int flag) {
  return flag ? VARIANT_TRUE : VARIANT_FALSE;
}

// By contract a getter never fails, so a missing out pointer is left alone.
HRESULT GetText(const std::wstring& text, BSTR* value) {
  return UnfailingComLeafMember([&] {
    if (value) {
      *value = NewBstr(text);
    }
  });
}

HRESULT PutText(std::wstring& text, BSTR value) {
  return UnfailingComLeafMember([&] {
    // Into the memory that is there already.
    text.assign(ViewOf(value));
  });
}

template <typename Value>
HRESULT GetValue(Value stored, Value* value) {
  return UnfailingComLeafMember([&] {
    if (value) {
      *value = stored;
    }
  });
}

template <typename Value>
HRESULT PutValue(Value& stored, Value value) {
  return UnfailingComLeafMember([&] { stored = value; });
}

}  // namespace

CKZCEFComSettings::CKZCEFComSettings() {
  const CefSettings defaults;
  accept_language_list_ = DefaultText(defaults.accept_language_list);
  browser_subprocess_path_ = DefaultText(defaults.browser_subprocess_path);
  cache_path_ = DefaultText(defaults.cache_path);
  command_line_args_disabled_ = DefaultFlag(defaults.command_line_args_disabled);
  javascript_flags_ = DefaultText(defaults.javascript_flags);
  locale_ = DefaultText(defaults.locale);
  locales_dir_path_ = DefaultText(defaults.locales_dir_path);
  log_file_ = DefaultText(defaults.log_file);
  log_severity_ = defaults.log_severity;
  multi_threaded_message_loop_ = DefaultFlag(defaults.multi_threaded_message_loop);
  pack_loading_disabled_ = DefaultFlag(defaults.pack_loading_disabled);
  persist_session_cookies_ = DefaultFlag(defaults.persist_session_cookies);
  remote_debugging_port_ = defaults.remote_debugging_port;
  resources_dir_path_ = DefaultText(defaults.resources_dir_path);
  uncaught_exception_stack_size_ = defaults.uncaught_exception_stack_size;
  user_agent_ = DefaultText(defaults.user_agent);
  user_agent_product_ = DefaultText(defaults.user_agent_product);
  windowless_rendering_enabled_ = DefaultFlag(defaults.windowless_rendering_enabled);
}

HRESULT CKZCEFComSettings::get_AcceptLanguageList(BSTR* value) {
  return GetText(accept_language_list_, value);
}

HRESULT CKZCEFComSettings::put_AcceptLanguageList(BSTR value) {
  return PutText(accept_language_list_, value);
}

HRESULT CKZCEFComSettings::get_BrowserSubprocessPath(BSTR* value) {
  return GetText(browser_subprocess_path_, value);
}

HRESULT CKZCEFComSettings::put_BrowserSubprocessPath(BSTR value) {
  return PutText(browser_subprocess_path_, value);
}

HRESULT CKZCEFComSettings::get_CachePath(BSTR* value) {
  return GetText(cache_path_, value);
}

HRESULT CKZCEFComSettings::put_CachePath(BSTR value) {
  return PutText(cache_path_, value);
}

HRESULT CKZCEFComSettings::AddCefCommandLineArg(BSTR name, BSTR value) {
  return UnfailingComLeafMember([&] {
    // The first value of a switch stays.
    if (const std::wstring_view key = ViewOf(name); !command_line_args_.contains(key)) {
      command_line_args_.emplace(key, ViewOf(value));
    }
  });
}

HRESULT CKZCEFComSettings::get_CommandLineArgsDisabled(VARIANT_BOOL* value) {
  return GetValue(command_line_args_disabled_, value);
}

HRESULT CKZCEFComSettings::put_CommandLineArgsDisabled(VARIANT_BOOL value) {
  return PutValue(command_line_args_disabled_, value);
}

HRESULT CKZCEFComSettings::get_JavascriptFlags(BSTR* value) {
  return GetText(javascript_flags_, value);
}

HRESULT CKZCEFComSettings::put_JavascriptFlags(BSTR value) {
  return PutText(javascript_flags_, value);
}

HRESULT CKZCEFComSettings::get_Locale(BSTR* value) {
  return GetText(locale_, value);
}

HRESULT CKZCEFComSettings::put_Locale(BSTR value) {
  return PutText(locale_, value);
}

HRESULT CKZCEFComSettings::get_LocalesDirPath(BSTR* value) {
  return GetText(locales_dir_path_, value);
}

HRESULT CKZCEFComSettings::put_LocalesDirPath(BSTR value) {
  return PutText(locales_dir_path_, value);
}

HRESULT CKZCEFComSettings::get_LogFile(BSTR* value) {
  return GetText(log_file_, value);
}

HRESULT CKZCEFComSettings::put_LogFile(BSTR value) {
  return PutText(log_file_, value);
}

HRESULT CKZCEFComSettings::get_LogSeverity(long* value) {
  return GetValue(log_severity_, value);
}

HRESULT CKZCEFComSettings::put_LogSeverity(long value) {
  return PutValue(log_severity_, value);
}

HRESULT CKZCEFComSettings::get_MultiThreadedMessageLoop(VARIANT_BOOL* value) {
  return GetValue(multi_threaded_message_loop_, value);
}

HRESULT CKZCEFComSettings::put_MultiThreadedMessageLoop(VARIANT_BOOL value) {
  return PutValue(multi_threaded_message_loop_, value);
}

HRESULT CKZCEFComSettings::get_PackLoadingDisabled(VARIANT_BOOL* value) {
  return GetValue(pack_loading_disabled_, value);
}

HRESULT CKZCEFComSettings::put_PackLoadingDisabled(VARIANT_BOOL value) {
  return PutValue(pack_loading_disabled_, value);
}

HRESULT CKZCEFComSettings::get_PersistSessionCookies(VARIANT_BOOL* value) {
  return GetValue(persist_session_cookies_, value);
}

HRESULT CKZCEFComSettings::put_PersistSessionCookies(VARIANT_BOOL value) {
  return PutValue(persist_session_cookies_, value);
}

HRESULT CKZCEFComSettings::get_RemoteDebuggingPort(long* value) {
  return GetValue(remote_debugging_port_, value);
}

HRESULT CKZCEFComSettings::put_RemoteDebuggingPort(long value) {
  return PutValue(remote_debugging_port_, value);
}

HRESULT CKZCEFComSettings::get_ResourcesDirPath(BSTR* value) {
  return GetText(resources_dir_path_, value);
}

HRESULT CKZCEFComSettings::put_ResourcesDirPath(BSTR value) {
  return PutText(resources_dir_path_, value);
}

HRESULT CKZCEFComSettings::get_UncaughtExceptionStackSize(long* value) {
  return GetValue(uncaught_exception_stack_size_, value);
}

HRESULT CKZCEFComSettings::put_UncaughtExceptionStackSize(long value) {
  return PutValue(uncaught_exception_stack_size_, value);
}

HRESULT CKZCEFComSettings::get_UserAgent(BSTR* value) {
  return GetText(user_agent_, value);
}

HRESULT CKZCEFComSettings::put_UserAgent(BSTR value) {
  return PutText(user_agent_, value);
}

HRESULT CKZCEFComSettings::get_UserAgentProduct(BSTR* value) {
  return GetText(user_agent_product_, value);
}

HRESULT CKZCEFComSettings::put_UserAgentProduct(BSTR value) {
  return UnfailingComLeafMember([&] { user_agent_product_ = EngineProduct() + TextOf(value); });
}

HRESULT CKZCEFComSettings::get_UserDataPath(BSTR* value) {
  return GetText(user_data_path_, value);
}

HRESULT CKZCEFComSettings::put_UserDataPath(BSTR value) {
  return PutText(user_data_path_, value);
}

HRESULT CKZCEFComSettings::get_WindowlessRenderingEnabled(VARIANT_BOOL* value) {
  return GetValue(windowless_rendering_enabled_, value);
}

HRESULT CKZCEFComSettings::put_WindowlessRenderingEnabled(VARIANT_BOOL value) {
  return PutValue(windowless_rendering_enabled_, value);
}

HRESULT CKZCEFComSettings::get_ApplicationType(BSTR* value) {
  return GetText(application_type_, value);
}

HRESULT CKZCEFComSettings::put_ApplicationType(BSTR value) {
  return PutText(application_type_, value);
}

HRESULT CKZCEFComSettings::get_LangResourceDllPath(BSTR* value) {
  return GetText(lang_resource_dll_path_, value);
}

HRESULT CKZCEFComSettings::put_LangResourceDllPath(BSTR value) {
  return PutText(lang_resource_dll_path_, value);
}

HRESULT CKZCEFComSettings::get_HubPort(long* value) {
  return GetValue(hub_port_, value);
}

HRESULT CKZCEFComSettings::put_HubPort(long value) {
  return PutValue(hub_port_, value);
}

HRESULT CKZCEFComSettings::CopyCommandLineArgs(CommandLineArgs* args) {
  return ComLeafMember([&] {
    if (!args) {
      return E_POINTER;
    }
    *args = command_line_args_;
    return S_OK;
  });
}

}  // namespace kzcef
