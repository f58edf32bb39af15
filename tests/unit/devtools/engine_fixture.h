#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "event_log.h"
#include "include/cef_app.h"
#include "page_server.h"
#include "recording_client.h"

namespace cefedition {

/// A test with the engine running: a real browser, a host window and a page server.
class EngineTest : public testing::Test {
 protected:
  EngineTest();
  ~EngineTest() override;

  /// Starts the engine with these settings and a log file in the test's folder.
  bool StartEngine(CefSettings settings = {}, CefRefPtr<CefApp> app = nullptr);
  void StopEngine();
  bool EngineRuns() const { return engine_runs_; }

  /// A browser that fills a new host window.
  void CreateBrowser(CefRefPtr<RecordingClient> client, const std::string& url);
  HWND MakeHostWindow();
  void DestroyHostWindow(HWND window);

  /// Runs `code` in the main frame of the first browser.
  void Run(const std::string& code);
  /// The value of an expression of the page, by way of its console.
  std::string Evaluate(const std::string& expression);
  /// Asks the page, which tells nobody of the change, until an expression has this value.
  bool WaitForValue(const std::string& expression, const std::string& value);

  std::string LogText() const;

  std::filesystem::path folder_;
  std::wstring log_file_;
  EventLog log_;
  PageServer server_;
  CefRefPtr<RecordingClient> client_;

 private:
  std::vector<HWND> windows_;
  bool engine_runs_ = false;
};

/// Whether a process of the Unix host runs.
bool IsUnixProcessAlive(int pid);

/// Sends SIGKILL.
void KillUnixProcess(int pid);

/// How many processes of the Unix host have `text` in their command line.
int CountUnixProcesses(const std::string& text);

}  // namespace cefedition
