// Choosing the directory of the engine's cache and keeping other processes out of it.
#pragma once

#include <string>

namespace kzcef {

// Takes the first cache directory that no other process holds, makes it where it does not exist and
// locks it for this process. `configured` is where to begin (UTF-8); when it is empty, the folder
// for temporary files is. False when every candidate is held, or there is nowhere to begin.
// Called once, by start-up, on the host's thread.
// Throws std::filesystem::filesystem_error ("remove") when a stale lock cannot be deleted, and
// std::invalid_argument or std::out_of_range for a lock file that is not one.
bool ChooseCacheDirectory(const std::string& configured);

// The directory taken (UTF-8); empty as long as none was.
const std::string& ChosenCacheDirectory();

// Deletes the lock of the chosen directory. False when there is no such directory or the file could
// not be deleted.
bool ReleaseCacheLock();

}  // namespace kzcef
