// Whether Wine still lacks what the layer supplies. A test that fails here says that a newer Wine
// has closed a gap: what its message names can go.
#include <windows.h>

#include <gtest/gtest.h>
#include <shobjidl.h>
#include <wrl/client.h>

#include <ostream>
#include <string>

namespace {

using Microsoft::WRL::ComPtr;

struct Export {
  const wchar_t* module;
  const char* name;
  const char* file;
};

void PrintTo(const Export& tested, std::ostream* stream) {
  *stream << tested.name << " of wine/" << tested.file;
}

class MissingExport : public testing::TestWithParam<Export> {};

TEST_P(MissingExport, IsStillMissing) {
  const HMODULE module = LoadLibraryW(GetParam().module);
  ASSERT_NE(module, nullptr);
  EXPECT_EQ(GetProcAddress(module, GetParam().name), nullptr)
      << "Wine has " << GetParam().name << " now: it can leave wine/" << GetParam().file;
}

INSTANTIATE_TEST_SUITE_P(
    Wine,
    MissingExport,
    testing::Values(Export{L"kernelbase.dll", "DiscardVirtualMemory", "memory.cpp"},
                    Export{L"kernelbase.dll", "QueryUnbiasedInterruptTimePrecise",
                           "precise_time.cpp"},
                    Export{L"kernel32.dll", "GetProcessInformation", "process_information.cpp"},
                    Export{L"kernel32.dll", "GetFirmwareType", "process_information.cpp"},
                    Export{L"userenv.dll", "DeriveAppContainerSidFromAppContainerName",
                           "process_information.cpp"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(Gap, CyclesOfAProcessAreStillUnknown) {
  ULONG64 cycles = 0;
  EXPECT_FALSE(QueryProcessCycleTime(GetCurrentProcess(), &cycles))
      << "wine/process_times.cpp can go";
}

// From the Windows documentation; MinGW's headers lack them.
constexpr DWORD kReservePlaceholder = 0x40000;
constexpr DWORD kPreservePlaceholder = 0x2;

TEST(Gap, ReservedMemoryStillHasNoPlaceholders) {
  using VirtualAlloc2Function =
      PVOID WINAPI(HANDLE, PVOID, SIZE_T, ULONG, ULONG, MEM_EXTENDED_PARAMETER*, ULONG);
  const auto virtual_alloc = reinterpret_cast<VirtualAlloc2Function*>(
      GetProcAddress(GetModuleHandleW(L"kernelbase.dll"), "VirtualAlloc2"));
  if (!virtual_alloc) {
    return;  // What the engine is told.
  }
  constexpr SIZE_T kHalf = 0x10000;
  PVOID memory = virtual_alloc(nullptr, nullptr, 2 * kHalf, MEM_RESERVE | kReservePlaceholder,
                               PAGE_NOACCESS, nullptr, 0);
  // Only a placeholder can be split.
  EXPECT_FALSE(memory && VirtualFree(memory, kHalf, MEM_RELEASE | kPreservePlaceholder))
      << "VirtualAlloc2, MapViewOfFile3 and UnmapViewOfFile2 can leave "
         "wine/supplied_functions.cpp";
}

TEST(Gap, FilesAreStillNotMovedByTheShell) {
  ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
  {
    ComPtr<IFileOperation> operation;
    if (SUCCEEDED(
            CoCreateInstance(CLSID_FileOperation, nullptr, CLSCTX_ALL, IID_PPV_ARGS(&operation)))) {
      EXPECT_EQ(operation->PerformOperations(), E_NOTIMPL) << "wine/file_operation.cpp can go";
    }
  }
  CoUninitialize();
}

}  // namespace
