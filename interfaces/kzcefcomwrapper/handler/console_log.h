// The file that collects the console messages of pages.
#pragma once

#include <string>

namespace kzcef {

// Returns whether the environment variable "KZCefConsoleLog" was 1 at the first call in this
// process; later changes have no effect. Any thread.
bool IsConsoleLogOn();

// Appends `record` to the file `path` (relative to the current directory) in text mode, so each LF
// of the record, also one after a CR, becomes CR LF in the file. Returns false, without a report,
// when the file cannot be opened.
bool AppendToConsoleLog(const std::string& path, const std::string& record);

}  // namespace kzcef
