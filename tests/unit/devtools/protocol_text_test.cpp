#include <gmock/gmock.h>

#include "devtools/console_message.h"
#include "devtools/engine_command_line.h"
#include "devtools/json_fields.h"
#include "devtools/net_error.h"
#include "devtools/page_report.h"

namespace cefedition {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

TEST(JsonFields, MissingAndMistypedMembersAreEmpty) {
  const Json object = {{"text", "t"}, {"number", 3}, {"flag", true}};
  EXPECT_EQ(TextField(object, "text"), "t");
  EXPECT_EQ(TextField(object, "number"), "");
  EXPECT_EQ(IntField(object, "number"), 3);
  EXPECT_EQ(IntField(object, "text", 7), 7);
  EXPECT_TRUE(BoolField(object, "flag"));
  EXPECT_FALSE(BoolField(object, "number"));
  EXPECT_TRUE(Field(object, "none").is_null());
  EXPECT_EQ(TextField(Json::array({1}), "text"), "");
  EXPECT_TRUE(Field(Json(), "x").is_null());
}

TEST(ConsoleMessage, ValuesAreWrittenAsTheConsoleWritesThem) {
  const Json call = {
      {"type", "log"},
      {"args",
       Json::array(
           {{{"type", "string"}, {"value", "s"}},
            {{"type", "number"}, {"value", 1.5}, {"description", "1.5"}},
            {{"type", "number"}, {"unserializableValue", "NaN"}, {"description", "NaN"}},
            {{"type", "boolean"}, {"value", false}},
            {{"type", "undefined"}},
            {{"type", "object"}, {"subtype", "null"}, {"value", nullptr}},
            {{"type", "object"}, {"className", "Map"}, {"description", "Map(1)"}},
            {{"type", "object"}, {"subtype", "error"}, {"description", "Error: e\n    at x"}}})},
      {"stackTrace", {{"callFrames", Json::array({{{"url", "http://u/"}, {"lineNumber", 4}}})}}}};
  const auto message = FromConsoleCall(call);
  ASSERT_TRUE(message);
  EXPECT_EQ(message->text, "s 1.5 NaN false undefined null [object Map] Error: e");
  EXPECT_EQ(message->source, "http://u/");
  EXPECT_EQ(message->line, 5);
  EXPECT_EQ(message->severity, LOGSEVERITY_INFO);
}

TEST(ConsoleMessage, CallsThatPrintNothingAreNone) {
  EXPECT_FALSE(FromConsoleCall({{"type", "clear"}, {"args", Json::array()}}));
  EXPECT_FALSE(FromConsoleCall({{"type", "endGroup"}, {"args", Json::array()}}));
}

TEST(ConsoleMessage, MessagesWithoutTheExpectedMembersAreSurvived) {
  EXPECT_EQ(FromConsoleCall(Json())->text, "");
  EXPECT_EQ(FromException(Json()).text, "");
  EXPECT_EQ(FromLogEntry({{"level", "warning"}, {"text", "t"}}).line, 0);
  EXPECT_EQ(FromLogEntry({{"level", "warning"}, {"text", "t"}}).severity, LOGSEVERITY_WARNING);
}

TEST(PageReport, OnlyTheScriptsOwnBindingCounts) {
  EXPECT_FALSE(ParsePageReport({{"name", "other"}, {"payload", "{\"kind\":\"title\"}"}}));
  EXPECT_FALSE(ParsePageReport({{"name", "cefeditionReport"}, {"payload", "not json"}}));
  EXPECT_FALSE(ParsePageReport({{"name", "cefeditionReport"}, {"payload", "{\"kind\":\"x\"}"}}));
  const auto report =
      ParsePageReport({{"name", "cefeditionReport"},
                       {"payload", "{\"kind\":\"icons\",\"value\":[\"a\",1,\"b\"]}"}});
  ASSERT_TRUE(report);
  EXPECT_THAT(report->icons, ElementsAre("a", "b"));
}

TEST(PageReport, TitleOfADocumentWithoutOne) {
  EXPECT_EQ(TitleFromUrl("http://host/"), "host");
  EXPECT_EQ(TitleFromUrl("http://host/path"), "host/path");
  EXPECT_EQ(TitleFromUrl("https://host/"), "https://host");
  EXPECT_EQ(TitleFromUrl("https://host/a/"), "https://host/a/");
  EXPECT_EQ(TitleFromUrl("about:blank"), "about:blank");
  EXPECT_EQ(TitleFromUrl(""), "");
}

TEST(NetError, CertificatesHaveAStatus) {
  EXPECT_EQ(CertStatusOf(NetErrorFromName("net::ERR_CERT_COMMON_NAME_INVALID")),
            CERT_STATUS_COMMON_NAME_INVALID);
  EXPECT_EQ(CertStatusOf(NetErrorFromName("ERR_CERT_DATE_INVALID")), CERT_STATUS_DATE_INVALID);
  EXPECT_EQ(CertStatusOf(NetErrorFromName("ERR_CERT_AUTHORITY_INVALID")),
            CERT_STATUS_AUTHORITY_INVALID);
  EXPECT_EQ(CertStatusOf(NetErrorFromName("ERR_CERT_REVOKED")), CERT_STATUS_REVOKED);
  EXPECT_EQ(CertStatusOf(NetErrorFromName("ERR_CERT_CONTAINS_ERRORS")), CERT_STATUS_INVALID);
}

TEST(NetError, NamesAndCodes) {
  EXPECT_EQ(NetErrorFromName("net::ERR_NAME_NOT_RESOLVED"), ERR_NAME_NOT_RESOLVED);
  EXPECT_EQ(NetErrorFromName("ERR_ABORTED"), ERR_ABORTED);
  EXPECT_EQ(NetErrorFromName("net::ERR_OF_A_LATER_VERSION"), ERR_FAILED);
  EXPECT_EQ(NetErrorName(ERR_TIMED_OUT), "ERR_TIMED_OUT");
  EXPECT_EQ(NetErrorFromReason("InternetDisconnected"), ERR_INTERNET_DISCONNECTED);
  EXPECT_EQ(NetErrorFromReason("New"), ERR_FAILED);
}

TEST(EngineCommandLine, UserAgent) {
  const std::string own = "Mozilla/5.0 (X11) HeadlessChrome/156.0.1 Safari/537.36";
  EXPECT_EQ(ComposeUserAgent(own, false, ""), "Mozilla/5.0 (X11) Chrome/156.0.1 Safari/537.36");
  EXPECT_EQ(ComposeUserAgent(own, false, "P/1"), "Mozilla/5.0 (X11) P/1 Safari/537.36");
  EXPECT_EQ(ComposeUserAgent(own, true, "P/1"), own);
  EXPECT_EQ(ComposeUserAgent("Other", false, "P/1"), "Other");
  EXPECT_EQ(ComposeUserAgent("A HeadlessChrome/1", false, ""), "A Chrome/1");
}

TEST(EngineCommandLine, Languages) {
  CefSettings settings;
  EXPECT_EQ(AcceptLanguagesOf(settings), "en-US,en");
  CefString(&settings.locale) = "de-AT";
  EXPECT_EQ(AcceptLanguagesOf(settings), "de-AT,de");
  CefString(&settings.accept_language_list) = "fr";
  EXPECT_EQ(AcceptLanguagesOf(settings), "fr");
}

class WillfulApp : public CefApp {
 public:
  void OnBeforeCommandLineProcessing(const CefString&,
                                     CefRefPtr<CefCommandLine> command_line) override {
    command_line->AppendSwitch("dump-dom");
    command_line->AppendSwitchWithValue("screenshot", "x.png");
    command_line->AppendSwitchWithValue("user-data-dir", "/elsewhere");
    command_line->AppendSwitchWithValue("proxy-server", "http://127.0.0.1:1");
    command_line->AppendSwitchWithValue("disable-features", "Mine");
    command_line->AppendArgument("http://argument/");
  }

 private:
  IMPLEMENT_REFCOUNTING(WillfulApp);
};

TEST(EngineCommandLine, ApplicationsSwitchesPassExceptThoseThatTurnTheBrowserAside) {
  CefSettings settings;
  settings.command_line_args_disabled = true;
  settings.remote_debugging_port = 9333;
  CefString(&settings.javascript_flags) = "--expose-gc";
  const std::vector<std::string> arguments =
      BuildBrowserArguments(settings, new WillfulApp, "/profile");
  EXPECT_THAT(arguments, Contains("--proxy-server=http://127.0.0.1:1"));
  EXPECT_THAT(arguments, Contains("--js-flags=--expose-gc"));
  EXPECT_THAT(arguments, Contains("--remote-debugging-port=9333"));
  EXPECT_THAT(arguments, Contains("--user-data-dir=/profile"));
  EXPECT_THAT(arguments, Contains(testing::EndsWith(",Mine")));
  EXPECT_THAT(arguments, Not(Contains("--user-data-dir=/elsewhere")));
  EXPECT_THAT(arguments, Not(Contains(StartsWith("--screenshot"))));
  EXPECT_THAT(arguments, Not(Contains("--dump-dom")));
  EXPECT_THAT(arguments, Not(Contains("http://argument/")));
  EXPECT_THAT(arguments, Not(Contains("--hide-scrollbars")));
}

}  // namespace
}  // namespace cefedition
