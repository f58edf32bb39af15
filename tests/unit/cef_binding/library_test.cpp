// Which libraries are taken for the engine.
#include "library.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "engine_pin.h"
#include "include/cef_values.h"

namespace cefbinding {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::filesystem::path OwnFolder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return std::filesystem::path(path).parent_path();
}

void ExpectRefused(const Library& library) {
  EXPECT_EQ(library.functions.cef_initialize, nullptr);
  EXPECT_EQ(library.functions.cef_value_create, nullptr);
  EXPECT_EQ(library.log.write, nullptr);
}

TEST(LibraryTest, TheEngineIsTheOneBesideThisProgram) {
  EXPECT_THAT(Engine().refusal, IsEmpty());
  EXPECT_NE(Engine().functions.cef_initialize, nullptr);
  EXPECT_NE(Engine().log.write, nullptr);
}

TEST(LibraryTest, AFileThatIsNotThereIsNamed) {
  const Library library = LoadEngine(L"C:\\none\\libcef.dll", kEngineApiHash);
  EXPECT_EQ(library.refusal,
            "C:\\none\\libcef.dll cannot be loaded: error " + std::to_string(ERROR_MOD_NOT_FOUND));
  ExpectRefused(library);
}

TEST(LibraryTest, ALibraryOfSomebodyElseIsRefused) {
  const Library library = LoadEngine(L"kernel32.dll", kEngineApiHash);
  EXPECT_THAT(library.refusal,
              EndsWith("kernel32.dll is not CEF's library: it lacks the function cef_api_hash"));
  ExpectRefused(library);
}

TEST(LibraryTest, AnotherVersionIsRefusedWithBothHashes) {
  const Library library = LoadEngine(OwnFolder() / L"libcef.dll", "0123");
  EXPECT_THAT(library.refusal, HasSubstr(std::string("has the API hash ") + kEngineApiHash));
  EXPECT_THAT(library.refusal, EndsWith("expected was 0123: it belongs to another version of CEF"));
  ExpectRefused(library);
}

TEST(LibraryTest, ALibraryThatLacksAFunctionIsRefusedByItsName) {
  const Library library = LoadEngine(OwnFolder() / L"incomplete_libcef.dll", kEngineApiHash);
  EXPECT_THAT(library.refusal,
              HasSubstr("lacks the function cef_add_cross_origin_whitelist_entry"));
  EXPECT_THAT(library.refusal, EndsWith(kEngineApiHash));
  ExpectRefused(library);
}

TEST(LibraryTest, TheEngineIsOfTheVersionThatTheBuildNames) {
  EXPECT_EQ(Engine().functions.cef_version_info(0), KZ_ENGINE_MAJOR);
}

}  // namespace
}  // namespace cefbinding
