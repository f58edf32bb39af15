// The bridge's operations with and without instance and browser.
#include "bridge/kz_cef_bridge_impl.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "bridge/init_cef_runtime.h"
#include "runtime/kz_cef_instance.h"
#include "runtime/pending_requests.h"
#include "unit/bridge/bridge_test.h"
#include "unit/instance/marshalled_object.h"

namespace kzcef {
namespace {

using testing::BridgeTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::MovedTo;

TEST_F(BridgeTest, StartsWithoutAnInstance) {
  EXPECT_EQ(bridge_.GetInstance(), nullptr);
}

TEST_F(BridgeTest, KeepsTheReservedSlotsEmpty) {
  bridge_.Reserved1();
  EXPECT_EQ(bridge_.Reserved2(), 0);
}

TEST_F(BridgeTest, StartsABrowserAsTheCurrentInstance) {
  EXPECT_EQ(bridge_.StartBrowser(parent_.handle(), L"http://a.test/\u00E4"), parent_.handle());
  kzCefInstance* const instance = bridge_.GetInstance();
  ASSERT_TRUE(instance);
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_EQ(requested_handler()->delegate(), instance);
  EXPECT_EQ(requests()[0].url.ToString(), "http://a.test/\xC3\xA4");
  EXPECT_EQ(requests()[0].window_info.parent_window, parent_.handle());
}

TEST_F(BridgeTest, StartsABrowserWithoutAUrl) {
  EXPECT_EQ(bridge_.StartBrowser(parent_.handle(), nullptr), parent_.handle());
  EXPECT_EQ(requests()[0].url.ToString(), "");
  EXPECT_EQ(bridge_.StartBrowser(parent_.handle(), L""), parent_.handle());
  EXPECT_EQ(requests()[1].url.ToString(), "");
}

TEST_F(BridgeTest, StartsNoBrowserWithoutAParent) {
  EXPECT_EQ(bridge_.StartBrowser(nullptr, L"http://a.test/"), nullptr);
  EXPECT_EQ(bridge_.GetInstance(), nullptr);
  EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(BridgeTest, KeepsTheCurrentInstanceWhenThereIsNoMemoryForANewOne) {
  kzCefInstance* const before = StartInstance();
  testing::FailAllocationsOf(sizeof(kzCefInstance));
  EXPECT_EQ(bridge_.StartBrowser(parent_.handle(), L"http://b.test/"), nullptr);
  testing::FailAllocationsOf(0);
  EXPECT_EQ(bridge_.GetInstance(), before);
  EXPECT_EQ(requests().size(), 1u);
}

TEST_F(BridgeTest, KeepsTheNewInstanceWhenItsBrowserFails) {
  kzCefInstance* const before = StartInstance();
  FailBrowsers();
  EXPECT_EQ(bridge_.StartBrowser(parent_.handle(), L"http://b.test/"), nullptr);
  EXPECT_NE(bridge_.GetInstance(), before);
  EXPECT_NE(bridge_.GetInstance(), nullptr);
}

TEST_F(BridgeTest, StartsAPopupWithAnExistingHandlerBesideTheCurrentInstance) {
  kzCefInstance* const opener = StartInstance();
  const CefRefPtr<kzCefClientHandler> handler = requested_handler();
  kzCefInstance* const popup =
      bridge_.StartPopupBrowser(parent_.handle(), L"http://p.test/", handler.get());
  ASSERT_TRUE(popup);
  EXPECT_NE(popup, opener);
  EXPECT_EQ(bridge_.GetInstance(), opener);
  EXPECT_EQ(handler->delegate(), popup);
  ASSERT_EQ(requests().size(), 2u);
  EXPECT_EQ(requests()[1].client.get(), handler.get());
  EXPECT_EQ(requests()[1].url.ToString(), "http://p.test/");
}

TEST_F(BridgeTest, StartsNoPopupWithoutAParentOrAHandler) {
  const CefRefPtr<kzCefClientHandler> handler = new kzCefClientHandler(nullptr, false, "");
  EXPECT_EQ(bridge_.StartPopupBrowser(nullptr, L"http://p.test/", handler.get()), nullptr);
  EXPECT_EQ(bridge_.StartPopupBrowser(parent_.handle(), L"http://p.test/", nullptr), nullptr);
  EXPECT_THAT(requests(), IsEmpty());
  EXPECT_TRUE(handler->HasOneRef());
}

TEST_F(BridgeTest, AnswersNoPopupThatFails) {
  const CefRefPtr<kzCefClientHandler> handler = new kzCefClientHandler(nullptr, false, "");
  testing::FailAllocationsOf(sizeof(kzCefInstance));
  EXPECT_EQ(bridge_.StartPopupBrowser(parent_.handle(), L"http://p.test/", handler.get()), nullptr);
  testing::FailAllocationsOf(0);
  FailBrowsers();
  EXPECT_EQ(bridge_.StartPopupBrowser(parent_.handle(), L"http://p.test/", handler.get()), nullptr);
  EXPECT_EQ(bridge_.GetInstance(), nullptr);
}

TEST_F(BridgeTest, AnswersFailureForNoInstance) {
  testing::PlainObject object;
  std::wstring text = L"before";
  EXPECT_EQ(bridge_.GetWindowHandle(nullptr), nullptr);
  EXPECT_FALSE(bridge_.LoadURL(L"http://a.test/", nullptr));
  EXPECT_EQ(&bridge_.GetURL(text, nullptr), &text);
  EXPECT_EQ(text, L"");
  EXPECT_FALSE(bridge_.ExecuteJS(L"1", nullptr));
  EXPECT_FALSE(bridge_.AddJSHandler(L"name", &object, nullptr));
  EXPECT_FALSE(bridge_.RemoveJSHandler(L"name", &object, nullptr));
  EXPECT_FALSE(bridge_.ResizeBrowser(1, 2, nullptr));
  EXPECT_FALSE(bridge_.ResizeBrowserRect(1, 2, 3, 4, nullptr));
  EXPECT_FALSE(bridge_.Refresh(false, nullptr));
  bridge_.DestroyInstance(nullptr);
}

TEST_F(BridgeTest, AnswersForAnInstanceWithoutABrowser) {
  kzCefInstance* const instance = StartInstance();
  testing::PlainObject object;
  std::wstring text = L"before";
  EXPECT_EQ(bridge_.GetWindowHandle(instance), nullptr);
  EXPECT_TRUE(bridge_.LoadURL(L"http://a.test/", instance));
  EXPECT_EQ(&bridge_.GetURL(text, instance), &text);
  EXPECT_EQ(text, L"");
  EXPECT_TRUE(bridge_.ExecuteJS(L"1", instance));
  EXPECT_TRUE(bridge_.AddJSHandler(L"name", &object, instance));
  EXPECT_TRUE(bridge_.RemoveJSHandler(L"name", &object, instance));
  EXPECT_TRUE(bridge_.ResizeBrowser(1, 2, instance));
  EXPECT_TRUE(bridge_.ResizeBrowserRect(1, 2, 3, 4, instance));
  EXPECT_FALSE(bridge_.Refresh(false, instance));
  EXPECT_THAT(loaded_urls(), IsEmpty());
  EXPECT_THAT(frame().scripts, IsEmpty());
  EXPECT_THAT(frame().messages, IsEmpty());
}

TEST_F(BridgeTest, ActsOnTheBrowser) {
  kzCefInstance* const instance = StartInstance();
  instance->OnBrowserCreated(browser_);
  frame().url = "http://now.test/";
  std::wstring text;
  EXPECT_EQ(bridge_.GetWindowHandle(instance), window_.handle());
  EXPECT_TRUE(bridge_.LoadURL(L"http://b.test/\u00E4", instance));
  EXPECT_THAT(loaded_urls(), ElementsAre("http://b.test/\xC3\xA4"));
  EXPECT_EQ(bridge_.GetURL(text, instance), L"http://now.test/");
  EXPECT_TRUE(bridge_.ExecuteJS(L"f()", instance));
  ASSERT_EQ(frame().scripts.size(), 1u);
  EXPECT_EQ(frame().scripts[0].code.ToString(), "f()");
  EXPECT_EQ(frame().scripts[0].url.ToString(), "http://now.test/");
  EXPECT_TRUE(bridge_.Refresh(false, instance));
  EXPECT_EQ(browser_->reload_count, 1);
  EXPECT_TRUE(bridge_.Refresh(true, instance));
  EXPECT_EQ(browser_->reload_ignore_cache_count, 1);
}

TEST_F(BridgeTest, ServesTheInstanceItIsGivenNotTheCurrentOne) {
  kzCefInstance* const first = StartInstance();
  first->OnBrowserCreated(browser_);
  kzCefInstance* const second = StartInstance();
  ASSERT_EQ(bridge_.GetInstance(), second);
  EXPECT_EQ(bridge_.GetWindowHandle(first), window_.handle());
  EXPECT_EQ(bridge_.GetWindowHandle(second), nullptr);
}

TEST_F(BridgeTest, OffersAndWithdrawsScriptObjects) {
  kzCefInstance* const instance = StartInstance();
  instance->OnBrowserCreated(browser_);
  testing::MarshalledObject object(100);
  EXPECT_TRUE(bridge_.AddJSHandler(L"name\u00E4", object.dispatch(), instance));
  EXPECT_TRUE(bridge_.RemoveJSHandler(nullptr, object.dispatch(), instance));
  ASSERT_EQ(frame().messages.size(), 2u);
  EXPECT_EQ(frame().messages[0].message->GetName().ToString(), "KZAddHandler");
  EXPECT_EQ(frame().messages[0].message->GetArgumentList()->GetString(0).ToString(),
            "name\xC3\xA4");
  EXPECT_EQ(frame().messages[1].message->GetName().ToString(), "KZRemoveHandler");
  EXPECT_EQ(frame().messages[1].message->GetArgumentList()->GetString(0).ToString(), "");
}

TEST_F(BridgeTest, TruncatesARectangleTowardZero) {
  kzCefInstance* const instance = StartInstance();
  EXPECT_TRUE(bridge_.ResizeBrowserRect(10.9, -3.7, 800.5, 600.2, instance));
  instance->OnBrowserCreated(browser_);
  EXPECT_THAT(window_.moves, ElementsAre(MovedTo(10, -3, 800, 600)));
}

TEST_F(BridgeTest, AppliesASizeWhenTheBrowserAppears) {
  kzCefInstance* const instance = StartInstance();
  EXPECT_TRUE(bridge_.ResizeBrowser(320.9, 240.1, instance));
  instance->OnBrowserCreated(browser_);
  EXPECT_THAT(window_.moves, ElementsAre(MovedTo(0, 0, 320, 240)));
}

TEST_F(BridgeTest, ResizesAnExistingBrowserAtOnce) {
  kzCefInstance* const instance = StartInstance();
  instance->OnBrowserCreated(browser_);
  EXPECT_TRUE(bridge_.ResizeBrowserRect(1, 2, 300, 200, instance));
  EXPECT_TRUE(bridge_.ResizeBrowser(30, 20, instance));
  EXPECT_THAT(window_.moves, ElementsAre(MovedTo(1, 2, 300, 200), MovedTo(0, 0, 30, 20)));
}

TEST_F(BridgeTest, BringsNumbersOutOfRangeIntoIt) {
  kzCefInstance* const instance = StartInstance();
  instance->OnBrowserCreated(browser_);
  EXPECT_TRUE(bridge_.ResizeBrowserRect(std::nan(""), -1e300,
                                        std::numeric_limits<double>::infinity(), 3e9, instance));
  ASSERT_EQ(window_.moves.size(), 1u);
  EXPECT_EQ(window_.moves[0].x, 0);
  // The system has a narrower range of its own.
  constexpr int kFar = 30000;
  EXPECT_LT(window_.moves[0].y, -kFar);
  EXPECT_GT(window_.moves[0].cx, kFar);
  EXPECT_GT(window_.moves[0].cy, kFar);
}

TEST_F(BridgeTest, TakesAnyInstanceAsTheCurrentOne) {
  kzCefInstance* const instance = StartInstance();
  bridge_.SetInstance(nullptr);
  EXPECT_EQ(bridge_.GetInstance(), nullptr);
  bridge_.SetInstance(instance);
  EXPECT_EQ(bridge_.GetInstance(), instance);
}

TEST_F(BridgeTest, FreesTheCurrentInstance) {
  kzCefInstance* const instance = StartInstance();
  const CefRefPtr<kzCefClientHandler> handler = requested_handler();
  ForgetRequests();
  instance->OnBrowserCreated(browser_);
  DestroyStarted(instance);
  EXPECT_EQ(bridge_.GetInstance(), nullptr);
  EXPECT_EQ(handler->delegate(), nullptr);

  cef_.RunTasks();
  EXPECT_TRUE(handler->HasOneRef());
  EXPECT_TRUE(browser_->HasOneRef());
}

TEST_F(BridgeTest, FreesAnInstanceOnTheUiThreadOnly) {
  kzCefInstance* const instance = StartInstance();
  instance->OnBrowserCreated(browser_);
  DestroyStarted(instance);
  // A callback under way on the UI thread would still find its instance here.
  EXPECT_FALSE(browser_->HasOneRef());
  cef_.RunTasks();
  EXPECT_TRUE(browser_->HasOneRef());
}

TEST_F(BridgeTest, FreesAnInstanceAtOnceWhenThereIsNoUiThread) {
  kzCefInstance* const instance = StartInstance();
  instance->OnBrowserCreated(browser_);
  cef_.post_task_result = false;
  DestroyStarted(instance);
  EXPECT_TRUE(browser_->HasOneRef());
}

TEST_F(BridgeTest, FreesAnotherInstanceThanTheCurrentOne) {
  kzCefInstance* const first = StartInstance();
  kzCefInstance* const second = StartInstance();
  DestroyStarted(first);
  EXPECT_EQ(bridge_.GetInstance(), second);
}

TEST_F(BridgeTest, ShutsCefDownAndThenGivesTheCacheLockBack) {
  EXPECT_TRUE(bridge_.Shutdown());
  EXPECT_EQ(cef_.shutdown_count, 1);
  EXPECT_EQ(runtime_.releases, 1);
  EXPECT_EQ(runtime_.shutdowns_before_release, 1);
}

// Notes how often CEF had been shut down when it was answered.
class WaitingRequest final : public ParkedRequest {
 public:
  WaitingRequest(const int& shutdowns, std::vector<int>& answers)
      : shutdowns_(shutdowns), answers_(answers) {}
  std::optional<int> Ask(HWND) noexcept override { return std::nullopt; }
  void Answer(int) noexcept override { answers_.push_back(shutdowns_); }

 private:
  const int& shutdowns_;
  std::vector<int>& answers_;
};

TEST_F(BridgeTest, AnswersWhatWaitsForTheHostsThreadBeforeItShutsCefDown) {
  std::vector<int> answers;
  const CefRefPtr<HostThreadDispatcher> requests = new PendingRequests();
  requests->ParkRequest("a:1", std::make_unique<WaitingRequest>(cef_.shutdown_count, answers));
  EXPECT_TRUE(bridge_.Shutdown());
  EXPECT_THAT(answers, ElementsAre(0));
}

TEST_F(BridgeTest, ShutsDownAlsoWithoutACacheLock) {
  runtime_.release_result = false;
  EXPECT_TRUE(bridge_.Shutdown());
}

TEST_F(BridgeTest, ReportsAShutdownThatThrows) {
  runtime_.release_throws = true;
  EXPECT_FALSE(bridge_.Shutdown());
}

TEST_F(BridgeTest, KeepsTheLockWhenCefDoesNotShutDown) {
  cef_.on_shutdown = [] { throw std::runtime_error("shutdown"); };
  EXPECT_FALSE(bridge_.Shutdown());
  EXPECT_EQ(runtime_.releases, 0);
}

TEST_F(BridgeTest, IsHandedOutByAStartThatSucceeds) {
  runtime_.start_result = true;
  EXPECT_EQ(InitCefRuntime(nullptr, nullptr), &BridgeSingleton());
  EXPECT_EQ(&BridgeSingleton(), &BridgeSingleton());
}

TEST_F(BridgeTest, IsNotHandedOutByAStartThatFails) {
  runtime_.start_result = false;
  EXPECT_EQ(InitCefRuntime(nullptr, nullptr), nullptr);
}

}  // namespace
}  // namespace kzcef
