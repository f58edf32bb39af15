#pragma once

#include <string>

#include "devtools/protocol_connection.h"

namespace cefedition {

// The browser loses session cookies when it closes, and writes the others to its database only
// every half a minute. What has to survive is kept in a file of the profile beside the database.

/// Keeps these cookies in the place of those kept before; none removes the file. False when the
/// file cannot be written. Any thread.
bool KeepCookies(const std::wstring& profile, const Json& cookies);

/// What is kept; an empty list when there is nothing.
Json ReadKeptCookies(const std::wstring& profile);

/// Those of the `kept` cookies that a browser which has `present` is to get back: not those that
/// it has, those that have expired, and session cookies only with `with_session`.
Json CookiesToBringBack(const Json& kept, const Json& present, bool with_session);

/// Which of the browser's cookies have to be kept: session cookies with `session`, others with
/// `lasting`.
Json CookiesToKeep(const Json& cookies, bool session, bool lasting);

}  // namespace cefedition
