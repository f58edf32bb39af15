// The settings and window descriptions of CEF 123 in the engine's form.

#include "settings.h"

namespace cefbinding {
namespace {

// CEF 123 had one kind of browser. The engine has two, of which the other one, Chrome's own window
// with its tabs and prompts, is the default.
constexpr uint32_t kAlloyStyle = 2;

// DevTools exist in Chrome's style only (CreateDevToolsBrowser in chrome_browser_delegate.cc): the
// engine complains in its log about any other.
constexpr uint32_t kDefaultStyle = 0;

// The engine added the style at the end; everything before it is as it was.
static_assert(offsetof(capi::cef_window_info_t, window) == offsetof(cef_window_info_t, window));
static_assert(offsetof(capi::cef_window_info_t, runtime_style) == sizeof(cef_window_info_t));

cef_window_info_t& KnownPart(capi::cef_window_info_t& info) {
  return reinterpret_cast<cef_window_info_t&>(info);
}

// The same characters without their owner.
cef_string_t Borrowed(const cef_string_t& text) {
  return {text.str, text.length, nullptr};
}

capi::cef_window_info_t InStyle(const CefWindowInfo& info, uint32_t style) {
  capi::cef_window_info_t result = {};
  KnownPart(result) = info;
  result.window_name = Borrowed(info.window_name);
  result.runtime_style = style;
  return result;
}

}  // namespace

// Without chrome_runtime, persist_user_preferences and pack_loading_disabled, which the engine has
// no longer: there is one runtime, which keeps its preferences, and its packs are always loaded.
capi::cef_settings_t EngineSettings(const CefSettings& settings) {
  capi::cef_settings_t result = {};
  result.size = sizeof(result);
  result.no_sandbox = settings.no_sandbox;
  result.browser_subprocess_path = Borrowed(settings.browser_subprocess_path);
  result.framework_dir_path = Borrowed(settings.framework_dir_path);
  result.main_bundle_path = Borrowed(settings.main_bundle_path);
  result.multi_threaded_message_loop = settings.multi_threaded_message_loop;
  result.external_message_pump = settings.external_message_pump;
  result.windowless_rendering_enabled = settings.windowless_rendering_enabled;
  result.command_line_args_disabled = settings.command_line_args_disabled;
  result.cache_path = Borrowed(settings.cache_path);
  result.root_cache_path = Borrowed(settings.root_cache_path);
  result.persist_session_cookies = settings.persist_session_cookies;
  result.user_agent = Borrowed(settings.user_agent);
  result.user_agent_product = Borrowed(settings.user_agent_product);
  result.locale = Borrowed(settings.locale);
  result.log_file = Borrowed(settings.log_file);
  result.log_severity = settings.log_severity;
  result.log_items = settings.log_items;
  result.javascript_flags = Borrowed(settings.javascript_flags);
  result.resources_dir_path = Borrowed(settings.resources_dir_path);
  result.locales_dir_path = Borrowed(settings.locales_dir_path);
  result.remote_debugging_port = settings.remote_debugging_port;
  result.uncaught_exception_stack_size = settings.uncaught_exception_stack_size;
  result.background_color = settings.background_color;
  result.accept_language_list = Borrowed(settings.accept_language_list);
  result.cookieable_schemes_list = Borrowed(settings.cookieable_schemes_list);
  result.cookieable_schemes_exclude_defaults = settings.cookieable_schemes_exclude_defaults;
  result.chrome_policy_id = Borrowed(settings.chrome_policy_id);
  result.chrome_app_icon_id = settings.chrome_app_icon_id;
  return result;
}

capi::cef_window_info_t EngineWindowInfo(const CefWindowInfo& info) {
  return InStyle(info, kAlloyStyle);
}

capi::cef_window_info_t EngineWindowInfo(const DevToolsWindow& window) {
  return InStyle(window.info, kDefaultStyle);
}

Incoming<CefWindowInfo&>::Incoming(capi::cef_window_info_t* info) : info_(info) {
  if (info_) {
    value_.AttachTo(KnownPart(*info_));
  }
}

Incoming<CefWindowInfo&>::~Incoming() {
  if (info_) {
    value_.DetachTo(KnownPart(*info_));
    info_->runtime_style = kAlloyStyle;
  }
}

}  // namespace cefbinding
