// A client handler whose requests are watched and traced.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "recording_cef/fake_request.h"
#include "trace_lines.h"
#include "unit/handler/handler_test.h"

namespace kzcef::testing {

class RequestTest : public HandlerTest {
 protected:
  RequestTest() { SetEnvironmentVariableW(L"CefLogEnabled", L"1"); }

  static CefRefPtr<recording_cef::FakeRequest> Request(const std::string& url) {
    return new recording_cef::FakeRequest(url);
  }

  // What was traced so far, without what every line begins with.
  static std::vector<std::wstring> Traced() {
    const std::wstring beginning = L"KZCEF Trace: ";
    std::vector<std::wstring> texts = TraceTexts();
    for (std::wstring& text : texts) {
      EXPECT_TRUE(text.starts_with(beginning)) << text;
      text.erase(0, beginning.size());
    }
    return texts;
  }
};

}  // namespace kzcef::testing
