#include "engine_fixture.h"

#include <fstream>
#include <iostream>
#include <sstream>

#include "devtools/unix_host.h"

namespace cefedition {
namespace {

std::filesystem::path NewFolder() {
  const auto* test = testing::UnitTest::GetInstance()->current_test_info();
  std::filesystem::path folder =
      std::filesystem::temp_directory_path() /
      (std::string("engine_test_") + test->name() + "_" + std::to_string(GetCurrentProcessId()));
  std::filesystem::create_directories(folder);
  return folder;
}

}  // namespace

EngineTest::EngineTest()
    : folder_(NewFolder()),
      log_file_((folder_ / L"debug.log").wstring()),
      client_(new RecordingClient(&log_)) {}

EngineTest::~EngineTest() {
  StopEngine();
  if (HasFailure() || GetEnvironmentVariableW(L"SHOW_LOG", nullptr, 0)) {
    std::cout << LogText() << testing::PrintToString(log_.All()) << std::endl;
  }
  for (HWND window : windows_) {
    DestroyWindow(window);
  }
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

bool EngineTest::StartEngine(CefSettings settings, CefRefPtr<CefApp> app) {
  settings.multi_threaded_message_loop = true;
  settings.command_line_args_disabled = true;
  CefString(&settings.log_file) = log_file_;
  // A failed test shows the log, in which the protocol's traffic tells what happened.
  settings.log_severity = LOGSEVERITY_VERBOSE;
  engine_runs_ = CefInitialize(CefMainArgs(GetModuleHandleW(nullptr)), settings, app, nullptr);
  return engine_runs_;
}

void EngineTest::StopEngine() {
  if (std::exchange(engine_runs_, false)) {
    CefShutdown();
  }
}

HWND EngineTest::MakeHostWindow() {
  HWND window = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 640,
                                480, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  windows_.push_back(window);
  return window;
}

void EngineTest::DestroyHostWindow(HWND window) {
  std::erase(windows_, window);
  DestroyWindow(window);
}

void EngineTest::CreateBrowser(CefRefPtr<RecordingClient> client, const std::string& url) {
  HWND window = MakeHostWindow();
  RECT area;
  GetClientRect(window, &area);
  CefWindowInfo info;
  info.SetAsChild(window, CefRect(0, 0, area.right, area.bottom));
  ASSERT_TRUE(
      CefBrowserHost::CreateBrowser(info, client, url, CefBrowserSettings(), nullptr, nullptr));
}

void EngineTest::Run(const std::string& code) {
  client_->First()->GetMainFrame()->ExecuteJavaScript(code, CefString(), 1);
}

std::string EngineTest::Evaluate(const std::string& expression) {
  static int count = 0;
  const std::string mark = "value " + std::to_string(++count) + " ";
  Run("console.log('" + mark + "' + (" + expression + ") + '|')");
  EXPECT_TRUE(log_.WaitUntil([&] { return !log_.Only({"console 2 [" + mark}).empty(); }));
  const std::vector<std::string> found = log_.Only({"console 2 [" + mark});
  if (found.empty()) {
    return {};
  }
  const size_t start = found.front().find(mark) + mark.size();
  return found.front().substr(start, found.front().rfind("|]") - start);
}

bool EngineTest::WaitForValue(const std::string& expression, const std::string& value) {
  const ULONGLONG deadline = GetTickCount64() + 15'000;
  while (Evaluate(expression) != value) {
    if (GetTickCount64() >= deadline) {
      return false;
    }
  }
  return true;
}

std::string EngineTest::LogText() const {
  std::ifstream file{std::filesystem::path(log_file_)};
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

bool IsUnixProcessAlive(int pid) {
  const std::wstring folder = ToWindowsPath("/proc/" + std::to_string(pid));
  return GetFileAttributesW(folder.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void KillUnixProcess(int pid) {
  std::wstring command_line = L"sh -c \"kill -9 " + std::to_wstring(pid) + L"\"";
  STARTUPINFOW startup = {};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION info = {};
  ASSERT_TRUE(CreateProcessW(ToWindowsPath("/bin/sh").c_str(), command_line.data(), nullptr,
                             nullptr, FALSE, 0, nullptr, nullptr, &startup, &info));
  CloseHandle(info.hThread);
  CloseHandle(info.hProcess);
}

int CountUnixProcesses(const std::string& text) {
  int count = 0;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(ToWindowsPath("/proc"), error)) {
    std::ifstream file(entry.path() / L"cmdline", std::ios::binary);
    std::ostringstream command_line;
    command_line << file.rdbuf();
    count += command_line.str().find(text) != std::string::npos ? 1 : 0;
  }
  return count;
}

}  // namespace cefedition
