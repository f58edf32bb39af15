// The messages about files that cannot be written, to the letter.

#include "utils/file_messages.h"

#include <gtest/gtest.h>

namespace kzcef {
namespace {

TEST(FileMessages, CarryTheirFixedNumbers) {
  EXPECT_EQ(CreateFailedMessage("C:\\x"), "kzcefwrapperutils.cpp:512 Failed to create file: C:\\x");
  EXPECT_EQ(WriteFailedMessage("C:\\x"),
            "kzcefwrapperutils.cpp:530 Failed to write to file: C:\\x");
}

TEST(FileMessages, HaveTwoBlanksBetweenTheCountsOfAShortWrite) {
  EXPECT_EQ(ShortWriteMessage(20, 7),
            "kzcefwrapperutils.cpp:536 Expected to write 20 bytes,  actually wrote 7 bytes");
}

}  // namespace
}  // namespace kzcef
