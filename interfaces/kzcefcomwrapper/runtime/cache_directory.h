// Choosing the directory of the engine's cache and keeping other processes out of it.
#pragma once

#include <string>

namespace kzcef {

// Takes the first cache directory that no other process holds, creates it where it does not exist
// and locks it for this process. The search begins at `configured` (UTF-8) or, when that is empty,
// in the folder for temporary files. Returns false when every candidate is held, or there is
// nowhere to begin.
// Called once, by start-up, on the host's thread.
// Throws std::filesystem::filesystem_error ("remove") when a stale lock cannot be deleted, and
// std::invalid_argument or std::out_of_range for a lock file that is not one.
bool ChooseCacheDirectory(const std::string& configured);

// Returns the directory taken (UTF-8); empty as long as none was taken.
const std::string& ChosenCacheDirectory();

// Deletes the lock of the chosen directory. Returns false when there is no such directory or the
// file could not be deleted.
bool ReleaseCacheLock();

}  // namespace kzcef
