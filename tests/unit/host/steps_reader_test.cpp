// Steps files: what is read from them, and what is said of wrong ones.

#include "portable/steps_reader.h"

#include <gtest/gtest.h>

#include "portable/notification_table.h"

namespace kzhost {
namespace {

std::vector<Step> Read(std::string_view text) {
  auto read = ReadSteps(text);
  const auto* error = std::get_if<StepsError>(&read);
  EXPECT_FALSE(error) << (error ? ToText("steps", *error) : "");
  return error ? std::vector<Step>() : std::get<std::vector<Step>>(std::move(read));
}

std::string Complaint(std::string_view text) {
  const auto read = ReadSteps(text);
  const auto* error = std::get_if<StepsError>(&read);
  return error ? ToText("steps", *error) : "";
}

TEST(StepsReader, EmptyFileHasNoSteps) {
  EXPECT_TRUE(Read("").empty());
  EXPECT_TRUE(Read("\n\n  \n# a comment\n\t# another\r\n").empty());
}

TEST(StepsReader, EachLineIsAStepWithItsNumber) {
  const auto steps = Read(
      "# start\n"
      "{\"do\":\"load\",\"url\":\"http://a/\"}\n"
      "\n"
      "{\"do\":\"wait\",\"notification\":\"LoadEndNotify\",\"where\":{\"httpStatus\":200},"
      "\"timeout\":500}");
  ASSERT_EQ(steps.size(), 2u);
  EXPECT_EQ(steps[0].line, 2);
  EXPECT_EQ(steps[0].verb, Verb::kLoad);
  EXPECT_EQ(steps[0].Text("url"), "http://a/");
  EXPECT_EQ(steps[1].line, 4);
  EXPECT_EQ(steps[1].verb, Verb::kWait);
  EXPECT_EQ(steps[1].Timeout(), std::chrono::milliseconds(500));
}

TEST(StepsReader, TakesByteOrderMarkAndCarriageReturns) {
  const auto steps = Read("\xEF\xBB\xBF{\"do\":\"quit\"}\r\n{\"do\":\"quit\"}\r\n");
  ASSERT_EQ(steps.size(), 2u);
  EXPECT_EQ(steps[1].line, 2);
}

TEST(StepsReader, MembersLeftOutHaveDefaults) {
  const auto steps = Read(R"({"do":"refresh"})");
  ASSERT_EQ(steps.size(), 1u);
  EXPECT_EQ(steps[0].Text("browser", "b1"), "b1");
  EXPECT_FALSE(steps[0].Flag("ignoreCache", false));
  EXPECT_EQ(steps[0].Timeout(), std::chrono::seconds(30));
  EXPECT_FALSE(steps[0].Has("hresult"));
}

TEST(StepsReader, FirstWrongLineIsNamed) {
  EXPECT_EQ(Complaint("{\"do\":\"quit\"}\n\n{\"do\":\"quit\"\n{\"do\":\"nonsense\"}"),
            "steps:3: this is no JSON object");
}

TEST(StepsReader, WrongStepsAreExplained) {
  EXPECT_EQ(Complaint("load http://a/"), "steps:1: this is no JSON object");
  EXPECT_EQ(Complaint("{\"do\":\"quit\"} {}"), "steps:1: this is no JSON object");
  EXPECT_EQ(Complaint("[1]"), "steps:1: a step is a JSON object");
  EXPECT_EQ(Complaint("{}"), R"(steps:1: a step needs "do", the name of the step)");
  EXPECT_EQ(Complaint(R"({"do":1})"), R"(steps:1: a step needs "do", the name of the step)");
  EXPECT_EQ(Complaint(R"({"do":"jump"})"), R"(steps:1: there is no step "jump")");
  EXPECT_EQ(Complaint(R"({"do":"load"})"), R"(steps:1: "load" needs "url", a text)");
  EXPECT_EQ(Complaint(R"({"do":"load","url":1})"), R"(steps:1: "url" of "load" must be a text)");
  EXPECT_EQ(Complaint(R"({"do":"load","url":"a","speed":2})"),
            R"(steps:1: "load" has no member "speed")");
}

TEST(StepsReader, NumbersHaveBounds) {
  for (const char* width :
       {"-1", "2147483648", "1.5", "\"1\"", "true", "1e3", "99999999999999999999"}) {
    EXPECT_NE(Complaint(R"({"do":"resize","height":1,"width":)" + std::string(width) + "}"), "")
        << width;
  }
  EXPECT_EQ(Read(R"({"do":"resize","height":0,"width":2147483647})")[0].Number("width", 1),
            2147483647);
}

TEST(StepsReader, ResultsAreThirtyTwoBitsOfEitherSign) {
  for (const char* result : {"0", "1", "-2147467261", "2147500035", "4294967295", "-2147483648"}) {
    EXPECT_EQ(Complaint(R"({"do":"start","hresult":)" + std::string(result) + "}"), "") << result;
  }
  for (const char* result : {"4294967296", "-2147483649", "0.5", "\"0\""}) {
    EXPECT_NE(Complaint(R"({"do":"start","hresult":)" + std::string(result) + "}"), "") << result;
  }
}

TEST(StepsReader, ColoursAreSixHexadecimalDigits) {
  const auto steps = Read(R"({"do":"pixel","x":1,"y":2,"colour":"#0aF1ff"})");
  ASSERT_EQ(steps.size(), 1u);
  const Colour colour = ReadColour(steps[0].Text("colour"));
  EXPECT_EQ(colour.red, 0x0A);
  EXPECT_EQ(colour.green, 0xF1);
  EXPECT_EQ(colour.blue, 0xFF);
  for (const char* wrong : {"red", "#12345", "#1234567", "123456#", "#12345g", ""}) {
    EXPECT_NE(Complaint(R"({"do":"pixel","x":1,"y":2,"colour":")" + std::string(wrong) + "\"}"), "")
        << wrong;
  }
}

TEST(StepsReader, WaitKnowsTheNotificationsAndTheirArguments) {
  EXPECT_EQ(Complaint(R"({"do":"wait","notification":"LoadedNotify"})"),
            R"(steps:1: there is no notification "LoadedNotify")");
  EXPECT_EQ(Complaint(R"({"do":"wait","notification":"LoadEndNotify","where":{"status":200}})"),
            R"(steps:1: LoadEndNotify has no argument "status")");
  EXPECT_EQ(
      Complaint(R"({"do":"wait","notification":"LoadEndNotify","where":{"httpStatus":"200"}})"),
      R"(steps:1: "httpStatus" of LoadEndNotify is of another kind)");
}

TEST(StepsReader, AnswersGoIntoInOutArgumentsOnly) {
  EXPECT_EQ(Complaint(R"({"do":"answer","notification":"BeforePopupNotify",)"
                      R"("set":{"Continue":false,"Popup":true},"when":{"URL":"*"},"delay":5})"),
            "");
  EXPECT_EQ(
      Complaint(R"({"do":"answer","notification":"BeforePopupNotify","set":{"URL":"http://a/"}})"),
      R"(steps:1: "URL" of BeforePopupNotify cannot be answered)");
  EXPECT_EQ(
      Complaint(R"({"do":"answer","notification":"BeforePopupNotify","set":{"Continue":"yes"}})"),
      R"(steps:1: "Continue" of BeforePopupNotify is of another kind)");
  EXPECT_EQ(Complaint(R"({"do":"answer","notification":"BeforePopupNotify"})"),
            R"(steps:1: "answer" needs "set", an object)");
}

TEST(StepsReader, FlagsAreAnsweredBySixteenBitsToo) {
  const auto complaint = [](const std::string& flag) {
    return Complaint(R"({"do":"answer","notification":"KeyStrokeNotify","set":{"isEventHandled":)" +
                     flag + "}}");
  };
  for (const char* flag : {"true", "-1", "1", "0", "32767", "-32768"}) {
    EXPECT_EQ(complaint(flag), "") << flag;
  }
  for (const char* flag : {"32768", "-32769", "0.5", "null", "\"1\""}) {
    EXPECT_NE(complaint(flag), "") << flag;
  }
  // What arrives is a flag.
  EXPECT_NE(Complaint(R"({"do":"wait","notification":"LoadingStateChangeNotify",)"
                      R"("where":{"IsLoading":1}})"),
            "");
}

TEST(StepsReader, ClicksAreMadeWithOneOfTwoButtons) {
  EXPECT_EQ(Complaint(R"({"do":"click","x":1,"y":2,"button":"right"})"), "");
  EXPECT_EQ(Complaint(R"({"do":"click","x":1,"y":2,"button":"middle"})"),
            R"(steps:1: "button" must be "left" or "right")");
}

TEST(StepsReader, ScreenshotsHaveTwoAreas) {
  EXPECT_EQ(Complaint(R"({"do":"screenshot","file":"a.png","area":"view"})"), "");
  EXPECT_EQ(Complaint(R"({"do":"screenshot","file":"a.png","area":"desk"})"),
            R"(steps:1: "area" must be "window" or "view")");
}

TEST(StepsReader, SwitchesOfTheEngineAreTexts) {
  EXPECT_EQ(Complaint(R"({"do":"init","settings":{"LogSeverity":2},"switches":{"lang":"de"}})"),
            "");
  EXPECT_EQ(Complaint(R"({"do":"init","switches":{"lang":1}})"),
            R"(steps:1: the switch "lang" must be a text)");
}

TEST(StepsReader, CookiesAreReadByUrlOrAllTogether) {
  const auto steps = Read(
      "{\"do\":\"getAllCookies\",\"has\":[\"*a*\"],\"timeout\":5}\n"
      "{\"do\":\"getCookies\",\"url\":\"http://a/\",\"equals\":null}\n"
      "{\"do\":\"getCookiesSync\",\"url\":\"http://a/\",\"equals\":[\"b\"],\"hresult\":0}\n");
  ASSERT_EQ(steps.size(), 3u);
  EXPECT_EQ(steps[0].verb, Verb::kGetAllCookies);
  EXPECT_EQ(steps[1].verb, Verb::kGetCookies);
  EXPECT_EQ(steps[2].verb, Verb::kGetCookiesSync);
  EXPECT_NE(Complaint(R"({"do":"getCookies"})"), "");
  EXPECT_NE(Complaint(R"({"do":"getAllCookies","url":"http://a/"})"), "");
  for (const char* patterns : {"\"*\"", "[1]", "[\"*\",null]", "{}"}) {
    EXPECT_EQ(Complaint(R"({"do":"getAllCookies","has":)" + std::string(patterns) + "}"),
              R"(steps:1: "has" of "getAllCookies" must be an array of texts)");
  }
}

TEST(StepsReader, CookiesAreSetFromAnArray) {
  const auto steps =
      Read(R"({"do":"setCookies","url":"http://a/","cookies":[{"name":"n"},"text"]})");
  ASSERT_EQ(steps.size(), 1u);
  EXPECT_EQ(steps[0].verb, Verb::kSetCookies);
  EXPECT_TRUE(steps[0].Flag("equals", true));
  EXPECT_NE(Complaint(R"({"do":"setCookies","url":"http://a/"})"), "");
  EXPECT_NE(Complaint(R"({"do":"setCookies","url":"http://a/","cookies":"text"})"), "");
}

TEST(StepsReader, NestingWithoutEndIsNoProblem) {
  const std::string deep(200'000, '[');
  EXPECT_EQ(Complaint(deep), "steps:1: this is no JSON object");
  EXPECT_NE(Complaint(R"({"do":"call","object":"a","member":"b","args":)" + deep), "");
}

TEST(NotificationTable, HasTheEighteenNotificationsAndNotTheSetter) {
  for (const char* name :
       {"AddressChangeNotify", "BeforeBrowseNotify", "BeforeContextMenuNotify",
        "BeforeDownloadNotify", "BeforePopupNotify", "BeforeResourceLoadNotify",
        "BrowserCreatedNotify", "DownloadCompletedNotify", "DownloadUpdatedNotify",
        "EscapeKeyNotify", "GetAuthCredentialsNotify", "KeyStrokeNotify", "LoadEndNotify",
        "LoadStartNotify", "LoadingStateChangeNotify", "ResourceLoadCompleteNotify",
        "ResourceRedirectNotify", "ResourceResponseNotify"}) {
    EXPECT_TRUE(FindNotification(name)) << name;
  }
  EXPECT_FALSE(FindNotification("SetOwnerWndHandle"));
}

}  // namespace
}  // namespace kzhost
