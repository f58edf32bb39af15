#pragma once

#include "include/cef_frame.h"
#include "include/cef_process_message.h"

namespace cefedition {

/// Hears the messages that the browser process sends to a frame's renderer process. The edition's
/// pages take the message router's answers; other messages go to the observer only.
class ProcessMessageObserver {
 public:
  /// On the thread that sent the message. The message is a copy.
  virtual void OnProcessMessage(CefRefPtr<CefFrame> frame,
                                CefRefPtr<CefProcessMessage> message) = 0;

 protected:
  ~ProcessMessageObserver() = default;
};

/// Sets the one observer, which must outlive its being set; null removes it. Returns once no call
/// to the previous one is under way.
void SetProcessMessageObserver(ProcessMessageObserver* observer);

/// For frames: tells the observer, if there is one.
void NotifyProcessMessage(CefRefPtr<CefFrame> frame, CefRefPtr<CefProcessMessage> message);

}  // namespace cefedition
