#include "start_settings.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>

namespace cefbinding {
namespace {

namespace fs = std::filesystem;

class StartSettingsTest : public testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / (L"kz_start_" + std::to_wstring(GetCurrentProcessId()) +
                                           L"_" + std::to_wstring(GetTickCount64()));
    fs::create_directories(folder_);
    Set(settings_.cache_path, folder_ / "profile");
  }
  void TearDown() override {
    std::error_code error;
    fs::remove_all(folder_, error);
  }

  static void Set(cef_string_t& setting, const fs::path& path) {
    CefString(&setting).FromWString(path.wstring());
  }
  static fs::path PathIn(const cef_string_t& setting) { return CefString(&setting).ToWString(); }
  static void Write(const fs::path& file) { std::ofstream(file) << "x"; }

  fs::path folder_;
  CefSettings settings_;
};

TEST_F(StartSettingsTest, LeavesWhatIsThereAsItIs) {
  for (const char* const name : {"resources.pak", "chrome_100_percent.pak", "en-US.pak"}) {
    Write(folder_ / name);
  }
  Set(settings_.resources_dir_path, folder_);
  Set(settings_.locales_dir_path, folder_);
  Set(settings_.log_file, folder_ / "own.log");
  const StartSettings start = CheckedForStart(settings_);
  EXPECT_EQ(PathIn(start.settings.resources_dir_path), folder_);
  EXPECT_EQ(PathIn(start.settings.locales_dir_path), folder_);
  EXPECT_EQ(PathIn(start.settings.cache_path), folder_ / "profile");
  EXPECT_EQ(PathIn(start.settings.log_file), folder_ / "own.log");
  EXPECT_TRUE(CefString(&start.settings.root_cache_path).empty());
  EXPECT_TRUE(start.temporary_root.empty());
  EXPECT_TRUE(start.remarks.empty());
  EXPECT_TRUE(fs::is_empty(folder_ / "profile"));
}

TEST_F(StartSettingsTest, LeavesOutFoldersThatHoldNothingOfTheEngines) {
  Set(settings_.resources_dir_path, folder_);
  Set(settings_.locales_dir_path, folder_ / "nowhere");
  const StartSettings start = CheckedForStart(settings_);
  EXPECT_TRUE(CefString(&start.settings.resources_dir_path).empty());
  EXPECT_TRUE(CefString(&start.settings.locales_dir_path).empty());
  ASSERT_EQ(start.remarks.size(), 2u);
  EXPECT_NE(start.remarks[0].find("resources_dir_path"), std::string::npos);
  EXPECT_NE(start.remarks[1].find("nowhere"), std::string::npos);
}

TEST_F(StartSettingsTest, TakesTheLocaleThatTheHostWantsForALocale) {
  Write(folder_ / "de.pak");
  Set(settings_.locales_dir_path, folder_);
  CefString(&settings_.locale) = "de";
  EXPECT_EQ(PathIn(CheckedForStart(settings_).settings.locales_dir_path), folder_);
  CefString(&settings_.locale) = "fr";
  EXPECT_TRUE(PathIn(CheckedForStart(settings_).settings.locales_dir_path).empty());
}

TEST_F(StartSettingsTest, AProfileInMemoryGetsAFolderOfItsOwn) {
  CefString(&settings_.cache_path).clear();
  const StartSettings first = CheckedForStart(settings_);
  const StartSettings second = CheckedForStart(settings_);
  EXPECT_TRUE(fs::is_directory(first.temporary_root));
  EXPECT_EQ(PathIn(first.settings.root_cache_path), first.temporary_root);
  EXPECT_NE(first.temporary_root, second.temporary_root);
  fs::remove_all(first.temporary_root);
  fs::remove_all(second.temporary_root);
}

TEST_F(StartSettingsTest, AProfileThatCannotBeWrittenIsOneInMemory) {
  Write(folder_ / "file");
  for (const fs::path& path : {fs::path(L"relative"), folder_ / "file"}) {
    Set(settings_.cache_path, path);
    const StartSettings start = CheckedForStart(settings_);
    EXPECT_TRUE(CefString(&start.settings.cache_path).empty());
    EXPECT_FALSE(start.temporary_root.empty());
    EXPECT_EQ(start.remarks.size(), 1u);
    fs::remove_all(start.temporary_root);
  }
}

TEST_F(StartSettingsTest, TheLogStandsBesideTheProgram) {
  wchar_t program[MAX_PATH];
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  EXPECT_EQ(PathIn(CheckedForStart(settings_).settings.log_file),
            fs::path(program).parent_path() / "debug.log");
}

TEST_F(StartSettingsTest, ARelativeLogFileIsInTheCurrentFolder) {
  Set(settings_.log_file, L"relative.log");
  EXPECT_EQ(PathIn(CheckedForStart(settings_).settings.log_file),
            fs::current_path() / "relative.log");
}

}  // namespace
}  // namespace cefbinding
