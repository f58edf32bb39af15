// What a page shows of itself.
#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "handler/client_download_image_callback.h"
#include "unit/handler/empty_image.h"
#include "unit/handler/file_bytes.h"
#include "unit/handler/handler_test.h"

namespace kzcef {
namespace {

using ::testing::_;
using testing::HandlerTest;
using ::testing::InSequence;
using ::testing::IsEmpty;

TEST_F(HandlerTest, TellsOwnerAndHostOfTheMainFramesAddress) {
  {
    const InSequence in_order;
    EXPECT_CALL(owner_, OnSetAddress("http://a.test/\xC3\xA4"));
    EXPECT_CALL(*host_, AddressChangeNotify(window(), std::wstring(L"http://a.test/\u00E4")));
  }
  handler_->OnAddressChange(browser_, frame(), "http://a.test/\xC3\xA4");
}

TEST_F(HandlerTest, TellsOnlyTheHostOfASubFramesAddress) {
  EXPECT_CALL(owner_, OnSetAddress(_)).Times(0);
  EXPECT_CALL(*host_, AddressChangeNotify(window(), std::wstring(L"http://sub.test/")));
  handler_->OnAddressChange(browser_, sub_frame(), "http://sub.test/");
}

TEST_F(HandlerTest, TellsTheHostOfAnEmptyAddress) {
  EXPECT_CALL(owner_, OnSetAddress(""));
  EXPECT_CALL(*host_, AddressChangeNotify(window(), std::wstring()));
  handler_->OnAddressChange(browser_, frame(), CefString());
}

TEST_F(HandlerTest, TellsTheHostOfAnAddressWithoutAnOwner) {
  handler_->SetDelegate(nullptr);
  EXPECT_CALL(*host_, AddressChangeNotify(window(), _));
  handler_->OnAddressChange(browser_, frame(), "http://a.test/");
}

TEST_F(HandlerTest, TellsTheOwnerOfAnAddressWithoutAHost) {
  PublishHostNotifications(nullptr);
  EXPECT_CALL(owner_, OnSetAddress("http://a.test/"));
  handler_->OnAddressChange(browser_, frame(), "http://a.test/");
}

TEST_F(HandlerTest, TellsTheOwnerOfTitleFullscreenAndSize) {
  EXPECT_CALL(owner_, OnSetTitle("Titel \xC3\xA4"));
  handler_->OnTitleChange(browser_, "Titel \xC3\xA4");
  EXPECT_CALL(owner_, OnSetFullscreen(true));
  handler_->OnFullscreenModeChange(browser_, true);
  EXPECT_CALL(owner_, OnSetFullscreen(false));
  handler_->OnFullscreenModeChange(browser_, false);
  EXPECT_CALL(owner_, OnAutoResize(_)).WillOnce([](const CefSize& size) {
    EXPECT_EQ(size.width, 12);
    EXPECT_EQ(size.height, 34);
  });
  EXPECT_TRUE(handler_->OnAutoResize(browser_, CefSize(12, 34)));
}

TEST_F(HandlerTest, ShowsAPageWithoutAnOwner) {
  handler_->SetDelegate(nullptr);
  handler_->OnTitleChange(browser_, "title");
  handler_->OnFullscreenModeChange(browser_, true);
  EXPECT_TRUE(handler_->OnAutoResize(browser_, CefSize(1, 1)));
}

TEST_F(HandlerTest, LeavesTheCursorToCefUnlessToldOtherwise) {
  EXPECT_FALSE(handler_->OnCursorChange(browser_, nullptr, CT_HAND, CefCursorInfo()));
  handler_->set_mouse_cursor_change_disabled(true);
  EXPECT_TRUE(handler_->OnCursorChange(browser_, nullptr, CT_HAND, CefCursorInfo()));
}

TEST_F(HandlerTest, FetchesNoFaviconUnlessToldTo) {
  handler_->OnFaviconURLChange(browser_, {"http://a.test/icon.png"});
  EXPECT_THAT(browser_host().image_downloads, IsEmpty());
}

TEST_F(HandlerTest, FetchesNoFaviconWhereThereIsNone) {
  handler_->set_download_favicon_images(true);
  handler_->OnFaviconURLChange(browser_, {});
  EXPECT_THAT(browser_host().image_downloads, IsEmpty());
}

TEST_F(HandlerTest, FetchesTheFirstFaviconAndPassesItOn) {
  handler_->set_download_favicon_images(true);
  handler_->OnFaviconURLChange(browser_, {"http://a.test/1.png", "http://a.test/2.png"});
  ASSERT_EQ(browser_host().image_downloads.size(), 1u);
  const recording_cef::ImageDownload& download = browser_host().image_downloads.front();
  EXPECT_EQ(download.url.ToString(), "http://a.test/1.png");
  EXPECT_TRUE(download.is_favicon);
  EXPECT_EQ(download.max_size, 16u);
  EXPECT_FALSE(download.bypass_cache);

  const CefRefPtr<CefImage> image = new testing::EmptyImage();
  EXPECT_CALL(owner_, OnSetFavicon(_)).WillOnce([&](CefRefPtr<CefImage> received) {
    EXPECT_EQ(received.get(), image.get());
  });
  download.callback->OnDownloadImageFinished("http://a.test/1.png", 404, image);
}

TEST_F(HandlerTest, PassesOnNoFaviconThatDidNotArrive) {
  const CefRefPtr<ClientDownloadImageCallback> callback = new ClientDownloadImageCallback(handler_);
  callback->OnDownloadImageFinished("http://a.test/1.png", 200, nullptr);
}

TEST_F(HandlerTest, PassesOnNoFaviconWithoutAnOwner) {
  handler_->SetDelegate(nullptr);
  const CefRefPtr<ClientDownloadImageCallback> callback = new ClientDownloadImageCallback(handler_);
  callback->OnDownloadImageFinished("http://a.test/1.png", 200, new testing::EmptyImage());
}

TEST_F(HandlerTest, IsKeptByTheFaviconCallbackForItsLife) {
  CefRefPtr<ClientDownloadImageCallback> callback = new ClientDownloadImageCallback(handler_);
  EXPECT_FALSE(handler_->HasOneRef());
  callback = nullptr;
  EXPECT_TRUE(handler_->HasOneRef());
}

// The current directory of the process is a new one.
class ConsoleMessageTest : public HandlerTest {
 protected:
  ConsoleMessageTest() {
    std::filesystem::create_directory(folder_);
    std::filesystem::current_path(folder_);
  }
  ~ConsoleMessageTest() override {
    std::filesystem::current_path(before_);
    std::filesystem::remove_all(folder_);
  }

  // Always false, so CEF's own log gets the message too.
  bool Message(int level) {
    return handler_->OnConsoleMessage(browser_, static_cast<cef_log_severity_t>(level),
                                      "text \xC3\xA4", "http://a.test/x.js", 7);
  }
  std::string Log() const { return testing::BytesOf(folder_ / "console.log"); }

  const std::filesystem::path before_ = std::filesystem::current_path();
  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      ("kz-console-message-" + std::to_string(GetCurrentProcessId()));
};

constexpr const char* kLoggedRest =
    "Message: text \xC3\xA4\r\r\nSource: http://a.test/x.js\r\r\nLine: 7\r\r\n"
    "-----------------------\r\r\n";

TEST_F(ConsoleMessageTest, IsNotLoggedByDefault) {
  SetEnvironmentVariableW(L"KZCefConsoleLog", nullptr);
  EXPECT_FALSE(Message(LOGSEVERITY_INFO));
  EXPECT_FALSE(std::filesystem::exists("console.log"));
  EXPECT_TRUE(handler_->first_console_message());
}

TEST_F(ConsoleMessageTest, IsLoggedInTheCurrentDirectory) {
  SetEnvironmentVariableW(L"KZCefConsoleLog", L"1");
  EXPECT_FALSE(Message(LOGSEVERITY_WARNING));
  EXPECT_FALSE(Message(LOGSEVERITY_ERROR));
  EXPECT_EQ(Log(),
            std::string("Level: Warn\r\r\n") + kLoggedRest + "Level: Error\r\r\n" + kLoggedRest);
  EXPECT_FALSE(handler_->first_console_message());
}

TEST_F(ConsoleMessageTest, LeavesTheLineOfANamelessLevelOpen) {
  SetEnvironmentVariableW(L"KZCefConsoleLog", L"1");
  EXPECT_FALSE(Message(LOGSEVERITY_DEFAULT));
  EXPECT_FALSE(Message(LOGSEVERITY_DISABLE));
  EXPECT_EQ(Log(), std::string("Level: ") + kLoggedRest + "Level: " + kLoggedRest);
}

TEST_F(ConsoleMessageTest, IsDroppedWhenTheFileCannotBeOpened) {
  SetEnvironmentVariableW(L"KZCefConsoleLog", L"1");
  std::filesystem::create_directory("console.log");
  EXPECT_FALSE(Message(LOGSEVERITY_INFO));
  EXPECT_TRUE(handler_->first_console_message());
}

}  // namespace
}  // namespace kzcef
