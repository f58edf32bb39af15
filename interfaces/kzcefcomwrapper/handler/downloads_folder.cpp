// Asks the shell for the folder through a pointer, so that tests can take the shell's place.

#include "handler/downloads_folder.h"

#include <knownfolders.h>

#include <atomic>
#include <memory>

namespace kzcef {
namespace {

std::atomic<GetKnownFolderPathFunction> g_get_known_folder_path = &SHGetKnownFolderPath;

struct TaskMemoryFree {
  void operator()(wchar_t* memory) const noexcept { CoTaskMemFree(memory); }
};

}  // namespace

std::wstring DownloadsFolder() {
  const GetKnownFolderPathFunction get_known_folder_path = g_get_known_folder_path;
  wchar_t* path = nullptr;
  const HRESULT result =
      get_known_folder_path(FOLDERID_Downloads, KF_FLAG_DEFAULT, /*hToken=*/nullptr, &path);
  // To be freed after a failure as well.
  const std::unique_ptr<wchar_t, TaskMemoryFree> owned(path);
  return SUCCEEDED(result) && path ? std::wstring(path) : std::wstring();
}

void ReplaceGetKnownFolderPath(GetKnownFolderPathFunction function) {
  g_get_known_folder_path = function ? function : &SHGetKnownFolderPath;
}

}  // namespace kzcef
