// The engine's file functions.
#include "include/cef_file_util.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

class FileUtilTest : public testing::Test {
 protected:
  FileUtilTest() {
    root_ = fs::temp_directory_path() / ("kz_file_util_" + std::to_string(GetCurrentProcessId()));
    fs::create_directories(root_);
  }
  ~FileUtilTest() override {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }

  fs::path MakeFile(const fs::path& name) {
    fs::path path = root_ / name;
    std::ofstream(path) << "x";
    return path;
  }
  static CefString Text(const fs::path& path) { return path.wstring(); }

  fs::path root_;
};

TEST_F(FileUtilTest, CreatesFoldersWithTheirParents) {
  const fs::path deep = root_ / L"a" / L"b\x00E4" / L"c";
  EXPECT_FALSE(fs::is_directory(deep));
  EXPECT_TRUE(CefCreateDirectory(Text(deep)));
  EXPECT_TRUE(fs::is_directory(deep));
  EXPECT_TRUE(CefCreateDirectory(Text(deep)));
}

TEST_F(FileUtilTest, AFileIsNoFolderAndCannotBecomeOne) {
  const fs::path file = MakeFile("file");
  EXPECT_FALSE(fs::is_directory(file));
  EXPECT_FALSE(CefCreateDirectory(Text(file)));
  EXPECT_FALSE(CefCreateDirectory(Text(file / "below")));
  EXPECT_FALSE(CefCreateDirectory(""));
}

TEST_F(FileUtilTest, DeletesFiles) {
  const fs::path file = MakeFile("file");
  EXPECT_TRUE(CefDeleteFile(Text(file), false));
  EXPECT_FALSE(fs::exists(file));
}

TEST_F(FileUtilTest, DeletingWhatIsNotThereSucceeds) {
  EXPECT_TRUE(CefDeleteFile(Text(root_ / "none"), false));
  EXPECT_TRUE(CefDeleteFile(Text(root_ / "none"), true));
  EXPECT_TRUE(CefDeleteFile(Text(root_ / "none" / "deeper"), false));
  EXPECT_FALSE(CefDeleteFile("", false));
}

TEST_F(FileUtilTest, DeletesAReadOnlyFile) {
  const fs::path file = MakeFile("file");
  fs::permissions(file, fs::perms::owner_read);
  EXPECT_TRUE(CefDeleteFile(Text(file), false));
  EXPECT_FALSE(fs::exists(file));
}

TEST_F(FileUtilTest, DeletesAFullFolderOnlyWithItsContent) {
  const fs::path folder = root_ / "folder";
  fs::create_directory(folder);
  MakeFile("folder/file");
  EXPECT_FALSE(CefDeleteFile(Text(folder), false));
  EXPECT_TRUE(fs::exists(folder / "file"));
  EXPECT_TRUE(CefDeleteFile(Text(folder), true));
  EXPECT_FALSE(fs::exists(folder));
}

}  // namespace
