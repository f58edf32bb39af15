// Conversions, processes, the executable's path, and files.

#include "utils/kzcefwrapperutils.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "child_process.h"
#include "temporary_folder.h"
#include "utils/handles.h"

namespace kzcef {
namespace {

using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;

std::string ProbePath() {
  return WideToUtf8(GetExecutableFolder()) + "\\kz_process_probe.exe";
}

TEST(Conversions, CarryTextsBeyondTheAnsiCodePage) {
  EXPECT_EQ(Utf8ToWide("\xc3\xbc\xe6\x97\xa5\xf0\x9f\x98\x80"), L"\u00fc\u65e5\xd83d\xde00");
  EXPECT_EQ(WideToUtf8(L"\u00fc\u65e5\xd83d\xde00"), "\xc3\xbc\xe6\x97\xa5\xf0\x9f\x98\x80");
  EXPECT_EQ(Utf8ToWide(""), L"");
  EXPECT_EQ(WideToUtf8(L""), "");
}

TEST(Conversions, ReplaceWhatIsNotValid) {
  EXPECT_EQ(Utf8ToWide("a\xff"), L"a\xfffd");
}

TEST(Processes, KnowTheirOwnIdentifierAndImage) {
  EXPECT_EQ(GetCurrentPid(), GetCurrentProcessId());
  EXPECT_EQ(GetProcessImagePath(GetCurrentPid()), WideToUtf8(GetModulePath(nullptr)));
}

TEST(Processes, HaveNoImagePathOnceTheyEndedAlsoWhileSomebodyHoldsAHandle) {
  ChildProcess child(Utf8ToWide(ProbePath()), L"lock Q:\\none\\none");
  EXPECT_EQ(GetProcessImagePath(child.id()), ProbePath());
  child.Kill();
  EXPECT_EQ(GetProcessImagePath(child.id()), std::nullopt);
}

TEST(Processes, HaveNoImagePathWhenTheyDoNotExist) {
  EXPECT_EQ(GetProcessImagePath(0xfffffffc), std::nullopt);
}

TEST(Executable, IsCutIntoFolderAndStem) {
  const std::string path = GetExecutablePath();
  EXPECT_EQ(path, WideToUtf8(GetModulePath(nullptr)));
  EXPECT_EQ(WideToUtf8(GetExecutableFolder()) + "\\" + GetExecutableStem() + ".exe", path);
}

TEST(ModulePath, IsThatOfTheModuleAskedFor) {
  EXPECT_TRUE(GetModulePath(GetModuleHandleW(L"kernel32.dll")).ends_with(L"\\kernel32.dll"));
}

TEST(PathExists, TellsFilesFromDirectories) {
  const TemporaryFolder folder;
  const std::string file = folder / "\xe6\x97\xa5.txt";
  SetContent(file, "x");
  EXPECT_TRUE(PathExists(folder.path(), true));
  EXPECT_FALSE(PathExists(folder.path(), false));
  EXPECT_TRUE(PathExists(file, false));
  EXPECT_FALSE(PathExists(file, true));
}

TEST(PathExists, IsFalseForWhatIsNotThereOrNoPath) {
  const TemporaryFolder folder;
  for (const bool want_directory : {true, false}) {
    EXPECT_FALSE(PathExists(folder / "missing", want_directory));
    EXPECT_FALSE(PathExists("", want_directory));
    EXPECT_FALSE(PathExists("C:\\a?b|c", want_directory));
  }
}

TEST(WriteNewFile, WritesTheContentAsItIs) {
  const TemporaryFolder folder;
  const std::string path = folder / "\xe6\x97\xa5.txt";
  EXPECT_TRUE(WriteNewFile(path, std::string("a\r\n\0\xff", 5)));
  EXPECT_EQ(ContentOf(path), std::string("a\r\n\0\xff", 5));
}

TEST(WriteNewFile, MakesAnEmptyFileOfAnEmptyContent) {
  const TemporaryFolder folder;
  EXPECT_TRUE(WriteNewFile(folder / "empty", ""));
  EXPECT_TRUE(PathExists(folder / "empty", false));
}

TEST(WriteNewFile, LeavesAnExistingFileUntouchedAndSaysSo) {
  const TemporaryFolder folder;
  const std::string path = folder / "old";
  SetContent(path, "old");
  CaptureStderr();
  EXPECT_FALSE(WriteNewFile(path, "new"));
  EXPECT_EQ(GetCapturedStderr(), "kzcefwrapperutils.cpp:512 Failed to create file: " + path + "\n");
  EXPECT_EQ(ContentOf(path), "old");
}

TEST(WriteNewFile, RefusesAnEmptyPathWithoutAWord) {
  CaptureStderr();
  EXPECT_FALSE(WriteNewFile("", "new"));
  EXPECT_EQ(GetCapturedStderr(), "");
}

TEST(ReadTextFile, AnswersTheWholeFile) {
  const TemporaryFolder folder;
  const std::string content = std::string(10'000, 'x') + '\0' + "end";
  SetContent(folder / "long", content);
  EXPECT_EQ(ReadTextFile(folder / "long"), content);
  SetContent(folder / "empty", "");
  EXPECT_EQ(ReadTextFile(folder / "empty"), "");
}

TEST(ReadTextFile, AnswersNothingForAFileThatCannotBeOpened) {
  const TemporaryFolder folder;
  EXPECT_EQ(ReadTextFile(folder / "missing"), std::nullopt);
  EXPECT_EQ(ReadTextFile(folder.path()), std::nullopt);
}

}  // namespace
}  // namespace kzcef
