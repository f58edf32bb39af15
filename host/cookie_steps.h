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
  // The cookie texts, null for none; for a step that sets cookies what the member returned.
  Json value;
  // What differs from what the step expects; nothing when all is as expected.
  std::optional<std::string> complaint;
};

// Carries out a getAllCookies, getCookies, getCookiesSync or setCookies step with the cookie
// manager "cookies". The first such step obtains it; one that comes before "init" obtains a manager
// that finds nothing. A read with a time-out is repeated until the cookies are as expected.
CookieOutcome RunCookieStep(Host& host, const Step& step);

}  // namespace kzhost
