// The part of Engine that keeps cookies over the browser's end.

#include <algorithm>

#include "devtools/engine.h"
#include "devtools/engine_threads.h"
#include "devtools/json_fields.h"
#include "devtools/kept_cookies.h"
#include "devtools/log.h"
#include "devtools/wait_signal.h"

namespace cefedition {
namespace {

constexpr std::chrono::seconds kLastCookiesTimeout{3};

}  // namespace

void Engine::FetchCookies(std::function<void(const Json& cookies)> done) {
  Send({}, "Storage.getCookies", Json::object(),
       [done = std::move(done)](const ProtocolReply& reply) {
         const Json& found = Field(reply.value, "cookies");
         if (!reply.ok || !found.is_array()) {
           done(Json::array());
           return;
         }
         Json cookies = found;
         std::stable_sort(cookies.begin(), cookies.end(), [](const Json& left, const Json& right) {
           return TextField(left, "path").size() > TextField(right, "path").size();
         });
         done(cookies);
       });
}

void Engine::FlushCookies(std::function<void()> done) {
  FetchCookies([self = shared_from_this(), done = std::move(done)](const Json& cookies) {
    if (self->cache_is_temporary_ || !self->alive_) {
      done();
      return;
    }
    Json kept = CookiesToKeep(cookies, self->keeps_session_cookies_, /*lasting=*/true);
    PostToBackground([path = self->cache_path_, kept = std::move(kept), done] {
      KeepCookies(path, kept);
      PostToUi(done);
    });
  });
}

void Engine::BringBackCookies(std::function<void()> done) {
  const Json kept = ReadKeptCookies(cache_path_);
  if (kept.empty()) {
    done();
    return;
  }
  FetchCookies([self = shared_from_this(), kept, done = std::move(done)](const Json& present) {
    const Json missing = CookiesToBringBack(kept, present, self->keeps_session_cookies_);
    self->Send({}, "Storage.setCookies", {{"cookies", missing}},
               [done](const ProtocolReply& reply) {
                 if (!reply.ok) {
                   Log(LOGSEVERITY_ERROR,
                       "The browser did not take its cookies back: " + reply.ErrorMessage());
                 }
                 done();
               });
  });
}

std::optional<Json> Engine::CookiesAtTheEnd() {
  if (cache_is_temporary_ || !alive_) {
    return std::nullopt;
  }
  const auto answered = std::make_shared<Signal>();
  const auto cookies = std::make_shared<Json>();
  FetchCookies([answered, cookies](const Json& found) {
    *cookies = found;
    answered->Set();
  });
  return answered->Wait(kLastCookiesTimeout) ? std::optional<Json>(*cookies) : std::nullopt;
}

void Engine::KeepCookiesAtTheEnd(const std::optional<Json>& cookies, bool cleanly) {
  if (cookies) {
    KeepCookies(cache_path_, CookiesToKeep(*cookies, keeps_session_cookies_, !cleanly));
  }
}

}  // namespace cefedition
