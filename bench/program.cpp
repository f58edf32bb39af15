#include "program.h"

#include <windows.h>

namespace kzbench {

std::wstring ProgramPath() {
  std::wstring path(32'768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

std::wstring BesideThisProgram(const std::wstring& name) {
  const std::wstring program = ProgramPath();
  return program.substr(0, program.find_last_of(L'\\') + 1) + name;
}

}  // namespace kzbench
