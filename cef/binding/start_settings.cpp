// The settings of a start, so that the engine survives them as CEF 123 did.

#include "start_settings.h"

#include <windows.h>

#include <fstream>
#include <system_error>

namespace cefbinding {
namespace {

namespace fs = std::filesystem;

fs::path PathOf(cef_string_t& text) {
  return CefString(&text).ToWString();
}

void LeaveOut(StartSettings& start, cef_string_t& setting, const char* name, const char* reason) {
  start.remarks.push_back(std::string(name) + " is left out: " + CefString(&setting).ToString() +
                          reason);
  CefString(&setting).clear();
}

bool Exists(const fs::path& file) {
  std::error_code error;
  return fs::is_regular_file(file, error);
}

// Without a locale the engine ends the process (CHECK in chrome_main_delegate.cc), without
// resources it has no pages of its own. Relative paths are left out by the engine itself.
void CheckResources(StartSettings& start) {
  cef_string_t& resources = start.settings.resources_dir_path;
  if (const fs::path folder = PathOf(resources);
      folder.is_absolute() &&
      !(Exists(folder / "resources.pak") && Exists(folder / "chrome_100_percent.pak"))) {
    LeaveOut(start, resources, "resources_dir_path",
             " does not hold resources.pak and chrome_100_percent.pak");
  }
  cef_string_t& locales = start.settings.locales_dir_path;
  const std::wstring locale = CefString(&start.settings.locale).ToWString();
  if (const fs::path folder = PathOf(locales); folder.is_absolute() &&
                                               !Exists(folder / "en-US.pak") &&
                                               !Exists(folder / (locale + L".pak"))) {
    LeaveOut(start, locales, "locales_dir_path", " holds no locale");
  }
}

// Whether a profile can be made there. The engine ends the process where it cannot
// (InitializeBrowserRunner in ui_thread.cc).
bool IsWritable(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  const fs::path probe = folder / (L"cef_" + std::to_wstring(GetCurrentProcessId()) + L".writable");
  const HANDLE file = CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  CloseHandle(file);
  return true;
}

void CheckFolder(StartSettings& start, cef_string_t& setting, const char* name) {
  const fs::path folder = PathOf(setting);
  if (folder.empty()) {
    return;
  }
  if (!folder.is_absolute()) {
    LeaveOut(start, setting, name, " is not an absolute path");
  } else if (!IsWritable(folder)) {
    LeaveOut(start, setting, name, " cannot be written to");
  }
}

// A new folder below the user's one for temporary files; empty when there can be none.
fs::path TemporaryFolder() {
  std::error_code error;
  const fs::path base = fs::temp_directory_path(error);
  const std::wstring stem = L"cef_" + std::to_wstring(GetCurrentProcessId()) + L"_";
  for (ULONGLONG number = GetTickCount64(); !error; ++number) {
    fs::path folder = base / (stem + std::to_wstring(number));
    if (fs::create_directory(folder, error)) {
      return folder;
    }
  }
  return {};
}

// With CEF 123 a browser without a cache path kept everything in memory. The engine keeps a profile
// on disk in any case, in a folder that all programs with CEF share unless it is told another one.
void ChooseRoot(StartSettings& start) {
  CefSettings& settings = start.settings;
  CheckFolder(start, settings.cache_path, "cache_path");
  CheckFolder(start, settings.root_cache_path, "root_cache_path");
  if (CefString(&settings.cache_path).empty() && CefString(&settings.root_cache_path).empty()) {
    start.temporary_root = TemporaryFolder();
    CefString(&settings.root_cache_path).FromWString(start.temporary_root.wstring());
  }
}

// CEF 123's default, where the engine's is a file in the profile, and a path that is complete, for
// the engine takes no other.
void ChooseLogFile(CefSettings& settings) {
  if (const fs::path given = PathOf(settings.log_file); !given.empty()) {
    std::error_code error;
    const fs::path file = fs::absolute(given, error);
    CefString(&settings.log_file).FromWString(error ? given.wstring() : file.wstring());
    return;
  }
  std::wstring program(32'768, L'\0');
  program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
  const fs::path file = fs::path(program).parent_path() / L"debug.log";
  CefString(&settings.log_file).FromWString(file.wstring());
}

}  // namespace

StartSettings CheckedForStart(const CefSettings& settings) {
  StartSettings start;
  start.settings = settings;
  CheckResources(start);
  ChooseRoot(start);
  ChooseLogFile(start.settings);
  return start;
}

}  // namespace cefbinding
