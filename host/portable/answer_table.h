// What a handler answers in the in/out arguments of its notifications.
#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "portable/json.h"

namespace kzhost {

// Written by the user-interface thread, read by the engine's threads: every member may be called
// on any thread.
class AnswerTable {
 public:
  // From now on `notification`, when `conditions` hold for its arguments, is answered with the
  // members of `answers`. Of several rules that hold the latest counts, alone; an empty `answers`
  // leaves every argument as it comes.
  void Set(const std::string& notification, Json conditions, Json answers);

  // The answers to give, an empty object for none.
  Json Find(const std::string& notification, const Json& arguments) const;

 private:
  struct Rule {
    std::string notification;
    Json conditions;
    Json answers;
  };

  mutable std::mutex mutex_;
  std::vector<Rule> rules_;
};

}  // namespace kzhost
