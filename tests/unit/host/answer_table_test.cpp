// What the sample host's handler answers, by the rules that it was given.

#include "portable/answer_table.h"

#include <gtest/gtest.h>

#include <chrono>

namespace kzhost {
namespace {

using std::chrono::milliseconds;

Answer Writes(Json arguments) {
  return {std::move(arguments), milliseconds(0)};
}

Json Answered(const AnswerTable& table, const char* notification, const Json& arguments) {
  return table.Find(notification, arguments).arguments;
}

TEST(AnswerTable, AnswersNothingUntilTold) {
  EXPECT_EQ(Answered(AnswerTable(), "BeforePopupNotify", {{"URL", "http://a/"}}), Json::object());
}

TEST(AnswerTable, AnswersOnlyTheNotificationItWasToldOf) {
  AnswerTable table;
  table.Set("BeforePopupNotify", Json::object(), Writes({{"Continue", false}}));
  EXPECT_EQ(Answered(table, "BeforePopupNotify", Json::object()), Json({{"Continue", false}}));
  EXPECT_EQ(Answered(table, "BeforeBrowseNotify", Json::object()), Json::object());
}

TEST(AnswerTable, AnswersOnlyWhereTheConditionsHold) {
  AnswerTable table;
  table.Set("BeforePopupNotify", {{"URL", "*/blocked"}}, Writes({{"Continue", false}}));
  EXPECT_EQ(Answered(table, "BeforePopupNotify", {{"URL", "http://a/blocked"}}),
            Json({{"Continue", false}}));
  EXPECT_EQ(Answered(table, "BeforePopupNotify", {{"URL", "http://a/open"}}), Json::object());
}

TEST(AnswerTable, LatestRuleThatHoldsCountsAlone) {
  AnswerTable table;
  table.Set("BeforePopupNotify", Json::object(), Writes({{"Continue", false}, {"Popup", true}}));
  table.Set("BeforePopupNotify", {{"URL", "http://a/"}}, Writes({{"Popup", false}}));
  EXPECT_EQ(Answered(table, "BeforePopupNotify", {{"URL", "http://a/"}}), Json({{"Popup", false}}));
  EXPECT_EQ(Answered(table, "BeforePopupNotify", {{"URL", "http://b/"}}),
            Json({{"Continue", false}, {"Popup", true}}));
}

TEST(AnswerTable, EmptyAnswersTakeARuleBack) {
  AnswerTable table;
  table.Set("BeforePopupNotify", Json::object(), Writes({{"Continue", false}}));
  table.Set("BeforePopupNotify", Json::object(), Answer());
  EXPECT_EQ(Answered(table, "BeforePopupNotify", Json::object()), Json::object());
}

TEST(AnswerTable, SaysHowLongTheHandlerTakes) {
  AnswerTable table;
  table.Set("BeforePopupNotify", {{"URL", "*/slow"}}, {Json::object(), milliseconds(700)});
  EXPECT_EQ(table.Find("BeforePopupNotify", {{"URL", "http://a/slow"}}).delay, milliseconds(700));
  EXPECT_EQ(table.Find("BeforePopupNotify", {{"URL", "http://a/"}}).delay, milliseconds(0));
}

}  // namespace
}  // namespace kzhost
