// Loads libcef.dll and checks that it is the one that this program was built for.

#include "library.h"

#include <atomic>
#include <cstring>
#include <iterator>
#include <span>
#include <vector>

#include "engine_pin.h"

namespace cefbinding {
namespace {

std::atomic_bool g_engine_has_ended = false;

// The folder of the module that this code is linked into, whichever program has loaded it.
std::filesystem::path OwnFolder() {
  HMODULE module = nullptr;
  if (!GetModuleHandleExW(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
          reinterpret_cast<const wchar_t*>(&OwnFolder), &module)) {
    return {};
  }
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return std::filesystem::path(path).parent_path();
    }
    path.resize(path.size() * 2);
  }
}

std::string Name(const std::filesystem::path& file) {
  const std::u8string name = file.u8string();
  return {name.begin(), name.end()};
}

std::string ReasonNotToUse(HMODULE module,
                           const std::filesystem::path& file,
                           const char* expected_hash) {
  const auto api_hash =
      reinterpret_cast<const char* (*)(int)>(GetProcAddress(module, "cef_api_hash"));
  if (!api_hash) {
    return Name(file) + " is not CEF's library: it lacks the function cef_api_hash";
  }
  // 0 asks for the hash of the platform's API.
  const char* const hash = api_hash(0);
  if (!hash || std::strcmp(hash, expected_hash) != 0) {
    return Name(file) + " has the API hash " + (hash ? hash : "(none)") + ", expected was " +
           expected_hash + ": it belongs to another version of CEF";
  }
  return {};
}

// Takes the functions `names` of `module` in this order. False when one is missing, which `missing`
// then names.
bool TakeFunctions(HMODULE module,
                   std::span<const char* const> names,
                   void* functions,
                   std::string& missing) {
  std::vector<FARPROC> addresses;
  for (const char* const name : names) {
    addresses.push_back(GetProcAddress(module, name));
    if (!addresses.back()) {
      missing = name;
      return false;
    }
  }
  std::memcpy(functions, addresses.data(), addresses.size() * sizeof(FARPROC));
  return true;
}

}  // namespace

Library LoadEngine(const std::filesystem::path& file, const char* expected_hash) {
  static constexpr const char* kLogNames[] = {"cef_get_min_log_level", "cef_get_vlog_level",
                                              "cef_log"};
  static_assert(sizeof(capi::Functions) == std::size(capi::kFunctionNames) * sizeof(FARPROC));
  static_assert(sizeof(LogFunctions) == std::size(kLogNames) * sizeof(FARPROC));

  Library library;
  // Its neighbours are looked for beside it, wherever the program itself stands.
  const HMODULE module = LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (!module) {
    library.refusal = Name(file) + " cannot be loaded: error " + std::to_string(GetLastError());
    return library;
  }
  library.refusal = ReasonNotToUse(module, file, expected_hash);
  if (!library.refusal.empty()) {
    return library;
  }
  std::string missing;
  Library complete;
  if (!TakeFunctions(module, capi::kFunctionNames, &complete.functions, missing) ||
      !TakeFunctions(module, kLogNames, &complete.log, missing)) {
    library.refusal =
        Name(file) + " lacks the function " + missing + ", though its API hash is " + expected_hash;
    return library;
  }
  return complete;
}

const Library& Engine() {
  // Never destroyed: objects of static lifetime may still let go of what the engine gave them.
  static const auto* const engine =
      new Library(LoadEngine(OwnFolder() / L"libcef.dll", kEngineApiHash));
  return *engine;
}

bool EngineHasEnded() {
  return g_engine_has_ended.load(std::memory_order_acquire);
}

void SetEngineHasEnded() {
  g_engine_has_ended.store(true, std::memory_order_release);
}

}  // namespace cefbinding
