// Keeps the rules in the order in which they came and searches them from the latest to the first.

#include "portable/answer_table.h"

#include <utility>

#include "portable/text_match.h"

namespace kzhost {

void AnswerTable::Set(const std::string& notification, Json conditions, Answer answer) {
  const std::lock_guard lock(mutex_);
  rules_.push_back({notification, std::move(conditions), std::move(answer)});
}

Answer AnswerTable::Find(const std::string& notification, const Json& arguments) const {
  const std::lock_guard lock(mutex_);
  for (auto rule = rules_.rbegin(); rule != rules_.rend(); ++rule) {
    if (rule->notification == notification && MatchesArguments(arguments, rule->conditions)) {
      return rule->answer;
    }
  }
  return {};
}

}  // namespace kzhost
