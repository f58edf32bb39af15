// The structures in which the engine differs from CEF 123: the start's settings, and the
// description of a browser's window or of a DevTools window.
#pragma once

#include "binding.h"
#include "c_api.h"
#include "include/internal/cef_win.h"

namespace cefbinding {

// The texts of a structure made here stay those of its source, which must outlive the call.
capi::cef_settings_t EngineSettings(const CefSettings& settings);
capi::cef_window_info_t EngineWindowInfo(const CefWindowInfo& info);

// The description of a window that shows DevTools.
struct DevToolsWindow {
  const CefWindowInfo& info;
};
capi::cef_window_info_t EngineWindowInfo(const DevToolsWindow& window);

template <>
class Outgoing<CefSettings> {
 public:
  explicit Outgoing(const CefSettings& settings) : settings_(EngineSettings(settings)) {}
  template <class C>
  capi::cef_settings_t* To() {
    return &settings_;
  }

 private:
  capi::cef_settings_t settings_;
};

class OutgoingWindow {
 public:
  template <class C>
  capi::cef_window_info_t* To() {
    return &info_;
  }

 protected:
  explicit OutgoingWindow(const capi::cef_window_info_t& info) : info_(info) {}

 private:
  capi::cef_window_info_t info_;
};

template <>
class Outgoing<CefWindowInfo> : public OutgoingWindow {
 public:
  explicit Outgoing(const CefWindowInfo& info) : OutgoingWindow(EngineWindowInfo(info)) {}
};

template <>
class Outgoing<DevToolsWindow> : public OutgoingWindow {
 public:
  explicit Outgoing(const DevToolsWindow& window) : OutgoingWindow(EngineWindowInfo(window)) {}
};

// A window that the engine is about to make: it, too, gets the style that all browsers have.
template <>
class Incoming<CefWindowInfo&> {
 public:
  explicit Incoming(capi::cef_window_info_t* info);
  Incoming(const Incoming&) = delete;
  Incoming& operator=(const Incoming&) = delete;
  ~Incoming();
  CefWindowInfo& Get() { return value_; }

 private:
  capi::cef_window_info_t* const info_;
  CefWindowInfo value_;
};

}  // namespace cefbinding
