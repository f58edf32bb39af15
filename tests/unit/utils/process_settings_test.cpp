// The process-wide values: their beginnings, their replacement, and the known kinds of host.

#include "utils/process_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

TEST(ProcessSettings, StartEmpty) {
  EXPECT_THAT(CommandLineArgTable(), IsEmpty());
  EXPECT_EQ(HostKind(), L"");
  EXPECT_EQ(CachePath(), L"");
  EXPECT_EQ(LanguageResourcePath(), L"");
  EXPECT_EQ(AcceptLanguageList(), L"");
  EXPECT_EQ(CookieLanguage(), L"");
  EXPECT_FALSE(IsAcceptLanguageOverridden());
  EXPECT_EQ(ConfiguredHubPort(), -1);
}

TEST(ProcessSettings, ReplaceTheTableOfSwitchesAsAWhole) {
  SetCommandLineArgTable({{L"b", L"1"}, {L"a", L"2"}});
  SetCommandLineArgTable({{L"b", L"3"}, {L"B", L"4"}});
  EXPECT_THAT(CommandLineArgTable(), ElementsAre(Pair(L"B", L"4"), Pair(L"b", L"3")));
}

TEST(ProcessSettings, KeepTheHostKindAsGiven) {
  SetHostKind(L"kzxHARBOR");
  EXPECT_EQ(HostKind(), L"kzxHARBOR");
}

TEST(ProcessSettings, KeepTheLastLanguageOfACookie) {
  SetAcceptLanguageList(L"it");
  SetCookieLanguage(L"de");
  SetCookieLanguage(L"fr");
  EXPECT_EQ(CookieLanguage(), L"fr");
  EXPECT_EQ(AcceptLanguageList(), L"it");
}

TEST(HostKinds, AreKnownInEveryLetterCase) {
  EXPECT_TRUE(IsKnownHostKind(L"KzxMeadow"));
  EXPECT_TRUE(IsKnownHostKind(L"kzxquilladdinloaded"));
  EXPECT_TRUE(IsKnownHostKind(L"KZXHARBOR"));
}

TEST(HostKinds, AreNotKnownByPartsOrOtherNames) {
  EXPECT_FALSE(IsKnownHostKind(L""));
  EXPECT_FALSE(IsKnownHostKind(L"KzxMeadow "));
  EXPECT_FALSE(IsKnownHostKind(L"KzxQuill"));
  EXPECT_FALSE(IsKnownHostKind(L"KzxOther"));
}

}  // namespace
}  // namespace kzcef
