// The text of one page console message in the console log.
#pragma once

#include <string>
#include <string_view>

namespace kzcef {

// Returns five lines ending in CR LF: level, message, source, line number and a rule. `level` is
// CEF's log severity; after one without a name (neither debug, info, warning nor error) the first
// line does not end, so that "Message: " follows on it. Texts are UTF-8 and are taken as they are.
std::string ConsoleRecord(int level, std::string_view message, std::string_view source, int line);

}  // namespace kzcef
