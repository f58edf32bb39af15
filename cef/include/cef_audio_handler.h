#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"

// The sound of a browser.
class CefAudioHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_channel_layout_t ChannelLayout;

  virtual bool GetAudioParameters(CefRefPtr<CefBrowser> browser, CefAudioParameters& params) {
    return true;
  }
  virtual void OnAudioStreamStarted(CefRefPtr<CefBrowser> browser,
                                    const CefAudioParameters& params,
                                    int channels) = 0;
  virtual void OnAudioStreamPacket(CefRefPtr<CefBrowser> browser,
                                   const float** data,
                                   int frames,
                                   int64_t pts) = 0;
  virtual void OnAudioStreamStopped(CefRefPtr<CefBrowser> browser) = 0;
  virtual void OnAudioStreamError(CefRefPtr<CefBrowser> browser, const CefString& message) = 0;
};
