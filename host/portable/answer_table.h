// What a handler answers in the in/out arguments of its notifications.
#pragma once

#include <chrono>
#include <mutex>
#include <string>
#include <vector>

#include "portable/json.h"

namespace kzhost {

// How a handler behaves when its notification comes.
struct Answer {
  // What the in/out arguments become, by their names; the others stay as they come.
  Json arguments = Json::object();
  // How long the handler takes.
  std::chrono::milliseconds delay{0};
};

// Written by the user-interface thread, read by the engine's threads: every member may be called
// on any thread.
class AnswerTable {
 public:
  // From now on `notification`, when `conditions` hold for its arguments, is answered with
  // `answer`. Where several rules apply, only the latest counts; an empty answer leaves every
  // argument as it comes.
  void Set(const std::string& notification, Json conditions, Answer answer);

  // Returns the answer to give; an empty one when no rule applies.
  Answer Find(const std::string& notification, const Json& arguments) const;

 private:
  struct Rule {
    std::string notification;
    Json conditions;
    Answer answer;
  };

  mutable std::mutex mutex_;
  std::vector<Rule> rules_;
};

}  // namespace kzhost
