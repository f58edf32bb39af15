// A text that goes to the host's handlers and comes back as they left it.
#pragma once

#include <comdef.h>
#include <windows.h>

#include <string>

#include "com/text.h"

namespace kzcef {

// Owns the BSTR behind an in/out argument; a handler may free and replace it, also by null.
class InOutText {
 public:
  // Throws _com_error with E_OUTOFMEMORY.
  explicit InOutText(const std::wstring& text) : text_(NewBstr(text)) {
    if (!text_) {
      _com_issue_error(E_OUTOFMEMORY);
    }
  }
  ~InOutText() { SysFreeString(text_); }
  InOutText(const InOutText&) = delete;
  InOutText& operator=(const InOutText&) = delete;

  BSTR* address() { return &text_; }
  std::wstring text() const { return TextOf(text_); }

 private:
  BSTR text_;
};

}  // namespace kzcef
