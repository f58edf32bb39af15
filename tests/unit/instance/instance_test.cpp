// One browser in a host window.
#include "runtime/kz_cef_instance.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "unit/instance/instance_test.h"
#include "unit/instance/marshalled_object.h"

namespace kzcef {
namespace {

using ::testing::_;
using ::testing::ElementsAre;
using testing::InstanceTest;
using ::testing::IsEmpty;
using testing::MovedTo;

TEST_F(InstanceTest, AsksForAChildThatFillsItsParent) {
  EXPECT_EQ(instance_.CreateBrowser(parent_.handle(), "http://a.test/\xC3\xA4"), 1);

  ASSERT_EQ(requests().size(), 1u);
  const auto& request = requests()[0];
  EXPECT_EQ(request.window_info.parent_window, parent_.handle());
  EXPECT_EQ(request.window_info.style, 0x56010000u);
  EXPECT_EQ(request.window_info.bounds.x, 0);
  EXPECT_EQ(request.window_info.bounds.y, 0);
  EXPECT_EQ(request.window_info.bounds.width, 640);
  EXPECT_EQ(request.window_info.bounds.height, 480);
  EXPECT_EQ(request.url.ToString(), "http://a.test/\xC3\xA4");
  EXPECT_FALSE(request.extra_info);
  EXPECT_FALSE(request.request_context);
}

TEST_F(InstanceTest, MakesAClientHandlerOfItsOwn) {
  ASSERT_EQ(instance_.CreateBrowser(parent_.handle(), "http://a.test/\xC3\xA4"), 1);
  const CefRefPtr<kzCefClientHandler> handler = requested_handler();
  EXPECT_EQ(handler->delegate(), &instance_);
  EXPECT_FALSE(handler->creation_flag());
  EXPECT_EQ(handler->startup_url(), "http://a.test/\xC3\xA4");
}

TEST_F(InstanceTest, AsksForNoBrowserWithoutAParent) {
  EXPECT_EQ(instance_.CreateBrowser(nullptr, "http://a.test/"), 0);
  const CefRefPtr<kzCefClientHandler> handler = new kzCefClientHandler(nullptr, false, "");
  EXPECT_EQ(instance_.CreateBrowserWithHandler(nullptr, "http://a.test/", handler), 0);
  EXPECT_EQ(handler->delegate(), nullptr);
  EXPECT_TRUE(handler->HasOneRef());
  EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(InstanceTest, AsksForNoBrowserWithoutAGivenHandler) {
  EXPECT_EQ(instance_.CreateBrowserWithHandler(parent_.handle(), "http://a.test/", nullptr), 0);
  EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(InstanceTest, ReportsSuccessAlsoWhenCefRefuses) {
  cef_.create_browser_result = false;
  EXPECT_EQ(instance_.CreateBrowser(parent_.handle(), "http://a.test/"), 1);
  EXPECT_EQ(instance_.GetWindowHandle(), nullptr);
}

TEST_F(InstanceTest, TakesOverAGivenHandler) {
  testing::MockDelegate before;
  const CefRefPtr<kzCefClientHandler> handler = new kzCefClientHandler(&before, false, "");
  EXPECT_EQ(instance_.CreateBrowserWithHandler(parent_.handle(), "http://p.test/", handler), 1);
  EXPECT_EQ(requested_handler().get(), handler.get());
  EXPECT_EQ(requests()[0].window_info.style, 0x56010000u);
  EXPECT_EQ(requests()[0].window_info.bounds.width, 640);
  EXPECT_EQ(handler->delegate(), &instance_);
}

TEST_F(InstanceTest, LetsGoOfTheHandlerHeldBefore) {
  const CefRefPtr<kzCefClientHandler> first = new kzCefClientHandler(nullptr, false, "");
  instance_.CreateBrowserWithHandler(parent_.handle(), "http://a.test/", first);
  ASSERT_EQ(instance_.CreateBrowser(parent_.handle(), "http://b.test/"), 1);
  ForgetRequests();
  EXPECT_TRUE(first->HasOneRef());
  EXPECT_EQ(first->delegate(), nullptr);
}

TEST_F(InstanceTest, KeepsAHandlerThatItIsGivenTwice) {
  const CefRefPtr<kzCefClientHandler> handler = new kzCefClientHandler(nullptr, false, "");
  instance_.CreateBrowserWithHandler(parent_.handle(), "http://a.test/", handler);
  instance_.CreateBrowserWithHandler(parent_.handle(), "http://b.test/", handler);
  EXPECT_EQ(handler->delegate(), &instance_);
}

TEST_F(InstanceTest, KeepsTheBrowserUntilItCloses) {
  StartWithBrowser();
  EXPECT_EQ(instance_.GetWindowHandle(), window_.handle());
  EXPECT_FALSE(browser_->HasOneRef());

  instance_.OnBrowserClosed(browser_);
  EXPECT_EQ(instance_.GetWindowHandle(), nullptr);
  EXPECT_TRUE(browser_->HasOneRef());
}

TEST_F(InstanceTest, LetsGoOfTheHandlerWhenItsBrowserCloses) {
  const CefRefPtr<kzCefClientHandler> handler = StartWithBrowser();
  ForgetRequests();
  handler->OnBeforeClose(browser_);
  EXPECT_EQ(handler->delegate(), nullptr);
  EXPECT_TRUE(handler->HasOneRef());
}

TEST_F(InstanceTest, IsNotTouchedByAClosingPopup) {
  const CefRefPtr<kzCefClientHandler> handler = StartWithBrowser();
  instance_.OnBrowserClosed(new recording_cef::FakeBrowser(8));
  EXPECT_EQ(instance_.GetWindowHandle(), window_.handle());
  EXPECT_EQ(handler->delegate(), &instance_);
}

TEST_F(InstanceTest, IsNotTouchedByAClosingBrowserWhenItHoldsNone) {
  instance_.CreateBrowser(parent_.handle(), "http://a.test/");
  instance_.OnBrowserClosed(browser_);
  EXPECT_EQ(requested_handler()->delegate(), &instance_);
}

TEST_F(InstanceTest, HoldsTheBrowserThatWasCreatedLast) {
  StartWithBrowser();
  const CefRefPtr<recording_cef::FakeBrowser> popup = new recording_cef::FakeBrowser(8);
  instance_.OnBrowserCreated(popup);
  EXPECT_TRUE(browser_->HasOneRef());
  EXPECT_FALSE(popup->HasOneRef());
}

TEST_F(InstanceTest, AppliesARectangleOnceTheBrowserExists) {
  instance_.SetRectangle(CefRect(10, -3, 800, 600));
  instance_.OnBrowserCreated(browser_);
  EXPECT_THAT(window_.moves, ElementsAre(MovedTo(10, -3, 800, 600)));
}

TEST_F(InstanceTest, AppliesTheLastRectangleOnly) {
  instance_.SetRectangle(CefRect(0, 0, 1, 1));
  instance_.SetRectangle(CefRect(5, 6, 7, 8));
  instance_.OnBrowserCreated(browser_);
  EXPECT_THAT(window_.moves, ElementsAre(MovedTo(5, 6, 7, 8)));
}

TEST_F(InstanceTest, AppliesNoRectangleThatWasNeverSet) {
  instance_.OnBrowserCreated(browser_);
  EXPECT_THAT(window_.moves, IsEmpty());
}

TEST_F(InstanceTest, AppliesNoKeptRectangleWithoutWidth) {
  instance_.SetRectangle(CefRect(10, 20, 0, 600));
  instance_.OnBrowserCreated(browser_);
  EXPECT_THAT(window_.moves, IsEmpty());
}

TEST_F(InstanceTest, AppliesNoKeptRectangleWithoutHeight) {
  instance_.SetRectangle(CefRect(10, 20, 800, 0));
  instance_.OnBrowserCreated(browser_);
  EXPECT_THAT(window_.moves, IsEmpty());
}

TEST_F(InstanceTest, MovesAnExistingBrowserAtOnceAlsoToNoSize) {
  StartWithBrowser();
  instance_.SetRectangle(CefRect(1, 2, 0, 0));
  EXPECT_THAT(window_.moves, ElementsAre(MovedTo(1, 2, 0, 0)));
}

TEST_F(InstanceTest, MovesNothingForABrowserWithoutAWindow) {
  browser_->host->window = nullptr;
  instance_.SetRectangle(CefRect(1, 2, 3, 4));
  instance_.OnBrowserCreated(browser_);
  instance_.SetRectangle(CefRect(5, 6, 7, 8));
  EXPECT_THAT(window_.moves, IsEmpty());
}

TEST_F(InstanceTest, DoesNothingWithoutABrowser) {
  testing::PlainObject object;
  EXPECT_EQ(instance_.ExecuteJS("1"), 0);
  EXPECT_EQ(instance_.GetURL(), L"");
  EXPECT_EQ(instance_.LoadURL("http://a.test/"), 0);
  EXPECT_FALSE(instance_.Refresh(false));
  EXPECT_FALSE(instance_.Refresh(true));
  EXPECT_EQ(instance_.GetWindowHandle(), nullptr);
  EXPECT_EQ(instance_.AddJSHandler("name", &object), 0);
  EXPECT_EQ(instance_.RemoveJSHandler("name", &object), 0);
  EXPECT_EQ(object.references, 1u);
}

TEST_F(InstanceTest, ActsOnNoMainFrameThatIsGone) {
  StartWithBrowser();
  browser_->has_main_frame = false;
  testing::PlainObject object;
  EXPECT_EQ(instance_.ExecuteJS("1"), 1);
  EXPECT_EQ(instance_.GetURL(), L"");
  EXPECT_EQ(instance_.LoadURL("http://a.test/"), 1);
  EXPECT_EQ(instance_.AddJSHandler("name", &object), 0);
  EXPECT_THAT(frame().scripts, IsEmpty());
  EXPECT_THAT(loaded_urls(), IsEmpty());
}

TEST_F(InstanceTest, DoesNothingOnceTheBrowserHasClosed) {
  StartWithBrowser();
  instance_.OnBrowserClosed(browser_);
  EXPECT_EQ(instance_.ExecuteJS("1"), 0);
  EXPECT_EQ(instance_.LoadURL("http://a.test/"), 0);
  EXPECT_FALSE(instance_.Refresh(false));
  EXPECT_THAT(frame().scripts, IsEmpty());
  EXPECT_THAT(loaded_urls(), IsEmpty());
}

TEST_F(InstanceTest, RunsScriptAsIfItStoodInTheMainFrame) {
  StartWithBrowser();
  frame().url = "http://now.test/";
  EXPECT_EQ(instance_.ExecuteJS("f('\xC3\xA4')"), 1);
  ASSERT_EQ(frame().scripts.size(), 1u);
  EXPECT_EQ(frame().scripts[0].code.ToString(), "f('\xC3\xA4')");
  EXPECT_EQ(frame().scripts[0].url.ToString(), "http://now.test/");
  EXPECT_EQ(frame().scripts[0].line, 0);
}

TEST_F(InstanceTest, LoadsAndAnswersTheMainFramesUrl) {
  StartWithBrowser();
  EXPECT_EQ(instance_.LoadURL("http://b.test/"), 1);
  EXPECT_THAT(loaded_urls(), ElementsAre("http://b.test/"));
  frame().url = "http://b.test/\xC3\xA4";
  EXPECT_EQ(instance_.GetURL(), L"http://b.test/\u00E4");
}

TEST_F(InstanceTest, ReloadsWithAndWithoutTheCache) {
  StartWithBrowser();
  EXPECT_TRUE(instance_.Refresh(false));
  EXPECT_EQ(browser_->reload_count, 1);
  EXPECT_EQ(browser_->reload_ignore_cache_count, 0);
  EXPECT_TRUE(instance_.Refresh(true));
  EXPECT_EQ(browser_->reload_count, 1);
  EXPECT_EQ(browser_->reload_ignore_cache_count, 1);
}

TEST_F(InstanceTest, TellsTheHostOfTheLoadingState) {
  StartWithBrowser();
  EXPECT_CALL(*host_, LoadingStateChangeNotify(window_.handle(), VARIANT_TRUE, VARIANT_FALSE,
                                               VARIANT_FALSE));
  instance_.OnSetLoadingState(true, false, false);
  EXPECT_CALL(*host_, LoadingStateChangeNotify(window_.handle(), VARIANT_FALSE, VARIANT_TRUE,
                                               VARIANT_FALSE));
  instance_.OnSetLoadingState(false, true, false);
  EXPECT_CALL(*host_, LoadingStateChangeNotify(window_.handle(), VARIANT_FALSE, VARIANT_FALSE,
                                               VARIANT_TRUE));
  instance_.OnSetLoadingState(false, false, true);
}

TEST_F(InstanceTest, TellsNoLoadingStateWithoutABrowser) {
  instance_.OnSetLoadingState(true, false, false);
}

TEST_F(InstanceTest, TellsAClosingHostNoLoadingState) {
  StartWithBrowser();
  host_->closing = true;
  instance_.OnSetLoadingState(true, false, false);
}

TEST_F(InstanceTest, MayBeFreedByTheHostDuringANotification) {
  auto instance = std::make_unique<kzCefInstance>();
  instance->OnBrowserCreated(browser_);
  kzCefInstance* const freed = instance.get();
  EXPECT_CALL(*host_, LoadingStateChangeNotify(_, _, _, _)).WillOnce([&] { instance.reset(); });
  freed->OnSetLoadingState(true, false, false);
  EXPECT_TRUE(browser_->HasOneRef());
}

TEST_F(InstanceTest, DoesNothingInTheOtherCallbacks) {
  StartWithBrowser();
  instance_.OnBrowserClosing(browser_);
  instance_.OnSetAddress("http://a.test/");
  instance_.OnSetTitle("title");
  instance_.OnSetFavicon(nullptr);
  instance_.OnSetFullscreen(true);
  instance_.OnAutoResize(CefSize(1, 1));
  instance_.OnSetDraggableRegions({});
  instance_.OnTakeFocus(true);
  instance_.OnBeforeContextMenu(nullptr);
  EXPECT_EQ(instance_.GetWindowHandle(), window_.handle());
  EXPECT_THAT(window_.moves, IsEmpty());
}

TEST_F(InstanceTest, LetsGoOfEverythingWhenItIsFreed) {
  CefRefPtr<kzCefClientHandler> handler;
  {
    kzCefInstance instance;
    instance.CreateBrowser(parent_.handle(), "http://a.test/");
    handler = requested_handler();
    ForgetRequests();
    instance.OnBrowserCreated(browser_);
    EXPECT_FALSE(handler->HasOneRef());
  }
  EXPECT_EQ(handler->delegate(), nullptr);
  EXPECT_TRUE(handler->HasOneRef());
  EXPECT_TRUE(browser_->HasOneRef());
}

TEST_F(InstanceTest, LeavesAHandlerToItsNewOwnerWhenItIsFreed) {
  kzCefInstance popup;
  CefRefPtr<kzCefClientHandler> handler;
  {
    kzCefInstance opener;
    opener.CreateBrowser(parent_.handle(), "http://a.test/");
    handler = requested_handler();
    popup.CreateBrowserWithHandler(parent_.handle(), "http://p.test/", handler);
  }
  EXPECT_EQ(handler->delegate(), &popup);
}

TEST_F(InstanceTest, SendsAnObjectToThePage) {
  StartWithBrowser();
  testing::MarshalledObject object(1000);
  EXPECT_EQ(instance_.AddJSHandler("external\xC3\xA4", object.dispatch()), 1);

  const std::vector<recording_cef::SentMessage>& sent = frame().messages;
  ASSERT_EQ(sent.size(), 1u);
  EXPECT_EQ(sent[0].target, PID_RENDERER);
  EXPECT_EQ(sent[0].message->GetName().ToString(), "KZAddHandler");
  const CefRefPtr<CefListValue> arguments = sent[0].message->GetArgumentList();
  ASSERT_EQ(arguments->GetSize(), 2u);
  EXPECT_EQ(arguments->GetString(0).ToString(), "external\xC3\xA4");
  const std::string text = testing::TextOf(arguments->GetBinary(1));
  EXPECT_EQ(text.size(), 1336u);
  EXPECT_EQ(text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                   "0123456789+/"),
            1334u);
  EXPECT_TRUE(text.ends_with("=="));
  EXPECT_EQ(object.references, 1u);
}

TEST_F(InstanceTest, WithdrawsAnObjectFromThePage) {
  StartWithBrowser();
  testing::MarshalledObject object(100);
  EXPECT_EQ(instance_.RemoveJSHandler("external", object.dispatch()), 1);
  ASSERT_EQ(frame().messages.size(), 1u);
  EXPECT_EQ(frame().messages[0].message->GetName().ToString(), "KZRemoveHandler");
  EXPECT_EQ(frame().messages[0].message->GetArgumentList()->GetString(0).ToString(), "external");
}

TEST_F(InstanceTest, SendsNoObjectThatCannotBeMarshalled) {
  StartWithBrowser();
  testing::MarshalledObject object(100);
  object.refuse = true;
  EXPECT_EQ(instance_.AddJSHandler("external", object.dispatch()), 0);
  EXPECT_EQ(instance_.AddJSHandler("external", nullptr), 0);
  EXPECT_THAT(frame().messages, IsEmpty());
}

}  // namespace
}  // namespace kzcef
