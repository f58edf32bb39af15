// What the two visitors do with the cookies that CEF shows them.
#include "bridge/cookie_visitors.h"

#include <gmock/gmock.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "unit/bridge/cookie_test.h"

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::MakeCookie;
using testing::TextOfCookie;
using testing::Texts;

CefRefPtr<CefWaitableEvent> NewEvent() {
  return CefWaitableEvent::CreateWaitableEvent(true, false);
}

TEST(CookieVisitor, CollectsAndNeverDeletes) {
  const CefRefPtr<kzCefCookieVisitor> visitor = new kzCefCookieVisitor;
  EXPECT_THAT(Texts(visitor->texts().Take()), IsEmpty());
  for (const bool before : {false, true}) {
    bool remove = before;
    EXPECT_TRUE(visitor->Visit(MakeCookie(L"n", L"v"), 0, 1, remove));
    EXPECT_EQ(remove, before);
  }
  EXPECT_THAT(Texts(visitor->texts().Take()),
              ElementsAre(TextOfCookie(L"n", L"v"), TextOfCookie(L"n", L"v")));
}

TEST(CookieVisitor, LeavesTheExpectedTotalAlone) {
  SetExpectedCookieTotal(5);
  const CefRefPtr<kzCefCookieVisitor> visitor = new kzCefCookieVisitor;
  bool remove = false;
  visitor->Visit(MakeCookie(L"n", L"v"), 0, 9, remove);
  EXPECT_EQ(ExpectedCookieTotal(), 5);
}

TEST(CookieVisitorSync, TellsTheTotalAndCollects) {
  const auto texts = std::make_shared<CookieTexts>();
  const CefRefPtr<kzCefCookieVisitorSync> visitor = new kzCefCookieVisitorSync(NewEvent(), texts);
  bool remove = false;
  EXPECT_TRUE(visitor->Visit(MakeCookie(L"n", L"v"), 0, 2, remove));
  EXPECT_FALSE(remove);
  EXPECT_EQ(ExpectedCookieTotal(), 2);
  EXPECT_EQ(texts->TakeWhenComplete(2), std::nullopt);
  EXPECT_TRUE(visitor->Visit(MakeCookie(L"m", L"w"), 1, 2, remove));
  const auto taken = texts->TakeWhenComplete(2);
  ASSERT_TRUE(taken);
  EXPECT_THAT(Texts(*taken), ElementsAre(TextOfCookie(L"n", L"v"), TextOfCookie(L"m", L"w")));
}

TEST(CookieVisitorSync, SignalsWhenItGoes) {
  const auto event = NewEvent();
  const auto texts = std::make_shared<CookieTexts>();
  CefRefPtr<kzCefCookieVisitorSync> visitor = new kzCefCookieVisitorSync(event, texts);
  bool remove = false;
  visitor->Visit(MakeCookie(L"n", L"v"), 0, 2, remove);
  EXPECT_FALSE(event->IsSignaled());
  visitor = nullptr;
  EXPECT_TRUE(event->IsSignaled());
  EXPECT_TRUE(event->HasOneRef());
  // With one of two cookies, but nobody to bring the other one.
  const auto taken = texts->TakeWhenComplete(2);
  ASSERT_TRUE(taken);
  EXPECT_THAT(Texts(*taken), ElementsAre(TextOfCookie(L"n", L"v")));
}

TEST(CookieTextsList, IsEmptyOnceTakenOrCleared) {
  CookieTexts texts;
  texts.Append(UniqueBstr(SysAllocString(L"a")));
  EXPECT_EQ(texts.Take().size(), 1u);
  EXPECT_THAT(texts.Take(), IsEmpty());
  texts.Append(UniqueBstr(SysAllocString(L"a")));
  texts.Clear();
  EXPECT_THAT(texts.Take(), IsEmpty());
  EXPECT_TRUE(texts.TakeWhenComplete(0));
}

TEST(CookieTextsList, LosesAndTearsNothingBetweenTwoThreads) {
  constexpr int kTexts = 20'000;
  const std::wstring text(50, L'x');
  CookieTexts texts;
  std::atomic<bool> is_done = false;
  std::thread engine([&] {
    for (int at = 0; at < kTexts; ++at) {
      texts.Append(UniqueBstr(NewBstr(text)));
    }
    is_done = true;
  });
  int seen = 0;
  for (bool is_last = false; !is_last;) {
    is_last = is_done;
    for (const UniqueBstr& taken : texts.Take()) {
      seen += ViewOf(taken.get()) == text ? 1 : 0;
    }
  }
  engine.join();
  EXPECT_EQ(seen, kTexts);
}

}  // namespace
}  // namespace kzcef
