// Files moved as the engine moves a finished download.
#include "file_operation.h"

#include <gtest/gtest.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shobjidl.h>
#include <wrl/client.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace kz::wine {
namespace {

namespace fs = std::filesystem;
using Microsoft::WRL::ComPtr;

ComPtr<IShellItem> ItemOf(const fs::path& path) {
  ComPtr<IShellItem> item;
  EXPECT_EQ(SHCreateItemFromParsingName(path.c_str(), nullptr, IID_PPV_ARGS(&item)), S_OK) << path;
  return item;
}

class FileOperationTest : public testing::Test {
 protected:
  FileOperationTest() {
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    EXPECT_EQ(SuppliedCoCreateInstance(CLSID_FileOperation, nullptr, CLSCTX_ALL,
                                       IID_PPV_ARGS(&operation_)),
              S_OK);
    operation_->SetOperationFlags(FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI);
    fs::create_directories(target_);
    Write(source_, "content");
  }
  ~FileOperationTest() override {
    operation_.Reset();
    CoUninitialize();
    fs::remove_all(L"\\\\?\\" + root_.native());
  }

  static void Write(const fs::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
  }
  static std::string Read(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
  }

  HRESULT Move(const fs::path& from, const fs::path& folder, const wchar_t* name) {
    return operation_->MoveItem(ItemOf(from).Get(), ItemOf(folder).Get(), name, nullptr);
  }

  fs::path root_ =
      fs::temp_directory_path() / (L"kz_wine_" + std::to_wstring(GetCurrentProcessId()));
  fs::path source_ = root_ / L"source.tmp";
  fs::path target_ = root_ / L"target";
  ComPtr<IFileOperation> operation_;
};

TEST_F(FileOperationTest, MovesAFileUnderANewName) {
  ASSERT_EQ(Move(source_, target_, L"download.txt"), S_OK);
  EXPECT_TRUE(fs::exists(source_)) << "moved before PerformOperations";
  ASSERT_EQ(operation_->PerformOperations(), S_OK);
  EXPECT_FALSE(fs::exists(source_));
  EXPECT_EQ(Read(target_ / L"download.txt"), "content");
  BOOL aborted = TRUE;
  EXPECT_EQ(operation_->GetAnyOperationsAborted(&aborted), S_OK);
  EXPECT_FALSE(aborted);
}

TEST_F(FileOperationTest, KeepsTheNameWithoutANewOne) {
  ASSERT_EQ(Move(source_, target_, nullptr), S_OK);
  ASSERT_EQ(operation_->PerformOperations(), S_OK);
  EXPECT_EQ(Read(target_ / L"source.tmp"), "content");
}

TEST_F(FileOperationTest, RenamesWithinAFolder) {
  ASSERT_EQ(Move(source_, root_, L"download.txt"), S_OK);
  ASSERT_EQ(operation_->PerformOperations(), S_OK);
  EXPECT_EQ(Read(root_ / L"download.txt"), "content");
  EXPECT_FALSE(fs::exists(source_));
}

TEST_F(FileOperationTest, ReplacesAFileWithoutConfirmation) {
  Write(target_ / L"download.txt", "older and longer content");
  ASSERT_EQ(Move(source_, target_, L"download.txt"), S_OK);
  ASSERT_EQ(operation_->PerformOperations(), S_OK);
  EXPECT_EQ(Read(target_ / L"download.txt"), "content");
}

TEST_F(FileOperationTest, KeepsAFileThatWouldNeedConfirmation) {
  operation_->SetOperationFlags(FOF_SILENT);
  Write(target_ / L"download.txt", "older");
  ASSERT_EQ(Move(source_, target_, L"download.txt"), S_OK);
  EXPECT_EQ(operation_->PerformOperations(), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
  EXPECT_EQ(Read(target_ / L"download.txt"), "older");
  EXPECT_EQ(Read(source_), "content");
}

TEST_F(FileOperationTest, FailsWhenTheSourceIsGone) {
  ASSERT_EQ(Move(source_, target_, L"download.txt"), S_OK);
  fs::remove(source_);
  EXPECT_EQ(operation_->PerformOperations(), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
  EXPECT_FALSE(fs::exists(target_ / L"download.txt"));
}

TEST_F(FileOperationTest, FailsWithoutASourceOrAFolder) {
  EXPECT_EQ(operation_->MoveItem(nullptr, ItemOf(target_).Get(), L"a", nullptr), E_INVALIDARG);
  EXPECT_EQ(operation_->MoveItem(ItemOf(source_).Get(), nullptr, L"a", nullptr), E_INVALIDARG);
  EXPECT_EQ(operation_->PerformOperations(), S_OK);
  EXPECT_TRUE(fs::exists(source_));
}

TEST_F(FileOperationTest, PerformsEachMoveOnce) {
  ASSERT_EQ(Move(source_, target_, L"download.txt"), S_OK);
  ASSERT_EQ(operation_->PerformOperations(), S_OK);
  EXPECT_EQ(operation_->PerformOperations(), S_OK);
  EXPECT_EQ(Read(target_ / L"download.txt"), "content");
}

// Shell items of Wine end at MAX_PATH, so the folder is shorter and the file's path longer.
TEST_F(FileOperationTest, MovesToALongPath) {
  const std::wstring name(200, L'n');
  fs::path folder = root_;
  while (folder.native().size() < 180) {
    folder /= L"twenty-two-characters-";
  }
  fs::create_directories(folder);
  ASSERT_EQ(Move(source_, folder, name.c_str()), S_OK);
  ASSERT_EQ(operation_->PerformOperations(), S_OK);
  ASSERT_GT((folder / name).native().size(), size_t{MAX_PATH});
  EXPECT_FALSE(fs::exists(source_));
  EXPECT_EQ(Read(L"\\\\?\\" + (folder / name).native()), "content");
}

TEST_F(FileOperationTest, HasNoOtherInterface) {
  ComPtr<IDispatch> other;
  EXPECT_EQ(operation_.As(&other), E_NOINTERFACE);
  EXPECT_EQ(other, nullptr);
}

TEST_F(FileOperationTest, OtherClassesAreWines) {
  ComPtr<IUnknown> link;
  EXPECT_EQ(SuppliedCoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_ALL, IID_PPV_ARGS(&link)),
            S_OK);
  EXPECT_NE(link, nullptr);
}

}  // namespace
}  // namespace kz::wine
