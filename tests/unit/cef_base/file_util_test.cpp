#include "include/cef_file_util.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

class FileUtilTest : public testing::Test {
 protected:
  FileUtilTest() {
    CefString folder;
    EXPECT_TRUE(CefCreateNewTempDirectory("kz_file_util_", folder));
    root_ = fs::path(folder.ToWString());
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
  EXPECT_FALSE(CefDirectoryExists(Text(deep)));
  EXPECT_TRUE(CefCreateDirectory(Text(deep)));
  EXPECT_TRUE(CefDirectoryExists(Text(deep)));
  EXPECT_TRUE(CefCreateDirectory(Text(deep)));
}

TEST_F(FileUtilTest, AFileIsNoFolderAndCannotBecomeOne) {
  const fs::path file = MakeFile("file");
  EXPECT_FALSE(CefDirectoryExists(Text(file)));
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

TEST_F(FileUtilTest, MakesNewTemporaryFolders) {
  CefString first;
  CefString second;
  ASSERT_TRUE(CefCreateTempDirectoryInDirectory(Text(root_), "pre", first));
  ASSERT_TRUE(CefCreateTempDirectoryInDirectory(Text(root_), "pre", second));
  EXPECT_NE(first, second);
  const fs::path path(first.ToWString());
  EXPECT_EQ(path.parent_path(), root_);
  EXPECT_TRUE(path.filename().wstring().starts_with(L"pre"));
  EXPECT_TRUE(CefDirectoryExists(first));
  EXPECT_FALSE(CefCreateTempDirectoryInDirectory(Text(root_ / "none"), "pre", first));
  CefString temp;
  EXPECT_TRUE(CefGetTempDirectory(temp));
  EXPECT_TRUE(CefDirectoryExists(temp));
}

}  // namespace
