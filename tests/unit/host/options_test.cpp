// The command line of the sample host.

#include "portable/options.h"

#include <gtest/gtest.h>

namespace kzhost {
namespace {

Options Parsed(const std::vector<std::string>& arguments) {
  const auto parsed = ParseOptions(arguments);
  const auto* wrong = std::get_if<std::string>(&parsed);
  EXPECT_FALSE(wrong) << (wrong ? *wrong : "");
  return wrong ? Options() : std::get<Options>(parsed);
}

std::string Complaint(const std::vector<std::string>& arguments) {
  const auto parsed = ParseOptions(arguments);
  const auto* wrong = std::get_if<std::string>(&parsed);
  return wrong ? *wrong : "";
}

TEST(Options, NothingIsAWindowWithDefaults) {
  const Options options = Parsed({});
  EXPECT_EQ(options.url, "");
  EXPECT_EQ(options.view_width, 800);
  EXPECT_EQ(options.view_height, 600);
  EXPECT_EQ(options.timeout, std::chrono::seconds(60));
  EXPECT_FALSE(options.late_bound || options.console || options.quit || options.help);
}

TEST(Options, EverySwitchIsRead) {
  const Options options =
      Parsed({"--events", "e", "--run", "r", "--screenshot", "s", "--server", "d", "--cache", "c",
              "--size", "640x480", "--timeout", "5", "--late-bound", "--console", "http://a/"});
  EXPECT_EQ(options.events_file, "e");
  EXPECT_EQ(options.steps_file, "r");
  EXPECT_EQ(options.screenshot_file, "s");
  EXPECT_EQ(options.server_path, "d");
  EXPECT_EQ(options.cache_directory, "c");
  EXPECT_EQ(options.view_width, 640);
  EXPECT_EQ(options.view_height, 480);
  EXPECT_EQ(options.timeout, std::chrono::seconds(5));
  EXPECT_TRUE(options.late_bound);
  EXPECT_TRUE(options.console);
  EXPECT_EQ(options.url, "http://a/");
  EXPECT_TRUE(Parsed({"--quit"}).quit);
  EXPECT_TRUE(Parsed({"--help"}).help);
}

TEST(Options, ValueMayLookLikeASwitch) {
  EXPECT_EQ(Parsed({"--cache", "--odd"}).cache_directory, "--odd");
}

TEST(Options, WrongOnesAreNamed) {
  EXPECT_EQ(Complaint({"--nonsense"}), "unknown switch --nonsense");
  EXPECT_EQ(Complaint({"--run"}), "--run needs a value");
  EXPECT_EQ(Complaint({"--run", ""}), "--run cannot be \"\"");
  EXPECT_EQ(Complaint({"http://a/", "http://b/"}), "more than one URL: http://a/ and http://b/");
  EXPECT_NE(Complaint({"--run", "steps", "--quit"}), "");
}

TEST(Options, SizesAndTimesHaveBounds) {
  for (const char* size : {"", "800", "800x", "x600", "800x600x1", "15x600", "800x8193", "-1x600",
                           "800 x600", "99999999999x600"}) {
    EXPECT_NE(Complaint({"--size", size}), "") << size;
  }
  for (const char* seconds : {"0", "-1", "3601", "5s", ""}) {
    EXPECT_NE(Complaint({"--timeout", seconds}), "") << seconds;
  }
}

TEST(Options, HelpNamesEverySwitch) {
  const std::string help = HelpText();
  for (const char* name : {"--run", "--events", "--console", "--screenshot", "--quit", "--timeout",
                           "--late-bound", "--server", "--cache", "--size", "--help"}) {
    EXPECT_NE(help.find(name), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace kzhost
