#include "devtools/unix_host.h"

#include <windows.h>

#include <memory>

namespace cefedition {
namespace {

using GetUnixName = char*(CDECL*)(LPCWSTR);
using GetDosName = WCHAR*(CDECL*)(LPCSTR);

// Both functions hand out memory of the process heap.
struct ProcessHeapFree {
  void operator()(void* memory) const { HeapFree(GetProcessHeap(), 0, memory); }
};

template <typename Function>
Function FindInKernel32(const char* name) {
  return reinterpret_cast<Function>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name));
}

}  // namespace

bool IsUnixHost() {
  return FindInKernel32<GetUnixName>("wine_get_unix_file_name") != nullptr;
}

std::string ToUnixPath(const std::wstring& windows_path) {
  const auto convert = FindInKernel32<GetUnixName>("wine_get_unix_file_name");
  if (!convert) {
    return {};
  }
  const std::unique_ptr<char, ProcessHeapFree> path(convert(windows_path.c_str()));
  return path ? std::string(path.get()) : std::string();
}

std::wstring ToWindowsPath(const std::string& unix_path) {
  const auto convert = FindInKernel32<GetDosName>("wine_get_dos_file_name");
  if (!convert) {
    return {};
  }
  const std::unique_ptr<WCHAR, ProcessHeapFree> path(convert(unix_path.c_str()));
  return path ? std::wstring(path.get()) : std::wstring();
}

}  // namespace cefedition
