// The import table as the PE format lays it out: one descriptor a DLL, each with two parallel lists
// that end with a zero entry, the names and the slots.
#include "import_table.h"

namespace kz::wine {
namespace {

template <typename T>
T* At(HMODULE module, DWORD offset) {
  return reinterpret_cast<T*>(reinterpret_cast<BYTE*>(module) + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* FirstDescriptor(HMODULE module) {
  const auto* dos = At<const IMAGE_DOS_HEADER>(module, 0);
  const auto* headers = At<const IMAGE_NT_HEADERS>(module, static_cast<DWORD>(dos->e_lfanew));
  const IMAGE_DATA_DIRECTORY& imports =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  return imports.VirtualAddress == 0
             ? nullptr
             : At<const IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
}

// The loader write-protects the slots once they are filled. Another thread may be calling through
// the slot: it sees the old address or the new one, nothing between.
bool WriteSlot(ULONGLONG* slot, FARPROC function) {
  DWORD protection = 0;
  if (!VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection)) {
    return false;
  }
  InterlockedExchange64(reinterpret_cast<LONG64*>(slot), reinterpret_cast<LONG64>(function));
  VirtualProtect(slot, sizeof(*slot), protection, &protection);
  return true;
}

}  // namespace

int ReplaceImports(HMODULE module, ReplacementLookup lookup) {
  int written = 0;
  const IMAGE_IMPORT_DESCRIPTOR* descriptor = FirstDescriptor(module);
  for (; descriptor && descriptor->Name != 0; ++descriptor) {
    if (descriptor->OriginalFirstThunk == 0) {
      continue;  // The names are gone: the loader has overwritten them with the addresses.
    }
    const auto* name = At<const IMAGE_THUNK_DATA>(module, descriptor->OriginalFirstThunk);
    auto* slot = At<IMAGE_THUNK_DATA>(module, descriptor->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) {
        continue;
      }
      const auto* by_name =
          At<const IMAGE_IMPORT_BY_NAME>(module, static_cast<DWORD>(name->u1.AddressOfData));
      const FARPROC function = lookup(reinterpret_cast<const char*>(by_name->Name));
      if (function && WriteSlot(&slot->u1.Function, function)) {
        ++written;
      }
    }
  }
  return written;
}

}  // namespace kz::wine
