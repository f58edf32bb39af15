// The text of a lock file, written and read.

#include "utils/lock_record.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace kzcef {
namespace {

// The text of the error that reading `text` throws.
template <typename Error>
std::string ErrorOf(const std::string& text) {
  try {
    ParseLockRecord(text);
  } catch (const Error& error) {
    return error.what();
  }
  return "no error of this kind";
}

TEST(FormatLockRecord, WritesTwoLinesWithTheSeparatorsDoubled) {
  EXPECT_EQ(FormatLockRecord(4711, "C:\\x\\host.exe"), "PID:4711\nPROGRAM:C:\\\\x\\\\host.exe\n");
}

TEST(FormatLockRecord, DoublesForwardSlashesToo) {
  EXPECT_EQ(FormatLockRecord(1, "C:/x\\host.exe"), "PID:1\nPROGRAM:C://x\\\\host.exe\n");
}

TEST(ParseLockRecord, ReadsBackWhatWasWrittenWithTheSeparatorsStillDoubled) {
  const LockRecord record = ParseLockRecord(FormatLockRecord(4711, "C:\\x\\host.exe"));
  EXPECT_EQ(record.process_id, 4711);
  EXPECT_EQ(record.program, "C:\\\\x\\\\host.exe");
}

TEST(ParseLockRecord, AnswersTheEmptyRecordForAnEmptyFile) {
  EXPECT_EQ(ParseLockRecord(""), LockRecord());
}

TEST(ParseLockRecord, IgnoresOtherLinesAndPrefixesInOtherLetterCase) {
  EXPECT_EQ(ParseLockRecord("\nPPID:1\npid:2\n PROGRAM:x\nprogram:y\n"), LockRecord());
}

TEST(ParseLockRecord, NeedsNoLineFeedAtTheEnd) {
  EXPECT_EQ(ParseLockRecord("PROGRAM:x\nPID:5"), (LockRecord{5, "x"}));
}

TEST(ParseLockRecord, KeepsACarriageReturnInTheLine) {
  EXPECT_EQ(ParseLockRecord("PID:5\r\nPROGRAM:x\r\n"), (LockRecord{5, "x\r"}));
}

TEST(ParseLockRecord, SkipsLeadingBlanksOfTheNumberAndStopsBehindItsDigits) {
  EXPECT_EQ(ParseLockRecord("PID: \t12abc\n").process_id, 12);
  EXPECT_EQ(ParseLockRecord("PID:-3\n").process_id, -3);
}

TEST(ParseLockRecord, RaisesInvalidArgumentForANumberWithoutDigits) {
  EXPECT_EQ(ErrorOf<std::invalid_argument>("PID:\n"), "invalid stoi argument");
  EXPECT_EQ(ErrorOf<std::invalid_argument>("PID:none\n"), "invalid stoi argument");
}

TEST(ParseLockRecord, RaisesOutOfRangeBeyondTheSigned32BitRange) {
  EXPECT_EQ(ErrorOf<std::out_of_range>("PID:2147483648\n"), "stoi argument out of range");
  EXPECT_EQ(ErrorOf<std::out_of_range>("PID:-2147483649\n"), "stoi argument out of range");
  EXPECT_EQ(ParseLockRecord("PID:2147483647\n").process_id, 2147483647);
}

TEST(ParseLockRecord, TakesBytesThatAreNoText) {
  EXPECT_EQ(ParseLockRecord(std::string("PROGRAM:\xff\0\x80\n", 12)).program,
            std::string("\xff\0\x80", 3));
}

}  // namespace
}  // namespace kzcef
