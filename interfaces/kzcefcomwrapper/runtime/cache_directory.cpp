// Tries the candidates one after the other: a directory is taken when its lock file could be
// created, or is this process's own, or names a process that is gone.

#include "runtime/cache_directory.h"

#include <windows.h>

#include <optional>

#include "include/cef_file_util.h"
#include "utils/kzcefwrapperutils.h"
#include "utils/lock_file.h"
#include "utils/never_destroyed.h"
#include "utils/path_text.h"

namespace kzcef {
namespace {

constexpr char kLockFile[] = "\\cef.lock";

std::string& Chosen() {
  static const NeverDestroyed<std::string> directory;
  return *directory;
}

// Empty when the variable is not set.
std::wstring EnvironmentText(const wchar_t* name) {
  std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

// `path` with its short names spelled out; unchanged when it does not exist or is too long.
std::wstring LongForm(const std::wstring& path) {
  std::wstring long_path(MAX_PATH, L'\0');
  const DWORD length = GetLongPathNameW(path.c_str(), long_path.data(), MAX_PATH);
  if (length == 0 || length >= MAX_PATH) {
    return path;
  }
  long_path.resize(length);
  return long_path;
}

// In the code page of the thread, as hosts without UTF-8 have always named this folder.
std::string ToThreadCodePage(const std::wstring& text) {
  const int size = static_cast<int>(text.size());
  std::string narrow(static_cast<size_t>(WideCharToMultiByte(CP_THREAD_ACP, 0, text.data(), size,
                                                             nullptr, 0, nullptr, nullptr)),
                     '\0');
  WideCharToMultiByte(CP_THREAD_ACP, 0, text.data(), size, narrow.data(),
                      static_cast<int>(narrow.size()), nullptr, nullptr);
  return narrow;
}

// Empty when the environment names no folder for temporary files.
std::string TemporaryBase() {
  std::wstring folder = EnvironmentText(L"temp");
  if (folder.empty()) {
    folder = EnvironmentText(L"tmp");
  }
  return folder.empty() ? std::string() : CacheFolderBelow(ToThreadCodePage(LongForm(folder)));
}

// Whether that succeeded shows when the lock is written.
void MakeDirectory(const std::string& path) {
  if (!PathExists(path, true) && !CreateDirectoryW(Utf8ToWide(path).c_str(), nullptr)) {
    CefCreateDirectory(path);
  }
}

bool TakeDirectory(const std::string& directory) {
  MakeDirectory(directory);
  const std::string lock = directory + kLockFile;
  if (!PathExists(lock, false)) {
    return WriteLockFile(lock);
  }
  const std::optional<LockRecord> record = ReadLockFile(lock);
  if (!record) {
    // Its writer is still at it, so it is alive.
    return false;
  }
  if (IsOwnLock(*record)) {
    return true;
  }
  return !IsLockHolderAlive(*record) && RemoveStaleLock(lock, *record) && WriteLockFile(lock);
}

}  // namespace

bool ChooseCacheDirectory(const std::string& configured) {
  const std::string base = configured.empty() ? TemporaryBase() : configured;
  for (const std::string& candidate : CacheCandidates(base, GetExecutableStem())) {
    if (candidate.empty()) {
      return false;
    }
    if (TakeDirectory(candidate)) {
      Chosen() = candidate;
      return true;
    }
  }
  return false;
}

const std::string& ChosenCacheDirectory() {
  return Chosen();
}

bool ReleaseCacheLock() {
  return !Chosen().empty() && CefDeleteFile(Chosen() + kLockFile, false);
}

}  // namespace kzcef
