// Which popups CEF may open.
#include <gmock/gmock.h>

#include <optional>
#include <string>

#include "handler/shell_open.h"
#include "unit/handler/handler_test.h"

namespace kzcef {
namespace {

using ::testing::_;
using testing::HandlerTest;

// What ShellExecuteW would have opened.
std::optional<std::wstring> g_opened;

HINSTANCE WINAPI RecordShellExecute(HWND, LPCWSTR, LPCWSTR file, LPCWSTR, LPCWSTR, INT) {
  g_opened = file;
  return nullptr;
}

class PopupTest : public HandlerTest {
 protected:
  PopupTest() { ReplaceShellExecute(&RecordShellExecute); }
  ~PopupTest() override { ReplaceShellExecute(nullptr); }

  // True when the popup is cancelled.
  bool Popup(const char* url) {
    CefWindowInfo window_info;
    CefRefPtr<CefClient> client = handler_;
    CefBrowserSettings settings;
    CefRefPtr<CefDictionaryValue> extra_info;
    bool no_javascript_access = false;
    const bool cancelled = handler_->OnBeforePopup(
        browser_, frame(), url, "name", CEF_WOD_NEW_POPUP, true, CefPopupFeatures(), window_info,
        client, settings, extra_info, &no_javascript_access);
    EXPECT_EQ(client.get(), handler_.get());
    EXPECT_EQ(window_info.style, CefWindowInfo().style);
    EXPECT_FALSE(extra_info);
    EXPECT_FALSE(no_javascript_access);
    return cancelled;
  }

  // The host answers each popup with these.
  void Answer(VARIANT_BOOL popup, VARIANT_BOOL proceed) {
    EXPECT_CALL(*host_, BeforePopupNotify(window(), _, _, _))
        .WillOnce([=](HWND, const std::wstring&, VARIANT_BOOL* p, VARIANT_BOOL* c) {
          *p = popup;
          *c = proceed;
        });
  }
  // A host with no handler for the browser: nothing is written.
  void AnswerNothing() { EXPECT_CALL(*host_, BeforePopupNotify(window(), _, _, _)); }
};

TEST_F(PopupTest, AsksTheHostWithTheUrlAndThePlainStartValues) {
  EXPECT_CALL(*host_, BeforePopupNotify(window(), std::wstring(L"http://a.test/\u00E4"), _, _))
      .WillOnce([](HWND, const std::wstring&, VARIANT_BOOL* popup, VARIANT_BOOL* proceed) {
        EXPECT_EQ(*popup, 0);
        EXPECT_EQ(*proceed, 1);
      });
  EXPECT_FALSE(Popup("http://a.test/\xC3\xA4"));
}

TEST_F(PopupTest, IsAllowedWithoutAnAnswer) {
  AnswerNothing();
  EXPECT_FALSE(Popup("http://a.test/"));
  EXPECT_EQ(browser_host().print_count, 0);
  EXPECT_EQ(g_opened, std::nullopt);
}

TEST_F(PopupTest, IsAllowedWithoutAHost) {
  PublishHostNotifications(nullptr);
  EXPECT_FALSE(Popup("http://a.test/"));
}

TEST_F(PopupTest, IsAllowedWhileTheHostCloses) {
  host_->closing = true;
  EXPECT_FALSE(Popup("http://a.test/"));
}

TEST_F(PopupTest, PrintsForABlankPageWithoutAHost) {
  PublishHostNotifications(nullptr);
  EXPECT_TRUE(Popup("about:blank"));
  EXPECT_EQ(browser_host().print_count, 1);
}

TEST_F(PopupTest, IsCancelledByTheHostAndNothingElseHappens) {
  Answer(VARIANT_FALSE, VARIANT_FALSE);
  EXPECT_TRUE(Popup("http://a.test/"));
  EXPECT_EQ(browser_host().print_count, 0);
  EXPECT_EQ(g_opened, std::nullopt);
}

TEST_F(PopupTest, IsNotOpenedElsewhereWhenTheHostCancels) {
  Answer(VARIANT_TRUE, VARIANT_FALSE);
  EXPECT_TRUE(Popup("http://a.test/"));
  EXPECT_EQ(g_opened, std::nullopt);
}

TEST_F(PopupTest, DoesNotPrintWhenTheHostCancels) {
  Answer(VARIANT_FALSE, VARIANT_FALSE);
  EXPECT_TRUE(Popup("about:blank"));
  EXPECT_EQ(browser_host().print_count, 0);
}

TEST_F(PopupTest, IsOpenedByTheDesktopWhenTheHostSaysSo) {
  Answer(VARIANT_TRUE, VARIANT_TRUE);
  EXPECT_TRUE(Popup("mailto:a@b.test?subject=\xC3\xA4"));
  EXPECT_EQ(g_opened, L"mailto:a@b.test?subject=\u00E4");
  EXPECT_EQ(browser_host().print_count, 0);
}

TEST_F(PopupTest, TakesAnyNonZeroAnswerAsTrue) {
  Answer(1, 2);
  EXPECT_TRUE(Popup("http://a.test/"));
  EXPECT_EQ(g_opened, L"http://a.test/");
}

TEST_F(PopupTest, OpensABlankPageElsewhereRatherThanPrinting) {
  Answer(VARIANT_TRUE, VARIANT_TRUE);
  EXPECT_TRUE(Popup("about:blank"));
  EXPECT_EQ(g_opened, L"about:blank");
  EXPECT_EQ(browser_host().print_count, 0);
}

TEST_F(PopupTest, PrintsTheOpenerForABlankPage) {
  AnswerNothing();
  EXPECT_TRUE(Popup("about:blank"));
  EXPECT_EQ(browser_host().print_count, 1);
}

TEST_F(PopupTest, PrintsTheOpenerForABlankPageWithAFragment) {
  AnswerNothing();
  EXPECT_TRUE(Popup("about:blank#top"));
  EXPECT_EQ(browser_host().print_count, 1);
}

TEST_F(PopupTest, PrintsTheOpenerForABlankPageWithAQuery) {
  AnswerNothing();
  EXPECT_TRUE(Popup("about:blank?a=b"));
  EXPECT_EQ(browser_host().print_count, 1);
}

TEST_F(PopupTest, IsAllowedWhenABlankPageComesLaterInTheUrl) {
  AnswerNothing();
  EXPECT_FALSE(Popup("http://a.test/?next=about:blank"));
  EXPECT_EQ(browser_host().print_count, 0);
}

TEST_F(PopupTest, MindsTheLetterCaseOfABlankPage) {
  AnswerNothing();
  EXPECT_FALSE(Popup("About:blank"));
  EXPECT_EQ(browser_host().print_count, 0);
}

TEST_F(PopupTest, IsAllowedWithoutAUrl) {
  AnswerNothing();
  EXPECT_FALSE(Popup(""));
}

TEST_F(PopupTest, GoesOnWhenTheNotificationFails) {
  EXPECT_CALL(*host_, BeforePopupNotify(_, _, _, _)).WillOnce([] { throw std::bad_alloc(); });
  EXPECT_FALSE(Popup("http://a.test/"));
}

}  // namespace
}  // namespace kzcef
