// Lock files among several processes: own ones, stale ones, and their removal.

#include "utils/lock_file.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

#include "child_process.h"
#include "temporary_folder.h"
#include "utils/handles.h"
#include "utils/kzcefwrapperutils.h"
#include "utils/path_text.h"

namespace kzcef {
namespace {

using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;

std::string ProbePath() {
  return WideToUtf8(GetExecutableFolder()) + "\\kz_process_probe.exe";
}

// A process that claimed, or began to write, the lock file, as `command` says.
ChildProcess Claim(const std::string& command, const std::string& path) {
  return ChildProcess(Utf8ToWide(ProbePath()), Utf8ToWide(command + " \"" + path + "\""));
}

TEST(LockFile, NamesTheProcessAndItsProgramInTwoLines) {
  const TemporaryFolder folder;
  ASSERT_TRUE(WriteLockFile(folder / "cef.lock"));
  EXPECT_EQ(ContentOf(folder / "cef.lock"),
            "PID:" + std::to_string(GetCurrentProcessId()) +
                "\nPROGRAM:" + DoubleSeparators(WideToUtf8(GetModulePath(nullptr))) + "\n");
}

TEST(LockFile, IsRecognisedByTheProcessThatWroteIt) {
  const TemporaryFolder folder;
  ASSERT_TRUE(WriteLockFile(folder / "cef.lock"));
  const auto record = ReadLockFile(folder / "cef.lock");
  ASSERT_TRUE(record);
  EXPECT_TRUE(IsOwnLock(*record));
  EXPECT_TRUE(IsLockHolderAlive(*record));
}

TEST(LockFile, IsNotOwnWithAnotherProcessOrProgram) {
  const std::string program = DoubleSeparators(GetExecutablePath());
  const int own_id = static_cast<int>(GetCurrentProcessId());
  EXPECT_TRUE(IsOwnLock({own_id, program}));
  EXPECT_FALSE(IsOwnLock({own_id + 4, program}));
  EXPECT_FALSE(IsOwnLock({own_id, program + "x"}));
  EXPECT_FALSE(IsOwnLock({own_id, GetExecutablePath()}));
}

TEST(LockFile, IsNotWrittenOverAnother) {
  const TemporaryFolder folder;
  const std::string path = folder / "cef.lock";
  SetContent(path, "PID:1\n");
  CaptureStderr();
  EXPECT_FALSE(WriteLockFile(path));
  EXPECT_EQ(GetCapturedStderr(), "kzcefwrapperutils.cpp:512 Failed to create file: " + path + "\n");
  EXPECT_EQ(ContentOf(path), "PID:1\n");
}

TEST(LockFile, OfALiveProcessIsItsOwnAndNotOurs) {
  const TemporaryFolder folder;
  ChildProcess holder = Claim("own", folder / "cef.lock");
  ASSERT_EQ(holder.ReadLine(), "1");
  const auto record = ReadLockFile(folder / "cef.lock");
  ASSERT_TRUE(record);
  EXPECT_EQ(record->process_id, static_cast<int>(holder.id()));
  EXPECT_FALSE(IsOwnLock(*record));
  EXPECT_TRUE(IsLockHolderAlive(*record));
}

TEST(LockFile, StaysBehindAProcessThatWasKilledAndIsStaleThen) {
  const TemporaryFolder folder;
  ChildProcess holder = Claim("lock", folder / "cef.lock");
  ASSERT_EQ(holder.ReadLine(), "1");
  holder.Kill();
  const auto record = ReadLockFile(folder / "cef.lock");
  ASSERT_TRUE(record);
  EXPECT_FALSE(IsLockHolderAlive(*record));
}

TEST(LockFile, IsStaleWhenAnotherProgramHasItsProcessIdentifierNow) {
  const TemporaryFolder folder;
  ChildProcess other = Claim("lock", folder / "elsewhere");
  ASSERT_EQ(other.ReadLine(), "1");
  const int reused = static_cast<int>(other.id());
  EXPECT_TRUE(IsLockHolderAlive({reused, DoubleSeparators(ProbePath())}));
  EXPECT_FALSE(IsLockHolderAlive({reused, DoubleSeparators(GetExecutablePath())}));
  // One more or one less character, another letter case, separators not doubled: not the same.
  EXPECT_FALSE(IsLockHolderAlive({reused, DoubleSeparators(ProbePath()) + " "}));
  EXPECT_FALSE(IsLockHolderAlive({reused, ProbePath()}));
  EXPECT_FALSE(IsLockHolderAlive({reused, ""}));
}

TEST(LockFile, IsStaleWhenItNamesNobody) {
  EXPECT_FALSE(IsLockHolderAlive(LockRecord()));
  EXPECT_FALSE(IsLockHolderAlive({-1, ""}));
}

TEST(LockFile, CannotBeReadWhileItsWriterHoldsItOpen) {
  const TemporaryFolder folder;
  ChildProcess writer = Claim("write", folder / "cef.lock");
  ASSERT_EQ(writer.ReadLine(), "1");
  EXPECT_TRUE(PathExists(folder / "cef.lock", false));
  EXPECT_EQ(ReadLockFile(folder / "cef.lock"), std::nullopt);
  writer.CloseInput();
  EXPECT_EQ(writer.Wait(), 0u);
  EXPECT_EQ(ReadLockFile(folder / "cef.lock"), LockRecord());
}

TEST(LockFile, RaisesTheConversionErrorsOfItsProcessIdentifier) {
  const TemporaryFolder folder;
  SetContent(folder / "cef.lock", "PID:x\n");
  EXPECT_THROW(ReadLockFile(folder / "cef.lock"), std::invalid_argument);
  SetContent(folder / "cef.lock", "PID:99999999999\n");
  EXPECT_THROW(ReadLockFile(folder / "cef.lock"), std::out_of_range);
}

// Locks are written in UTF-8 and recognised in the ANSI code page. Hosts have come to rely on a
// lock of such a process being nobody's own, so the two must not be made alike.
TEST(LockFile, IsNotRecognisedByAProcessWhoseProgramHasANameBeyondAscii) {
  if (GetACP() == CP_UTF8) {
    GTEST_SKIP() << "The ANSI code page is UTF-8 here, so that both texts are the same.";
  }
  const TemporaryFolder folder;
  const std::string program = folder / "\xc3\xbc\xe6\x97\xa5.exe";
  ASSERT_TRUE(CopyFileW(Utf8ToWide(ProbePath()).c_str(), Utf8ToWide(program).c_str(), TRUE));
  ChildProcess holder(Utf8ToWide(program), Utf8ToWide("own \"" + (folder / "cef.lock") + "\""));
  EXPECT_EQ(holder.ReadLine(), "0");
  const auto record = ReadLockFile(folder / "cef.lock");
  ASSERT_TRUE(record);
  EXPECT_EQ(record->program, DoubleSeparators(program));
  EXPECT_TRUE(IsLockHolderAlive(*record));
  holder.Kill();
}

TEST(LockFile, NamesNobodyWhenItIsGone) {
  const TemporaryFolder folder;
  EXPECT_EQ(ReadLockFile(folder / "cef.lock"), LockRecord());
}

TEST(RemoveStaleLock, DeletesTheLockThatWasFoundStale) {
  const TemporaryFolder folder;
  SetContent(folder / "cef.lock", "PID:1\n");
  EXPECT_TRUE(RemoveStaleLock(folder / "cef.lock", {1, ""}));
  EXPECT_FALSE(PathExists(folder / "cef.lock", false));
}

TEST(RemoveStaleLock, LeavesALockThatReplacedTheStaleOne) {
  const TemporaryFolder folder;
  SetContent(folder / "cef.lock", "PID:2\n");
  EXPECT_FALSE(RemoveStaleLock(folder / "cef.lock", {1, ""}));
  EXPECT_EQ(ContentOf(folder / "cef.lock"), "PID:2\n");
}

TEST(RemoveStaleLock, IsFalseWhenThereIsNoLockAnyMore) {
  const TemporaryFolder folder;
  EXPECT_FALSE(RemoveStaleLock(folder / "cef.lock", {1, ""}));
}

TEST(RemoveStaleLock, IsFalseWhileAnotherProcessHasItHalfDeleted) {
  const TemporaryFolder folder;
  const std::wstring path = Utf8ToWide(folder / "cef.lock");
  SetContent(folder / "cef.lock", "PID:1\n");
  const UniqueHandle reader = FileHandle(CreateFileW(
      path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  ASSERT_TRUE(reader);
  ASSERT_TRUE(DeleteFileW(path.c_str()));
  if (ReadTextFile(folder / "cef.lock")) {
    GTEST_SKIP() << "This system opens files that only wait for their last handle, as Wine does; "
                    "Windows refuses with an error that must not be taken for a protected file.";
  }
  EXPECT_FALSE(RemoveStaleLock(folder / "cef.lock", {1, ""}));
}

TEST(RemoveStaleLock, IsFalseWhileAnotherProcessWritesItsNewLock) {
  const TemporaryFolder folder;
  const UniqueHandle writer =
      FileHandle(CreateFileW(Utf8ToWide(folder / "cef.lock").c_str(), GENERIC_WRITE, 0, nullptr,
                             CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  ASSERT_TRUE(writer);
  EXPECT_FALSE(RemoveStaleLock(folder / "cef.lock", {1, ""}));
}

TEST(RemoveStaleLock, RaisesAnErrorNamedRemoveForAProtectedFile) {
  const TemporaryFolder folder;
  const std::wstring path = Utf8ToWide(folder / "cef.lock");
  SetContent(folder / "cef.lock", "PID:1\n");
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  try {
    RemoveStaleLock(folder / "cef.lock", {1, ""});
    ADD_FAILURE() << "no error";
  } catch (const std::filesystem::filesystem_error& error) {
    EXPECT_NE(std::string(error.what()).find("remove"), std::string::npos) << error.what();
    EXPECT_EQ(error.path1().wstring(), path);
    EXPECT_EQ(error.code().value(), ERROR_ACCESS_DENIED);
  }
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(ContentOf(folder / "cef.lock"), "PID:1\n");
}

TEST(RemoveStaleLock, RaisesAnErrorWhileSomebodyKeepsTheFileFromBeingDeleted) {
  const TemporaryFolder folder;
  SetContent(folder / "cef.lock", "PID:1\n");
  const UniqueHandle keeper =
      FileHandle(CreateFileW(Utf8ToWide(folder / "cef.lock").c_str(), GENERIC_READ, FILE_SHARE_READ,
                             nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  ASSERT_TRUE(keeper);
  EXPECT_THROW(RemoveStaleLock(folder / "cef.lock", {1, ""}), std::filesystem::filesystem_error);
}

}  // namespace
}  // namespace kzcef
