#include <gmock/gmock.h>

#include "devtools/engine.h"
#include "engine_fixture.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// What the browser's processes have in their command line, of all processes on the machine.
std::string ProfileSwitch(const std::filesystem::path& folder) {
  return folder.filename().string();
}

TEST_F(EngineTest, ShutDownClosesOpenBrowsersAndLeavesNoProcess) {
  CefSettings settings;
  CefString(&settings.cache_path) = (folder_ / L"profile").wstring();
  ASSERT_TRUE(StartEngine(settings));
  const int pid = Engine::Get()->unix_pid();
  CreateBrowser(client_, "data:text/html,one");
  CreateBrowser(client_, "data:text/html,two");
  ASSERT_TRUE(log_.WaitUntil([&] { return client_->Browsers().size() == 2; }));
  EXPECT_TRUE(IsUnixProcessAlive(pid));
  EXPECT_GT(CountUnixProcesses(ProfileSwitch(folder_)), 0);
  StopEngine();
  EXPECT_THAT(log_.Only({"closed"}), ElementsAre("closed", "closed"));
  EXPECT_FALSE(IsUnixProcessAlive(pid));
  EXPECT_EQ(CountUnixProcesses(ProfileSwitch(folder_)), 0);
}

TEST_F(EngineTest, EngineStartsAgainAfterShutDown) {
  for (int round = 0; round < 2; ++round) {
    ASSERT_TRUE(StartEngine());
    CefSettings second;
    EXPECT_FALSE(CefInitialize(CefMainArgs(), second, nullptr, nullptr));
    StopEngine();
  }
}

TEST_F(EngineTest, TemporaryProfileIsRemoved) {
  ASSERT_TRUE(StartEngine());
  const std::wstring profile = Engine::Get()->cache_path();
  EXPECT_TRUE(std::filesystem::exists(profile));
  StopEngine();
  EXPECT_FALSE(std::filesystem::exists(profile));
}

TEST_F(EngineTest, TwoBrowsersAreIndependent) {
  server_.Add("/a", "<title>A</title>");
  server_.Add("/b", "<title>B</title>");
  ASSERT_TRUE(StartEngine());
  CefRefPtr<RecordingClient> first = new RecordingClient(&log_, "1 ");
  CefRefPtr<RecordingClient> second = new RecordingClient(&log_, "2 ");
  CreateBrowser(first, server_.Url("/a"));
  CreateBrowser(second, server_.Url("/b"));
  ASSERT_TRUE(log_.WaitUntil(
      [&] { return !log_.Only({"1 idle"}).empty() && !log_.Only({"2 idle"}).empty(); }));
  EXPECT_THAT(log_.Only({"1 address", "1 title"}),
              ElementsAre("1 address " + server_.Url("/a"), "1 title A"));
  EXPECT_THAT(log_.Only({"2 address", "2 title"}),
              ElementsAre("2 address " + server_.Url("/b"), "2 title B"));
  EXPECT_NE(first->First()->GetIdentifier(), second->First()->GetIdentifier());
  first->First()->GetHost()->CloseBrowser(true);
  ASSERT_TRUE(log_.WaitFor("1 closed"));
  second->First()->GetMainFrame()->LoadURL(server_.Url("/a"));
  EXPECT_TRUE(log_.WaitFor("2 title A"));
}

TEST_F(EngineTest, CloseAsksThenClosesOnce) {
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, "data:text/html,x");
  ASSERT_TRUE(log_.WaitFor("idle"));
  const CefRefPtr<CefBrowser> browser = client_->First();
  const HWND window = browser->GetHost()->GetWindowHandle();
  EXPECT_TRUE(IsWindow(window));
  browser->GetHost()->CloseBrowser(false);
  ASSERT_TRUE(log_.WaitFor("closed"));
  EXPECT_THAT(log_.Only({"do-close", "closed"}), ElementsAre("do-close", "closed"));
  EXPECT_FALSE(IsWindow(window));
  EXPECT_TRUE(log_.WaitUntil([&] { return !browser->IsValid(); }));
  EXPECT_FALSE(browser->GetMainFrame()->IsValid());
  // A closed browser answers, and does nothing.
  browser->GetMainFrame()->LoadURL("data:text/html,y");
  browser->Reload();
  browser->GetHost()->CloseBrowser(true);
  EXPECT_EQ(browser->GetHost()->GetWindowHandle(), nullptr);
  StopEngine();
  browser->GetMainFrame()->ExecuteJavaScript("1", CefString(), 1);
  EXPECT_THAT(log_.Only({"closed"}), ElementsAre("closed"));
}

TEST_F(EngineTest, ClientMayRefuseTheClosing) {
  client_->cancel_close = true;
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, "data:text/html,x");
  ASSERT_TRUE(log_.WaitFor("idle"));
  client_->First()->GetHost()->CloseBrowser(false);
  ASSERT_TRUE(log_.WaitFor("do-close"));
  EXPECT_EQ(Evaluate("1 + 1"), "2");
  EXPECT_TRUE(client_->First()->IsValid());
}

TEST_F(EngineTest, DestroyedHostWindowClosesTheBrowser) {
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, "data:text/html,x");
  ASSERT_TRUE(log_.WaitFor("idle"));
  DestroyHostWindow(GetParent(client_->First()->GetHost()->GetWindowHandle()));
  ASSERT_TRUE(log_.WaitFor("closed"));
  EXPECT_THAT(log_.Only({"do-close", "closed"}), ElementsAre("closed"));
}

TEST_F(EngineTest, PageThatClosesItselfClosesTheBrowser) {
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, "data:text/html,x");
  ASSERT_TRUE(log_.WaitFor("idle"));
  Run("window.close()");
  ASSERT_TRUE(log_.WaitFor("closed"));
  EXPECT_THAT(log_.Only({"do-close", "closed"}), ElementsAre("do-close", "closed"));
}

TEST_F(EngineTest, CrashedPageIsReportedAndCanBeLoadedAgain) {
  server_.Add("/page", "<title>P</title>");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/page"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  log_.Clear();
  client_->First()->GetMainFrame()->LoadURL("chrome://crash");
  ASSERT_TRUE(log_.WaitFor("terminated"));
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/page"));
  EXPECT_TRUE(log_.WaitFor("end main 200"));
}

TEST_F(EngineTest, DeadBrowserProcessClosesEveryBrowser) {
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, "data:text/html,one");
  CreateBrowser(client_, "data:text/html,two");
  ASSERT_TRUE(log_.WaitUntil([&] { return log_.Only({"idle"}).size() == 2; }));
  KillUnixProcess(Engine::Get()->unix_pid());
  ASSERT_TRUE(log_.WaitUntil([&] { return log_.Only({"closed"}).size() == 2; }));
  EXPECT_THAT(LogText(), HasSubstr("The browser process ended by signal 9"));
  EXPECT_FALSE(CefBrowserHost::CreateBrowser(CefWindowInfo(), client_, "about:blank",
                                             CefBrowserSettings(), nullptr, nullptr));
}

}  // namespace
}  // namespace cefedition
