// The file by which one process claims a cache directory. A lock file is created only where there
// is none, which is what keeps two processes apart; inside the process nothing is locked.
// Paths are UTF-8. Any thread.
#pragma once

#include <optional>
#include <string>

#include "utils/lock_record.h"

namespace kzcef {

// Writes a lock file that names this process. Returns false when there is one already, or on any
// failure of WriteNewFile.
bool WriteLockFile(const std::string& path);

// Returns what the lock file says; nothing while its writer still holds it open. A file that cannot
// be read for another reason names nobody. Throws what ParseLockRecord throws.
std::optional<LockRecord> ReadLockFile(const std::string& path);

// Returns whether the record names this process. The path of its program is compared in the ANSI
// code page although lock files are written in UTF-8, so a process whose path has characters
// outside ASCII does not recognise its own lock.
bool IsOwnLock(const LockRecord& record);

// Returns whether the recorded process runs the recorded program; false once another program has
// taken over the process identifier.
bool IsLockHolderAlive(const LockRecord& record);

// Deletes a lock file whose holder is gone. Returns false when the file is gone already or no
// longer says what `stale` says: then another process was faster, and the lock is left to it.
// Throws std::filesystem::filesystem_error ("remove") when the file cannot be deleted, and what
// ParseLockRecord throws.
bool RemoveStaleLock(const std::string& path, const LockRecord& stale);

}  // namespace kzcef
