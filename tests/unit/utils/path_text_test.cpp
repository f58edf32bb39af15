// Cutting and joining paths as texts.

#include "utils/path_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

namespace kzcef {
namespace {

using namespace std::string_view_literals;

TEST(DoubleSeparators, DoublesBothKindsAndNothingElse) {
  EXPECT_EQ(DoubleSeparators("C:\\Program Files\\host.exe"), "C:\\\\Program Files\\\\host.exe");
  EXPECT_EQ(DoubleSeparators("C:/a\\b/c.exe"), "C://a\\\\b//c.exe");
  EXPECT_EQ(DoubleSeparators("\\\\server/"), "\\\\\\\\server//");
}

TEST(PathStem, IsTheNameWithoutFolderAndLastExtension) {
  EXPECT_EQ(PathStem("C:\\x.y\\my.host.exe"), "my.host");
  EXPECT_EQ(PathStem("C:/x/host.exe"), "host");
  EXPECT_EQ(PathStem("C:\\x/host"), "host");
}

TEST(PathStem, StaysWholeWithoutADotOrWithOneAtItsBeginning) {
  EXPECT_EQ(PathStem("host"), "host");
  EXPECT_EQ(PathStem("C:\\.host"), ".host");
  EXPECT_EQ(PathStem("C:\\x.y\\host"), "host");
  EXPECT_EQ(PathStem("C:\\x\\"), "");
}

TEST(FolderOrDot, CutsBeforeTheLastBackslash) {
  EXPECT_EQ(FolderOrDot(u"C:\\x\\host.exe"sv), u"C:\\x");
}

TEST(FolderOrDot, IsADotWhenNoBackslashLiesBehindTheFirstCharacter) {
  EXPECT_EQ(FolderOrDot(u"host.exe"sv), u".");
  EXPECT_EQ(FolderOrDot(u"\\host.exe"sv), u".");
  EXPECT_EQ(FolderOrDot(u"C:/x/host.exe"sv), u".");
  EXPECT_EQ(FolderOrDot(u""sv), u".");
}

TEST(SubprocessPathBeside, LiesInTheFolderOfTheModule) {
  EXPECT_EQ(SubprocessPathBeside(u"C:\\x\\KZCEFComWrapper.dll"sv), u"C:\\x\\kzCefSubProc.exe");
}

TEST(SubprocessPathBeside, HasAnEmptyFolderForANameWithoutABackslash) {
  EXPECT_EQ(SubprocessPathBeside(u"KZCEFComWrapper.dll"sv), u"\\kzCefSubProc.exe");
}

TEST(CacheFolderBelow, AddsABackslashOnlyWhereThereIsNone) {
  EXPECT_EQ(CacheFolderBelow("C:\\temp"), "C:\\temp\\CefCache");
  EXPECT_EQ(CacheFolderBelow("C:\\temp\\"), "C:\\temp\\CefCache");
}

TEST(CacheCandidates, AreTheBaseAndFiftyNumberedOnesInIt) {
  const auto candidates = CacheCandidates("C:\\cache", "host");
  ASSERT_EQ(candidates.size(), 51u);
  EXPECT_EQ(candidates[0], "C:\\cache");
  EXPECT_EQ(candidates[1], "C:\\cache\\host_1");
  EXPECT_EQ(candidates[50], "C:\\cache\\host_50");
  EXPECT_EQ(std::set(candidates.begin(), candidates.end()).size(), 51u);
}

TEST(CacheCandidates, BeginWithNothingForAnEmptyBase) {
  EXPECT_EQ(CacheCandidates("", "host").front(), "");
}

}  // namespace
}  // namespace kzcef
