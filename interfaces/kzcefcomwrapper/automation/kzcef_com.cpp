// The registry's tables. Every change of the pairs makes a new snapshot of them, which the engine's
// threads walk without a lock; references are released outside the lock, because that runs the
// host's code.

#include "automation/kzcef_com.h"

#include <algorithm>
#include <utility>

#include "automation/browser_life.h"
#include "automation/handler_reference.h"
#include "utils/never_destroyed.h"

namespace kzcef {
namespace {

std::uintptr_t Key(const IUnknown* pointer) {
  return reinterpret_cast<std::uintptr_t>(pointer);
}

class Registry {
 public:
  static Registry& Instance() {
    static const NeverDestroyed<Registry> registry;
    return *registry;
  }
  std::shared_ptr<KZCEFCom> Get() {
    const std::scoped_lock lock(mutex_);
    if (!registry_) {
      registry_ = std::make_shared<KZCEFCom>();
      PublishHostNotifications(registry_);
    }
    return registry_;
  }
  std::shared_ptr<KZCEFCom> Existing() {
    const std::scoped_lock lock(mutex_);
    return registry_;
  }

 private:
  std::mutex mutex_;
  std::shared_ptr<KZCEFCom> registry_;
};

}  // namespace

std::shared_ptr<KZCEFCom> KZCEFCom::Get() {
  return Registry::Instance().Get();
}

std::shared_ptr<KZCEFCom> KZCEFCom::Existing() {
  return Registry::Instance().Existing();
}

void KZCEFCom::AddHandler(IUnknown* handler, long addin_id) {
  // Also when the handler is known already; see the header.
  handler->AddRef();
  const std::scoped_lock lock(changes_);
  if (handlers_.try_emplace(Key(handler), addin_id).second) {
    references_.emplace(Key(handler), std::make_shared<HandlerReference>(handler));
  }
}

void KZCEFCom::PairWithBrowser(IUnknown* handler, IUnknown* browser) {
  const std::scoped_lock lock(changes_);
  const auto reference = references_.find(Key(handler));
  const auto life = lives_.find(Key(browser));
  const Pair pair{handler, browser, reference == references_.end() ? nullptr : reference->second,
                  life == lives_.end() ? nullptr : life->second};
  if (pairs_.try_emplace(Key(handler), pair).second) {
    PublishPairs();
  }
}

void KZCEFCom::RemoveHandler(IUnknown* handler) {
  // Given back after the lock: the host's code runs then.
  std::shared_ptr<HandlerReference> given_back;
  const std::scoped_lock lock(changes_);
  const size_t before = pairs_.size();
  given_back = TakeOut(Key(handler));
  if (pairs_.size() != before) {
    PublishPairs();
  }
}

void KZCEFCom::RemoveHandlersOf(IUnknown* browser) {
  std::vector<std::shared_ptr<HandlerReference>> given_back;
  const std::scoped_lock lock(changes_);
  for (auto next = pairs_.begin(); next != pairs_.end();) {
    const auto current = next++;
    if (current->second.browser == browser) {
      given_back.push_back(std::move(current->second.handler_reference));
      TakeOut(current->first);
    }
  }
  if (!given_back.empty()) {
    PublishPairs();
  }
}

bool KZCEFCom::HasHandlers() const {
  const std::scoped_lock lock(changes_);
  return !handlers_.empty();
}

void KZCEFCom::AddBrowser(IUnknown* identity, std::shared_ptr<BrowserLife> life) {
  const std::scoped_lock lock(changes_);
  lives_.insert_or_assign(Key(identity), std::move(life));
}

void KZCEFCom::ListBrowser(IUnknown* identity) {
  const std::scoped_lock lock(changes_);
  const auto life = lives_.find(Key(identity));
  auto list = std::make_shared<BrowserList>(*browsers_.load());
  list->push_back(life == lives_.end() ? nullptr : life->second);
  browsers_.store(std::move(list));
}

void KZCEFCom::ForgetBrowser(IUnknown* identity) {
  const std::scoped_lock lock(changes_);
  const auto life = lives_.find(Key(identity));
  if (life == lives_.end()) {
    return;
  }
  auto list = std::make_shared<BrowserList>(*browsers_.load());
  std::erase(*list, life->second);
  browsers_.store(std::move(list));
  const size_t removed = std::erase_if(
      pairs_, [&](const auto& row) { return row.second.browser_life == life->second; });
  lives_.erase(life);
  if (removed > 0) {
    PublishPairs();
  }
}

std::shared_ptr<HandlerReference> KZCEFCom::TakeOut(std::uintptr_t handler) {
  std::shared_ptr<HandlerReference> reference;
  if (const auto found = references_.find(handler); found != references_.end()) {
    reference = std::move(found->second);
    references_.erase(found);
  }
  handlers_.erase(handler);
  pairs_.erase(handler);
  return reference;
}

void KZCEFCom::PublishPairs() {
  auto pairs = std::make_shared<Pairs>();
  pairs->reserve(pairs_.size());
  for (const auto& [key, pair] : pairs_) {
    pairs->push_back(pair);
  }
  published_pairs_.store(std::move(pairs));
}

}  // namespace kzcef
