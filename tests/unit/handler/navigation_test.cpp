// Navigations, and pages whose process has died.
#include <gmock/gmock.h>

#include <memory>
#include <string>

#include "recording_cef/fake_request_context.h"
#include "unit/handler/request_test.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

using recording_cef::FakeRequestContext;
using ::testing::_;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class NavigationTest : public testing::RequestTest {
 protected:
  NavigationTest() { cef_.request_context = context_; }

  bool Browse(const std::string& url, bool user_gesture = false, bool is_redirect = false) {
    return handler_->OnBeforeBrowse(browser_, frame(), Request(url), user_gesture, is_redirect);
  }
  // The host answers with `cancel`.
  void Answer(VARIANT_BOOL cancel) {
    EXPECT_CALL(*host_, BeforeBrowseNotify(window(), _, _, _, _))
        .WillOnce([=](HWND, const std::wstring&, VARIANT_BOOL, VARIANT_BOOL,
                      VARIANT_BOOL* cancel_navigation) { *cancel_navigation = cancel; });
  }
  void IgnoreTheHost() {
    EXPECT_CALL(*host_, BeforeBrowseNotify(_, _, _, _, _)).Times(AnyNumber());
  }

  static constexpr auto AnyNumber = ::testing::AnyNumber;
  static constexpr char kLanguages[] = "intl.accept_languages";

  void SetLanguages(const char* languages) {
    const CefRefPtr<CefValue> value = CefValue::Create();
    value->SetString(languages);
    context_->preferences[kLanguages] = value;
  }

  const CefRefPtr<FakeRequestContext> context_ = new FakeRequestContext;
};

TEST_F(NavigationTest, AsksTheHostWithUrlGestureAndRedirect) {
  const auto starts_false = [](HWND, const std::wstring&, VARIANT_BOOL, VARIANT_BOOL,
                               VARIANT_BOOL* cancel) { EXPECT_EQ(*cancel, VARIANT_FALSE); };
  EXPECT_CALL(*host_, BeforeBrowseNotify(window(), std::wstring(L"http://a.test/x"), VARIANT_TRUE,
                                         VARIANT_FALSE, _))
      .WillOnce(starts_false);
  EXPECT_FALSE(Browse("http://a.test/x", true, false));
  EXPECT_CALL(*host_, BeforeBrowseNotify(window(), std::wstring(L"http://a.test/y"), VARIANT_FALSE,
                                         VARIANT_TRUE, _))
      .WillOnce(starts_false);
  EXPECT_FALSE(Browse("http://a.test/y", false, true));
}

TEST_F(NavigationTest, TracesANavigationThatGoesAhead) {
  Answer(VARIANT_FALSE);
  EXPECT_FALSE(Browse("http://a.test/"));
  EXPECT_THAT(Traced(), ElementsAre(L"OnBeforeBrowse : http://a.test/"));
}

TEST_F(NavigationTest, CancelledByTheHostIsNotTraced) {
  Answer(VARIANT_TRUE);
  EXPECT_TRUE(Browse("http://a.test/"));
  EXPECT_THAT(Traced(), IsEmpty());
}

TEST_F(NavigationTest, AnyNonZeroAnswerCancels) {
  Answer(1);
  EXPECT_TRUE(Browse("http://a.test/"));
}

TEST_F(NavigationTest, GoesAheadWithoutAHost) {
  PublishHostNotifications(nullptr);
  EXPECT_FALSE(Browse("http://a.test/"));
  EXPECT_THAT(Traced(), SizeIs(1));
}

TEST_F(NavigationTest, GoesAheadWhileTheHostCloses) {
  host_->closing = true;
  EXPECT_FALSE(Browse("http://a.test/"));
}

TEST_F(NavigationTest, GoesAheadWhenMemoryForTheUrlRunsOut) {
  EXPECT_CALL(*host_, BeforeBrowseNotify(_, _, _, _, _)).WillOnce([] { throw std::bad_alloc(); });
  EXPECT_FALSE(Browse("http://a.test/"));
  EXPECT_FALSE(host_->processing);
}

TEST_F(NavigationTest, MakesTheEnginesLanguagesThoseOfTheSettings) {
  IgnoreTheHost();
  SetLanguages("en-US,en");
  SetAcceptLanguageList(L"de-CH,de");
  Browse("http://a.test/");
  ASSERT_THAT(context_->set_preferences, SizeIs(1));
  EXPECT_EQ(context_->set_preferences[0].first.ToString(), kLanguages);
  EXPECT_EQ(context_->set_preferences[0].second->GetType(), VTYPE_STRING);
  EXPECT_EQ(context_->set_preferences[0].second->GetString().ToString(), "de-CH,de");
  Browse("http://a.test/");
  EXPECT_THAT(context_->set_preferences, SizeIs(1)) << "they are the same now";
}

TEST_F(NavigationTest, SetsTheLanguagesBeforeTheHostIsAsked) {
  SetAcceptLanguageList(L"de");
  EXPECT_CALL(*host_, BeforeBrowseNotify(_, _, _, _, _)).WillOnce([&] {
    EXPECT_THAT(context_->set_preferences, SizeIs(1));
  });
  Browse("http://a.test/");
}

TEST_F(NavigationTest, AnEmptyListClearsTheEnginesLanguages) {
  // Kept deliberately: the two texts are compared, nothing more.
  IgnoreTheHost();
  SetLanguages("en-US,en");
  Browse("http://a.test/");
  ASSERT_THAT(context_->set_preferences, SizeIs(1));
  EXPECT_EQ(context_->set_preferences[0].second->GetString().ToString(), "");
}

TEST_F(NavigationTest, TwoEmptyListsAreEqual) {
  IgnoreTheHost();
  Browse("http://a.test/");
  SetLanguages("");
  Browse("http://a.test/");
  EXPECT_THAT(context_->set_preferences, IsEmpty());
}

TEST_F(NavigationTest, LanguagesGivenAtStartUpAreNeverTouched) {
  IgnoreTheHost();
  SetAcceptLanguageOverridden(true);
  SetLanguages("en-US,en");
  SetAcceptLanguageList(L"de");
  Browse("http://a.test/");
  EXPECT_THAT(context_->set_preferences, IsEmpty());
  EXPECT_EQ(cef_.get_global_context_count, 0);
}

TEST_F(NavigationTest, LanguagesThatCannotBeSetDoNotStopANavigation) {
  IgnoreTheHost();
  SetAcceptLanguageList(L"de");
  context_->can_set = false;
  EXPECT_FALSE(Browse("http://a.test/"));
}

TEST_F(NavigationTest, GoesAheadWithoutARequestContext) {
  IgnoreTheHost();
  SetAcceptLanguageList(L"de");
  cef_.request_context = nullptr;
  EXPECT_FALSE(Browse("http://a.test/"));
}

// The process of the page at `url` has died.
class CrashTest : public NavigationTest {
 protected:
  void Crash(const std::string& startup_url, const std::string& url) {
    handler_ = new kzCefClientHandler(nullptr, false, startup_url);
    browser_->main_frame->url = url;
    handler_->OnRenderProcessTerminated(browser_, TS_PROCESS_CRASHED);
  }
  std::vector<std::string> Loaded() {
    std::vector<std::string> urls;
    for (const CefString& url : browser_->main_frame->loaded_urls) {
      urls.push_back(url.ToString());
    }
    return urls;
  }
};

TEST_F(CrashTest, LoadsTheFirstPageAgainAsItWasGiven) {
  Crash("HTTP://Start.test/Home", "http://other.test/");
  EXPECT_THAT(Loaded(), ElementsAre("HTTP://Start.test/Home"));
}

TEST_F(CrashTest, OfThePageAfterChromeCrashLoadsTheFirstPage) {
  Crash("http://start.test/", "chrome://crash/");
  EXPECT_THAT(Loaded(), ElementsAre("http://start.test/"));
}

TEST_F(CrashTest, OfTheFirstSiteLoadsNothing) {
  Crash("http://START.test/", "http://start.TEST/below/page");
  EXPECT_THAT(Loaded(), IsEmpty());
}

TEST_F(CrashTest, OfAPageThatHoldsTheFirstUrlFurtherBackLoads) {
  Crash("http://start.test/", "http://other.test/?http://start.test/");
  EXPECT_THAT(Loaded(), SizeIs(1));
}

TEST_F(CrashTest, WithoutAFirstUrlLoadsNothing) {
  Crash("", "http://other.test/");
  EXPECT_THAT(Loaded(), IsEmpty());
}

TEST_F(CrashTest, WhoseFirstUrlIsADeliberateCrashLoadsNothing) {
  Crash("chrome://crash", "http://other.test/");
  EXPECT_THAT(Loaded(), IsEmpty());
}

TEST_F(CrashTest, WhoseFirstUrlOnlyLooksLikeADeliberateCrashLoads) {
  Crash("chrome://crash/", "http://other.test/");
  EXPECT_THAT(Loaded(), ElementsAre("chrome://crash/"));
}

TEST_F(CrashTest, OfABrowserWithoutAMainFrameIsHarmless) {
  browser_->has_main_frame = false;
  Crash("http://start.test/", "http://other.test/");
  EXPECT_THAT(Loaded(), IsEmpty());
}

}  // namespace
}  // namespace kzcef
