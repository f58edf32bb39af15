// The switches with which the browser process starts. Runs beside a double of the host's trace
// library.
#include "runtime/kz_cef_app.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "include/cef_command_line.h"
#include "trace_lines.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

using ::testing::ElementsAre;

// Remembers what is appended, in order, and fails the test for everything else.
class RecordingCommandLine : public CefCommandLine {
 public:
  std::vector<std::wstring> appended;

  void AppendSwitch(const CefString& name) override { appended.push_back(name.ToWString()); }
  void AppendSwitchWithValue(const CefString& name, const CefString& value) override {
    appended.push_back(name.ToWString() + L"=" + value.ToWString());
  }

  bool IsValid() override { return Unexpected<bool>(); }
  bool IsReadOnly() override { return Unexpected<bool>(); }
  CefRefPtr<CefCommandLine> Copy() override { return Unexpected<CefRefPtr<CefCommandLine>>(); }
  void InitFromString(const CefString&) override { Unexpected<int>(); }
  void Reset() override { Unexpected<int>(); }
  void GetArgv(std::vector<CefString>&) override { Unexpected<int>(); }
  CefString GetCommandLineString() override { return Unexpected<CefString>(); }
  CefString GetProgram() override { return Unexpected<CefString>(); }
  void SetProgram(const CefString&) override { Unexpected<int>(); }
  bool HasSwitches() override { return Unexpected<bool>(); }
  bool HasSwitch(const CefString&) override { return Unexpected<bool>(); }
  CefString GetSwitchValue(const CefString&) override { return Unexpected<CefString>(); }
  void GetSwitches(SwitchMap&) override { Unexpected<int>(); }
  bool HasArguments() override { return Unexpected<bool>(); }
  void GetArguments(ArgumentList&) override { Unexpected<int>(); }
  void AppendArgument(const CefString&) override { Unexpected<int>(); }
  void PrependWrapper(const CefString&) override { Unexpected<int>(); }

 private:
  template <typename Result>
  static Result Unexpected() {
    ADD_FAILURE() << "not an append";
    return Result();
  }

  IMPLEMENT_REFCOUNTING(RecordingCommandLine);
};

// What the application object appends for a kind of process.
std::vector<std::wstring> AppendedFor(const char* process_type) {
  const CefRefPtr<RecordingCommandLine> command_line = new RecordingCommandLine;
  const CefRefPtr<kzCefApp> app = new kzCefApp;
  app->OnBeforeCommandLineProcessing(process_type, command_line);
  EXPECT_TRUE(command_line->HasOneRef());
  return command_line->appended;
}

TEST(CommandLine, HasPrintPreviewAndTheHostsSwitchesWithoutAHub) {
  ASSERT_TRUE(SetEnvironmentVariableW(L"CefLogEnabled", L"1"));
  SetCommandLineArgTable({{L"a", L"1"}});
  EXPECT_THAT(AppendedFor(""), ElementsAre(L"enable-print-preview", L"a=1"));
  EXPECT_THAT(TraceTexts(), ElementsAre(L"KZCEF Trace: Hub is Off"));
}

TEST(CommandLine, BeginsWithTheProxyOfTheHub) {
  ASSERT_TRUE(SetEnvironmentVariableW(L"CefLogEnabled", L"1"));
  SetConfiguredHubPort(8080);
  EXPECT_THAT(AppendedFor(""),
              ElementsAre(L"proxy-server=127.0.0.1:8080", L"enable-print-preview"));
  EXPECT_THAT(TraceTexts(), ElementsAre(L"KZCEF Trace: Hub is On",
                                        L"KZCEF Trace: Hub proxy-server - 127.0.0.1:8080"));
}

TEST(CommandLine, TakesPortZeroForAHub) {
  SetConfiguredHubPort(0);
  EXPECT_THAT(AppendedFor(""), ElementsAre(L"proxy-server=127.0.0.1:0", L"enable-print-preview"));
}

TEST(CommandLine, TakesTheHostsSwitchesInTheOrderOfTheirNames) {
  SetCommandLineArgTable({{L"b", L""}, {L"a", L"2"}, {L"B", L"3"}});
  EXPECT_THAT(AppendedFor(""), ElementsAre(L"enable-print-preview", L"B=3", L"a=2", L"b"));
}

TEST(CommandLine, SkipsASwitchWithoutAName) {
  SetCommandLineArgTable({{L"", L"value"}, {L"a", L""}});
  EXPECT_THAT(AppendedFor(""), ElementsAre(L"enable-print-preview", L"a"));
}

TEST(CommandLine, PassesNamesAndValuesAsTheyStand) {
  SetCommandLineArgTable({{L"--Dashed \u65e5", L" a=\"b\" "}});
  EXPECT_THAT(AppendedFor(""), ElementsAre(L"enable-print-preview", L"--Dashed \u65e5= a=\"b\" "));
}

// Which of two proxies holds is CEF's business; the host's word must reach it last.
TEST(CommandLine, LeavesTheLastWordOnTheProxyToTheHost) {
  SetConfiguredHubPort(1);
  SetCommandLineArgTable({{L"proxy-server", L"host:2"}});
  EXPECT_THAT(AppendedFor(""), ElementsAre(L"proxy-server=127.0.0.1:1", L"enable-print-preview",
                                           L"proxy-server=host:2"));
}

TEST(CommandLine, IsTheSameForEveryKindOfProcess) {
  EXPECT_THAT(AppendedFor("renderer"), ElementsAre(L"enable-print-preview"));
}

TEST(Application, OffersNoHandlersOfItsOwn) {
  const CefRefPtr<CefApp> app = new kzCefApp;
  EXPECT_FALSE(app->GetBrowserProcessHandler());
  EXPECT_FALSE(app->GetRenderProcessHandler());
}

}  // namespace
}  // namespace kzcef
