#include "devtools/profile_folder.h"

#include <windows.h>

#include <filesystem>

#include "devtools/text.h"

namespace cefedition {

bool PrepareProfileFolder(const CefSettings& settings,
                          std::wstring& path,
                          bool& is_temporary,
                          std::string& error) {
  namespace fs = std::filesystem;
  std::error_code failure;
  is_temporary = settings.cache_path.length == 0;
  fs::path folder;
  if (is_temporary) {
    // The tick count tells two starts of one process apart.
    folder = fs::temp_directory_path(failure) /
             (L"cef_profile_" + std::to_wstring(GetCurrentProcessId()) + L"_" +
              std::to_wstring(GetTickCount64()));
  } else {
    folder = fs::absolute(CefString(&settings.cache_path).ToWString(), failure);
  }
  if (!failure) {
    fs::create_directories(folder, failure);
  }
  if (failure || !fs::is_directory(folder, failure)) {
    error = "the cache folder \"" + WideToUtf8(folder.wstring()) +
            "\" cannot be created: " + failure.message();
    return false;
  }
  path = folder.wstring();
  return true;
}

void RemoveProfileFolder(const std::wstring& path) {
  std::error_code ignored;
  std::filesystem::remove_all(path, ignored);
}

}  // namespace cefedition
