// Which lines are headers, and their two parts.

#include "utils/header_line.h"

#include <gtest/gtest.h>

namespace kzcef {
namespace {

TEST(HeaderLine, IsTheTwoPartsAroundItsColonTrimmed) {
  EXPECT_EQ(ParseHeaderLine("Name:value"), (HeaderLine{"Name", "value"}));
  EXPECT_EQ(ParseHeaderLine(" \tX-Name \v:\f  some value\r\n"),
            (HeaderLine{"X-Name", "some value"}));
  EXPECT_EQ(ParseHeaderLine(":"), (HeaderLine{"", ""}));
  EXPECT_EQ(ParseHeaderLine("Name:"), (HeaderLine{"Name", ""}));
}

TEST(HeaderLine, NeedsExactlyOneColon) {
  EXPECT_EQ(ParseHeaderLine(""), std::nullopt);
  EXPECT_EQ(ParseHeaderLine("no colon"), std::nullopt);
  EXPECT_EQ(ParseHeaderLine("Referer: http://a/"), std::nullopt);
  EXPECT_EQ(ParseHeaderLine("Date: 12:30"), std::nullopt);
  EXPECT_EQ(ParseHeaderLine("::"), std::nullopt);
}

}  // namespace
}  // namespace kzcef
