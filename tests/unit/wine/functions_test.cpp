// The functions that the layer supplies, called directly.
#include <windows.h>

#include <gtest/gtest.h>

#include "get_proc_address.h"
#include "graphics_processor.h"
#include "memory.h"
#include "precise_time.h"
#include "process_information.h"
#include "process_times.h"
#include "supplied_functions.h"

namespace kz::wine {
namespace {

TEST(GetProcAddress, AFunctionThatIsLeftToWineIsWines) {
  const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
  ASSERT_NE(GetProcAddress(kernel, "Sleep"), nullptr);
  EXPECT_EQ(SuppliedGetProcAddress(kernel, "Sleep"), GetProcAddress(kernel, "Sleep"));
}

TEST(GetProcAddress, AFunctionMayBeAskedForByItsNumber) {
  const HMODULE module = LoadLibraryW(L"oleaut32.dll");
  const auto number = reinterpret_cast<LPCSTR>(ULONG_PTR{2});  // SysAllocString
  EXPECT_EQ(SuppliedGetProcAddress(module, number), GetProcAddress(module, "SysAllocString"));
}

TEST(GetProcAddress, ASuppliedFunctionIsFoundInEveryModule) {
  EXPECT_EQ(SuppliedGetProcAddress(GetModuleHandleW(L"kernelbase.dll"), "DiscardVirtualMemory"),
            reinterpret_cast<FARPROC>(&SuppliedDiscardVirtualMemory));
}

TEST(GetProcAddress, AnUnknownFunctionIsAbsent) {
  EXPECT_EQ(SuppliedGetProcAddress(GetModuleHandleW(L"kernel32.dll"), "NoSuchFunction"), nullptr);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
}

TEST(SuppliedImport, AnImportIsNeverReplacedByNothing) {
  ASSERT_NE(FindSuppliedFunction("VirtualAlloc2"), nullptr);
  EXPECT_EQ(SuppliedImport("VirtualAlloc2"), nullptr);
  EXPECT_EQ(SuppliedImport("Sleep"), nullptr);
  EXPECT_EQ(SuppliedImport("GetFirmwareType"), reinterpret_cast<FARPROC>(&SuppliedGetFirmwareType));
}

TEST(ProcessTimes, CyclesGrowWithTheProcessorTimeUsed) {
  ULONG64 before = 0;
  ASSERT_TRUE(SuppliedQueryProcessCycleTime(GetCurrentProcess(), &before));
  ULONG64 after = before;
  const ULONGLONG give_up = GetTickCount64() + 20'000;
  while (after <= before && GetTickCount64() < give_up) {
    ASSERT_TRUE(SuppliedQueryProcessCycleTime(GetCurrentProcess(), &after));
  }
  EXPECT_GT(after, before);
}

TEST(ProcessTimes, FailsForWhatIsNoProcess) {
  ULONG64 cycles = 0;
  EXPECT_FALSE(SuppliedQueryProcessCycleTime(reinterpret_cast<HANDLE>(ULONG_PTR{0xbad}), &cycles));
}

TEST(PreciseTime, IsInUnitsOf100Nanoseconds) {
  ULONGLONG from = 0;
  ULONGLONG to = 0;
  SuppliedQueryUnbiasedInterruptTimePrecise(&from);
  const ULONGLONG ticks = GetTickCount64();
  while (GetTickCount64() < ticks + 200) {
    YieldProcessor();
  }
  SuppliedQueryUnbiasedInterruptTimePrecise(&to);
  const ULONGLONG passed = GetTickCount64() - ticks;
  EXPECT_GE(to - from, 1'800'000u);
  EXPECT_LE(to - from, (passed + 20) * 10'000);
}

TEST(ProcessInformation, AProcessIsNotThrottled) {
  PROCESS_POWER_THROTTLING_STATE state = {.Version = 0, .ControlMask = 7, .StateMask = 7};
  ASSERT_TRUE(SuppliedGetProcessInformation(GetCurrentProcess(), ProcessPowerThrottling, &state,
                                            sizeof(state)));
  EXPECT_EQ(state.Version, static_cast<ULONG>(PROCESS_POWER_THROTTLING_CURRENT_VERSION));
  EXPECT_EQ(state.ControlMask, 0u);
  EXPECT_EQ(state.StateMask, 0u);
}

TEST(ProcessInformation, OtherKindsAndSizesFail) {
  PROCESS_POWER_THROTTLING_STATE state = {};
  EXPECT_FALSE(SuppliedGetProcessInformation(GetCurrentProcess(), ProcessMemoryPriority, &state,
                                             sizeof(state)));
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
  EXPECT_FALSE(SuppliedGetProcessInformation(GetCurrentProcess(), ProcessPowerThrottling, &state,
                                             sizeof(state) - 1));
}

TEST(GraphicsProcessor, TheSwitchStandsBehindTheProgram) {
  EXPECT_EQ(WithFirstArgument(L"host.exe", L"--x"), L"host.exe --x");
  EXPECT_EQ(WithFirstArgument(L"host.exe a b", L"--x"), L"host.exe --x a b");
  EXPECT_EQ(WithFirstArgument(L"\"C:\\My Host\\host.exe\" -- a", L"--x"),
            L"\"C:\\My Host\\host.exe\" --x -- a");
  EXPECT_EQ(WithFirstArgument(L"C:\\\"My Host\"\\host.exe\ta", L"--x"),
            L"C:\\\"My Host\"\\host.exe --x\ta");
  EXPECT_EQ(WithFirstArgument(L"\"no end", L"--x"), L"\"no end --x");
  EXPECT_EQ(WithFirstArgument(L"", L"--x"), L" --x");
}

TEST(GraphicsProcessor, OnlyAGpuProcessWithoutAWayToDrawNeedsOne) {
  EXPECT_TRUE(NeedsGraphicsProcessor(L"sub.exe --type=gpu-process --no-sandbox"));
  EXPECT_FALSE(NeedsGraphicsProcessor(L"sub.exe --type=gpu-process --use-gl=disabled"));
  EXPECT_FALSE(NeedsGraphicsProcessor(
      L"sub.exe --type=gpu-process --use-gl=angle --use-angle=swiftshader-webgl"));
  EXPECT_FALSE(NeedsGraphicsProcessor(L"sub.exe --type=renderer"));
  EXPECT_FALSE(NeedsGraphicsProcessor(L"host.exe"));
}

BOOL Start(std::wstring command_line, PROCESS_INFORMATION* process) {
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  return SuppliedCreateProcessW(nullptr, command_line.data(), nullptr, nullptr, FALSE,
                                CREATE_NO_WINDOW, nullptr, nullptr, &start, process);
}

TEST(GraphicsProcessor, AProcessThatNeedsOneIsNotStarted) {
  PROCESS_INFORMATION process = {};
  EXPECT_FALSE(Start(L"hostname.exe --type=gpu-process", &process));
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NOT_SUPPORTED));
}

TEST(GraphicsProcessor, OtherProcessesAreStarted) {
  PROCESS_INFORMATION process = {};
  ASSERT_TRUE(Start(L"hostname.exe", &process));
  EXPECT_EQ(WaitForSingleObject(process.hProcess, 30'000), WAIT_OBJECT_0);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

}  // namespace
}  // namespace kz::wine
