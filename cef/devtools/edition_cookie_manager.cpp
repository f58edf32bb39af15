// The cookie manager: the browser's one cookie store, by way of the protocol, which needs no page
// for it.

#include <algorithm>
#include <chrono>
#include <iterator>

#include "devtools/cookie_rules.h"
#include "devtools/engine.h"
#include "devtools/engine_threads.h"
#include "devtools/json_fields.h"
#include "devtools/log.h"
#include "include/cef_cookie.h"

namespace cefedition {
namespace {

using EnginePtr = std::shared_ptr<Engine>;

// Runs `task` on the UI thread. False when there is no store that could be reached.
bool WithStore(std::function<void(const EnginePtr&)> task) {
  const EnginePtr engine = Engine::Get();
  return engine && engine->IsAlive() &&
         PostToUi([engine, task = std::move(task)] { task(engine); });
}

Json Filtered(const Json& cookies, const std::function<bool(const Json&)>& wanted) {
  Json found = Json::array();
  std::copy_if(cookies.begin(), cookies.end(), std::back_inserter(found), wanted);
  return found;
}

// `done` hears how many were removed.
void Remove(const EnginePtr& engine, const Json& cookies, std::function<void(int)> done) {
  if (cookies.empty()) {
    done(0);
    return;
  }
  Json removals = Json::array();
  for (const Json& cookie : cookies) {
    removals.push_back(CookieToRemove(cookie));
  }
  engine->Send({}, "Storage.setCookies", {{"cookies", removals}},
               [count = static_cast<int>(cookies.size()),
                done = std::move(done)](const ProtocolReply& reply) {
                 if (!reply.ok) {
                   Log(LOGSEVERITY_ERROR, "Cookies were not removed: " + reply.ErrorMessage());
                 }
                 done(reply.ok ? count : 0);
               });
}

void Visit(const EnginePtr& engine, const Json& cookies, CefCookieVisitor& visitor) {
  const int total = static_cast<int>(cookies.size());
  Json removed = Json::array();
  int count = 0;
  for (const Json& cookie : cookies) {
    bool remove = false;
    const bool more = visitor.Visit(ToCefCookie(cookie), count++, total, remove);
    if (remove) {
      removed.push_back(cookie);
    }
    if (!more) {
      break;
    }
  }
  Remove(engine, removed, [](int) {});
}

bool VisitThose(std::function<bool(const Json&)> wanted, CefRefPtr<CefCookieVisitor> visitor) {
  return WithStore([wanted = std::move(wanted), visitor](const EnginePtr& engine) {
    engine->FetchCookies([engine, wanted, visitor](const Json& cookies) {
      Visit(engine, Filtered(cookies, wanted), *visitor);
    });
  });
}

// The protocol reports a cookie as stored even when the store has refused it, so it is looked for.
void CheckStored(const EnginePtr& engine, const Json& stored, std::function<void(bool)> done) {
  const Json& expires = Field(stored, "expires");
  const bool removes = expires.is_number() && std::chrono::system_clock::now() >=
                                                  std::chrono::system_clock::from_time_t(
                                                      static_cast<time_t>(expires.get<double>()));
  if (removes) {
    done(true);
    return;
  }
  engine->FetchCookies([engine, stored, done = std::move(done)](const Json& cookies) {
    // A domain that strangers share ("co.uk") is stored without those below it, which is not what
    // was asked for.
    Json narrowed = stored;
    const std::string domain = TextField(stored, "domain");
    narrowed["domain"] = domain.starts_with('.') ? domain.substr(1) : "";
    const Json wrong = Filtered(cookies, [&](const Json& cookie) {
      return IsSameCookie(cookie, narrowed) && Field(cookie, "value") == Field(stored, "value");
    });
    const bool right = std::any_of(cookies.begin(), cookies.end(), [&](const Json& cookie) {
      return IsSameCookie(cookie, stored) && Field(cookie, "value") == Field(stored, "value");
    });
    Remove(engine, right ? Json::array() : wrong, [done, right](int) { done(right); });
  });
}

class EditionCookieManager : public CefCookieManager {
 public:
  bool VisitAllCookies(CefRefPtr<CefCookieVisitor> visitor) override {
    return visitor && VisitThose([](const Json&) { return true; }, visitor);
  }

  bool VisitUrlCookies(const CefString& url,
                       bool includeHttpOnly,
                       CefRefPtr<CefCookieVisitor> visitor) override {
    const std::optional<Url> target = ParseUrl(url.ToString());
    return target && visitor &&
           VisitThose(
               [target = *target, includeHttpOnly](const Json& cookie) {
                 return IsSentTo(cookie, target) &&
                        (includeHttpOnly || !BoolField(cookie, "httpOnly"));
               },
               visitor);
  }

  bool SetCookie(const CefString& url,
                 const CefCookie& cookie,
                 CefRefPtr<CefSetCookieCallback> callback) override {
    const std::optional<Url> source = ParseUrl(url.ToString());
    if (!source) {
      return false;
    }
    const auto answer = [callback](bool success) {
      if (callback) {
        callback->OnComplete(success);
      }
    };
    const std::optional<Json> stored = CookieToStore(*source, cookie);
    return WithStore([stored, answer, is_awaited = callback != nullptr](const EnginePtr& engine) {
      if (!stored) {
        answer(false);
        return;
      }
      engine->Send({}, "Storage.setCookies", {{"cookies", Json::array({*stored})}},
                   [engine, stored, answer, is_awaited](const ProtocolReply& reply) {
                     if (reply.ok && is_awaited) {
                       CheckStored(engine, *stored, answer);
                     } else {
                       answer(false);
                     }
                   });
    });
  }

  bool DeleteCookies(const CefString& url,
                     const CefString& cookie_name,
                     CefRefPtr<CefDeleteCookiesCallback> callback) override {
    const std::optional<Url> target = ParseUrl(url.ToString());
    if (!url.empty() && !target) {
      return false;
    }
    const auto wanted = [target, name = cookie_name.ToString()](const Json& cookie) {
      if (!target) {
        return true;
      }
      // Without a name the host's own cookies go, whatever their path.
      return name.empty() ? IsHostCookie(cookie) && TextField(cookie, "domain") == target->host
                          : TextField(cookie, "name") == name && IsSentTo(cookie, *target);
    };
    return WithStore([wanted, callback](const EnginePtr& engine) {
      engine->FetchCookies([engine, wanted, callback](const Json& cookies) {
        Remove(engine, Filtered(cookies, wanted), [callback](int count) {
          if (callback) {
            callback->OnComplete(count);
          }
        });
      });
    });
  }

  bool FlushStore(CefRefPtr<CefCompletionCallback> callback) override {
    return WithStore([callback](const EnginePtr& engine) {
      engine->FlushCookies([callback] {
        if (callback) {
          callback->OnComplete();
        }
      });
    });
  }

  IMPLEMENT_REFCOUNTING(EditionCookieManager);
};

}  // namespace
}  // namespace cefedition

CefRefPtr<CefCookieManager> CefCookieManager::GetGlobalManager(
    CefRefPtr<CefCompletionCallback> callback) {
  if (!cefedition::Engine::Get()) {
    return nullptr;
  }
  if (callback) {
    cefedition::PostToUi([callback] { callback->OnComplete(); });
  }
  return new cefedition::EditionCookieManager;
}
