// The steps that a steps file may hold, and the members of each.
#pragma once

#include <span>
#include <string_view>

namespace kzhost {

enum class Verb {
  kAnswer,
  kBrowser,
  kCall,
  kClick,
  kClose,
  kCreate,
  kGet,
  kGetAllCookies,
  kGetCookies,
  kGetCookiesSync,
  kGone,
  kInit,
  kLoad,
  kMark,
  kPixel,
  kPut,
  kQuit,
  kRefresh,
  kResize,
  kScreenshot,
  kScript,
  kSetCookies,
  kStart,
  kType,
  kWait,
  kWaitFile,
};

enum class MemberKind {
  kText,
  kFlag,
  kNumber,   // whole, not negative
  kInteger,  // whole, of either sign
  kObject,
  kArray,
  kTexts,   // an array of texts
  kColour,  // "#rrggbb"
  kValue,   // a text, flag, number, null or array
};

struct MemberInfo {
  std::string_view name;
  MemberKind kind;
  bool required = false;
};

struct StepInfo {
  std::string_view name;
  Verb verb;
  std::span<const MemberInfo> members;

  // Returns null when the step has no such member.
  const MemberInfo* Find(std::string_view member) const;
};

// Returns null for a name that is no step.
const StepInfo* FindStep(std::string_view name);

// Returns "a text", "a whole number" and so on, for messages.
std::string_view Describe(MemberKind kind);

}  // namespace kzhost
