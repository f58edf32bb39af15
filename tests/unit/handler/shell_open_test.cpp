// How a URL is handed to the shell.

#include "handler/shell_open.h"

#include <gtest/gtest.h>

#include <string>

namespace kzcef {
namespace {

struct ShellCall {
  int count = 0;
  HWND window = nullptr;
  std::wstring verb;
  std::wstring file;
  bool has_parameters = true;
  bool has_directory = true;
  INT show = -1;
} g_call;

HINSTANCE WINAPI RecordShellExecute(HWND window,
                                    LPCWSTR verb,
                                    LPCWSTR file,
                                    LPCWSTR parameters,
                                    LPCWSTR directory,
                                    INT show) {
  g_call = {g_call.count + 1,     window, verb, file, parameters != nullptr,
            directory != nullptr, show};
  return nullptr;
}

TEST(ShellOpenTest, OpensTheUrlWithNothingElse) {
  ReplaceShellExecute(&RecordShellExecute);
  OpenExternally(L"scheme:\u00E4 b");
  ReplaceShellExecute(nullptr);

  EXPECT_EQ(g_call.count, 1);
  EXPECT_EQ(g_call.window, nullptr);
  EXPECT_EQ(g_call.verb, L"open");
  EXPECT_EQ(g_call.file, L"scheme:\u00E4 b");
  EXPECT_FALSE(g_call.has_parameters);
  EXPECT_FALSE(g_call.has_directory);
  EXPECT_EQ(g_call.show, SW_SHOWNORMAL);
}

}  // namespace
}  // namespace kzcef
