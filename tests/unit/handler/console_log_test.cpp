// The switch of the console log, and the file that it is appended to.

#include "handler/console_log.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>

#include "unit/handler/file_bytes.h"

namespace kzcef {
namespace {

class ConsoleLogTest : public ::testing::Test {
 protected:
  ~ConsoleLogTest() override { std::filesystem::remove_all(folder_); }

  static void SetSwitch(const wchar_t* value) {
    ASSERT_TRUE(SetEnvironmentVariableW(L"KZCefConsoleLog", value));
  }

  std::string PathOf(const char* name) const { return (folder_ / name).string(); }

  static std::filesystem::path NewFolder() {
    std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                   ("kz-console-log-" + std::to_string(GetCurrentProcessId()));
    std::filesystem::create_directory(folder);
    return folder;
  }

  const std::filesystem::path folder_ = NewFolder();
};

TEST_F(ConsoleLogTest, IsOffWithoutTheVariable) {
  SetSwitch(nullptr);
  EXPECT_FALSE(IsConsoleLogOn());
}

TEST_F(ConsoleLogTest, IsOnForOne) {
  SetSwitch(L"1");
  EXPECT_TRUE(IsConsoleLogOn());
}

TEST_F(ConsoleLogTest, IsOnForOneWithASpaceAfterIt) {
  SetSwitch(L"1 ");
  EXPECT_TRUE(IsConsoleLogOn());
}

TEST_F(ConsoleLogTest, IsOnForOneWithLeadingZeros) {
  SetSwitch((std::wstring(300, L'0') + L"1").c_str());
  EXPECT_TRUE(IsConsoleLogOn());
}

TEST_F(ConsoleLogTest, IsOffForAWord) {
  SetSwitch(L"true");
  EXPECT_FALSE(IsConsoleLogOn());
}

TEST_F(ConsoleLogTest, IsOffForAnotherNumber) {
  SetSwitch(L"2");
  EXPECT_FALSE(IsConsoleLogOn());
}

TEST_F(ConsoleLogTest, IsOffForAnEmptyValue) {
  SetSwitch(L"");
  EXPECT_FALSE(IsConsoleLogOn());
}

TEST_F(ConsoleLogTest, IsSettledOnWithTheFirstCall) {
  SetSwitch(L"1");
  ASSERT_TRUE(IsConsoleLogOn());
  SetSwitch(L"0");
  EXPECT_TRUE(IsConsoleLogOn());
}

TEST_F(ConsoleLogTest, IsSettledOffWithTheFirstCall) {
  SetSwitch(nullptr);
  ASSERT_FALSE(IsConsoleLogOn());
  SetSwitch(L"1");
  EXPECT_FALSE(IsConsoleLogOn());
}

TEST_F(ConsoleLogTest, WritesInTextMode) {
  const std::string path = PathOf("console.log");
  EXPECT_TRUE(AppendToConsoleLog(path, "a\r\nb\n"));
  EXPECT_EQ(testing::BytesOf(path), "a\r\r\nb\r\n");
}

TEST_F(ConsoleLogTest, AppendsToWhatIsThere) {
  const std::string path = PathOf("console.log");
  EXPECT_TRUE(AppendToConsoleLog(path, "one"));
  EXPECT_TRUE(AppendToConsoleLog(path, "two"));
  EXPECT_EQ(testing::BytesOf(path), "onetwo");
}

TEST_F(ConsoleLogTest, SkipsAFileThatCannotBeOpened) {
  EXPECT_FALSE(AppendToConsoleLog(folder_.string(), "record"));
}

}  // namespace
}  // namespace kzcef
