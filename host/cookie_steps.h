// The steps that read and write the engine's cookies.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "host.h"
#include "portable/steps_reader.h"

namespace kzhost {

// What a cookie step came to.
struct CookieOutcome {
  HRESULT result;
  // The cookie texts, null for none; for a step that sets cookies what the member answered.
  Json value;
  // What is not as the step wants it.
  std::optional<std::string> complaint;
};

// Carries out a getAllCookies, getCookies, getCookiesSync or setCookies step by the cookie manager
// "cookies", which the first such step obtains: before "init" it is one that serves nothing. A read
// with a time-out is made again until the cookies are as wanted.
CookieOutcome RunCookieStep(Host& host, const Step& step);

}  // namespace kzhost
