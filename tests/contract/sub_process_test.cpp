// The program that the engine starts for its other processes.

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

#include "server_library.h"

namespace contract {
namespace {

constexpr DWORD kPatienceMilliseconds = 30'000;

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

TEST(SubProcess, StandsBesideTheServerAndEndsAtOnceWithoutWork) {
  const std::wstring server = ServerPath();
  std::wstring command_line =
      L"\"" + server.substr(0, server.find_last_of(L"\\/") + 1) + L"kzCefSubProc.exe\"";
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION info = {};
  ASSERT_TRUE(CreateProcessW(nullptr, command_line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                             nullptr, &startup, &info));
  const Handle process(info.hProcess);
  const Handle thread(info.hThread);
  ASSERT_EQ(WaitForSingleObject(process.get(), kPatienceMilliseconds), WAIT_OBJECT_0);
  // What CEF returns to a process that is none of its own.
  DWORD exit_code = 0;
  ASSERT_TRUE(GetExitCodeProcess(process.get(), &exit_code));
  EXPECT_EQ(static_cast<int>(exit_code), -1);
}

}  // namespace
}  // namespace contract
