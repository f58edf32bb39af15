// Where each property of a host's settings goes, and which values are left out.

#include "runtime/settings_copy.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fake_settings.h"
#include "temporary_folder.h"
#include "utils/kzcefwrapperutils.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

std::wstring TextOf(const cef_string_t& field) {
  return CefString(&field).ToWString();
}

// Where the sub-process is looked for when the host names none: in this program, which has no
// module of the library's name, beside itself.
std::wstring DefaultSubprocess() {
  return GetExecutableFolder() + L"\\kzCefSubProc.exe";
}

CefSettings CopyOf(FakeSettings& source) {
  CefSettings target;
  CopySettings(source, target);
  return target;
}

TEST(SettingsCopy, ReadsEveryPropertyOnceInItsOrder) {
  FakeSettings source;
  CopyOf(source);
  EXPECT_EQ(source.reads, PropertiesInOrder());
}

TEST(SettingsCopy, CopiesEachTextToItsField) {
  FakeSettings source;
  source.texts = {{"CachePath", L"cache \u65e5"},
                  {"JavascriptFlags", L"flags"},
                  {"Locale", L"locale"},
                  {"LocalesDirPath", L"locales"},
                  {"LogFile", L"log"},
                  {"ResourcesDirPath", L"resources"},
                  {"UserAgent", L"agent"},
                  {"UserAgentProduct", L"product"},
                  {"AcceptLanguageList", L"de"},
                  {"UserDataPath", L"user data"}};
  const CefSettings target = CopyOf(source);
  EXPECT_EQ(TextOf(target.cache_path), L"cache \u65e5");
  EXPECT_EQ(TextOf(target.javascript_flags), L"flags");
  EXPECT_EQ(TextOf(target.locale), L"locale");
  EXPECT_EQ(TextOf(target.locales_dir_path), L"locales");
  EXPECT_EQ(TextOf(target.log_file), L"log");
  EXPECT_EQ(TextOf(target.resources_dir_path), L"resources");
  EXPECT_EQ(TextOf(target.user_agent), L"agent");
  EXPECT_EQ(TextOf(target.user_agent_product), L"product");
  EXPECT_EQ(TextOf(target.accept_language_list), L"de");
}

TEST(SettingsCopy, LeavesTheFieldsAloneThatNoPropertyStandsFor) {
  FakeSettings source;
  source.texts["UserDataPath"] = L"user data";
  const CefSettings target = CopyOf(source);
  EXPECT_EQ(TextOf(target.root_cache_path), L"");
  EXPECT_EQ(TextOf(target.cookieable_schemes_list), L"");
  EXPECT_EQ(target.background_color, 0u);
}

TEST(SettingsCopy, ClearsAFieldForAnEmptyTextAndKeepsItForNone) {
  FakeSettings source;
  source.texts["Locale"] = L"";
  CefSettings target;
  CefString(&target.locale) = "before";
  CefString(&target.user_agent) = "before";
  CopySettings(source, target);
  EXPECT_EQ(TextOf(target.locale), L"");
  EXPECT_EQ(TextOf(target.user_agent), L"before");
}

TEST(SettingsCopy, SetsEachFlagForVariantTrue) {
  FakeSettings source;
  source.flags = {{"CommandLineArgsDisabled", VARIANT_TRUE},
                  {"MultiThreadedMessageLoop", VARIANT_TRUE},
                  {"PackLoadingDisabled", VARIANT_TRUE},
                  {"PersistSessionCookies", VARIANT_TRUE},
                  {"WindowlessRenderingEnabled", VARIANT_TRUE}};
  const CefSettings target = CopyOf(source);
  EXPECT_EQ(target.command_line_args_disabled, 1);
  EXPECT_EQ(target.multi_threaded_message_loop, 1);
  EXPECT_EQ(target.pack_loading_disabled, 1);
  EXPECT_EQ(target.persist_session_cookies, 1);
  EXPECT_EQ(target.windowless_rendering_enabled, 1);
}

TEST(SettingsCopy, LeavesAFlagOffForEveryOtherValue) {
  for (const VARIANT_BOOL value : {0, 1, 2, -2, 0x7fff}) {
    FakeSettings source;
    source.flags = {{"CommandLineArgsDisabled", value},
                    {"MultiThreadedMessageLoop", value},
                    {"PackLoadingDisabled", value},
                    {"PersistSessionCookies", value},
                    {"WindowlessRenderingEnabled", value}};
    const CefSettings target = CopyOf(source);
    EXPECT_EQ(target.command_line_args_disabled, 0) << value;
    EXPECT_EQ(target.multi_threaded_message_loop, 0) << value;
    EXPECT_EQ(target.pack_loading_disabled, 0) << value;
    EXPECT_EQ(target.persist_session_cookies, 0) << value;
    EXPECT_EQ(target.windowless_rendering_enabled, 0) << value;
  }
}

TEST(SettingsCopy, LeavesTheLogSeverityToCefForZero) {
  FakeSettings source;
  source.numbers["LogSeverity"] = 0;
  CefSettings target;
  target.log_severity = LOGSEVERITY_ERROR;
  CopySettings(source, target);
  EXPECT_EQ(target.log_severity, LOGSEVERITY_ERROR);
}

TEST(SettingsCopy, CopiesTheNumbers) {
  FakeSettings source;
  source.numbers = {
      {"LogSeverity", 99}, {"RemoteDebuggingPort", 65535}, {"UncaughtExceptionStackSize", -7}};
  const CefSettings target = CopyOf(source);
  EXPECT_EQ(target.log_severity, LOGSEVERITY_DISABLE);
  EXPECT_EQ(target.remote_debugging_port, 65535);
  EXPECT_EQ(target.uncaught_exception_stack_size, -7);
}

TEST(SettingsCopy, TakesNoDebuggingPortThatIsNone) {
  for (const long port : {70000L, 65536L, -1L}) {
    FakeSettings source;
    source.numbers["RemoteDebuggingPort"] = port;
    EXPECT_EQ(CopyOf(source).remote_debugging_port, 0) << port;
  }
}

TEST(SettingsCopy, TakesNothingFromGettersThatFail) {
  FakeSettings source;
  source.texts = {{"Locale", L"locale"}, {"ApplicationType", L"KzxMeadow"}};
  source.flags = {{"PackLoadingDisabled", VARIANT_TRUE}};
  source.numbers = {{"LogSeverity", 99}, {"RemoteDebuggingPort", 1}, {"HubPort", 1}};
  for (const std::string& name : PropertiesInOrder()) {
    source.failing.insert(name);
  }
  const CefSettings target = CopyOf(source);
  EXPECT_EQ(source.reads, PropertiesInOrder());
  EXPECT_EQ(TextOf(target.locale), L"");
  EXPECT_EQ(TextOf(target.browser_subprocess_path), DefaultSubprocess());
  EXPECT_EQ(target.pack_loading_disabled, 0);
  EXPECT_EQ(target.log_severity, LOGSEVERITY_DEFAULT);
  EXPECT_EQ(target.remote_debugging_port, 0);
  EXPECT_EQ(HostKind(), L"");
  EXPECT_EQ(ConfiguredHubPort(), -1);
}

TEST(SubprocessPath, IsTheHostsWhenItNamesAFile) {
  const TemporaryFolder folder;
  SetContent(folder / "own \xe6\x97\xa5.exe", "");
  FakeSettings source;
  source.texts["BrowserSubprocessPath"] = folder.wide_path() + L"\\own \u65e5.exe";
  EXPECT_EQ(TextOf(CopyOf(source).browser_subprocess_path),
            folder.wide_path() + L"\\own \u65e5.exe");
}

TEST(SubprocessPath, IsTheDefaultWhenTheHostNamesNoFile) {
  const TemporaryFolder folder;
  const std::wstring no_files[] = {L"", folder.wide_path() + L"\\missing.exe", folder.wide_path()};
  for (const std::wstring& path : no_files) {
    FakeSettings source;
    source.texts["BrowserSubprocessPath"] = path;
    EXPECT_EQ(TextOf(CopyOf(source).browser_subprocess_path), DefaultSubprocess());
  }
  FakeSettings no_text;
  EXPECT_EQ(TextOf(CopyOf(no_text).browser_subprocess_path), DefaultSubprocess());
}

TEST(SubprocessPath, LiesBesideTheLibraryAndNotBesideTheHost) {
  const TemporaryFolder folder;
  const std::wstring library = folder.wide_path() + L"\\KZCEFComWrapper.dll";
  // Any library will do under this name.
  ASSERT_TRUE(CopyFileW((GetExecutableFolder() + L"\\pelkor.dll").c_str(), library.c_str(), TRUE));
  const HMODULE module = LoadLibraryW(library.c_str());
  ASSERT_TRUE(module);
  FakeSettings source;
  EXPECT_EQ(TextOf(CopyOf(source).browser_subprocess_path),
            folder.wide_path() + L"\\kzCefSubProc.exe");
  FreeLibrary(module);
}

TEST(ProcessWideCopies, HoldWhatTheHostSaid) {
  FakeSettings source;
  source.texts = {{"CachePath", L"cache"},
                  {"ApplicationType", L"kzxharbor"},
                  {"LangResourceDllPath", L"texts.dll"},
                  {"AcceptLanguageList", L"de,en"}};
  source.numbers["HubPort"] = 8080;
  CopyOf(source);
  EXPECT_EQ(CachePath(), L"cache");
  EXPECT_EQ(HostKind(), L"kzxharbor");
  EXPECT_EQ(LanguageResourcePath(), L"texts.dll");
  EXPECT_EQ(AcceptLanguageList(), L"de,en");
  EXPECT_EQ(ConfiguredHubPort(), 8080);
}

TEST(ProcessWideCopies, StayWhenTheHostYieldsNothing) {
  SetCachePath(L"cache");
  SetHostKind(L"KzxMeadow");
  SetLanguageResourcePath(L"texts.dll");
  FakeSettings source;
  CopyOf(source);
  EXPECT_EQ(CachePath(), L"cache");
  EXPECT_EQ(HostKind(), L"KzxMeadow");
  EXPECT_EQ(LanguageResourcePath(), L"texts.dll");
  EXPECT_EQ(ConfiguredHubPort(), -1);
}

TEST(ProcessWideCopies, AreEmptiedByEmptyTexts) {
  SetHostKind(L"KzxMeadow");
  FakeSettings source;
  source.texts["ApplicationType"] = L"";
  CopyOf(source);
  EXPECT_EQ(HostKind(), L"");
}

TEST(HubPort, IsTakenFromZeroUpwards) {
  FakeSettings source;
  source.numbers["HubPort"] = -5;
  CopyOf(source);
  EXPECT_EQ(ConfiguredHubPort(), -1);
  source.numbers["HubPort"] = 0;
  CopyOf(source);
  EXPECT_EQ(ConfiguredHubPort(), 0);
}

class AcceptLanguageTest : public ::testing::TestWithParam<const wchar_t*> {};

TEST_P(AcceptLanguageTest, IsOverriddenForEveryKnownKindOfHost) {
  FakeSettings source;
  source.texts = {{"ApplicationType", GetParam()}, {"AcceptLanguageList", L"de"}};
  CopyOf(source);
  EXPECT_TRUE(IsAcceptLanguageOverridden());
}

INSTANTIATE_TEST_SUITE_P(Kinds,
                         AcceptLanguageTest,
                         ::testing::Values(L"KzxMeadow", L"kzxquilladdinLOADED", L"KZXHARBOR"));

TEST(AcceptLanguage, IsOverriddenForAKindThatTheHostTookBefore) {
  SetHostKind(L"KzxMeadow");
  FakeSettings source;
  source.texts["AcceptLanguageList"] = L"de";
  CopyOf(source);
  EXPECT_TRUE(IsAcceptLanguageOverridden());
}

TEST(AcceptLanguage, IsNotOverriddenForOtherHosts) {
  FakeSettings source;
  source.texts = {{"ApplicationType", L"Other"}, {"AcceptLanguageList", L"de"}};
  EXPECT_EQ(TextOf(CopyOf(source).accept_language_list), L"de");
  EXPECT_FALSE(IsAcceptLanguageOverridden());
}

TEST(AcceptLanguage, IsNeitherCopiedNorOverriddenWhenItIsEmpty) {
  FakeSettings source;
  source.texts = {{"ApplicationType", L"KzxMeadow"}, {"AcceptLanguageList", L""}};
  CefSettings target;
  CefString(&target.accept_language_list) = "before";
  CopySettings(source, target);
  EXPECT_EQ(TextOf(target.accept_language_list), L"before");
  EXPECT_FALSE(IsAcceptLanguageOverridden());
}

}  // namespace
}  // namespace kzcef
