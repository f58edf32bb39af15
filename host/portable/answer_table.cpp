#include "portable/answer_table.h"

#include <utility>

#include "portable/text_match.h"

namespace kzhost {

void AnswerTable::Set(const std::string& notification, Json conditions, Json answers) {
  const std::lock_guard lock(mutex_);
  rules_.push_back({notification, std::move(conditions), std::move(answers)});
}

Json AnswerTable::Find(const std::string& notification, const Json& arguments) const {
  const std::lock_guard lock(mutex_);
  for (auto rule = rules_.rbegin(); rule != rules_.rend(); ++rule) {
    if (rule->notification == notification && MatchesArguments(arguments, rule->conditions)) {
      return rule->answers;
    }
  }
  return Json::object();
}

}  // namespace kzhost
