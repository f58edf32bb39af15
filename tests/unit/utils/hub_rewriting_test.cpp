// Requests on their way through the hub. Each test is a process of its own: what is bound stays.
#include <windows.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "hub_place.h"
#include "hub_plan.h"
#include "recording_cef/fake_request.h"
#include "temporary_folder.h"
#include "utils/hub_connector.h"
#include "utils/kzcefwrapperutils.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

class HubRewriting : public ::testing::Test {
 protected:
  HubRewriting() { SetConfiguredHubPort(8080); }

  void SetPath(const std::wstring& path, DWORD type = REG_SZ) { place_.SetPath(path, type); }
  kzhub::Plan& Install() { return place_.Install(); }

  // One whose URL stays as it is written, a default port included.
  static CefRefPtr<recording_cef::FakeRequest> Request(const std::string& url) {
    return new recording_cef::FakeRequest(url);
  }
  static std::string Rewritten(const std::string& url) {
    const CefRefPtr<CefRequest> request = Request(url);
    RewriteRequestForHub(request);
    return request->GetURL().ToString();
  }

 private:
  kzhub::HubPlace place_;
};

TEST_F(HubRewriting, FindsTheLibraryBelowTheRegisteredFolder) {
  EXPECT_EQ(GetHubUtilsPath(), L"");
  SetPath(L"C:\\Hub");
  EXPECT_EQ(GetHubUtilsPath(), L"C:\\Hub\\win_b64\\UKZC\\VLMCommHubUtils.dll");
}

TEST_F(HubRewriting, FindsNoLibraryWithoutTheValue) {
  kzhub::CreateKey(HKEY_LOCAL_MACHINE, kzhub::kConnectors);
  EXPECT_EQ(GetHubUtilsPath(), L"");
}

TEST_F(HubRewriting, TakesAFolderOfAnyValueType) {
  SetPath(L"C:\\Hub", REG_BINARY);
  EXPECT_EQ(GetHubUtilsPath(), L"C:\\Hub\\win_b64\\UKZC\\VLMCommHubUtils.dll");
}

TEST_F(HubRewriting, FindsNoLibraryBelowAFolderThatIsTooLong) {
  SetPath(std::wstring(260, L'x'));
  EXPECT_EQ(GetHubUtilsPath(), L"");
  SetPath(std::wstring(259, L'x'));
  EXPECT_EQ(GetHubUtilsPath(), std::wstring(259, L'x') + L"\\win_b64\\UKZC\\VLMCommHubUtils.dll");
}

TEST_F(HubRewriting, LeavesRequestsAloneWhileTheHubIsOff) {
  SetConfiguredHubPort(-1);
  kzhub::Plan& plan = Install();
  plan.url = "http://hub/";
  EXPECT_EQ(Rewritten("https://host:443/path"), "https://host:443/path");
  EXPECT_EQ(plan.calls, 0);
}

TEST_F(HubRewriting, DropsADefaultPortAlsoWithoutALibrary) {
  EXPECT_EQ(Rewritten("https://host:443/path?q#f"), "https://host/path?q#f");
  EXPECT_EQ(Rewritten("http://host:80/"), "http://host/");
  EXPECT_EQ(Rewritten("http://host:8080/"), "http://host:8080/");
  EXPECT_EQ(Rewritten("http://host:443/"), "http://host:443/");
  EXPECT_EQ(Rewritten("https://host:80/"), "https://host:80/");
}

TEST_F(HubRewriting, TakesTheUrlOfTheLibrary) {
  kzhub::Plan& plan = Install();
  plan.url = "http://127.0.0.1:8080/through?to=host";
  EXPECT_EQ(Rewritten("https://host:443/path"), "http://127.0.0.1:8080/through?to=host");
  EXPECT_STREQ(plan.asked, "https://host/path");
  EXPECT_EQ(plan.urls_back, 1);
}

TEST_F(HubRewriting, KeepsTheUrlForANullPointer) {
  kzhub::Plan& plan = Install();
  plan.clears_pointer = true;
  EXPECT_EQ(Rewritten("https://host/path"), "https://host/path");
  EXPECT_EQ(plan.calls, 1);
  EXPECT_STREQ(plan.deletions, "uh");
}

TEST_F(HubRewriting, GivesBackWhatTheLibraryLeftAloneToo) {
  // Kept deliberately: neither pointer is looked at before the calls.
  kzhub::Plan& plan = Install();
  EXPECT_EQ(Rewritten("https://host/path"), "https://host/path");
  EXPECT_STREQ(plan.deletions, "uh") << "first the URL, then the headers";
}

TEST_F(HubRewriting, ClearsTheUrlForAnEmptyText) {
  kzhub::Plan& plan = Install();
  plan.url = "";
  CefString url("https://host/path");
  TransformUrlForHub(url, Request("https://host/path"));
  EXPECT_TRUE(url.empty());
}

TEST_F(HubRewriting, SetsTheHeadersThatAreLines) {
  kzhub::Plan& plan = Install();
  const std::vector<const char*> lines = {"X-Hub:  one two \t", "no colon", "Link: http://a/",
                                          nullptr, "X-Kept: new"};
  plan.headers = lines.data();
  plan.header_count = static_cast<int>(lines.size());
  const CefRefPtr<CefRequest> request = Request("https://host/");
  request->SetHeaderByName("X-Kept", "old", true);
  RewriteRequestForHub(request);
  EXPECT_EQ(request->GetHeaderByName("X-Hub"), "one two");
  EXPECT_EQ(request->GetHeaderByName("X-Kept"), "new");
  EXPECT_EQ(request->GetHeaderByName("Link"), "");
  CefRequest::HeaderMap headers;
  request->GetHeaderMap(headers);
  EXPECT_EQ(headers.size(), 2U);
  EXPECT_EQ(plan.headers_given, 1);
  EXPECT_EQ(plan.headers_back, 1);
}

TEST_F(HubRewriting, TakesNothingWithoutTheFlagButGivesEverythingBack) {
  kzhub::Plan& plan = Install();
  const std::vector<const char*> lines = {"X-Hub: one"};
  plan.url = "http://hub/";
  plan.headers = lines.data();
  plan.header_count = 1;
  plan.flag = 0;
  const CefRefPtr<CefRequest> request = Request("https://host:443/");
  RewriteRequestForHub(request);
  EXPECT_EQ(request->GetURL(), "https://host/");
  EXPECT_EQ(request->GetHeaderByName("X-Hub"), "");
  EXPECT_EQ(plan.urls_given, 1);
  EXPECT_EQ(plan.urls_back, 1);
  EXPECT_EQ(plan.headers_back, 1);
}

TEST_F(HubRewriting, SurvivesACountWithoutLines) {
  kzhub::Plan& plan = Install();
  plan.header_count = 3;
  EXPECT_EQ(Rewritten("https://host/"), "https://host/");
  plan.header_count = -1;
  EXPECT_EQ(Rewritten("https://host/"), "https://host/");
}

TEST_F(HubRewriting, LooksForTheLibraryAgainAfterAFailure) {
  EXPECT_EQ(Rewritten("https://host/"), "https://host/");
  SetPath(L"Q:\\nowhere");
  EXPECT_EQ(Rewritten("https://host/"), "https://host/");
  Install().url = "http://hub/";
  EXPECT_EQ(Rewritten("https://host/"), "http://hub/");
}

TEST_F(HubRewriting, DoesNotLookAgainOnceTheLibraryIsBound) {
  Install().url = "http://hub/";
  EXPECT_EQ(Rewritten("https://host/"), "http://hub/");
  SetPath(L"Q:\\nowhere");
  EXPECT_EQ(Rewritten("https://host/"), "http://hub/");
}

TEST_F(HubRewriting, LeavesRequestsAloneWhereTheLibraryHasNoSuchExport) {
  const TemporaryFolder folder;
  const std::wstring below = folder.wide_path() + L"\\win_b64\\UKZC";
  ASSERT_TRUE(CreateDirectoryW((folder.wide_path() + L"\\win_b64").c_str(), nullptr));
  ASSERT_TRUE(CreateDirectoryW(below.c_str(), nullptr));
  wchar_t system[MAX_PATH] = {};
  GetSystemDirectoryW(system, MAX_PATH);
  ASSERT_TRUE(CopyFileW((std::wstring(system) + L"\\version.dll").c_str(),
                        (below + L"\\VLMCommHubUtils.dll").c_str(), TRUE));
  SetPath(folder.wide_path());
  EXPECT_EQ(Rewritten("https://host:443/a"), "https://host/a");
  EXPECT_EQ(Rewritten("https://host:443/b"), "https://host/b");
}

TEST_F(HubRewriting, LeavesAloneWhatIsNoUrl) {
  kzhub::Plan& plan = Install();
  plan.url = "http://hub/";
  for (const char* const text : {"", "no url", "://host:443/"}) {
    EXPECT_EQ(Rewritten(text), text);
  }
  EXPECT_EQ(plan.calls, 0);
}

}  // namespace
}  // namespace kzcef
