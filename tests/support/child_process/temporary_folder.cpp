// Makes the folder below the system's folder for temporary files,
// under a name that no other test uses.

#include "temporary_folder.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "utils/kzcefwrapperutils.h"

namespace kzcef {

TemporaryFolder::TemporaryFolder() {
  static int number = 0;
  const std::wstring name = L"kzcef-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                            std::to_wstring(GetTickCount64()) + L"-" + std::to_wstring(number++);
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / name;
  std::filesystem::create_directory(folder);
  path_ = WideToUtf8(folder.wstring());
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(wide_path(), ignored);
}

std::wstring TemporaryFolder::wide_path() const {
  return Utf8ToWide(path_);
}

std::string ContentOf(const std::string& path) {
  return ReadTextFile(path).value_or(std::string());
}

void SetContent(const std::string& path, const std::string& content) {
  std::ofstream file(std::filesystem::path(Utf8ToWide(path)), std::ios::binary);
  file << content;
}

}  // namespace kzcef
