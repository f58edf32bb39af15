// One notification as the host received it, and its two written forms.
#pragma once

#include <cstdint>
#include <string>

#include "portable/json.h"

namespace kzhost {

struct Notification {
  std::uint64_t sequence = 0;       // 1 for the first one of the process
  std::string browser;              // the host's name of the browser that it is about
  std::string name;                 // the member of the handler interface
  Json arguments = Json::object();  // as they arrived, by parameter name
  Json answered = Json::object();   // what the handler wrote into in/out arguments
  std::int64_t owner_window = 0;    // the last SetOwnerWndHandle before it
  unsigned long thread = 0;         // the thread that it arrived on
};

// Returns one JSON object without line end: "seq", "browser", "notification", the arguments by
// name, "answered" when something was, "window", "thread". Text that is not valid UTF-8 is replaced
// character by character, never refused.
std::string ToJsonLine(const Notification& notification);

// Returns one line for people: "b1 LoadEndNotify httpStatus=200".
std::string ToPlainLine(const Notification& notification);

// Returns `value` on one line, with what is not valid UTF-8 replaced.
std::string Dump(const Json& value);

}  // namespace kzhost
