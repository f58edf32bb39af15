#include "devtools/download_files.h"

#include <windows.h>

#include <cwchar>
#include <filesystem>
#include <vector>

#include "devtools/text.h"
#include "devtools/win_handle.h"

namespace cefedition {
namespace {

namespace fs = std::filesystem;

constexpr wchar_t kFolderName[] = L"EditionDownloads";
constexpr wchar_t kUnfinished[] = L".crdownload";
constexpr size_t kCopySize = size_t{1} << 20;

// Whether a process of this id runs. One that may not be looked at does.
bool IsRunning(DWORD process_id) {
  const UniqueHandle process(OpenProcess(SYNCHRONIZE, FALSE, process_id));
  if (!process) {
    return GetLastError() != ERROR_INVALID_PARAMETER;
  }
  return WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT;
}

void RemoveLeftovers(const fs::path& folder) {
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    const DWORD owner = std::wcstoul(entry.path().filename().c_str(), nullptr, 10);
    if (owner != GetCurrentProcessId() && !IsRunning(owner)) {
      std::error_code ignored;
      fs::remove_all(entry.path(), ignored);
    }
  }
}

cef_download_interrupt_reason_t ReasonOf(DWORD error) {
  switch (error) {
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return CEF_DOWNLOAD_INTERRUPT_REASON_FILE_ACCESS_DENIED;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return CEF_DOWNLOAD_INTERRUPT_REASON_FILE_NO_SPACE;
    case ERROR_FILENAME_EXCED_RANGE:
      return CEF_DOWNLOAD_INTERRUPT_REASON_FILE_NAME_TOO_LONG;
    default:
      return CEF_DOWNLOAD_INTERRUPT_REASON_FILE_FAILED;
  }
}

UniqueHandle Open(const std::wstring& path, DWORD access, DWORD disposition) {
  const HANDLE handle = CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                    nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  return UniqueHandle(handle != INVALID_HANDLE_VALUE ? handle : nullptr);
}

cef_download_interrupt_reason_t Copy(const std::wstring& from,
                                     const std::wstring& to,
                                     const std::stop_token& stop) {
  const UniqueHandle source = Open(from, GENERIC_READ, OPEN_EXISTING);
  const UniqueHandle target = source ? Open(to, GENERIC_WRITE, CREATE_ALWAYS) : nullptr;
  if (!target) {
    return ReasonOf(GetLastError());
  }
  std::vector<char> buffer(kCopySize);
  for (;;) {
    DWORD count = 0;
    DWORD written = 0;
    if (stop.stop_requested()) {
      return CEF_DOWNLOAD_INTERRUPT_REASON_USER_CANCELED;
    }
    if (!ReadFile(source.get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count,
                  nullptr)) {
      return ReasonOf(GetLastError());
    }
    if (count == 0) {
      return CEF_DOWNLOAD_INTERRUPT_REASON_NONE;
    }
    if (!WriteFile(target.get(), buffer.data(), count, &written, nullptr) || written != count) {
      return ReasonOf(GetLastError());
    }
  }
}

cef_download_interrupt_reason_t Rename(const std::wstring& from, const std::wstring& to) {
  return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING)
             ? CEF_DOWNLOAD_INTERRUPT_REASON_NONE
             : ReasonOf(GetLastError());
}

cef_download_interrupt_reason_t CopyAndRename(const std::wstring& from,
                                              const std::wstring& to,
                                              const std::stop_token& stop) {
  const std::wstring unfinished = to + kUnfinished;
  cef_download_interrupt_reason_t reason = Copy(from, unfinished, stop);
  if (reason == CEF_DOWNLOAD_INTERRUPT_REASON_NONE) {
    reason = Rename(unfinished, to);
  }
  if (reason != CEF_DOWNLOAD_INTERRUPT_REASON_NONE) {
    DeleteFileW(unfinished.c_str());
  }
  return reason;
}

}  // namespace

std::shared_ptr<DownloadFolder> DownloadFolder::Create(const std::wstring& profile) {
  const fs::path all = fs::path(profile) / kFolderName;
  RemoveLeftovers(all);
  // The tick count tells two runs of one process apart.
  const fs::path own =
      all / (std::to_wstring(GetCurrentProcessId()) + L"_" + std::to_wstring(GetTickCount64()));
  std::error_code error;
  fs::create_directories(own, error);
  return fs::is_directory(own, error) ? std::make_shared<DownloadFolder>(own.wstring()) : nullptr;
}

DownloadFolder::~DownloadFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
  // Goes only if no other process has its own in it.
  fs::remove(fs::path(path_).parent_path(), ignored);
}

std::wstring DownloadFolder::FileOf(const std::string& guid) const {
  return path_ + L"\\" + Utf8ToWide(guid);
}

void DownloadFolder::Remove(const std::string& guid) const {
  DeleteFileW(FileOf(guid).c_str());
  DeleteFileW((FileOf(guid) + kUnfinished).c_str());
}

std::wstring DownloadTarget(const std::wstring& wished, const std::wstring& suggested_name) {
  std::error_code error;
  if (!wished.empty()) {
    const fs::path path = fs::absolute(wished, error);
    if (!error) {
      fs::create_directories(path.parent_path(), error);
      if (fs::is_directory(path.parent_path(), error)) {
        return path.wstring();
      }
    }
  }
  return (fs::temp_directory_path(error) / suggested_name).wstring();
}

cef_download_interrupt_reason_t MoveIntoPlace(const std::wstring& from,
                                              const std::wstring& to,
                                              const std::stop_token& stop) {
  cef_download_interrupt_reason_t reason = CEF_DOWNLOAD_INTERRUPT_REASON_NONE;
  if (!MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING)) {
    const DWORD error = GetLastError();
    reason = error == ERROR_NOT_SAME_DEVICE ? CopyAndRename(from, to, stop) : ReasonOf(error);
    DeleteFileW(from.c_str());
  }
  return reason;
}

}  // namespace cefedition
