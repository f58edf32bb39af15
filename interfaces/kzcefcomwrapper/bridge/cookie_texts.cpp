// The list of texts, guarded by one lock.

#include "bridge/cookie_texts.h"

#include <utility>

namespace kzcef {

void CookieTexts::Append(UniqueBstr text) {
  const std::lock_guard guard(mutex_);
  texts_.push_back(std::move(text));
}

void CookieTexts::Clear() {
  Take();
}

void CookieTexts::Close() {
  const std::lock_guard guard(mutex_);
  closed_ = true;
}

std::vector<UniqueBstr> CookieTexts::Take() {
  const std::lock_guard guard(mutex_);
  return std::exchange(texts_, {});
}

std::optional<std::vector<UniqueBstr>> CookieTexts::TakeWhenComplete(int expected) {
  const std::lock_guard guard(mutex_);
  if (!closed_ && !std::cmp_equal(texts_.size(), expected)) {
    return std::nullopt;
  }
  return std::exchange(texts_, {});
}

}  // namespace kzcef
