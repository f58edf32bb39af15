// Lists each step with its members, their kinds and which of them are required.

#include "portable/steps_table.h"

#include <algorithm>

namespace kzhost {
namespace {

constexpr bool kRequired = true;
constexpr MemberInfo kBrowserMember = {"browser", MemberKind::kText};
constexpr MemberInfo kTimeout = {"timeout", MemberKind::kNumber};
constexpr MemberInfo kResult = {"hresult", MemberKind::kInteger};

constexpr MemberInfo kAnswer[] = {{"notification", MemberKind::kText, kRequired},
                                  {"set", MemberKind::kObject, kRequired},
                                  {"when", MemberKind::kObject},
                                  {"delay", MemberKind::kNumber},
                                  kBrowserMember};
constexpr MemberInfo kBrowser[] = {{"name", MemberKind::kText, kRequired},
                                   {"url", MemberKind::kText},
                                   {"start", MemberKind::kFlag},
                                   {"popup", MemberKind::kFlag}};
constexpr MemberInfo kCall[] = {{"object", MemberKind::kText, kRequired},
                                {"member", MemberKind::kText, kRequired},
                                {"args", MemberKind::kArray},
                                {"equals", MemberKind::kValue},
                                kTimeout,
                                {"as", MemberKind::kText},
                                kResult};
constexpr MemberInfo kClick[] = {{"x", MemberKind::kNumber, kRequired},
                                 {"y", MemberKind::kNumber, kRequired},
                                 {"button", MemberKind::kText},
                                 kBrowserMember};
constexpr MemberInfo kClose[] = {kBrowserMember};
constexpr MemberInfo kCreate[] = {{"class", MemberKind::kText, kRequired},
                                  {"as", MemberKind::kText, kRequired}};
constexpr MemberInfo kGet[] = {{"object", MemberKind::kText, kRequired},
                               {"property", MemberKind::kText, kRequired},
                               {"equals", MemberKind::kValue},
                               kTimeout,
                               kResult};
constexpr MemberInfo kHas = {"has", MemberKind::kTexts};
constexpr MemberInfo kGetAllCookies[] = {{"equals", MemberKind::kValue}, kHas, kTimeout, kResult};
constexpr MemberInfo kGetCookies[] = {{"url", MemberKind::kText, kRequired},
                                      {"equals", MemberKind::kValue},
                                      kHas,
                                      kTimeout,
                                      kResult};
constexpr MemberInfo kGone[] = {kBrowserMember, kTimeout};
constexpr MemberInfo kInit[] = {{"settings", MemberKind::kObject},
                                {"switches", MemberKind::kObject},
                                {"hresult", MemberKind::kInteger}};
constexpr MemberInfo kLoad[] = {{"url", MemberKind::kText, kRequired}, kBrowserMember, kResult};
constexpr MemberInfo kMark[] = {kBrowserMember};
constexpr MemberInfo kPixel[] = {{"x", MemberKind::kNumber, kRequired},
                                 {"y", MemberKind::kNumber, kRequired},
                                 {"colour", MemberKind::kColour, kRequired},
                                 {"tolerance", MemberKind::kNumber},
                                 kTimeout,
                                 kBrowserMember};
constexpr MemberInfo kPut[] = {{"object", MemberKind::kText, kRequired},
                               {"property", MemberKind::kText, kRequired},
                               {"value", MemberKind::kValue, kRequired},
                               kResult};
constexpr MemberInfo kRefresh[] = {{"ignoreCache", MemberKind::kFlag}, kBrowserMember, kResult};
constexpr MemberInfo kResize[] = {{"width", MemberKind::kNumber, kRequired},
                                  {"height", MemberKind::kNumber, kRequired},
                                  kBrowserMember};
constexpr MemberInfo kScreenshot[] = {{"file", MemberKind::kText, kRequired},
                                      {"area", MemberKind::kText},
                                      kBrowserMember};
constexpr MemberInfo kScript[] = {{"code", MemberKind::kText, kRequired}, kBrowserMember, kResult};
constexpr MemberInfo kSetCookies[] = {{"url", MemberKind::kText, kRequired},
                                      {"cookies", MemberKind::kArray, kRequired},
                                      {"equals", MemberKind::kFlag},
                                      kResult};
constexpr MemberInfo kStart[] = {kBrowserMember, kResult};
constexpr MemberInfo kType[] = {{"text", MemberKind::kText, kRequired}, kBrowserMember};
constexpr MemberInfo kWait[] = {{"notification", MemberKind::kText, kRequired},
                                {"where", MemberKind::kObject},
                                kTimeout,
                                kBrowserMember};
constexpr MemberInfo kWaitFile[] = {{"path", MemberKind::kText, kRequired}, kTimeout};

constexpr StepInfo kSteps[] = {
    {"answer", Verb::kAnswer, kAnswer},
    {"browser", Verb::kBrowser, kBrowser},
    {"call", Verb::kCall, kCall},
    {"click", Verb::kClick, kClick},
    {"close", Verb::kClose, kClose},
    {"create", Verb::kCreate, kCreate},
    {"get", Verb::kGet, kGet},
    {"getAllCookies", Verb::kGetAllCookies, kGetAllCookies},
    {"getCookies", Verb::kGetCookies, kGetCookies},
    {"getCookiesSync", Verb::kGetCookiesSync, kGetCookies},
    {"gone", Verb::kGone, kGone},
    {"init", Verb::kInit, kInit},
    {"load", Verb::kLoad, kLoad},
    {"mark", Verb::kMark, kMark},
    {"pixel", Verb::kPixel, kPixel},
    {"put", Verb::kPut, kPut},
    {"quit", Verb::kQuit, {}},
    {"refresh", Verb::kRefresh, kRefresh},
    {"resize", Verb::kResize, kResize},
    {"screenshot", Verb::kScreenshot, kScreenshot},
    {"script", Verb::kScript, kScript},
    {"setCookies", Verb::kSetCookies, kSetCookies},
    {"start", Verb::kStart, kStart},
    {"type", Verb::kType, kType},
    {"wait", Verb::kWait, kWait},
    {"waitFile", Verb::kWaitFile, kWaitFile},
};

}  // namespace

const MemberInfo* StepInfo::Find(std::string_view member) const {
  const auto found = std::ranges::find(members, member, &MemberInfo::name);
  return found == members.end() ? nullptr : &*found;
}

const StepInfo* FindStep(std::string_view name) {
  const auto* found = std::ranges::find(kSteps, name, &StepInfo::name);
  return found == std::end(kSteps) ? nullptr : found;
}

std::string_view Describe(MemberKind kind) {
  switch (kind) {
    case MemberKind::kText:
      return "a text";
    case MemberKind::kFlag:
      return "true or false";
    case MemberKind::kNumber:
      return "a whole number from 0 to 2147483647";
    case MemberKind::kInteger:
      return "a whole number";
    case MemberKind::kObject:
      return "an object";
    case MemberKind::kArray:
      return "an array";
    case MemberKind::kTexts:
      return "an array of texts";
    case MemberKind::kColour:
      return "a colour like \"#1a2b3c\"";
    case MemberKind::kValue:
      return "a text, flag, number, null or array";
  }
  return "";
}

}  // namespace kzhost
