// The choice of a cache directory among live, dead and racing
// processes, and the release of its lock.

#include "runtime/cache_directory.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "child_process.h"
#include "temporary_folder.h"
#include "utils/handles.h"
#include "utils/kzcefwrapperutils.h"
#include "utils/lock_file.h"
#include "utils/path_text.h"

namespace kzcef {
namespace {

std::string RacerPath() {
  return WideToUtf8(GetExecutableFolder()) + "\\kz_cache_racer.exe";
}

// A process that runs and waits, whatever it is asked to hold. It dies with the test.
class LiveProcess {
 public:
  LiveProcess()
      : go_(CreateEventW(nullptr, TRUE, FALSE, kEvent)),
        child_(Utf8ToWide(RacerPath()), std::wstring(kEvent) + L" none") {
    EXPECT_EQ(child_.ReadLine(), "ready");
  }

  // The text of a lock that this process holds.
  std::string LockText() const { return FormatLockRecord(child_.id(), RacerPath()); }
  DWORD id() const { return child_.id(); }
  void Kill() { child_.Kill(); }

 private:
  static constexpr wchar_t kEvent[] = L"kzcef-live-process";
  UniqueHandle go_;
  ChildProcess child_;
};

std::string NumberedCandidate(const std::string& base, int number) {
  return base + "\\" + GetExecutableStem() + "_" + std::to_string(number);
}

TEST(CacheDirectory, IsMadeWithItsParentsAndLockedForThisProcess) {
  const TemporaryFolder folder;
  const std::string base = folder / "a" + "\\b \xe6\x97\xa5";
  ASSERT_TRUE(ChooseCacheDirectory(base));
  EXPECT_EQ(ChosenCacheDirectory(), base);
  const auto lock = ReadLockFile(base + "\\cef.lock");
  ASSERT_TRUE(lock);
  EXPECT_TRUE(IsOwnLock(*lock));
}

TEST(CacheDirectory, IsTheConfiguredOneWhenItExists) {
  const TemporaryFolder folder;
  ASSERT_TRUE(ChooseCacheDirectory(folder.path()));
  EXPECT_EQ(ChosenCacheDirectory(), folder.path());
}

TEST(CacheDirectory, LiesBelowTheFolderForTemporaryFilesWhenNoneIsConfigured) {
  const TemporaryFolder folder;
  SetEnvironmentVariableW(L"temp", folder.wide_path().c_str());
  SetEnvironmentVariableW(L"tmp", L"Q:\\never");
  ASSERT_TRUE(ChooseCacheDirectory(""));
  EXPECT_EQ(ChosenCacheDirectory(), folder / "CefCache");
}

TEST(CacheDirectory, TakesAFolderForTemporaryFilesThatEndsInABackslash) {
  const TemporaryFolder folder;
  SetEnvironmentVariableW(L"temp", (folder.wide_path() + L"\\").c_str());
  ASSERT_TRUE(ChooseCacheDirectory(""));
  EXPECT_EQ(ChosenCacheDirectory(), folder / "CefCache");
}

TEST(CacheDirectory, LooksAtTmpOnlyWithoutTemp) {
  const TemporaryFolder folder;
  SetEnvironmentVariableW(L"temp", nullptr);
  SetEnvironmentVariableW(L"tmp", folder.wide_path().c_str());
  ASSERT_TRUE(ChooseCacheDirectory(""));
  EXPECT_EQ(ChosenCacheDirectory(), folder / "CefCache");
}

TEST(CacheDirectory, SpellsOutShortNamesOfTheFolderForTemporaryFiles) {
  const TemporaryFolder folder;
  std::wstring short_path(MAX_PATH, L'\0');
  short_path.resize(GetShortPathNameW(folder.wide_path().c_str(), short_path.data(), MAX_PATH));
  if (short_path == folder.wide_path()) {
    GTEST_SKIP() << "This file system has no short names.";
  }
  SetEnvironmentVariableW(L"temp", short_path.c_str());
  ASSERT_TRUE(ChooseCacheDirectory(""));
  EXPECT_EQ(ChosenCacheDirectory(), folder / "CefCache");
}

TEST(CacheDirectory, IsNotChosenWhenThereIsNowhereToBegin) {
  SetEnvironmentVariableW(L"temp", nullptr);
  SetEnvironmentVariableW(L"tmp", nullptr);
  EXPECT_FALSE(ChooseCacheDirectory(""));
  EXPECT_EQ(ChosenCacheDirectory(), "");
}

TEST(CacheDirectory, IsTakenAgainByTheProcessThatHoldsIt) {
  const TemporaryFolder folder;
  ASSERT_TRUE(WriteLockFile(folder / "cef.lock"));
  const std::string extended = ContentOf(folder / "cef.lock") + "kept\n";
  SetContent(folder / "cef.lock", extended);
  ASSERT_TRUE(ChooseCacheDirectory(folder.path()));
  EXPECT_EQ(ChosenCacheDirectory(), folder.path());
  EXPECT_EQ(ContentOf(folder / "cef.lock"), extended);
}

TEST(CacheDirectory, OfAKilledProcessIsTakenOver) {
  const TemporaryFolder folder;
  LiveProcess holder;
  SetContent(folder / "cef.lock", holder.LockText());
  holder.Kill();
  ASSERT_TRUE(ChooseCacheDirectory(folder.path()));
  EXPECT_EQ(ChosenCacheDirectory(), folder.path());
  EXPECT_TRUE(IsOwnLock(ReadLockFile(folder / "cef.lock").value_or(LockRecord())));
}

TEST(CacheDirectory, IsTakenOverWhenAnotherProgramHasTheProcessIdentifierNow) {
  const TemporaryFolder folder;
  LiveProcess other;
  SetContent(folder / "cef.lock", FormatLockRecord(other.id(), "C:\\gone\\host.exe"));
  ASSERT_TRUE(ChooseCacheDirectory(folder.path()));
  EXPECT_EQ(ChosenCacheDirectory(), folder.path());
}

TEST(CacheDirectory, WithALockThatNamesNobodyIsTakenOver) {
  const TemporaryFolder folder;
  SetContent(folder / "cef.lock", "");
  ASSERT_TRUE(ChooseCacheDirectory(folder.path()));
  EXPECT_EQ(ChosenCacheDirectory(), folder.path());
}

TEST(CacheDirectory, OfALiveProcessIsLeftToItForTheNumberedOnes) {
  const TemporaryFolder folder;
  LiveProcess holder;
  SetContent(folder / "cef.lock", holder.LockText());
  ASSERT_TRUE(ChooseCacheDirectory(folder.path()));
  EXPECT_EQ(ChosenCacheDirectory(), NumberedCandidate(folder.path(), 1));
  EXPECT_EQ(ContentOf(folder / "cef.lock"), holder.LockText());
}

TEST(CacheDirectory, WithALockThatItsWriterHoldsOpenCountsAsHeld) {
  const TemporaryFolder folder;
  const UniqueHandle writer =
      FileHandle(CreateFileW(Utf8ToWide(folder / "cef.lock").c_str(), GENERIC_WRITE, 0, nullptr,
                             CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  ASSERT_TRUE(writer);
  ASSERT_TRUE(ChooseCacheDirectory(folder.path()));
  EXPECT_EQ(ChosenCacheDirectory(), NumberedCandidate(folder.path(), 1));
}

// Holds the base directory and the numbered ones up to `last`.
void HoldCandidates(const TemporaryFolder& folder, const LiveProcess& holder, int last) {
  SetContent(folder / "cef.lock", holder.LockText());
  for (int i = 1; i <= last; ++i) {
    const std::string candidate = NumberedCandidate(folder.path(), i);
    ASSERT_TRUE(CreateDirectoryW(Utf8ToWide(candidate).c_str(), nullptr));
    SetContent(candidate + "\\cef.lock", holder.LockText());
  }
}

TEST(CacheDirectory, IsTheFiftiethWhenAllBeforeItAreHeld) {
  const TemporaryFolder folder;
  const LiveProcess holder;
  HoldCandidates(folder, holder, 49);
  ASSERT_TRUE(ChooseCacheDirectory(folder.path()));
  EXPECT_EQ(ChosenCacheDirectory(), NumberedCandidate(folder.path(), 50));
}

TEST(CacheDirectory, IsNotChosenWhenAllFiftyOneAreHeld) {
  const TemporaryFolder folder;
  const LiveProcess holder;
  HoldCandidates(folder, holder, 50);
  EXPECT_FALSE(ChooseCacheDirectory(folder.path()));
  EXPECT_EQ(ChosenCacheDirectory(), "");
  EXPECT_FALSE(ReleaseCacheLock());
  EXPECT_FALSE(PathExists(NumberedCandidate(folder.path(), 51), true));
}

TEST(CacheDirectory, IsNotChosenWhereNoneCanBeMade) {
  const TemporaryFolder folder;
  SetContent(folder / "file", "");
  EXPECT_FALSE(ChooseCacheDirectory(folder / "file"));
  EXPECT_EQ(ChosenCacheDirectory(), "");
}

TEST(CacheDirectory, RaisesTheErrorOfAStaleLockThatCannotBeDeleted) {
  const TemporaryFolder folder;
  SetContent(folder / "cef.lock", "PID:1\n");
  const std::wstring lock = Utf8ToWide(folder / "cef.lock");
  ASSERT_TRUE(SetFileAttributesW(lock.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_THROW(ChooseCacheDirectory(folder.path()), std::filesystem::filesystem_error);
  EXPECT_EQ(ChosenCacheDirectory(), "");
  SetFileAttributesW(lock.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(CacheDirectory, RaisesTheErrorsOfALockThatIsNone) {
  const TemporaryFolder folder;
  SetContent(folder / "cef.lock", "PID:none\n");
  EXPECT_THROW(ChooseCacheDirectory(folder.path()), std::invalid_argument);
  SetContent(folder / "cef.lock", "PID:4294967296\n");
  EXPECT_THROW(ChooseCacheDirectory(folder.path()), std::out_of_range);
  EXPECT_EQ(ChosenCacheDirectory(), "");
}

TEST(CacheLock, IsGivenBackOnce) {
  const TemporaryFolder folder;
  ASSERT_TRUE(ChooseCacheDirectory(folder.path()));
  EXPECT_TRUE(ReleaseCacheLock());
  EXPECT_FALSE(PathExists(folder / "cef.lock", false));
  ReleaseCacheLock();
  EXPECT_TRUE(PathExists(folder.path(), true));
}

TEST(CacheLock, IsNotGivenBackBeforeADirectoryWasChosen) {
  EXPECT_FALSE(ReleaseCacheLock());
}

// Lets twenty processes loose on one base directory at the same time and returns what each chose.
std::vector<std::string> Race(const std::string& base) {
  // Of this process's own: other races may be under way beside it.
  const std::wstring go_name = L"kzcef-cache-race-" + std::to_wstring(GetCurrentProcessId());
  const UniqueHandle go(CreateEventW(nullptr, TRUE, FALSE, go_name.c_str()));
  std::vector<ChildProcess> racers;
  for (int i = 0; i < 20; ++i) {
    racers.emplace_back(Utf8ToWide(RacerPath()), go_name + L" \"" + Utf8ToWide(base) + L"\"");
  }
  for (ChildProcess& racer : racers) {
    EXPECT_EQ(racer.ReadLine(), "ready");
  }
  SetEvent(go.get());
  std::vector<std::string> chosen;
  for (ChildProcess& racer : racers) {
    chosen.push_back(racer.ReadLine());
    const auto lock = ReadLockFile(chosen.back() + "\\cef.lock");
    EXPECT_TRUE(lock) << chosen.back();
    EXPECT_EQ(lock.value_or(LockRecord()).process_id, static_cast<int>(racer.id()));
  }
  return chosen;
}

void ExpectAllDifferent(const std::vector<std::string>& chosen) {
  std::map<std::string, int> count;
  for (const std::string& directory : chosen) {
    EXPECT_EQ(++count[directory], 1) << directory;
  }
}

TEST(CacheRace, OfTwentyProcessesForAFreshDirectoryGivesEachOneOfItsOwn) {
  const TemporaryFolder folder;
  const std::vector<std::string> chosen = Race(folder / "fresh");
  ExpectAllDifferent(chosen);
  EXPECT_THAT(chosen, ::testing::Contains(folder / "fresh"));
}

TEST(CacheRace, OfTwentyProcessesForAStaleLockGivesEachOneOfItsOwn) {
  const TemporaryFolder folder;
  SetContent(folder / "cef.lock", FormatLockRecord(0x7ffffffc, "C:\\gone\\host.exe"));
  ExpectAllDifferent(Race(folder.path()));
}

}  // namespace
}  // namespace kzcef
