// How the shell is asked for the user's Downloads folder, and what its failure leads to.

#include "handler/downloads_folder.h"

#include <gtest/gtest.h>
#include <knownfolders.h>

#include <filesystem>
#include <string>

namespace kzcef {
namespace {

struct FolderCall {
  bool is_downloads = false;
  DWORD flags = 1;
  bool has_token = true;
} g_call;

// Returns a folder of its own.
HRESULT WINAPI RecordFolder(REFKNOWNFOLDERID id, DWORD flags, HANDLE token, PWSTR* path) {
  g_call = {IsEqualGUID(id, FOLDERID_Downloads) != FALSE, flags, token != nullptr};
  constexpr wchar_t kPath[] = L"C:\\\u00E4\\Downloads";
  *path = static_cast<PWSTR>(CoTaskMemAlloc(sizeof(kPath)));
  std::char_traits<wchar_t>::copy(*path, kPath, std::size(kPath));
  return S_OK;
}

HRESULT WINAPI FailWithAPath(REFKNOWNFOLDERID id, DWORD flags, HANDLE token, PWSTR* path) {
  RecordFolder(id, flags, token, path);
  return E_FAIL;
}

HRESULT WINAPI FailWithoutAPath(REFKNOWNFOLDERID, DWORD, HANDLE, PWSTR* path) {
  *path = nullptr;
  return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
}

class DownloadsFolderTest : public ::testing::Test {
 protected:
  ~DownloadsFolderTest() override { ReplaceGetKnownFolderPath(nullptr); }
};

TEST_F(DownloadsFolderTest, IsTheUsersDownloads) {
  const std::wstring folder = DownloadsFolder();
  EXPECT_TRUE(std::filesystem::is_directory(folder));
  EXPECT_FALSE(folder.ends_with(L'\\'));
}

TEST_F(DownloadsFolderTest, IsAskedForWithNothingElse) {
  ReplaceGetKnownFolderPath(&RecordFolder);
  EXPECT_EQ(DownloadsFolder(), L"C:\\\u00E4\\Downloads");
  EXPECT_TRUE(g_call.is_downloads);
  EXPECT_EQ(g_call.flags, static_cast<DWORD>(KF_FLAG_DEFAULT));
  EXPECT_FALSE(g_call.has_token);
}

TEST_F(DownloadsFolderTest, IsEmptyWhenTheSystemDoesNotTell) {
  ReplaceGetKnownFolderPath(&FailWithAPath);
  EXPECT_EQ(DownloadsFolder(), L"");
  ReplaceGetKnownFolderPath(&FailWithoutAPath);
  EXPECT_EQ(DownloadsFolder(), L"");
}

}  // namespace
}  // namespace kzcef
