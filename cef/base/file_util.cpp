#include "include/cef_file_util.h"

#include <windows.h>

#include <bcrypt.h>

#include <filesystem>
#include <system_error>

// Nothing here throws: std::filesystem is asked through error codes, except for conversions of
// texts, which can only fail for want of memory.

namespace {

namespace fs = std::filesystem;

fs::path PathOf(const CefString& text) {
  return fs::path(text.ToWString());
}

// A folder of a new random name. Somebody else's folder of that name makes it try again.
bool CreateUniqueFolder(const fs::path& parent, const std::wstring& prefix, CefString* created) {
  constexpr int kAttempts = 50;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    unsigned long long number = 0;
    if (BCryptGenRandom(nullptr, reinterpret_cast<PUCHAR>(&number), sizeof(number),
                        BCRYPT_USE_SYSTEM_PREFERRED_RNG) != 0) {
      return false;
    }
    const fs::path folder = parent / (prefix + std::to_wstring(number));
    std::error_code error;
    if (fs::create_directory(folder, error)) {
      *created = folder.wstring();
      return true;
    }
    if (error) {
      return false;
    }
  }
  return false;
}

}  // namespace

bool CefCreateDirectory(const CefString& full_path) {
  if (full_path.empty()) {
    return false;
  }
  std::error_code error;
  fs::create_directories(PathOf(full_path), error);
  return CefDirectoryExists(full_path);
}

bool CefGetTempDirectory(CefString& temp_dir) {
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  if (error) {
    return false;
  }
  temp_dir = folder.wstring();
  return true;
}

bool CefCreateNewTempDirectory(const CefString& prefix, CefString& new_temp_path) {
  CefString temp;
  return CefGetTempDirectory(temp) &&
         CefCreateTempDirectoryInDirectory(temp, prefix, new_temp_path);
}

bool CefCreateTempDirectoryInDirectory(const CefString& base_dir,
                                       const CefString& prefix,
                                       CefString& new_dir) {
  return !base_dir.empty() && CreateUniqueFolder(PathOf(base_dir), prefix.ToWString(), &new_dir);
}

bool CefDirectoryExists(const CefString& path) {
  std::error_code error;
  return !path.empty() && fs::is_directory(PathOf(path), error);
}

// A folder that is not empty stays unless |recursive|. A read-only file is deleted like any other.
bool CefDeleteFile(const CefString& path, bool recursive) {
  if (path.empty()) {
    return false;
  }
  const fs::path target = PathOf(path);
  std::error_code error;
  const fs::file_status status = fs::symlink_status(target, error);
  if (status.type() == fs::file_type::not_found) {
    return true;
  }
  if (recursive) {
    fs::remove_all(target, error);
  } else {
    if (status.type() == fs::file_type::regular) {
      fs::permissions(target, fs::perms::owner_write, fs::perm_options::add, error);
    }
    error.clear();
    fs::remove(target, error);
  }
  return !error;
}
