// What registration does inside one process, with the classes' keys redirected to an empty place.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "contract_table.h"
#include "server_library.h"

namespace contract {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr wchar_t kUserClasses[] = L"Software\\Classes";

struct KeyCloser {
  void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

Key CreateKey(HKEY parent, const std::wstring& name, DWORD options = REG_OPTION_NON_VOLATILE) {
  HKEY key = nullptr;
  EXPECT_EQ(RegCreateKeyExW(parent, name.c_str(), 0, nullptr, options, KEY_ALL_ACCESS, nullptr,
                            &key, nullptr),
            ERROR_SUCCESS);
  return Key(key);
}

std::vector<std::wstring> Subkeys(HKEY parent, const std::wstring& name) {
  std::vector<std::wstring> names;
  HKEY opened = nullptr;
  if (RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
    return names;
  }
  const Key key(opened);
  wchar_t text[256];
  for (DWORD i = 0, size = 256; RegEnumKeyExW(key.get(), i, text, &size, nullptr, nullptr, nullptr,
                                              nullptr) == ERROR_SUCCESS;
       ++i, size = 256) {
    names.emplace_back(text);
  }
  return names;
}

// Six empty hives of the process's own: registration sees nothing else and reaches nothing else.
class Registration : public ::testing::Test {
 protected:
  Registration() {
    RegDeleteTreeW(HKEY_CURRENT_USER, playground.c_str());
    classes = CreateKey(HKEY_CURRENT_USER, playground + L"\\machine");
    user = CreateKey(HKEY_CURRENT_USER, playground + L"\\user");
    EXPECT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, classes.get()), ERROR_SUCCESS);
    EXPECT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, user.get()), ERROR_SUCCESS);
  }
  ~Registration() override {
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, playground.c_str());
  }

  std::vector<std::wstring> MachineClasses() const { return Subkeys(classes.get(), L"CLSID"); }
  std::vector<std::wstring> UserClasses() const {
    return Subkeys(user.get(), std::wstring(kUserClasses) + L"\\CLSID");
  }

  // A place for each process: the tests run side by side in one registry.
  const std::wstring playground =
      L"Software\\KZCEFComWrapperContractTest" + std::to_wstring(GetCurrentProcessId());
  Key classes;
  Key user;
  const ServerLibrary server;
};

TEST_F(Registration, IsRedirectedHere) {
  ASSERT_EQ(server.Register(), S_OK);
  EXPECT_EQ(MachineClasses().size(), 6U);
  EXPECT_THAT(UserClasses(), IsEmpty());
}

TEST_F(Registration, IsPerUserForTheWordUserInAnyLetterCase) {
  ASSERT_EQ(server.Install(true, L"USER"), S_OK);
  EXPECT_EQ(UserClasses().size(), 6U);
  EXPECT_THAT(MachineClasses(), IsEmpty());
}

TEST_F(Registration, IsForTheMachineForAnyOtherCommandLine) {
  for (const wchar_t* other : {L"users", L"use", L"", L"user ", L" user", L"machine"}) {
    ASSERT_EQ(server.Install(true, other), S_OK);
    EXPECT_EQ(MachineClasses().size(), 6U) << other;
    ASSERT_EQ(server.Install(false, other), S_OK);
    EXPECT_THAT(MachineClasses(), IsEmpty()) << other;
  }
  ASSERT_EQ(server.Install(true, nullptr), S_OK);
  EXPECT_EQ(MachineClasses().size(), 6U);
  EXPECT_THAT(UserClasses(), IsEmpty());
}

TEST_F(Registration, StaysPerUserForTheRestOfTheProcess) {
  ASSERT_EQ(server.Install(true, L"user"), S_OK);
  ASSERT_EQ(server.Install(false, nullptr), S_OK);
  EXPECT_THAT(UserClasses(), IsEmpty());
  ASSERT_EQ(server.Install(true, L"users"), S_OK);
  EXPECT_EQ(UserClasses().size(), 6U);
  EXPECT_THAT(MachineClasses(), IsEmpty());
}

TEST_F(Registration, IsTakenBackForTheUser) {
  ASSERT_EQ(server.Install(true, L"user"), S_OK);
  ASSERT_EQ(server.Install(false, L"user"), S_OK);
  EXPECT_THAT(UserClasses(), IsEmpty());
}

TEST_F(Registration, LeavesEveryOtherClassAlone) {
  CreateKey(classes.get(), L"CLSID\\{00000000-0000-0000-0000-00000000000a}\\Kept");
  ASSERT_EQ(server.Register(), S_OK);
  ASSERT_EQ(server.Unregister(), S_OK);
  EXPECT_THAT(MachineClasses(), ElementsAre(L"{00000000-0000-0000-0000-00000000000a}"));
}

TEST_F(Registration, ReplacesWhatAnOlderVersionLeftInAClass) {
  const std::wstring clsid = L"CLSID\\{3db0ecfc-7271-457c-9c7b-5b6d48a73a2b}";
  CreateKey(classes.get(), clsid + L"\\ProgID\\Deep");
  ASSERT_EQ(server.Register(), S_OK);
  EXPECT_THAT(
      Subkeys(classes.get(), clsid),
      ::testing::UnorderedElementsAre(L"InprocServer32", L"Programmable", L"TypeLib", L"Version"));
}

TEST_F(Registration, CanBeRepeated) {
  ASSERT_EQ(server.Register(), S_OK);
  ASSERT_EQ(server.Register(), S_OK);
  EXPECT_EQ(MachineClasses().size(), 6U);
  ASSERT_EQ(server.Unregister(), S_OK);
  EXPECT_EQ(server.Unregister(), S_OK);
  EXPECT_THAT(MachineClasses(), IsEmpty());
}

TEST_F(Registration, CanBeTakenBackThoughItNeverWas) {
  EXPECT_EQ(server.Unregister(), S_OK);
  EXPECT_EQ(server.Install(false, L"user"), S_OK);
}

TEST_F(Registration, MakesNoKeyWhenThereIsNothingToTakeBack) {
  EXPECT_EQ(server.Unregister(), S_OK);
  EXPECT_EQ(server.Install(false, L"user"), S_OK);
  EXPECT_THAT(Subkeys(classes.get(), L""), IsEmpty());
  EXPECT_THAT(Subkeys(user.get(), L""), IsEmpty());
}

TEST_F(Registration, LeavesTheThreadsLocaleAsItWas) {
  const LCID german = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);
  ASSERT_TRUE(SetThreadLocale(german));
  ASSERT_EQ(server.Register(), S_OK);
  EXPECT_EQ(GetThreadLocale(), german);
  ASSERT_EQ(server.Unregister(), S_OK);
  EXPECT_EQ(GetThreadLocale(), german);
}

// A volatile key takes no lasting subkeys, so what is written below it fails.
class FailingRegistration : public Registration {};

TEST_F(FailingRegistration, OfTheTypeLibraryKeepsTheClasses) {
  const Key obstacle = CreateKey(classes.get(), L"TypeLib", REG_OPTION_VOLATILE);
  EXPECT_HRESULT_FAILED(server.Register());
  EXPECT_EQ(MachineClasses().size(), 6U);
}

TEST_F(FailingRegistration, OfTheTypeLibraryIsUndoneByAnInstallation) {
  const Key obstacle = CreateKey(classes.get(), L"TypeLib", REG_OPTION_VOLATILE);
  EXPECT_HRESULT_FAILED(server.Install(true, nullptr));
  EXPECT_THAT(MachineClasses(), IsEmpty());
}

TEST_F(FailingRegistration, OfAClassIsAnsweredWithItsReason) {
  const Key obstacle = CreateKey(classes.get(), L"CLSID", REG_OPTION_VOLATILE);
  const HRESULT reason = HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE);
  EXPECT_EQ(server.Register(), reason);
  EXPECT_EQ(server.Install(true, nullptr), reason);
  EXPECT_THAT(MachineClasses(), IsEmpty());
  EXPECT_THAT(Subkeys(classes.get(), L"TypeLib"), IsEmpty());
}

TEST_F(FailingRegistration, LeavesTheThreadsLocaleAsItWas) {
  const Key obstacle = CreateKey(classes.get(), L"CLSID", REG_OPTION_VOLATILE);
  const LCID german = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);
  ASSERT_TRUE(SetThreadLocale(german));
  EXPECT_HRESULT_FAILED(server.Register());
  EXPECT_EQ(GetThreadLocale(), german);
}

}  // namespace
}  // namespace contract
