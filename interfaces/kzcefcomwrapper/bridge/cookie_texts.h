// The cookie texts that a visitor has received so far.
#pragma once

#include <mutex>
#include <optional>
#include <vector>

#include "com/text.h"

namespace kzcef {

// A list that CEF's UI thread fills while the host's thread looks at it. Any thread.
class CookieTexts {
 public:
  CookieTexts() = default;
  CookieTexts(const CookieTexts&) = delete;
  CookieTexts& operator=(const CookieTexts&) = delete;

  void Append(UniqueBstr text);
  void Clear();
  // Says that no text will be appended any more.
  void Close();

  // Returns the texts in the order in which they came, and leaves the list empty.
  std::vector<UniqueBstr> Take();
  // Does the same once there are exactly `expected` texts or the list is closed; otherwise returns
  // nothing.
  std::optional<std::vector<UniqueBstr>> TakeWhenComplete(int expected);

 private:
  std::mutex mutex_;
  std::vector<UniqueBstr> texts_;
  bool closed_ = false;
};

}  // namespace kzcef
