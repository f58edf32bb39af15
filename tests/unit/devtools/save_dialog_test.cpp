// The dialog in which the user says where a download goes.

#include <gmock/gmock.h>
#include <windows.h>

#include <dlgs.h>

#include "download_fixture.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

constexpr char kCancelled[] = "40";

/// Waits for the "Save As" dialog of this process and lets the test act on it.
class SaveDialogTest : public DownloadTest {
 protected:
  void AskForAPath() {
    downloads_->on_before = [this](const std::string& name, auto callback) {
      callback->Continue(Target({name.begin(), name.end()}).wstring(), true);
    };
  }

  static BOOL CALLBACK Find(HWND window, LPARAM found) {
    DWORD process = 0;
    wchar_t name[16];
    GetWindowThreadProcessId(window, &process);
    GetClassNameW(window, name, 16);
    if (process == GetCurrentProcessId() && std::wstring_view(name) == L"#32770" &&
        IsWindowVisible(window)) {
      *reinterpret_cast<HWND*>(found) = window;
    }
    return TRUE;
  }
  static HWND Dialog() {
    HWND found = nullptr;
    EnumWindows(&Find, reinterpret_cast<LPARAM>(&found));
    return found;
  }
  HWND WaitForDialog() {
    EXPECT_TRUE(WaitForOutside([] { return Dialog() != nullptr; }));
    return Dialog();
  }
};

TEST_F(SaveDialogTest, ChosenNameIsUsed) {
  AddFile("/file.zip", "content");
  AskForAPath();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  HWND dialog = WaitForDialog();
  ASSERT_TRUE(dialog);
  // A box with a list on some systems, a plain field on others.
  const int field = GetDlgItem(dialog, cmb13) ? cmb13 : edt1;
  wchar_t offered[260];
  GetDlgItemTextW(dialog, field, offered, 260);
  EXPECT_STREQ(offered, L"file.zip");
  SetDlgItemTextW(dialog, field, Target(L"chosen.zip").c_str());
  PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_THAT(Arrived(), ElementsAre("chosen.zip"));
}

TEST_F(SaveDialogTest, CancelledDialogCancelsTheDownload) {
  AddFile("/file.zip", "content");
  AskForAPath();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  PostMessageW(WaitForDialog(), WM_COMMAND, IDCANCEL, 0);
  ASSERT_TRUE(log_.WaitFor("cancelled"));
  EXPECT_THAT(Ends(), ElementsAre(EndsWith(kCancelled)));
  EXPECT_THAT(Arrived(), IsEmpty());
  EXPECT_THAT(Unfinished(), IsEmpty());
}

TEST_F(SaveDialogTest, OtherBrowsersLiveOnMeanwhile) {
  AddFile("/file.zip", "content");
  server_.Add("/other", "<title>Other</title>");
  AskForAPath();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  HWND dialog = WaitForDialog();
  CreateBrowser(client_, server_.Url("/other"));
  EXPECT_TRUE(log_.WaitFor("title Other"));
  EXPECT_TRUE(IsWindow(dialog));
  PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  EXPECT_TRUE(log_.WaitFor("cancelled"));
}

TEST_F(SaveDialogTest, OpenDialogDoesNotHoldUpTheEnd) {
  AddFile("/file.zip", "content");
  AskForAPath();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  HWND dialog = WaitForDialog();
  const ULONGLONG start = GetTickCount64();
  StopEngine();
  EXPECT_LT(GetTickCount64() - start, 8'000u);
  EXPECT_FALSE(IsWindow(dialog));
  EXPECT_THAT(Ends(), IsEmpty());
}

}  // namespace
}  // namespace cefedition
