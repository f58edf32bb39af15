#include <gmock/gmock.h>

#include <fstream>

#include "devtools/engine.h"
#include "devtools/unix_host.h"
#include "engine_fixture.h"
#include "include/base/cef_logging.h"

namespace cefedition {
namespace {

using testing::HasSubstr;
using testing::Not;

class StartTest : public EngineTest {
 protected:
  ~StartTest() override { SetEnvironmentVariableW(L"KZCEF_ENGINE_PATH", nullptr); }

  /// Has a shell script stand in for the browser.
  void UseScript(const std::string& body) {
    const std::filesystem::path script = folder_ / L"browser.sh";
    std::ofstream(script, std::ios::binary) << "#!/bin/sh\n" << body << "\n";
    std::wstring command_line =
        Widen("sh -c \"chmod +x '" + ToUnixPath(script.wstring()) + "'; touch '" +
              ToUnixPath((folder_ / L"ready").wstring()) + "'\"");
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION info = {};
    ASSERT_TRUE(CreateProcessW(ToWindowsPath("/bin/sh").c_str(), command_line.data(), nullptr,
                               nullptr, FALSE, 0, nullptr, nullptr, &startup, &info));
    CloseHandle(info.hThread);
    CloseHandle(info.hProcess);
    // The shell's end cannot be waited for, but its last deed can be seen.
    HANDLE change =
        FindFirstChangeNotificationW(folder_.c_str(), FALSE, FILE_NOTIFY_CHANGE_FILE_NAME);
    ASSERT_TRUE(PumpUntil(change, [&] { return std::filesystem::exists(folder_ / L"ready"); }));
    FindCloseChangeNotification(change);
    SetEnvironmentVariableW(L"KZCEF_ENGINE_PATH", script.c_str());
  }

  static std::wstring Widen(const std::string& text) { return {text.begin(), text.end()}; }

  /// Starts, and returns how long that took.
  ULONGLONG StartAndMeasure() {
    const ULONGLONG start = GetTickCount64();
    StartEngine();
    return GetTickCount64() - start;
  }
};

TEST_F(StartTest, MissingBrowserFailsWithAReason) {
  SetEnvironmentVariableW(L"KZCEF_ENGINE_PATH", L"/nowhere/chromium");
  EXPECT_FALSE(StartEngine());
  EXPECT_THAT(LogText(),
              HasSubstr("KZCEF_ENGINE_PATH names \"/nowhere/chromium\", which is no file"));
  EXPECT_EQ(CefRequestContext::GetGlobalContext(), nullptr);
  EXPECT_FALSE(CefBrowserHost::CreateBrowser(CefWindowInfo(), client_, "about:blank",
                                             CefBrowserSettings(), nullptr, nullptr));
}

TEST_F(StartTest, BrowserThatEndsAtOnceFailsWithAReason) {
  UseScript("echo cannot start >&2\nexit 3");
  EXPECT_LT(StartAndMeasure(), 10'000u);
  EXPECT_FALSE(EngineRuns());
  EXPECT_THAT(LogText(), HasSubstr("the browser ended with exit status 3"));
  EXPECT_THAT(LogText(), HasSubstr("cannot start"));
}

TEST_F(StartTest, BrowserThatNeverAnswersIsGivenUpAndEnded) {
  // No other process on the machine sleeps that long, also not another run of this test.
  const std::string nap =
      "1234." + std::to_string(GetTickCount64()) + std::to_string(GetCurrentProcessId());
  UseScript("exec sleep " + nap);
  const ULONGLONG took = StartAndMeasure();
  EXPECT_FALSE(EngineRuns());
  EXPECT_GE(took, 9'000u);
  EXPECT_LT(took, 20'000u);
  EXPECT_THAT(LogText(), HasSubstr("the browser did not answer within 10 s"));
  EXPECT_EQ(CountUnixProcesses(nap), 0);
}

TEST_F(StartTest, FailedStartCanBeFollowedByAGoodOne) {
  SetEnvironmentVariableW(L"KZCEF_ENGINE_PATH", L"/nowhere/chromium");
  EXPECT_FALSE(StartEngine());
  SetEnvironmentVariableW(L"KZCEF_ENGINE_PATH", L"Z:\\usr\\bin\\chromium-headless-shell");
  EXPECT_TRUE(StartEngine());
}

// What the application adds to the command line reaches the browser.
class SwitchApp : public CefApp {
 public:
  void OnBeforeCommandLineProcessing(const CefString& process_type,
                                     CefRefPtr<CefCommandLine> command_line) override {
    process_type_ = process_type.ToString();
    had_language_ = command_line->GetSwitchValue("accept-lang").ToString();
    command_line->AppendSwitchWithValue("user-agent", "Tested/1.0");
  }
  std::string process_type_ = "unset";
  std::string had_language_;

 private:
  IMPLEMENT_REFCOUNTING(SwitchApp);
};

TEST_F(StartTest, ApplicationsSwitchesReachTheBrowser) {
  CefRefPtr<SwitchApp> app = new SwitchApp;
  CefSettings settings;
  CefString(&settings.accept_language_list) = "de-CH,de";
  server_.Add("/page", "page");
  ASSERT_TRUE(StartEngine(settings, app));
  EXPECT_EQ(app->process_type_, "");
  EXPECT_EQ(app->had_language_, "de-CH,de");
  CreateBrowser(client_, server_.Url("/page"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(server_.RequestText("/page"), HasSubstr("User-Agent: Tested/1.0\r\n"));
  EXPECT_THAT(server_.RequestText("/page"), HasSubstr("Accept-Language: de-CH,de"));
  EXPECT_EQ(Evaluate("navigator.language"), "de-CH");
}

TEST_F(StartTest, ProductStandsInTheUserAgent) {
  CefSettings settings;
  CefString(&settings.user_agent_product) = "Product/7.5";
  ASSERT_TRUE(StartEngine(settings));
  CreateBrowser(client_, "data:text/html,x");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(Evaluate("navigator.userAgent"), HasSubstr(" Product/7.5 "));
}

TEST_F(StartTest, LanguagePreferenceReachesThePages) {
  server_.Add("/page", "page");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, "data:text/html,x");
  ASSERT_TRUE(log_.WaitFor("idle"));
  CefRefPtr<CefRequestContext> context = CefRequestContext::GetGlobalContext();
  EXPECT_EQ(context->GetPreference("intl.accept_languages")->GetString().ToString(), "en-US,en");
  CefRefPtr<CefValue> value = CefValue::Create();
  value->SetString("fr-FR,fr");
  CefString error;
  EXPECT_TRUE(context->SetPreference("intl.accept_languages", value, error));
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/page"));
  ASSERT_TRUE(log_.WaitFor("end main 200"));
  EXPECT_THAT(server_.RequestText("/page"), HasSubstr("Accept-Language: fr-FR,fr"));
  value->SetInt(1);
  EXPECT_FALSE(context->SetPreference("intl.accept_languages", value, error));
  EXPECT_FALSE(error.empty());
}

TEST_F(StartTest, LinesOfTheClientsOwnGoToTheLogWhileTheEngineRuns) {
  LOG(ERROR) << "before the start";
  ASSERT_TRUE(StartEngine());
  LOG(WARNING) << "the client warns";
  VLOG(1) << "the client chats";
  StopEngine();
  LOG(ERROR) << "after the end";
  EXPECT_THAT(LogText(), HasSubstr(":WARNING] "));
  EXPECT_THAT(LogText(), HasSubstr("the client warns\n"));
  EXPECT_THAT(LogText(), HasSubstr("the client chats\n"));
  EXPECT_THAT(LogText(), Not(HasSubstr("before the start")));
  EXPECT_THAT(LogText(), Not(HasSubstr("after the end")));
}

TEST_F(StartTest, KilledHostLeavesNoBrowser) {
  const std::filesystem::path file = folder_ / L"pid";
  wchar_t program[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  const std::filesystem::path host =
      std::filesystem::path(program).replace_filename(L"killed_host.exe");
  std::wstring command_line =
      L"\"" + host.wstring() + L"\" \"" + file.wstring() + L"\" \"" + log_file_ + L"\"";
  STARTUPINFOW startup = {};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION info = {};
  ASSERT_TRUE(CreateProcessW(nullptr, command_line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                             nullptr, &startup, &info));
  HANDLE change =
      FindFirstChangeNotificationW(folder_.c_str(), FALSE, FILE_NOTIFY_CHANGE_FILE_NAME);
  const bool started = PumpUntil(change, [&] { return std::filesystem::exists(file); });
  FindCloseChangeNotification(change);
  int pid = 0;
  std::ifstream(file) >> pid;
  EXPECT_TRUE(started);
  EXPECT_GT(pid, 0);
  EXPECT_TRUE(IsUnixProcessAlive(pid)) << pid;
  TerminateProcess(info.hProcess, 1);
  WaitForSingleObject(info.hProcess, INFINITE);
  CloseHandle(info.hThread);
  CloseHandle(info.hProcess);
  // Nothing tells of a Unix process's end; its folder under /proc is looked at until it is gone.
  const ULONGLONG deadline = GetTickCount64() + 10'000;
  while (IsUnixProcessAlive(pid) && GetTickCount64() < deadline) {
    SwitchToThread();
  }
  EXPECT_FALSE(IsUnixProcessAlive(pid));
}

}  // namespace
}  // namespace cefedition
