// The two written forms of a notification.

#include "portable/notification.h"

#include <gtest/gtest.h>

namespace kzhost {
namespace {

Notification LoadEnd() {
  Notification notification;
  notification.sequence = 7;
  notification.browser = "b1";
  notification.name = "LoadEndNotify";
  notification.arguments = {{"httpStatus", 200}};
  notification.owner_window = 0x10020;
  notification.thread = 44;
  return notification;
}

TEST(Notification, JsonLineHasEverythingInAFixedOrder) {
  EXPECT_EQ(ToJsonLine(LoadEnd()),
            R"({"seq":7,"browser":"b1","notification":"LoadEndNotify","httpStatus":200,)"
            R"("window":65568,"thread":44})");
}

TEST(Notification, JsonLineTellsWhatWasAnswered) {
  Notification popup = LoadEnd();
  popup.name = "BeforePopupNotify";
  popup.arguments = {{"URL", "http://a/"}, {"Popup", false}, {"Continue", true}};
  popup.answered = {{"Continue", false}};
  EXPECT_EQ(ToJsonLine(popup),
            R"({"seq":7,"browser":"b1","notification":"BeforePopupNotify","URL":"http://a/",)"
            R"("Popup":false,"Continue":true,"answered":{"Continue":false},)"
            R"("window":65568,"thread":44})");
}

TEST(Notification, JsonLineStaysOneLineWhateverTheText) {
  Notification address = LoadEnd();
  address.arguments = {{"NewAddress", "a\nb\"c\\d\xFF\xE2\x82\xAC"}};
  const std::string line = ToJsonLine(address);
  EXPECT_EQ(line.find('\n'), std::string::npos);
  EXPECT_EQ(Json::parse(line)["NewAddress"], "a\nb\"c\\d\xEF\xBF\xBD\xE2\x82\xAC");
}

TEST(Notification, PlainLineIsForPeople) {
  EXPECT_EQ(ToPlainLine(LoadEnd()), "b1 LoadEndNotify httpStatus=200");
  Notification popup = LoadEnd();
  popup.name = "BeforePopupNotify";
  popup.arguments = {{"URL", "http://a/"}, {"Continue", true}};
  popup.answered = {{"Continue", false}};
  EXPECT_EQ(ToPlainLine(popup),
            R"(b1 BeforePopupNotify URL=http://a/ Continue=true -> {"Continue":false})");
}

}  // namespace
}  // namespace kzhost
