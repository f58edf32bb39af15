#include "alloy_switches.h"

#include <gtest/gtest.h>

#include "alloy.h"

namespace cefbinding {
namespace {

CefRefPtr<CefCommandLine> CommandLine(const char* text) {
  CefRefPtr<CefCommandLine> command_line = CefCommandLine::CreateCommandLine();
  command_line->InitFromString(text);
  return command_line;
}

std::string Value(CefCommandLine& command_line, const char* name) {
  return command_line.GetSwitchValue(name).ToString();
}

bool Contains(const std::string& list, const std::string& name) {
  return ("," + list + ",").find("," + name + ",") != std::string::npos;
}

// Sets one switch as a host does.
class HostApp final : public CefApp {
 public:
  HostApp(const char* name, const char* value) : name_(name), value_(value) {}

  void OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                     CefRefPtr<CefCommandLine> command_line) override {
    command_line->AppendSwitchWithValue(name_, value_);
  }

 private:
  const CefString name_;
  const CefString value_;

  IMPLEMENT_REFCOUNTING(HostApp);
};

void Process(const CefRefPtr<CefApp>& host,
             CefRefPtr<CefCommandLine> command_line,
             const char* process_type = "") {
  WithAlloyBehaviour(host, AlloyOptions(CefSettings()))
      ->OnBeforeCommandLineProcessing(process_type, command_line);
}

TEST(UnionOfFeaturesTest, KeepsEachNameOnceInOrder) {
  EXPECT_EQ(UnionOfFeatures("A,B", "B,C,A"), "A,B,C");
  EXPECT_EQ(UnionOfFeatures("", "B"), "B");
  EXPECT_EQ(UnionOfFeatures("A", ""), "A");
  EXPECT_EQ(UnionOfFeatures("", ""), "");
  EXPECT_EQ(UnionOfFeatures(",A,,", ",B,"), "A,B");
}

TEST(AlloySwitchesTest, FeaturesOfTheEngineAndOfTheHostAreDisabledBesideOurs) {
  const auto command_line = CommandLine("host.exe --disable-features=OfTheEngine");
  Process(new HostApp("disable-features", "OfTheHost,BackForwardCache"), command_line);
  const std::string features = Value(*command_line, "disable-features");
  for (const char* const name : {"OfTheEngine", "OfTheHost", "BackForwardCache",
                                 "CalculateNativeWinOcclusion", "HttpsUpgrades"}) {
    EXPECT_TRUE(Contains(features, name)) << name << " in " << features;
  }
}

TEST(AlloySwitchesTest, FeaturesThatTheHostEnablesComeBesideTheEngines) {
  const auto command_line = CommandLine("host.exe --enable-features=OfTheEngine");
  Process(new HostApp("enable-features", "OfTheHost"), command_line);
  EXPECT_EQ(Value(*command_line, "enable-features"), "OfTheEngine,OfTheHost");
}

TEST(AlloySwitchesTest, AnyOtherSwitchIsTheHosts) {
  const auto command_line = CommandLine("host.exe");
  Process(new HostApp("lang", "de"), command_line);
  EXPECT_EQ(Value(*command_line, "lang"), "de");
  EXPECT_TRUE(command_line->HasSwitch("disable-popup-blocking"));
  EXPECT_TRUE(command_line->HasSwitch("disable-chrome-login-prompt"));
  EXPECT_TRUE(command_line->HasSwitch("disable-background-networking"));
}

TEST(AlloySwitchesTest, SubProcessesGetTheHostsSwitchesAlone) {
  const auto command_line = CommandLine("host.exe --type=renderer");
  Process(new HostApp("disable-features", "OfTheHost"), command_line, "renderer");
  EXPECT_EQ(Value(*command_line, "disable-features"), "OfTheHost");
  EXPECT_FALSE(command_line->HasSwitch("disable-popup-blocking"));
}

TEST(AlloySwitchesTest, NeedsNoApplication) {
  const auto command_line = CommandLine("host.exe");
  Process(nullptr, command_line);
  EXPECT_TRUE(Contains(Value(*command_line, "disable-features"), "BackForwardCache"));
}

TEST(AlloySwitchesTest, LogsNothingWhereTheHostWantsNoLog) {
  CefSettings settings;
  const auto logging = CommandLine("host.exe");
  Process(nullptr, logging);
  EXPECT_FALSE(logging->HasSwitch("disable-logging"));
  settings.log_severity = LOGSEVERITY_DISABLE;
  const auto silent = CommandLine("host.exe");
  WithAlloyBehaviour(nullptr, AlloyOptions(settings))
      ->OnBeforeCommandLineProcessing(CefString(), silent);
  EXPECT_TRUE(silent->HasSwitch("disable-logging"));
}

}  // namespace
}  // namespace cefbinding
