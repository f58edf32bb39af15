// include/cef_process_message.h of CEF 123, as far as it is used here:
// messages between browser process and renderer.
#pragma once

#include "include/cef_base.h"
#include "include/cef_values.h"

typedef cef_process_id_t CefProcessId;

// A named list of values sent between browser and renderer. Invalid once sent.
class CefProcessMessage : public virtual CefBaseRefCounted {
 public:
  static CefRefPtr<CefProcessMessage> Create(const CefString& name);
  virtual bool IsValid() = 0;
  virtual bool IsReadOnly() = 0;
  virtual CefRefPtr<CefProcessMessage> Copy() = 0;
  virtual CefString GetName() = 0;
  virtual CefRefPtr<CefListValue> GetArgumentList() = 0;
};
