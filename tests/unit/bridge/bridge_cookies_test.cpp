// The bridge's cookie operations, on stores that behave as a test wants.
#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bridge/kz_cef_bridge_impl.h"
#include "recording_cef/fake_cookie_manager.h"
#include "recording_cef/recording_cef.h"
#include "recording_cef/scripted_cookie_store.h"
#include "unit/bridge/cookie_test.h"
#include "unit/bridge/fake_runtime.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

using recording_cef::FakeCookieManager;
using recording_cef::ScriptedCookieStore;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::MakeCookie;
using testing::TakeTexts;
using testing::TextOfCookie;
using Clock = std::chrono::steady_clock;

constexpr wchar_t kUrl[] = L"http://a.test/p";
constexpr wchar_t kFrench[] =
    L"{\"name\":\"lorvlang\",\"value\":\"fr\",\"domain\":\".intranet.test\"}";
// A cookie whose text mentions the language cookie and cannot be taken apart.
const CefCookie kTorn = MakeCookie(L"a\"b,c", L"lorvlang");

class BridgeCookies : public ::testing::Test {
 protected:
  BridgeCookies() { cef_.cookie_manager = store_; }
  ~BridgeCookies() override { cef_.Reset(); }

  void UseStore(ScriptedCookieStore::Visit visit) {
    cef_.cookie_manager = new ScriptedCookieStore(std::move(visit));
  }

  recording_cef::RecordingCef& cef_ = recording_cef::RecordingCef::Get();
  const CefRefPtr<FakeCookieManager> store_ = new FakeCookieManager;
  kzCefBridgeImpl bridge_;
};

class PreparedBridgeCookies : public BridgeCookies {
 protected:
  PreparedBridgeCookies() { bridge_.PrepareCookieAccess(); }
};

TEST_F(BridgeCookies, AreReachedThroughTheGlobalManagerWithoutACallback) {
  bridge_.PrepareCookieAccess();
  EXPECT_THAT(cef_.cookie_manager_callbacks, ElementsAre(nullptr));
}

TEST_F(BridgeCookies, GiveThePreparedStoreBackWithTheNextOne) {
  bridge_.PrepareCookieAccess();
  cef_.cookie_manager = nullptr;
  EXPECT_FALSE(store_->HasOneRef());
  bridge_.PrepareCookieAccess();
  EXPECT_TRUE(store_->HasOneRef());
}

TEST_F(BridgeCookies, NeedNoPreparation) {
  store_->cookies = {MakeCookie(L"n", L"v")};
  EXPECT_EQ(bridge_.GetUrlCookies(kUrl).vt, VT_EMPTY);
  EXPECT_FALSE(bridge_.SetUrlCookies(kUrl, kFrench));
  EXPECT_EQ(CookieLanguage(), L"");
  EXPECT_THAT(store_->url_visits, IsEmpty());
  EXPECT_THAT(store_->stored, IsEmpty());
  EXPECT_THAT(TakeTexts(bridge_.GetCookiesSync(true, nullptr)),
              ElementsAre(TextOfCookie(L"n", L"v")));
}

TEST_F(PreparedBridgeCookies, GoBackToCefBeforeItsEnd) {
  const testing::FakeRuntime runtime;
  cef_.cookie_manager = nullptr;
  cef_.on_shutdown = [&] { EXPECT_TRUE(store_->HasOneRef()); };
  bridge_.Shutdown();
  EXPECT_EQ(cef_.shutdown_count, 1);
  EXPECT_FALSE(bridge_.SetUrlCookies(kUrl, kFrench));
  EXPECT_EQ(bridge_.GetUrlCookies(kUrl).vt, VT_EMPTY);
  EXPECT_EQ(bridge_.GetCookiesSync(true, nullptr).vt, VT_EMPTY);
  EXPECT_THAT(store_->stored, IsEmpty());
}

TEST_F(BridgeCookies, AreNoneWithoutAStore) {
  cef_.cookie_manager = nullptr;
  bridge_.PrepareCookieAccess();
  EXPECT_EQ(bridge_.GetUrlCookies(kUrl).vt, VT_EMPTY);
  EXPECT_FALSE(bridge_.SetUrlCookies(kUrl, kFrench));
  EXPECT_EQ(bridge_.GetCookiesSync(true, nullptr).vt, VT_EMPTY);
  EXPECT_EQ(bridge_.GetCookiesSync(false, kUrl).vt, VT_EMPTY);
}

// --- GetUrlCookies ---

TEST_F(PreparedBridgeCookies, OfAUrlIncludeThoseThatScriptsDoNotSee) {
  store_->cookies = {MakeCookie(L"n", L"v"), MakeCookie(L"m", L"w")};
  EXPECT_THAT(TakeTexts(bridge_.GetUrlCookies(kUrl)),
              ElementsAre(TextOfCookie(L"n", L"v"), TextOfCookie(L"m", L"w")));
  ASSERT_EQ(store_->url_visits.size(), 1u);
  EXPECT_EQ(store_->url_visits[0].url.ToWString(), kUrl);
  EXPECT_TRUE(store_->url_visits[0].include_http_only);
  EXPECT_EQ(store_->all_visits, 0);
}

TEST_F(PreparedBridgeCookies, OfAUrlAreAskedForOnAnotherThread) {
  std::thread::id visiting;
  UseStore([&](CefRefPtr<CefCookieVisitor>) {
    visiting = std::this_thread::get_id();
    return true;
  });
  EXPECT_EQ(bridge_.GetUrlCookies(kUrl).vt, VT_EMPTY);
  EXPECT_NE(visiting, std::thread::id());
  EXPECT_NE(visiting, std::this_thread::get_id());
}

TEST_F(PreparedBridgeCookies, OfAUrlAreThoseThatHaveComeByThen) {
  CefRefPtr<CefCookieVisitor> kept;
  UseStore([&](CefRefPtr<CefCookieVisitor> visitor) {
    bool remove = false;
    visitor->Visit(MakeCookie(L"early", L"1"), 0, 2, remove);
    kept = visitor;
    return true;
  });
  EXPECT_THAT(TakeTexts(bridge_.GetUrlCookies(kUrl)), ElementsAre(TextOfCookie(L"early", L"1")));
  bool remove = false;
  kept->Visit(MakeCookie(L"late", L"2"), 1, 2, remove);
  // The list starts anew: what came too late for one read is not in the next one.
  EXPECT_THAT(TakeTexts(bridge_.GetUrlCookies(kUrl)), ElementsAre(TextOfCookie(L"early", L"1")));
}

TEST_F(PreparedBridgeCookies, StayPossibleToDeliverAfterAnotherPreparation) {
  CefCookieVisitor* visited = nullptr;
  UseStore([&](CefRefPtr<CefCookieVisitor> visitor) {
    visited = visitor.get();
    return true;
  });
  bridge_.GetUrlCookies(kUrl);
  bridge_.PrepareCookieAccess();
  // The visitor of the last read lives on until the next one.
  EXPECT_TRUE(visited->HasOneRef());
}

TEST_F(PreparedBridgeCookies, OfAUrlAreNoneWhenTheVisitIsRefusedOrFails) {
  store_->is_accessible = false;
  EXPECT_EQ(bridge_.GetUrlCookies(kUrl).vt, VT_EMPTY);
  UseStore([](CefRefPtr<CefCookieVisitor>) -> bool { throw std::runtime_error("store"); });
  EXPECT_EQ(bridge_.GetUrlCookies(kUrl).vt, VT_EMPTY);
}

TEST_F(PreparedBridgeCookies, OfNoUrlAreAskedForWithAnEmptyOne) {
  EXPECT_EQ(bridge_.GetUrlCookies(nullptr).vt, VT_EMPTY);
  ASSERT_EQ(store_->url_visits.size(), 1u);
  EXPECT_EQ(store_->url_visits[0].url.ToString(), "");
}

TEST_F(PreparedBridgeCookies, TellTheLanguageInEitherRead) {
  store_->cookies = {MakeCookie(L"lorvlang", L"de")};
  TakeTexts(bridge_.GetUrlCookies(kUrl));
  EXPECT_EQ(CookieLanguage(), L"de");
  store_->cookies = {MakeCookie(L"lorvlang", L"it")};
  TakeTexts(bridge_.GetCookiesSync(false, kUrl));
  EXPECT_EQ(CookieLanguage(), L"it");
}

TEST_F(PreparedBridgeCookies, RaiseTheErrorOfATextWithoutMembersInEitherRead) {
  store_->cookies = {kTorn};
  EXPECT_THROW(bridge_.GetUrlCookies(kUrl), std::out_of_range);
  EXPECT_THROW(bridge_.GetCookiesSync(false, kUrl), std::out_of_range);
  EXPECT_THROW(bridge_.GetCookiesSync(true, nullptr), std::out_of_range);
}

// --- GetCookiesSync ---

TEST_F(BridgeCookies, OfTheWholeStoreNeedNoUrl) {
  store_->cookies = {MakeCookie(L"n", L"v"), MakeCookie(L"m", L"w", L"b.test")};
  EXPECT_THAT(TakeTexts(bridge_.GetCookiesSync(true, nullptr)),
              ElementsAre(TextOfCookie(L"n", L"v"), TextOfCookie(L"m", L"w", L"b.test")));
  EXPECT_EQ(store_->all_visits, 1);
  EXPECT_THAT(store_->url_visits, IsEmpty());
}

TEST_F(BridgeCookies, OfOneUrlAreAskedForWithThatUrl) {
  store_->cookies = {MakeCookie(L"n", L"v")};
  EXPECT_THAT(TakeTexts(bridge_.GetCookiesSync(false, kUrl)),
              ElementsAre(TextOfCookie(L"n", L"v")));
  ASSERT_EQ(store_->url_visits.size(), 1u);
  EXPECT_EQ(store_->url_visits[0].url.ToWString(), kUrl);
  EXPECT_TRUE(store_->url_visits[0].include_http_only);
  EXPECT_EQ(store_->all_visits, 0);
}

TEST_F(BridgeCookies, OfNoUrlAreNotVisited) {
  store_->cookies = {MakeCookie(L"n", L"v")};
  EXPECT_EQ(bridge_.GetCookiesSync(false, nullptr).vt, VT_EMPTY);
  EXPECT_THAT(store_->url_visits, IsEmpty());
  EXPECT_EQ(store_->all_visits, 0);
}

TEST_F(BridgeCookies, AreNoneWhenTheVisitIsRefused) {
  store_->cookies = {MakeCookie(L"n", L"v")};
  store_->is_accessible = false;
  EXPECT_EQ(bridge_.GetCookiesSync(true, nullptr).vt, VT_EMPTY);
  EXPECT_EQ(bridge_.GetCookiesSync(false, kUrl).vt, VT_EMPTY);
}

TEST_F(BridgeCookies, OfAnEmptyStoreAreAnsweredAfterOneWait) {
  // Kept by the store, so that nothing ends the wait early.
  store_->keep_callbacks = true;
  auto shortest = Clock::duration::max();
  // A busy machine may draw one of them out, hardly all.
  for (int read = 0; read < 5; ++read) {
    const auto start = Clock::now();
    EXPECT_EQ(bridge_.GetCookiesSync(true, nullptr).vt, VT_EMPTY);
    shortest = std::min(shortest, Clock::now() - start);
  }
  EXPECT_GE(shortest, std::chrono::milliseconds(90));
  EXPECT_LT(shortest, std::chrono::milliseconds(180));
}

// Kept deliberately: a store that shows nothing within the first wait counts as empty.
TEST_F(BridgeCookies, OfAStoreThatBeginsTooLateAreNone) {
  store_->cookies = {MakeCookie(L"n", L"v")};
  store_->keep_callbacks = true;
  EXPECT_EQ(bridge_.GetCookiesSync(true, nullptr).vt, VT_EMPTY);
  bool remove = false;
  EXPECT_TRUE(store_->kept_visitors.at(0)->Visit(store_->cookies[0], 0, 1, remove));
}

// The read waits for the last cookie, however long that takes.
TEST_F(BridgeCookies, AreWaitedForUntilAllHaveCome) {
  std::thread engine;
  UseStore([&](CefRefPtr<CefCookieVisitor> visitor) {
    bool remove = false;
    visitor->Visit(MakeCookie(L"1", L"a"), 0, 3, remove);
    engine = std::thread([visitor = std::move(visitor)] {
      bool remove_later = false;
      for (const wchar_t* name : {L"2", L"3"}) {
        // Longer than a wait of the reading thread: the delay is what is under test.
        Sleep(150);
        visitor->Visit(MakeCookie(name, L"a"), 1, 3, remove_later);
      }
    });
    return true;
  });
  EXPECT_THAT(
      TakeTexts(bridge_.GetCookiesSync(true, nullptr)),
      ElementsAre(TextOfCookie(L"1", L"a"), TextOfCookie(L"2", L"a"), TextOfCookie(L"3", L"a")));
  engine.join();
}

TEST_F(BridgeCookies, OfAVisitThatBreaksOffAreThoseThatHaveCome) {
  UseStore([](CefRefPtr<CefCookieVisitor> visitor) {
    bool remove = false;
    visitor->Visit(MakeCookie(L"1", L"a"), 0, 3, remove);
    return true;
  });
  EXPECT_THAT(TakeTexts(bridge_.GetCookiesSync(true, nullptr)),
              ElementsAre(TextOfCookie(L"1", L"a")));
}

// The total is the process's, and starts anew with each read.
TEST_F(BridgeCookies, AreNotMeasuredByTheTotalOfAnEarlierRead) {
  SetExpectedCookieTotal(7);
  store_->keep_callbacks = true;
  EXPECT_EQ(bridge_.GetCookiesSync(true, nullptr).vt, VT_EMPTY);
  EXPECT_EQ(ExpectedCookieTotal(), 0);
}

TEST_F(BridgeCookies, AreVisitedByAVisitorThatOnlyTheStoreHolds) {
  bool is_the_only_one = false;
  UseStore([&](CefRefPtr<CefCookieVisitor> visitor) {
    is_the_only_one = visitor->HasOneRef();
    return true;
  });
  bridge_.GetCookiesSync(true, nullptr);
  EXPECT_TRUE(is_the_only_one);
}

TEST_F(BridgeCookies, OfALargeStoreArriveWholeAcrossTheThreads) {
  constexpr int kCookies = 5'000;
  std::thread engine;
  UseStore([&](CefRefPtr<CefCookieVisitor> visitor) {
    engine = std::thread([visitor = std::move(visitor)] {
      bool remove = false;
      for (int at = 0; at < kCookies; ++at) {
        visitor->Visit(MakeCookie(std::to_wstring(at), L"v"), at, kCookies, remove);
      }
    });
    return true;
  });
  const auto texts = TakeTexts(bridge_.GetCookiesSync(true, nullptr));
  engine.join();
  ASSERT_EQ(texts.size(), static_cast<std::size_t>(kCookies));
  for (int at = 0; at < kCookies; ++at) {
    ASSERT_EQ(texts[static_cast<std::size_t>(at)], TextOfCookie(std::to_wstring(at), L"v"));
  }
}

// --- SetUrlCookies ---

TEST_F(PreparedBridgeCookies, AreSetForTheSessionSecureAndSentAlongFromEverySite) {
  EXPECT_TRUE(bridge_.SetUrlCookies(kUrl, kFrench));
  ASSERT_EQ(store_->stored.size(), 1u);
  EXPECT_EQ(store_->stored[0].url.ToWString(), kUrl);
  const CefCookie& cookie = store_->stored[0].cookie;
  EXPECT_EQ(CefString(&cookie.name).ToString(), "lorvlang");
  EXPECT_EQ(CefString(&cookie.value).ToString(), "fr");
  EXPECT_EQ(CefString(&cookie.domain).ToString(), ".intranet.test");
  EXPECT_EQ(CefString(&cookie.path).ToString(), "");
  EXPECT_TRUE(cookie.secure);
  EXPECT_FALSE(cookie.httponly);
  EXPECT_FALSE(cookie.has_expires);
  EXPECT_EQ(cookie.creation.val, 0);
  EXPECT_EQ(cookie.last_access.val, 0);
  EXPECT_EQ(cookie.same_site, CEF_COOKIE_SAME_SITE_NO_RESTRICTION);
  EXPECT_EQ(cookie.priority, CEF_COOKIE_PRIORITY_MEDIUM);
  EXPECT_EQ(CookieLanguage(), L"fr");
}

TEST_F(PreparedBridgeCookies, AreSetWithoutACallback) {
  store_->keep_callbacks = true;
  EXPECT_TRUE(bridge_.SetUrlCookies(kUrl, kFrench));
  EXPECT_THAT(store_->kept_set_callbacks, IsEmpty());
}

TEST_F(PreparedBridgeCookies, AreCalledSetWhateverTheStoreSays) {
  store_->is_accessible = false;
  EXPECT_TRUE(bridge_.SetUrlCookies(kUrl, kFrench));
  EXPECT_EQ(CookieLanguage(), L"fr");
}

TEST_F(PreparedBridgeCookies, MayHaveEmptyMembersAndBeReadBack) {
  EXPECT_TRUE(bridge_.SetUrlCookies(nullptr, TextOfCookie(L"", L"", L"").c_str()));
  ASSERT_EQ(store_->stored.size(), 1u);
  const CefCookie& cookie = store_->stored[0].cookie;
  EXPECT_EQ(CefString(&cookie.name).ToString(), "");
  EXPECT_EQ(CefString(&cookie.value).ToString(), "");
  EXPECT_EQ(CefString(&cookie.domain).ToString(), "");
  EXPECT_EQ(store_->stored[0].url.ToString(), "");
  EXPECT_TRUE(bridge_.SetUrlCookies(kUrl, TextOfCookie(L"n", L"a\"b", L"d").c_str()));
  EXPECT_EQ(CefString(&store_->stored[1].cookie.value).ToString(), "a\"b");
}

TEST_F(PreparedBridgeCookies, AreNotSetFromATextWithoutMembers) {
  for (const wchar_t* text : {L"{}", L"", L" ", L"no object", L"[1,2]"}) {
    EXPECT_FALSE(bridge_.SetUrlCookies(kUrl, text)) << text;
  }
  EXPECT_FALSE(bridge_.SetUrlCookies(kUrl, nullptr));
  EXPECT_THAT(store_->stored, IsEmpty());
}

TEST_F(PreparedBridgeCookies, AreNotSetFromATextWithoutOneOfTheThreeMembers) {
  for (const wchar_t* text :
       {L"{\"name\":\"lorvlang\",\"value\":\"v\"}", L"{\"name\":\"lorvlang\",\"domain\":\"d\"}",
        L"{\"value\":\"v\",\"domain\":\"d\"}",
        L"{\"Name\":\"n\",\"value\":\"v\",\"domain\":\"d\"}"}) {
    try {
      bridge_.SetUrlCookies(kUrl, text);
      ADD_FAILURE() << text;
    } catch (const std::out_of_range& error) {
      EXPECT_STREQ(error.what(), "invalid map<K, T> key");
    }
  }
  EXPECT_THAT(store_->stored, IsEmpty());
  EXPECT_EQ(CookieLanguage(), L"");
}

TEST_F(PreparedBridgeCookies, LeaveTheLanguageAloneUnderAnotherName) {
  EXPECT_TRUE(bridge_.SetUrlCookies(kUrl, TextOfCookie(L"other", L"lorvlang").c_str()));
  EXPECT_TRUE(bridge_.SetUrlCookies(kUrl, TextOfCookie(L"Lorvlang", L"de").c_str()));
  EXPECT_EQ(CookieLanguage(), L"");
}

}  // namespace
}  // namespace kzcef
