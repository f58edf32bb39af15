// Thin wrappers of the system's functions for processes, paths and
// files, in the library's kinds of text.

#include "utils/kzcefwrapperutils.h"

#include <array>
#include <iostream>

#include "utils/file_messages.h"
#include "utils/handles.h"
#include "utils/path_text.h"

namespace kzcef {

std::wstring Utf8ToWide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(
      static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string WideToUtf8(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  std::string narrow(static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr,
                                                             0, nullptr, nullptr)),
                     '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), static_cast<int>(narrow.size()),
                      nullptr, nullptr);
  return narrow;
}

DWORD GetCurrentPid() {
  static const DWORD process_id = GetCurrentProcessId();
  return process_id;
}

std::optional<std::string> GetProcessImagePath(DWORD process_id) {
  const UniqueHandle process(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, process_id));
  if (!process) {
    return std::nullopt;
  }
  // An ended process can be opened for as long as anybody holds a handle of it.
  DWORD exit_code = STILL_ACTIVE;
  if (GetExitCodeProcess(process.get(), &exit_code) && exit_code != STILL_ACTIVE) {
    return std::nullopt;
  }
  std::array<wchar_t, MAX_PATH> buffer;
  DWORD length = static_cast<DWORD>(buffer.size());
  if (!QueryFullProcessImageNameW(process.get(), 0, buffer.data(), &length)) {
    return std::string();
  }
  return WideToUtf8({buffer.data(), length});
}

std::string GetExecutablePath() {
  std::array<char, MAX_PATH> buffer;
  return std::string(buffer.data(),
                     GetModuleFileNameA(nullptr, buffer.data(), static_cast<DWORD>(buffer.size())));
}

std::wstring GetExecutableFolder() {
  std::array<wchar_t, MAX_PATH> buffer;
  const DWORD length =
      GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
  return FolderOrDot(std::wstring_view(buffer.data(), length));
}

std::string GetExecutableStem() {
  return PathStem(GetExecutablePath());
}

std::wstring GetModulePath(HMODULE module) {
  // Longer than any path that the system has.
  std::wstring path(0x8000, L'\0');
  path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

bool PathExists(const std::string& path, bool want_directory) {
  const DWORD attributes = GetFileAttributesW(Utf8ToWide(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DEVICE) &&
         ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) == want_directory;
}

bool WriteNewFile(const std::string& path, std::string_view content) {
  const std::wstring wide_path = Utf8ToWide(path);
  if (wide_path.empty()) {
    return false;
  }
  const UniqueHandle file = FileHandle(CreateFileW(wide_path.c_str(), GENERIC_WRITE, 0, nullptr,
                                                   CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) {
    std::cerr << CreateFailedMessage(path) << std::endl;
    return false;
  }
  if (content.empty()) {
    return true;
  }
  DWORD written = 0;
  if (!WriteFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &written,
                 nullptr)) {
    std::cerr << WriteFailedMessage(path) << std::endl;
    return false;
  }
  if (written != content.size()) {
    std::cerr << ShortWriteMessage(content.size(), written) << std::endl;
    return false;
  }
  return true;
}

UniqueHandle OpenExistingFile(const std::wstring& path, DWORD access) {
  return FileHandle(CreateFileW(path.c_str(), access,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::optional<std::string> ReadTextFile(const std::string& path) {
  const UniqueHandle file = OpenExistingFile(Utf8ToWide(path), GENERIC_READ);
  return file ? ReadText(file.get()) : std::nullopt;
}

std::optional<std::string> ReadText(HANDLE file) {
  std::string text;
  std::array<char, 4096> buffer;
  for (DWORD read = 0;; text.append(buffer.data(), read)) {
    if (!ReadFile(file, buffer.data(), static_cast<DWORD>(buffer.size()), &read, nullptr)) {
      return std::nullopt;
    }
    if (read == 0) {
      return text;
    }
  }
}

}  // namespace kzcef
