#pragma once

#include <optional>
#include <string>

#include "devtools/protocol_connection.h"
#include "include/internal/cef_types_wrappers.h"
#include "url.h"

namespace cefedition {

// Cookies as the protocol writes them (an object with `name`, `value`, `domain`, `path` and so on;
// a domain that begins with a dot counts for the hosts below it, too), and the rules by which the
// browser sends them. The protocol itself answers only with all cookies of the store.

/// Whether a URL's scheme has cookies at all.
bool HasCookies(const Url& url);

/// Whether a request for `url` that comes from the same site would carry the cookie. Cookies that
/// belong to one top-level site only are never part of the answer.
bool IsSentTo(const Json& cookie, const Url& url);

/// Whether the cookie belongs to this one host and not to those below it.
bool IsHostCookie(const Json& cookie);

/// What `Storage.setCookies` is told to store `cookie` as if `url` had sent it; nothing when a
/// browser would refuse it: a foreign domain, a path that is none, a secure cookie of an insecure
/// URL, no same-site restriction without `secure`.
std::optional<Json> CookieToStore(const Url& url, const CefCookie& cookie);

/// What stores a cookie of the browser's once more, or with `expired` removes it.
Json CookieToRestore(const Json& cookie);
Json CookieToRemove(const Json& cookie);

/// Whether two cookies take the same place in the store.
bool IsSameCookie(const Json& left, const Json& right);

/// Creation and last access are not told by the protocol and stay 0.
CefCookie ToCefCookie(const Json& cookie);

}  // namespace cefedition
