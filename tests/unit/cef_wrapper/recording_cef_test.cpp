// The recording double of CEF's entry points does what the tests that use it rely on.

#include "recording_cef/recording_cef.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "include/wrapper/cef_closure_task.h"
#include "include/wrapper/cef_helpers.h"
#include "recording_cef/fake_browser.h"
#include "recording_cef/fake_cookie_manager.h"
#include "recording_cef/fake_request_context.h"

namespace {

using recording_cef::FakeBrowser;
using recording_cef::FakeCookieManager;
using recording_cef::FakeRequestContext;
using recording_cef::RecordingCef;

class RecordingCefTest : public testing::Test {
 protected:
  RecordingCefTest() { RecordingCef::Get().Reset(); }
};

class SwitchingApp final : public CefApp {
 public:
  void OnBeforeCommandLineProcessing(const CefString& process_type,
                                     CefRefPtr<CefCommandLine> command_line) override {
    seen_process_type = process_type;
    command_line->AppendSwitchWithValue("lang", "de");
  }

  CefString seen_process_type = "unset";

 private:
  IMPLEMENT_REFCOUNTING(SwitchingApp);
};

class EmptyClient final : public CefClient {
  IMPLEMENT_REFCOUNTING(EmptyClient);
};

TEST_F(RecordingCefTest, InitializeKeepsADeepCopyOfTheSettings) {
  {
    CefSettings settings;
    CefString(&settings.cache_path) = "C:\\cache";
    settings.multi_threaded_message_loop = 1;
    EXPECT_TRUE(CefInitialize(CefMainArgs(), settings, nullptr, nullptr));
    CefString(&settings.cache_path) = "changed";
  }
  const auto& calls = RecordingCef::Get().initializations;
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(CefString(&calls[0].settings.cache_path).ToString(), "C:\\cache");
  EXPECT_EQ(calls[0].settings.multi_threaded_message_loop, 1);
  EXPECT_EQ(calls[0].settings.size, sizeof(cef_settings_t));
  EXPECT_EQ(calls[0].thread_id, GetCurrentThreadId());
}

TEST_F(RecordingCefTest, InitializeShowsTheCommandLineToTheApplication) {
  RecordingCef::Get().command_line = "host.exe --first";
  CefRefPtr<SwitchingApp> app = new SwitchingApp;
  CefInitialize(CefMainArgs(), CefSettings(), app, nullptr);
  const auto& call = RecordingCef::Get().initializations.at(0);
  EXPECT_EQ(app->seen_process_type, CefString());
  EXPECT_TRUE(call.command_line->HasSwitch("first"));
  EXPECT_EQ(call.command_line->GetSwitchValue("lang").ToString(), "de");
  EXPECT_TRUE(call.app == app);
}

TEST_F(RecordingCefTest, InitializeAndShutdownAnswerAndThrowAsTold) {
  RecordingCef& cef = RecordingCef::Get();
  cef.initialize_result = false;
  EXPECT_FALSE(CefInitialize(CefMainArgs(), CefSettings(), nullptr, nullptr));
  cef.on_initialize = [] { throw std::runtime_error("no"); };
  EXPECT_THROW(CefInitialize(CefMainArgs(), CefSettings(), nullptr, nullptr), std::runtime_error);
  EXPECT_EQ(cef.initializations.size(), 2u);
  cef.on_shutdown = [] { throw std::runtime_error("no"); };
  EXPECT_THROW(CefShutdown(), std::runtime_error);
  EXPECT_EQ(cef.shutdown_count, 1);
}

TEST_F(RecordingCefTest, ResetForgetsEverything) {
  RecordingCef& cef = RecordingCef::Get();
  cef.initialize_result = false;
  CefInitialize(CefMainArgs(), CefSettings(), nullptr, nullptr);
  CefShutdown();
  cef.Reset();
  EXPECT_TRUE(cef.initializations.empty());
  EXPECT_EQ(cef.shutdown_count, 0);
  EXPECT_TRUE(CefInitialize(CefMainArgs(), CefSettings(), nullptr, nullptr));
}

TEST_F(RecordingCefTest, CreateBrowserIsRecordedAndAnsweredAsTold) {
  RecordingCef& cef = RecordingCef::Get();
  int raised = 0;
  cef.on_create_browser = [&](const recording_cef::Creation& creation) {
    raised = creation.window_info.bounds.width;
  };
  CefRefPtr<EmptyClient> client = new EmptyClient;
  CefWindowInfo info;
  info.SetAsChild(reinterpret_cast<HWND>(0x1234), CefRect(1, 2, 300, 400));
  EXPECT_TRUE(CefBrowserHost::CreateBrowser(info, client, "about:blank", CefBrowserSettings(),
                                            nullptr, nullptr));
  cef.create_browser_result = false;
  EXPECT_FALSE(CefBrowserHost::CreateBrowser(info, client, "about:blank", CefBrowserSettings(),
                                             nullptr, nullptr));
  ASSERT_EQ(cef.creations.size(), 2u);
  EXPECT_EQ(cef.creations[0].url.ToString(), "about:blank");
  EXPECT_TRUE(cef.creations[0].client == client);
  EXPECT_EQ(cef.creations[0].window_info.parent_window, reinterpret_cast<HWND>(0x1234));
  EXPECT_EQ(raised, 300);
}

TEST_F(RecordingCefTest, TasksWaitUntilTheTestRunsThem) {
  RecordingCef& cef = RecordingCef::Get();
  std::vector<int> order;
  CefPostTask(TID_UI, base::BindOnce(
                          [](std::vector<int>* seen) {
                            seen->push_back(1);
                            CefPostTask(TID_UI,
                                        base::BindOnce([](std::vector<int>* s) { s->push_back(3); },
                                                       base::Unretained(seen)));
                          },
                          base::Unretained(&order)));
  CefPostDelayedTask(
      TID_IO,
      base::BindOnce([](std::vector<int>* s) { s->push_back(2); }, base::Unretained(&order)), 500);
  EXPECT_TRUE(order.empty());
  ASSERT_EQ(cef.tasks.size(), 2u);
  EXPECT_EQ(cef.tasks[1].thread, TID_IO);
  EXPECT_EQ(cef.tasks[1].delay_ms, 500);
  EXPECT_EQ(cef.RunTasks(), 3);
  EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST_F(RecordingCefTest, TasksCanRunAtOnceOrBeRefused) {
  RecordingCef& cef = RecordingCef::Get();
  cef.run_tasks_at_once = true;
  bool ran = false;
  EXPECT_TRUE(CefPostTask(
      TID_UI, base::BindOnce([](bool* flag) { *flag = true; }, base::Unretained(&ran))));
  EXPECT_TRUE(ran);
  cef.post_task_result = false;
  EXPECT_FALSE(CefPostTask(
      TID_UI, base::BindOnce([](bool* flag) { *flag = false; }, base::Unretained(&ran))));
  EXPECT_TRUE(ran);
}

TEST_F(RecordingCefTest, TheTestSaysWhichThreadThisIs) {
  EXPECT_TRUE(CefCurrentlyOn(TID_IO));
  RecordingCef::Get().currently_on = [](CefThreadId thread) { return thread == TID_UI; };
  EXPECT_TRUE(CefCurrentlyOn(TID_UI));
  EXPECT_FALSE(CefCurrentlyOn(TID_IO));
  EXPECT_TRUE(CefTaskRunner::GetForCurrentThread()->BelongsToThread(TID_UI));
}

TEST_F(RecordingCefTest, GlobalObjectsAreTheTestsOwn) {
  EXPECT_FALSE(CefCookieManager::GetGlobalManager(nullptr));
  EXPECT_FALSE(CefRequestContext::GetGlobalContext());
  CefRefPtr<FakeCookieManager> cookies = new FakeCookieManager;
  CefRefPtr<FakeRequestContext> context = new FakeRequestContext;
  RecordingCef::Get().cookie_manager = cookies;
  RecordingCef::Get().request_context = context;
  EXPECT_TRUE(CefCookieManager::GetGlobalManager(nullptr) == cookies);
  EXPECT_TRUE(CefRequestContext::GetGlobalContext() == context);
  EXPECT_EQ(RecordingCef::Get().cookie_manager_callbacks.size(), 2u);
}

TEST(FakeBrowserTest, RecordsWhatIsAskedOfItsFramesAndHost) {
  CefRefPtr<FakeBrowser> fake = new FakeBrowser(7, reinterpret_cast<HWND>(0x77));
  const CefRefPtr<CefBrowser> browser = fake;
  browser->GetMainFrame()->LoadURL("http://a/");
  browser->GetMainFrame()->ExecuteJavaScript("f()", "http://a/x.js", 3);
  browser->GetMainFrame()->SendProcessMessage(PID_RENDERER, CefProcessMessage::Create("Hello"));
  browser->Reload();
  browser->ReloadIgnoreCache();
  browser->GetHost()->Print();
  browser->GetHost()->ExecuteDevToolsMethod(0, "Page.enable", nullptr);
  EXPECT_EQ(fake->main_frame->loaded_urls.at(0).ToString(), "http://a/");
  EXPECT_EQ(fake->main_frame->scripts.at(0).code.ToString(), "f()");
  EXPECT_EQ(fake->main_frame->scripts.at(0).line, 3);
  EXPECT_EQ(fake->main_frame->messages.at(0).message->GetName().ToString(), "Hello");
  EXPECT_EQ(fake->reload_count, 1);
  EXPECT_EQ(fake->reload_ignore_cache_count, 1);
  EXPECT_EQ(fake->host->print_count, 1);
  EXPECT_EQ(fake->host->devtools_calls.at(0).method.ToString(), "Page.enable");
  EXPECT_EQ(browser->GetIdentifier(), 7);
  EXPECT_EQ(browser->GetHost()->GetWindowHandle(), reinterpret_cast<HWND>(0x77));
}

TEST(FakeBrowserTest, FindsFramesAndCanLackThem) {
  CefRefPtr<FakeBrowser> fake = new FakeBrowser;
  const CefRefPtr<CefBrowser> browser = fake;
  const CefRefPtr<CefFrame> child = fake->AddFrame("frame-2", "inner");
  EXPECT_TRUE(browser->GetFrameByName("inner") == child);
  EXPECT_TRUE(browser->GetFrameByIdentifier("frame-2") == child);
  EXPECT_FALSE(browser->GetFrameByName("none"));
  EXPECT_EQ(browser->GetFrameCount(), 2u);
  EXPECT_FALSE(child->IsMain());
  fake->has_host = false;
  fake->has_main_frame = false;
  EXPECT_FALSE(browser->GetHost());
  EXPECT_FALSE(browser->GetMainFrame());
}

}  // namespace
