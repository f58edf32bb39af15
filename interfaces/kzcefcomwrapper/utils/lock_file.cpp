// Writes, reads and deletes lock files so that of several processes that
// want the same directory exactly one gets it.

#include "utils/lock_file.h"

#include <windows.h>

#include <filesystem>
#include <system_error>

#include "utils/handles.h"
#include "utils/kzcefwrapperutils.h"
#include "utils/path_text.h"

namespace kzcef {
namespace {

[[noreturn]] void ThrowRemoveError(const std::wstring& path, DWORD error) {
  throw std::filesystem::filesystem_error(
      "remove", path, std::error_code(static_cast<int>(error), std::system_category()));
}

bool Delete(HANDLE file) {
  FILE_DISPOSITION_INFO disposition = {};
  disposition.DeleteFile = TRUE;
  return SetFileInformationByHandle(file, FileDispositionInfo, &disposition, sizeof disposition) !=
         FALSE;
}

// Whether a file that another process deleted only waits for its last handle to be closed.
bool IsDeletePending(HANDLE file) {
  FILE_STANDARD_INFO info = {};
  return GetFileInformationByHandleEx(file, FileStandardInfo, &info, sizeof info) &&
         info.DeletePending;
}

}  // namespace

bool WriteLockFile(const std::string& path) {
  const DWORD process_id = GetCurrentPid();
  return WriteNewFile(
      path, FormatLockRecord(process_id, GetProcessImagePath(process_id).value_or(std::string())));
}

std::optional<LockRecord> ReadLockFile(const std::string& path) {
  const UniqueHandle file = OpenExistingFile(Utf8ToWide(path), GENERIC_READ);
  if (!file) {
    return GetLastError() == ERROR_SHARING_VIOLATION ? std::nullopt : std::optional(LockRecord());
  }
  return ParseLockRecord(ReadText(file.get()).value_or(std::string()));
}

bool IsOwnLock(const LockRecord& record) {
  return static_cast<DWORD>(record.process_id) == GetCurrentPid() &&
         record.program == DoubleSeparators(GetExecutablePath());
}

bool IsLockHolderAlive(const LockRecord& record) {
  const std::optional<std::string> path =
      GetProcessImagePath(static_cast<DWORD>(record.process_id));
  return path && record.program == DoubleSeparators(*path);
}

bool RemoveStaleLock(const std::string& path, const LockRecord& stale) {
  const std::wstring wide_path = Utf8ToWide(path);
  // Read and deleted through one handle, so that what is deleted is what was found stale and never
  // the new lock of a process that replaced it in between.
  const UniqueHandle file = OpenExistingFile(wide_path, GENERIC_READ | DELETE);
  if (!file) {
    const DWORD error = GetLastError();
    // A file on its way out cannot be opened at all; one that is merely protected still shows its
    // attributes.
    const bool is_gone =
        error == ERROR_FILE_NOT_FOUND ||
        (error == ERROR_ACCESS_DENIED && !OpenExistingFile(wide_path, FILE_READ_ATTRIBUTES));
    // A process that was faster shares its new lock with nobody while it writes it.
    const bool is_replaced =
        error == ERROR_SHARING_VIOLATION &&
        (!OpenExistingFile(wide_path, GENERIC_READ) || ReadLockFile(path) != std::optional(stale));
    if (is_gone || is_replaced) {
      return false;
    }
    ThrowRemoveError(wide_path, error);
  }
  const std::optional<std::string> text = ReadText(file.get());
  if (!text || ParseLockRecord(*text) != stale) {
    return false;
  }
  if (Delete(file.get())) {
    return true;
  }
  const DWORD error = GetLastError();
  if (IsDeletePending(file.get())) {
    return false;
  }
  ThrowRemoveError(wide_path, error);
}

}  // namespace kzcef
