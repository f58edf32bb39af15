// Replaced imports, tried on this program's own import table.
#include "import_table.h"

#include <gtest/gtest.h>

#include <cstring>

namespace kz::wine {
namespace {

DWORD WINAPI Zero() {
  return 0;
}

DWORD WINAPI FortyTwo() {
  return 42;
}

FARPROC ReplaceProcessId(const char* name) {
  return std::strcmp(name, "GetCurrentProcessId") == 0 ? reinterpret_cast<FARPROC>(&FortyTwo)
                                                       : nullptr;
}

FARPROC ReplaceNothing(const char*) {
  return nullptr;
}

FARPROC ReplaceUnknown(const char* name) {
  return std::strcmp(name, "NoSuchFunction") == 0 ? reinterpret_cast<FARPROC>(&Zero) : nullptr;
}

// Each call reads the import's slot anew, which a caller that calls twice need not.
[[gnu::noinline]] DWORD ImportedProcessId() {
  return GetCurrentProcessId();
}

HMODULE ThisProgram() {
  return GetModuleHandleW(nullptr);
}

TEST(ImportTable, ACallThroughAReplacedImportReachesTheReplacement) {
  const DWORD thread = GetCurrentThreadId();
  ASSERT_NE(ImportedProcessId(), 42u);
  EXPECT_EQ(ReplaceImports(ThisProgram(), &ReplaceProcessId), 1);
  EXPECT_EQ(ImportedProcessId(), 42u);
  EXPECT_EQ(GetCurrentThreadId(), thread);
}

TEST(ImportTable, ReplacingOnceMoreChangesNothing) {
  ReplaceImports(ThisProgram(), &ReplaceProcessId);
  EXPECT_EQ(ReplaceImports(ThisProgram(), &ReplaceProcessId), 1);
  EXPECT_EQ(ImportedProcessId(), 42u);
}

TEST(ImportTable, OnlyTheModuleItselfIsChanged) {
  const auto exported = reinterpret_cast<DWORD(WINAPI*)()>(
      GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetCurrentProcessId"));
  ReplaceImports(ThisProgram(), &ReplaceProcessId);
  EXPECT_NE(exported(), 42u);
}

TEST(ImportTable, NothingIsWrittenWithoutAReplacement) {
  EXPECT_EQ(ReplaceImports(ThisProgram(), &ReplaceNothing), 0);
  EXPECT_EQ(ReplaceImports(ThisProgram(), &ReplaceUnknown), 0);
}

// This program's slots, which the engine's linker has in read-only memory and MinGW's has not.
void* Slots() {
  auto* base = reinterpret_cast<BYTE*>(ThisProgram());
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(
      base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
  return base + headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IAT].VirtualAddress;
}

TEST(ImportTable, SlotsInReadOnlyMemoryAreReplacedAndStayProtected) {
  DWORD before = 0;
  ASSERT_TRUE(VirtualProtect(Slots(), 1, PAGE_READONLY, &before));
  EXPECT_EQ(ReplaceImports(ThisProgram(), &ReplaceProcessId), 1);
  EXPECT_EQ(ImportedProcessId(), 42u);
  MEMORY_BASIC_INFORMATION memory = {};
  VirtualQuery(Slots(), &memory, sizeof(memory));
  EXPECT_EQ(memory.Protect, DWORD{PAGE_READONLY});
}

TEST(ImportTable, AModuleWithoutImportsIsLeftAlone) {
  EXPECT_EQ(ReplaceImports(GetModuleHandleW(L"ntdll.dll"), &ReplaceNothing), 0);
}

}  // namespace
}  // namespace kz::wine
