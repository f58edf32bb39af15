// What becomes of downloads, and what the host is told of them.
#include <comdef.h>
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "com/text.h"
#include "handler/downloads_folder.h"
#include "recording_cef/fake_download.h"
#include "unit/handler/handler_test.h"

namespace kzcef {
namespace {

using ::testing::_;
using testing::HandlerTest;
using ::testing::InSequence;
using ::testing::IsEmpty;

// The user's folder for downloads, as the system returns it.
std::wstring g_downloads;

HRESULT WINAPI AnswerDownloads(REFKNOWNFOLDERID, DWORD, HANDLE, PWSTR* path) {
  *path = static_cast<PWSTR>(CoTaskMemAlloc((g_downloads.size() + 1) * sizeof(wchar_t)));
  std::char_traits<wchar_t>::copy(*path, g_downloads.c_str(), g_downloads.size() + 1);
  return S_OK;
}

HRESULT WINAPI AnswerNoFolder(REFKNOWNFOLDERID, DWORD, HANDLE, PWSTR* path) {
  *path = nullptr;
  return E_FAIL;
}

class DownloadTest : public HandlerTest {
 protected:
  DownloadTest() {
    std::filesystem::create_directories(downloads_);
    g_downloads = downloads_.wstring();
    ReplaceGetKnownFolderPath(&AnswerDownloads);
  }
  ~DownloadTest() override {
    ReplaceGetKnownFolderPath(nullptr);
    std::filesystem::remove_all(folder_);
  }

  void Begin() { handler_->OnBeforeDownload(browser_, item_, "\xC3\xA4 file.bin", before_); }
  void Update() { handler_->OnDownloadUpdated(browser_, item_, running_); }

  // The host answers the next download with these; the path only if there is one.
  void Answer(VARIANT_BOOL can_be_downloaded,
              VARIANT_BOOL show_dialog = VARIANT_FALSE,
              const std::optional<std::wstring>& path = std::nullopt) {
    EXPECT_CALL(*host_, BeforeDownloadNotify(window(), _, _, _))
        .WillOnce([=](HWND, BSTR* name, VARIANT_BOOL* can, VARIANT_BOOL* show) {
          *can = can_be_downloaded;
          *show = show_dialog;
          if (path) {
            SysReAllocStringLen(name, path->data(), static_cast<UINT>(path->size()));
          }
        });
  }
  // A host with no handler for the browser: nothing is written.
  void AnswerNothing() { EXPECT_CALL(*host_, BeforeDownloadNotify(window(), _, _, _)); }

  void ExpectContinued(const std::wstring& path, bool show_dialog = false) {
    ASSERT_EQ(before_->continuations.size(), 1u);
    EXPECT_EQ(before_->continuations[0].path.ToWString(), path);
    EXPECT_EQ(before_->continuations[0].show_dialog, show_dialog);
  }
  void ExpectDropped() { EXPECT_THAT(before_->continuations, IsEmpty()); }

  std::wstring DefaultPath() const { return downloads_.wstring() + L"\\\u00E4 file.bin"; }

  const std::filesystem::path folder_ = std::filesystem::temp_directory_path() /
                                        ("kz-download-" + std::to_string(GetCurrentProcessId()));
  const std::filesystem::path downloads_ = folder_ / "downloads";
  const CefRefPtr<recording_cef::FakeDownloadItem> item_ = new recording_cef::FakeDownloadItem;
  const CefRefPtr<recording_cef::FakeBeforeDownloadCallback> before_ =
      new recording_cef::FakeBeforeDownloadCallback;
  const CefRefPtr<recording_cef::FakeDownloadItemCallback> running_ =
      new recording_cef::FakeDownloadItemCallback;
};

TEST_F(DownloadTest, AsksTheHostWithTheUsersFolderAndTheStartValues) {
  EXPECT_CALL(*host_, BeforeDownloadNotify(window(), _, _, _))
      .WillOnce([&](HWND, BSTR* path, VARIANT_BOOL* can, VARIANT_BOOL* show) {
        EXPECT_EQ(TextOf(*path), DefaultPath());
        EXPECT_EQ(*can, VARIANT_TRUE);
        EXPECT_EQ(*show, 0);
      });
  Begin();
  EXPECT_EQ(host_->exchanges, (std::vector<bool>{true, false}));
}

TEST_F(DownloadTest, GoesToTheUsersFolderWhenNobodyAnswers) {
  AnswerNothing();
  Begin();
  ExpectContinued(DefaultPath());
}

TEST_F(DownloadTest, GoesToTheUsersFolderWithoutAHost) {
  PublishHostNotifications(nullptr);
  Begin();
  ExpectContinued(DefaultPath());
}

TEST_F(DownloadTest, GoesToTheUsersFolderWhileTheHostCloses) {
  host_->closing = true;
  Begin();
  ExpectContinued(DefaultPath());
}

TEST_F(DownloadTest, GoesToTheUsersFolderWhenItsBrowserIsGone) {
  handler_->OnBeforeDownload(nullptr, item_, "\xC3\xA4 file.bin", before_);
  ExpectContinued(DefaultPath());
}

TEST_F(DownloadTest, IsDroppedWhenNobodyAnswersAndThereIsNoFolder) {
  ReplaceGetKnownFolderPath(&AnswerNoFolder);
  EXPECT_CALL(*host_, BeforeDownloadNotify(window(), _, _, _))
      .WillOnce([](HWND, BSTR* path, VARIANT_BOOL* can, VARIANT_BOOL*) {
        EXPECT_EQ(TextOf(*path), L"");
        EXPECT_EQ(*can, 0);
      });
  Begin();
  ExpectDropped();
}

TEST_F(DownloadTest, IsAllowedByTheHostWithoutAFolder) {
  ReplaceGetKnownFolderPath(&AnswerNoFolder);
  Answer(VARIANT_TRUE);
  Begin();
  ExpectContinued(L"");
}

TEST_F(DownloadTest, IsForbiddenByZero) {
  Answer(VARIANT_FALSE);
  Begin();
  ExpectDropped();
}

// Kept: every answer but the automation's own true forbids.
TEST_F(DownloadTest, IsForbiddenByOneDeliberately) {
  Answer(1);
  Begin();
  ExpectDropped();
}

TEST_F(DownloadTest, IsForbiddenByTwoDeliberately) {
  Answer(2);
  Begin();
  ExpectDropped();
}

TEST_F(DownloadTest, IsNotShownADialogWhenItIsForbidden) {
  Answer(VARIANT_FALSE, VARIANT_TRUE);
  Begin();
  ExpectDropped();
}

TEST_F(DownloadTest, ShowsTheDialogForAnyNonZeroAnswer) {
  Answer(VARIANT_TRUE, 1);
  Begin();
  ExpectContinued(DefaultPath(), true);
}

TEST_F(DownloadTest, ShowsTheDialogForTrue) {
  Answer(VARIANT_TRUE, VARIANT_TRUE);
  Begin();
  ExpectContinued(DefaultPath(), true);
}

TEST_F(DownloadTest, GoesWhereTheHostWantsIt) {
  const std::wstring path = folder_.wstring() + L"\\\u4E2D.bin";
  Answer(VARIANT_TRUE, VARIANT_FALSE, path);
  Begin();
  ExpectContinued(path);
}

TEST_F(DownloadTest, GoesToTheUsersFolderWhenTheHostsIsNotThere) {
  const std::filesystem::path missing = folder_ / "missing";
  Answer(VARIANT_TRUE, VARIANT_TRUE, missing.wstring() + L"\\file.bin");
  Begin();
  ExpectContinued(DefaultPath(), true);
  EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(DownloadTest, GoesToTheUsersFolderWhenTheHostsIsAFile) {
  const std::filesystem::path file = folder_ / "file";
  std::ofstream(file) << "content";
  ASSERT_TRUE(std::filesystem::is_regular_file(file));
  Answer(VARIANT_TRUE, VARIANT_FALSE, file.wstring() + L"\\file.bin");
  Begin();
  ExpectContinued(DefaultPath());
}

TEST_F(DownloadTest, GoesToTheUsersFolderForANameAlone) {
  Answer(VARIANT_TRUE, VARIANT_FALSE, L"file.bin");
  Begin();
  ExpectContinued(DefaultPath());
}

TEST_F(DownloadTest, GoesToTheUsersFolderForAnEmptyPath) {
  Answer(VARIANT_TRUE, VARIANT_FALSE, L"");
  Begin();
  ExpectContinued(DefaultPath());
}

TEST_F(DownloadTest, GoesToTheUsersFolderForAMissingPath) {
  EXPECT_CALL(*host_, BeforeDownloadNotify(window(), _, _, _))
      .WillOnce([](HWND, BSTR* path, VARIANT_BOOL*, VARIANT_BOOL*) {
        SysFreeString(*path);
        *path = nullptr;
      });
  Begin();
  ExpectContinued(DefaultPath());
}

TEST_F(DownloadTest, GoesToTheUsersFolderForAPathBeyondAllLength) {
  const std::wstring path = folder_.wstring() + L"\\" + std::wstring(1 << 20, L'a') + L"\\b.bin";
  Answer(VARIANT_TRUE, VARIANT_FALSE, path);
  Begin();
  ExpectContinued(DefaultPath());
}

TEST_F(DownloadTest, TakesAFolderForAPath) {
  const std::wstring path = folder_.wstring() + L"\\";
  Answer(VARIANT_TRUE, VARIANT_TRUE, path);
  Begin();
  ExpectContinued(path, true);
}

TEST_F(DownloadTest, GoesOnWhenTheNotificationFails) {
  EXPECT_CALL(*host_, BeforeDownloadNotify(_, _, _, _)).WillOnce([] {
    _com_issue_error(E_OUTOFMEMORY);
  });
  Begin();
  ExpectContinued(DefaultPath());
}

TEST_F(DownloadTest, MayBeginFromAnyAddress) {
  EXPECT_TRUE(handler_->CanDownload(browser_, "http://a.test/", "GET"));
}

TEST_F(DownloadTest, TellsTheHostHowFarItIs) {
  item_->is_in_progress = true;
  item_->percent_complete = 37;
  item_->full_path = "C:\\\xC3\xA4.bin";
  EXPECT_CALL(*host_, DownloadUpdatedNotify(window(), std::wstring(L"C:\\\u00E4.bin"), 0, 37));
  Update();
  EXPECT_THAT(running_->commands, IsEmpty());
}

TEST_F(DownloadTest, TellsTheHostThatTheSizeIsNotKnown) {
  item_->is_in_progress = true;
  EXPECT_CALL(*host_, DownloadUpdatedNotify(window(), std::wstring(), 0, -1));
  Update();
}

TEST_F(DownloadTest, TellsTheHostOfTheUpdateFirstAndThenOfTheEnd) {
  item_->is_complete = true;
  item_->percent_complete = 100;
  item_->full_path = "C:\\a.bin";
  {
    const InSequence in_order;
    EXPECT_CALL(*host_, DownloadUpdatedNotify(window(), std::wstring(L"C:\\a.bin"), 1, 100));
    EXPECT_CALL(*host_, DownloadCompletedNotify(window(), std::wstring(L"C:\\a.bin")));
  }
  Update();
  EXPECT_EQ(host_->exchanges, (std::vector<bool>{true, false, true, false}));
}

TEST_F(DownloadTest, TellsTheHostOnceOfACancelledOne) {
  item_->is_canceled = true;
  item_->percent_complete = 12;
  item_->full_path = "C:\\a.bin";
  EXPECT_CALL(*host_, DownloadUpdatedNotify(window(), std::wstring(L"C:\\a.bin"), 2, 12));
  Update();
}

// Kept: hosts know no status of their own for it.
TEST_F(DownloadTest, TellsTheHostDeliberatelyThatAnInterruptedOneIsStillRunning) {
  item_->is_interrupted = true;
  item_->percent_complete = 12;
  EXPECT_CALL(*host_, DownloadUpdatedNotify(window(), std::wstring(), 0, 12));
  Update();
}

TEST_F(DownloadTest, TellsNobodyWithoutAHost) {
  item_->is_complete = true;
  PublishHostNotifications(nullptr);
  Update();
}

TEST_F(DownloadTest, TellsNothingToAClosingHost) {
  item_->is_complete = true;
  host_->closing = true;
  Update();
  EXPECT_THAT(host_->exchanges, IsEmpty());
}

TEST_F(DownloadTest, TellsNobodyOfABrowserThatIsGone) {
  item_->is_complete = true;
  handler_->OnDownloadUpdated(nullptr, item_, running_);
}

TEST_F(DownloadTest, TellsOfTheEndWhenTheUpdateFails) {
  item_->is_complete = true;
  EXPECT_CALL(*host_, DownloadUpdatedNotify(_, _, _, _)).WillOnce([] { throw std::bad_alloc(); });
  EXPECT_CALL(*host_, DownloadCompletedNotify(window(), _));
  Update();
}

}  // namespace
}  // namespace kzcef
