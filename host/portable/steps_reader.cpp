// Reads a steps file line by line and checks each step against the tables of steps and
// notifications, so that whoever carries the steps out need not check anything again.

#include "portable/steps_reader.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>

#include "portable/notification_table.h"

namespace kzhost {
namespace {

constexpr int kDefaultTimeoutMilliseconds = 30'000;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsInteger(const Json& value, std::int64_t least, std::int64_t most) {
  if (!value.is_number_integer()) {
    return false;
  }
  if (value.is_number_unsigned()) {
    return value.get<std::uint64_t>() <= static_cast<std::uint64_t>(most) && least <= 0;
  }
  const auto number = value.get<std::int64_t>();
  return number >= least && number <= most;
}

bool IsColour(const Json& value) {
  if (!value.is_string()) {
    return false;
  }
  const auto& text = value.get_ref<const std::string&>();
  return text.size() == 7 && text[0] == '#' &&
         text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
}

bool IsOfKind(const Json& value, MemberKind kind) {
  switch (kind) {
    case MemberKind::kText:
      return value.is_string();
    case MemberKind::kFlag:
      return value.is_boolean();
    case MemberKind::kNumber:
      return IsInteger(value, 0, std::numeric_limits<int>::max());
    case MemberKind::kInteger:
      return IsInteger(value, std::numeric_limits<std::int32_t>::min(),
                       std::numeric_limits<std::uint32_t>::max());
    case MemberKind::kObject:
      return value.is_object();
    case MemberKind::kArray:
      return value.is_array();
    case MemberKind::kTexts:
      return value.is_array() &&
             std::ranges::all_of(value, [](const Json& element) { return element.is_string(); });
    case MemberKind::kColour:
      return IsColour(value);
    case MemberKind::kValue:
      return !value.is_object();
  }
  return false;
}

bool IsOfKind(const Json& value, ArgumentKind kind) {
  switch (kind) {
    case ArgumentKind::kText:
      return value.is_string();
    case ArgumentKind::kFlag:
      return value.is_boolean();
    case ArgumentKind::kNumber:
      return value.is_number_integer();
  }
  return false;
}

// A flag may be answered as true or false, or as the sixteen bits that it consists of.
bool IsAnswerOfKind(const Json& value, ArgumentKind kind) {
  return IsOfKind(value, kind) ||
         (kind == ArgumentKind::kFlag && IsInteger(value, std::numeric_limits<std::int16_t>::min(),
                                                   std::numeric_limits<std::int16_t>::max()));
}

std::string Quote(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

// Each check returns what is wrong, or nothing.
using Complaint = std::optional<std::string>;

Complaint CheckMembers(const StepInfo& info, const Json& members) {
  for (const auto& [name, value] : members.items()) {
    if (name == "do") {
      continue;
    }
    const MemberInfo* member = info.Find(name);
    if (!member) {
      return Quote(info.name) + " has no member " + Quote(name);
    }
    if (!IsOfKind(value, member->kind)) {
      return Quote(name) + " of " + Quote(info.name) + " must be " +
             std::string(Describe(member->kind));
    }
  }
  for (const MemberInfo& member : info.members) {
    if (member.required && !members.contains(member.name)) {
      return Quote(info.name) + " needs " + Quote(member.name) + ", " +
             std::string(Describe(member.kind));
    }
  }
  return std::nullopt;
}

// Checks that each member of `object` is an argument of the notification and of its kind, and
// with `only_in_out` one that a handler may write.
Complaint CheckArguments(const NotificationInfo& notification,
                         const Json& object,
                         bool only_in_out) {
  for (const auto& [name, value] : object.items()) {
    const ArgumentInfo* argument = notification.Find(name);
    if (!argument) {
      return std::string(notification.name) + " has no argument " + Quote(name);
    }
    if (only_in_out && !argument->in_out) {
      return Quote(name) + " of " + std::string(notification.name) + " cannot be answered";
    }
    if (!(only_in_out ? IsAnswerOfKind(value, argument->kind) : IsOfKind(value, argument->kind))) {
      return Quote(name) + " of " + std::string(notification.name) + " is of another kind";
    }
  }
  return std::nullopt;
}

Complaint CheckNotification(const Json& members) {
  const auto& name = members.at("notification").get_ref<const std::string&>();
  const NotificationInfo* notification = FindNotification(name);
  if (!notification) {
    return "there is no notification " + Quote(name);
  }
  for (const char* conditions : {"where", "when"}) {
    if (members.contains(conditions)) {
      if (auto complaint = CheckArguments(*notification, members.at(conditions), false)) {
        return complaint;
      }
    }
  }
  if (members.contains("set")) {
    return CheckArguments(*notification, members.at("set"), true);
  }
  return std::nullopt;
}

// A member that is one of two words, where it is given.
Complaint CheckChoice(const Json& members,
                      const std::string& name,
                      const std::string& first,
                      const std::string& second) {
  if (members.contains(name)) {
    const auto& value = members.at(name).get_ref<const std::string&>();
    if (value != first && value != second) {
      return Quote(name) + " must be " + Quote(first) + " or " + Quote(second);
    }
  }
  return std::nullopt;
}

Complaint CheckSwitches(const Json& members) {
  if (members.contains("switches")) {
    for (const auto& [name, value] : members.at("switches").items()) {
      if (!value.is_string()) {
        return "the switch " + Quote(name) + " must be a text";
      }
    }
  }
  return std::nullopt;
}

Complaint CheckStep(const StepInfo& info, const Json& members) {
  if (auto complaint = CheckMembers(info, members)) {
    return complaint;
  }
  switch (info.verb) {
    case Verb::kAnswer:
    case Verb::kWait:
      return CheckNotification(members);
    case Verb::kClick:
      return CheckChoice(members, "button", "left", "right");
    case Verb::kScreenshot:
      return CheckChoice(members, "area", "window", "view");
    case Verb::kInit:
      return CheckSwitches(members);
    default:
      return std::nullopt;
  }
}

std::variant<Step, std::string> ReadStep(std::string_view line) {
  Json members = Json::parse(line, nullptr, /*allow_exceptions=*/false);
  if (members.is_discarded()) {
    return "this is no JSON object";
  }
  if (!members.is_object()) {
    return "a step is a JSON object";
  }
  const auto name = members.find("do");
  if (name == members.end() || !name->is_string()) {
    return R"(a step needs "do", the name of the step)";
  }
  const StepInfo* info = FindStep(name->get_ref<const std::string&>());
  if (!info) {
    return "there is no step " + Quote(name->get_ref<const std::string&>());
  }
  if (auto complaint = CheckStep(*info, members)) {
    return *std::move(complaint);
  }
  return Step{0, info->verb, std::move(members)};
}

bool IsSkipped(std::string_view line) {
  const size_t first = line.find_first_not_of(" \t\r");
  return first == std::string_view::npos || line[first] == '#';
}

}  // namespace

std::string Step::Text(const char* name, const std::string& fallback) const {
  return Has(name) ? members.at(name).get<std::string>() : fallback;
}

bool Step::Flag(const char* name, bool fallback) const {
  return Has(name) ? members.at(name).get<bool>() : fallback;
}

int Step::Number(const char* name, int fallback) const {
  return Has(name) ? members.at(name).get<int>() : fallback;
}

std::chrono::milliseconds Step::Timeout() const {
  return std::chrono::milliseconds(Number("timeout", kDefaultTimeoutMilliseconds));
}

std::variant<std::vector<Step>, StepsError> ReadSteps(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) {
    text.remove_prefix(kByteOrderMark.size());
  }
  std::vector<Step> steps;
  for (int number = 1; !text.empty(); ++number) {
    const size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (IsSkipped(line)) {
      continue;
    }
    auto read = ReadStep(line);
    if (auto* message = std::get_if<std::string>(&read)) {
      return StepsError{number, std::move(*message)};
    }
    steps.push_back(std::get<Step>(std::move(read)));
    steps.back().line = number;
  }
  return steps;
}

std::string ToText(const std::string& file, const StepsError& error) {
  return file + ":" + std::to_string(error.line) + ": " + error.message;
}

Colour ReadColour(const std::string& text) {
  const auto part = [&text](size_t at) {
    int value = 0;
    std::from_chars(text.data() + at, text.data() + at + 2, value, 16);
    return value;
  };
  return {part(1), part(3), part(5)};
}

}  // namespace kzhost
