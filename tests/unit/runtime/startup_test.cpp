// The start of CEF: what it is given, that it happens once, and what makes it fail.

#include "runtime/startup.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "fake_settings.h"
#include "recording_cef/recording_cef.h"
#include "runtime/cache_directory.h"
#include "runtime/kz_cef_app.h"
#include "runtime/main_window.h"
#include "temporary_folder.h"
#include "unit/dialogs/owner_window.h"
#include "utils/handles.h"
#include "utils/kzcefwrapperutils.h"
#include "utils/path_text.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

using recording_cef::RecordingCef;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;

std::wstring TextOf(const cef_string_t& field) {
  return CefString(&field).ToWString();
}

// What CefInitialize was called with; the test fails unless that was exactly once.
const recording_cef::Initialization& TheInitialization() {
  static const recording_cef::Initialization none;
  EXPECT_THAT(RecordingCef::Get().initializations, SizeIs(1));
  return RecordingCef::Get().initializations.empty() ? none
                                                     : RecordingCef::Get().initializations.front();
}

class StartupTest : public ::testing::Test {
 protected:
  StartupTest() { settings_.texts["CachePath"] = folder_.wide_path(); }

  std::string LockPath() const { return folder_ / "cef.lock"; }
  // Makes every candidate unusable: none of them can be made below a file.
  void LeaveNoDirectory() {
    SetContent(folder_ / "file", "");
    settings_.texts["CachePath"] = Utf8ToWide(folder_ / "file");
  }

  TemporaryFolder folder_;
  FakeSettings settings_;
};

TEST_F(StartupTest, StartsCefWithoutSandboxAndInstance) {
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_EQ(TheInitialization().settings.no_sandbox, 1);
  EXPECT_EQ(TheInitialization().settings.size, sizeof(cef_settings_t));
  EXPECT_EQ(TheInitialization().instance, nullptr);
  EXPECT_EQ(TheInitialization().sandbox_info, nullptr);
  EXPECT_EQ(TheInitialization().thread_id, GetCurrentThreadId());
  EXPECT_TRUE(dynamic_cast<kzCefApp*>(TheInitialization().app.get()));
}

TEST_F(StartupTest, TakesTheCallersThreadForTheOneOfTheMainWindow) {
  const testing::OwnerWindow window;
  EXPECT_EQ(FindMainWindow(), nullptr);
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_EQ(FindMainWindow(), window.handle());
}

TEST_F(StartupTest, TakesNoInstanceHandleFromTheCaller) {
  EXPECT_TRUE(StartCefRuntime(GetModuleHandleW(nullptr), &settings_));
  EXPECT_EQ(TheInitialization().instance, nullptr);
}

TEST_F(StartupTest, CopiesTheSettingsBeforeItTakesTheCacheDirectory) {
  settings_.texts["Locale"] = L"de";
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_EQ(TextOf(TheInitialization().settings.locale), L"de");
  std::vector<std::string> expected = PropertiesInOrder();
  expected.push_back("LogFile");
  EXPECT_EQ(settings_.reads, expected);
}

TEST_F(StartupTest, HoldsTheLockWhileCefStarts) {
  bool held = false;
  RecordingCef::Get().on_initialize = [&] { held = PathExists(LockPath(), false); };
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_TRUE(held);
  EXPECT_EQ(ChosenCacheDirectory(), folder_.path());
}

TEST_F(StartupTest, GivesCefTheChosenDirectoryAndItsLogThere) {
  settings_.texts["LogFile"] = L"";
  settings_.texts["CachePath"] = folder_.wide_path() + L"\\caf\u00e9 \u65e5";
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_EQ(TextOf(TheInitialization().settings.cache_path), settings_.texts["CachePath"]);
  EXPECT_EQ(TextOf(TheInitialization().settings.log_file),
            settings_.texts["CachePath"] + L"\\debug.log");
  EXPECT_EQ(CachePath(), settings_.texts["CachePath"]);
}

TEST_F(StartupTest, TellsEverybodyTheDirectoryReallyUsed) {
  // Held by its writer, so that the first numbered one is next.
  const UniqueHandle writer =
      FileHandle(CreateFileW(Utf8ToWide(LockPath()).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                             FILE_ATTRIBUTE_NORMAL, nullptr));
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  const std::wstring numbered = folder_.wide_path() + L"\\kz_test_startup_1";
  EXPECT_EQ(TextOf(TheInitialization().settings.cache_path), numbered);
  EXPECT_EQ(CachePath(), numbered);
}

TEST_F(StartupTest, KeepsTheLogFileOfTheHost) {
  settings_.texts["LogFile"] = L"C:\\host.log";
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_EQ(TextOf(TheInitialization().settings.log_file), L"C:\\host.log");
}

TEST_F(StartupTest, TakesANullLogFileForAnEmptyOne) {
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_EQ(TextOf(TheInitialization().settings.log_file), folder_.wide_path() + L"\\debug.log");
}

TEST_F(StartupTest, LeavesTheLogFileToCefWhenItCannotBeAskedFor) {
  settings_.texts["LogFile"] = L"";
  settings_.failing = {"LogFile"};
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_EQ(TextOf(TheInitialization().settings.log_file), L"");
}

TEST_F(StartupTest, GoesOnWithTheHostsSettingsWhenNoDirectoryCanBeHad) {
  LeaveNoDirectory();
  settings_.texts["LogFile"] = L"";
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_EQ(TextOf(TheInitialization().settings.cache_path), settings_.texts["CachePath"]);
  EXPECT_EQ(TextOf(TheInitialization().settings.log_file), L"");
  EXPECT_EQ(CachePath(), settings_.texts["CachePath"]);
  EXPECT_EQ(settings_.reads, PropertiesInOrder());
}

TEST_F(StartupTest, GoesOnWithoutADirectoryWhenAllFiftyOneAreHeld) {
  std::vector<UniqueHandle> writers;
  for (const std::string& candidate : CacheCandidates(folder_.path(), GetExecutableStem())) {
    CreateDirectoryW(Utf8ToWide(candidate).c_str(), nullptr);
    writers.push_back(
        FileHandle(CreateFileW(Utf8ToWide(candidate + "\\cef.lock").c_str(), GENERIC_WRITE, 0,
                               nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr)));
    ASSERT_TRUE(writers.back()) << candidate;
  }
  EXPECT_EQ(writers.size(), 51U);
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_EQ(TextOf(TheInitialization().settings.cache_path), folder_.wide_path());
  EXPECT_EQ(ChosenCacheDirectory(), "");
}

TEST_F(StartupTest, ReplacesTheTableOfSwitchesByTheHosts) {
  SetCommandLineArgTable({{L"old", L"1"}});
  settings_.switches = CommandLineArgs{{L"b", L""}, {L"a", L"2"}};
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_THAT(CommandLineArgTable(), ElementsAre(Pair(L"a", L"2"), Pair(L"b", L"")));
  EXPECT_EQ(TheInitialization().command_line->GetSwitchValue("a").ToWString(), L"2");
  EXPECT_TRUE(TheInitialization().command_line->HasSwitch("b"));
  EXPECT_TRUE(TheInitialization().command_line->HasSwitch("enable-print-preview"));
}

TEST_F(StartupTest, TakesASettingsObjectOfTheHostsOwnForOneWithoutSwitches) {
  SetCommandLineArgTable({{L"old", L"1"}});
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_THAT(CommandLineArgTable(), IsEmpty());
}

TEST_F(StartupTest, LetsTheHubsProxyReachTheCommandLine) {
  settings_.numbers["HubPort"] = 0;
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_EQ(TheInitialization().command_line->GetSwitchValue("proxy-server").ToWString(),
            L"127.0.0.1:0");
}

TEST_F(StartupTest, HappensOnce) {
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
  EXPECT_FALSE(StartCefRuntime(nullptr, &settings_));
  EXPECT_THAT(RecordingCef::Get().initializations, SizeIs(1));
}

TEST_F(StartupTest, HappensOnceAlsoAfterAFailure) {
  RecordingCef::Get().initialize_result = false;
  EXPECT_FALSE(StartCefRuntime(nullptr, &settings_));
  RecordingCef::Get().initialize_result = true;
  settings_.reads.clear();
  EXPECT_FALSE(StartCefRuntime(nullptr, &settings_));
  EXPECT_THAT(RecordingCef::Get().initializations, SizeIs(1));
  EXPECT_THAT(settings_.reads, IsEmpty());
}

TEST_F(StartupTest, FailsWhenAStaleLockCannotBeDeleted) {
  SetContent(LockPath(), "PID:1\n");
  const std::wstring lock = Utf8ToWide(LockPath());
  ASSERT_TRUE(SetFileAttributesW(lock.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_FALSE(StartCefRuntime(nullptr, &settings_));
  EXPECT_THAT(RecordingCef::Get().initializations, IsEmpty());
  SetFileAttributesW(lock.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_FALSE(StartCefRuntime(nullptr, &settings_));
}

TEST_F(StartupTest, FailsWhenALockHoldsNoNumber) {
  SetContent(LockPath(), "PID:none\n");
  EXPECT_FALSE(StartCefRuntime(nullptr, &settings_));
  EXPECT_THAT(RecordingCef::Get().initializations, IsEmpty());
}

TEST_F(StartupTest, FailsWhenALockHoldsANumberOutOfRange) {
  SetContent(LockPath(), "PID:2147483648\n");
  EXPECT_FALSE(StartCefRuntime(nullptr, &settings_));
  EXPECT_THAT(RecordingCef::Get().initializations, IsEmpty());
}

TEST_F(StartupTest, FailsWhenCefThrows) {
  RecordingCef::Get().on_initialize = [] { throw std::runtime_error("no engine"); };
  EXPECT_FALSE(StartCefRuntime(nullptr, &settings_));
}

TEST_F(StartupTest, FailsWithoutSettingsAndCanStillHappenThen) {
  EXPECT_FALSE(StartCefRuntime(nullptr, nullptr));
  EXPECT_THAT(RecordingCef::Get().initializations, IsEmpty());
  EXPECT_TRUE(StartCefRuntime(nullptr, &settings_));
}

}  // namespace
}  // namespace kzcef
