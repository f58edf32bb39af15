// The settings object's table of command-line switches.

#include "automation/settings.h"

#include "automation_test.h"

namespace kzcef::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class Settings : public ::testing::Test {
 protected:
  Settings() { CreateComObject<CKZCEFComSettings>(nullptr, IID_PPV_ARGS(settings.GetAddressOf())); }

  CommandLineArgs Table() {
    ComPtr<ICommandLineSource> source;
    settings->QueryInterface(__uuidof(ICommandLineSource),
                             reinterpret_cast<void**>(source.GetAddressOf()));
    CommandLineArgs args{{L"left", L"over"}};
    EXPECT_TRUE(source && source->CopyCommandLineArgs(&args) == S_OK);
    return args;
  }

  void Add(const wchar_t* name, const wchar_t* value) {
    EXPECT_EQ(settings->AddCefCommandLineArg(_bstr_t(name), _bstr_t(value)), S_OK);
  }

  ComPtr<IKZCEFComSettings> settings;
};

TEST_F(Settings, StartWithoutCommandLineArguments) {
  EXPECT_THAT(Table(), IsEmpty());
}

TEST_F(Settings, KeepTheFirstValueOfAnArgument) {
  Add(L"proxy-server", L"A");
  Add(L"proxy-server", L"B");
  EXPECT_THAT(Table(), ElementsAre(Pair(L"proxy-server", L"A")));
}

TEST_F(Settings, TellArgumentsApartByLetterCaseAndOrderThemByTheirCodes) {
  Add(L"proxy-server", L"A");
  Add(L"Proxy-Server", L"B");
  Add(L"--a", L"");
  EXPECT_THAT(Table(), ElementsAre(Pair(L"--a", L""), Pair(L"Proxy-Server", L"B"),
                                   Pair(L"proxy-server", L"A")));
}

TEST_F(Settings, TakeNullForAnEmptyNameOrValue) {
  EXPECT_EQ(settings->AddCefCommandLineArg(nullptr, nullptr), S_OK);
  EXPECT_EQ(settings->AddCefCommandLineArg(_bstr_t(L"b"), nullptr), S_OK);
  EXPECT_THAT(Table(), ElementsAre(Pair(L"", L""), Pair(L"b", L"")));
}

TEST_F(Settings, KeepWholeNamesAndValues) {
  const std::wstring name(L"a\0b", 3);
  const std::wstring value(L"\"q\"\0 ", 5);
  const _bstr_t given_name(SysAllocStringLen(name.data(), 3), false);
  const _bstr_t given_value(SysAllocStringLen(value.data(), 5), false);
  settings->AddCefCommandLineArg(given_name, given_value);
  EXPECT_THAT(Table(), ElementsAre(Pair(name, value)));
}

TEST_F(Settings, RefuseToCopyTheTableToNowhere) {
  ComPtr<ICommandLineSource> source;
  settings->QueryInterface(__uuidof(ICommandLineSource),
                           reinterpret_cast<void**>(source.GetAddressOf()));
  EXPECT_EQ(source->CopyCommandLineArgs(nullptr), E_POINTER);
}

}  // namespace
}  // namespace kzcef::testing
