// Which libcef.dll is used, and what is said of one that is not.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "engine_pin.h"
#include "library.h"

namespace cefbinding {
namespace {

std::filesystem::path Folder() {
  wchar_t path[32'768];
  return std::filesystem::path(
             std::wstring(path, GetModuleFileNameW(nullptr, path, std::size(path))))
      .parent_path();
}

TEST(LibraryTest, EngineBesideTheProgramIsUsed) {
  const Library library = LoadEngine(Folder() / L"libcef.dll", kEngineApiHash);
  EXPECT_EQ(library.refusal, "");
  ASSERT_TRUE(library.functions.cef_version_info);
  EXPECT_EQ(library.functions.cef_version_info(0), KZ_ENGINE_MAJOR);
  EXPECT_TRUE(library.log.write);
}

TEST(LibraryTest, OtherApiHashIsRefusedWithBothValues) {
  const Library library = LoadEngine(Folder() / L"libcef.dll", "0123456789");
  EXPECT_NE(library.refusal.find("0123456789"), std::string::npos) << library.refusal;
  EXPECT_NE(library.refusal.find(kEngineApiHash), std::string::npos) << library.refusal;
  EXPECT_FALSE(library.functions.cef_initialize);
  EXPECT_FALSE(library.log.write);
}

TEST(LibraryTest, LibraryThatLacksAFunctionIsRefusedByItsName) {
  const Library library = LoadEngine(Folder() / L"incomplete_libcef.dll", kEngineApiHash);
  EXPECT_NE(library.refusal.find("cef_add_cross_origin_whitelist_entry"), std::string::npos)
      << library.refusal;
  EXPECT_FALSE(library.functions.cef_initialize);
}

TEST(LibraryTest, LibraryThatIsNoCefIsRefused) {
  const Library library = LoadEngine(L"kernel32.dll", kEngineApiHash);
  EXPECT_NE(library.refusal.find("cef_api_hash"), std::string::npos) << library.refusal;
}

TEST(LibraryTest, MissingLibraryIsRefusedByItsPath) {
  const Library library = LoadEngine(Folder() / L"nowhere" / L"libcef.dll", kEngineApiHash);
  EXPECT_NE(library.refusal.find("nowhere"), std::string::npos) << library.refusal;
  EXPECT_NE(library.refusal.find("cannot be loaded"), std::string::npos) << library.refusal;
}

}  // namespace
}  // namespace cefbinding
