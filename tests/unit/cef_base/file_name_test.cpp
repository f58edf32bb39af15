#include "file_name.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

TEST(FileNameTest, OrdinaryNamesStay) {
  EXPECT_EQ(SafeFileName("report.pdf"), "report.pdf");
  EXPECT_EQ(SafeFileName("two words (1).tar.gz"), "two words (1).tar.gz");
  EXPECT_EQ(SafeFileName("Gr\xC3\xBC\xC3\x9F"
                         "e.txt"),
            "Gr\xC3\xBC\xC3\x9F"
            "e.txt");
  EXPECT_EQ(SafeFileName("console.log"), "console.log");
  EXPECT_EQ(SafeFileName("com.txt"), "com.txt");
  EXPECT_EQ(SafeFileName("com10"), "com10");
}

TEST(FileNameTest, NothingLeadsOutOfTheFolder) {
  EXPECT_EQ(SafeFileName("../../etc/passwd"), "_._.._etc_passwd");
  EXPECT_EQ(SafeFileName("..\\..\\boot.ini"), "_._.._boot.ini");
  EXPECT_EQ(SafeFileName("C:\\autoexec.bat"), "C__autoexec.bat");
  EXPECT_EQ(SafeFileName("file.txt:stream"), "file.txt_stream");
  EXPECT_EQ(SafeFileName(".."), "download");
  EXPECT_EQ(SafeFileName("."), "download");
}

TEST(FileNameTest, CharactersThatWindowsRefusesAreReplaced) {
  EXPECT_EQ(SafeFileName("a\rb\nc\td\x7F.txt"), "a_b_c_d_.txt");
  EXPECT_EQ(SafeFileName("a\"b<c>d|e?f*g.txt"), "a_b_c_d_e_f_g.txt");
  EXPECT_EQ(SafeFileName(std::string_view("a\0b", 3)), "a_b");
}

TEST(FileNameTest, EndsThatWindowsDropsAreDropped) {
  EXPECT_EQ(SafeFileName("name. . ."), "name");
  EXPECT_EQ(SafeFileName("  name"), "name");
  EXPECT_EQ(SafeFileName("   "), "download");
  EXPECT_EQ(SafeFileName(""), "download");
  EXPECT_EQ(SafeFileName(".profile"), "_profile");
}

TEST(FileNameTest, DevicesAreNoFiles) {
  EXPECT_EQ(SafeFileName("CON"), "_CON");
  EXPECT_EQ(SafeFileName("nul.tar.gz"), "_nul.tar.gz");
  EXPECT_EQ(SafeFileName("Lpt1 .txt"), "_Lpt1 .txt");
  EXPECT_EQ(SafeFileName("com\xC2\xB9.txt"), "_com\xC2\xB9.txt");
  EXPECT_EQ(SafeFileName("conout$"), "_conout$");
}

TEST(FileNameTest, LongNamesKeepTheirExtension) {
  const std::string long_name = SafeFileName(std::string(5000, 'x') + ".zip");
  EXPECT_EQ(long_name.size(), kMaxFileNameBytes);
  EXPECT_TRUE(long_name.ends_with("x.zip"));
  EXPECT_EQ(SafeFileName("a." + std::string(5000, 'x')).size(), kMaxFileNameBytes);
}

TEST(FileNameTest, DevicesThatTheCutLeavesAreNoFiles) {
  const std::string spaces(kMaxFileNameBytes, ' ');
  EXPECT_EQ(SafeFileName("nul" + spaces + "x"), "_nul");
  EXPECT_EQ(SafeFileName("com1" + spaces + "x.txt"), "_com1.txt");
}

TEST(FileNameTest, LongNamesAreCutBetweenCharacters) {
  std::string wide;
  for (int i = 0; i < 100; ++i) {
    wide += "\xE2\x82\xAC";
  }
  const std::string cut = SafeFileName(wide + ".txt");
  EXPECT_LE(cut.size(), kMaxFileNameBytes);
  EXPECT_GT(cut.size(), kMaxFileNameBytes - 3);
  EXPECT_EQ((cut.size() - 4) % 3, 0u);
}

}  // namespace
}  // namespace cefedition
