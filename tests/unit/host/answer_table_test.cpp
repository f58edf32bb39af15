#include "portable/answer_table.h"

#include <gtest/gtest.h>

namespace kzhost {
namespace {

TEST(AnswerTable, AnswersNothingUntilTold) {
  EXPECT_EQ(AnswerTable().Find("BeforePopupNotify", {{"URL", "http://a/"}}), Json::object());
}

TEST(AnswerTable, AnswersOnlyTheNotificationItWasToldOf) {
  AnswerTable table;
  table.Set("BeforePopupNotify", Json::object(), {{"Continue", false}});
  EXPECT_EQ(table.Find("BeforePopupNotify", Json::object()), Json({{"Continue", false}}));
  EXPECT_EQ(table.Find("BeforeBrowseNotify", Json::object()), Json::object());
}

TEST(AnswerTable, AnswersOnlyWhereTheConditionsHold) {
  AnswerTable table;
  table.Set("BeforePopupNotify", {{"URL", "*/blocked"}}, {{"Continue", false}});
  EXPECT_EQ(table.Find("BeforePopupNotify", {{"URL", "http://a/blocked"}}),
            Json({{"Continue", false}}));
  EXPECT_EQ(table.Find("BeforePopupNotify", {{"URL", "http://a/open"}}), Json::object());
}

TEST(AnswerTable, LatestRuleThatHoldsCountsAlone) {
  AnswerTable table;
  table.Set("BeforePopupNotify", Json::object(), {{"Continue", false}, {"Popup", true}});
  table.Set("BeforePopupNotify", {{"URL", "http://a/"}}, {{"Popup", false}});
  EXPECT_EQ(table.Find("BeforePopupNotify", {{"URL", "http://a/"}}), Json({{"Popup", false}}));
  EXPECT_EQ(table.Find("BeforePopupNotify", {{"URL", "http://b/"}}),
            Json({{"Continue", false}, {"Popup", true}}));
}

TEST(AnswerTable, EmptyAnswersTakeARuleBack) {
  AnswerTable table;
  table.Set("BeforePopupNotify", Json::object(), {{"Continue", false}});
  table.Set("BeforePopupNotify", Json::object(), Json::object());
  EXPECT_EQ(table.Find("BeforePopupNotify", Json::object()), Json::object());
}

}  // namespace
}  // namespace kzhost
