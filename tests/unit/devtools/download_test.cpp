#include <gmock/gmock.h>

#include "download_fixture.h"

namespace cefedition {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr char kCancelled[] = "40";
constexpr char kNetworkFailed[] = "20";

TEST_F(DownloadTest, NavigationBecomesADownload) {
  PageServer::Page redirect;
  redirect.status = 302;
  redirect.headers = "Location: /file\r\n";
  server_.AddPage("/redirect", redirect);
  AddFile("/file", "content", "Content-Disposition: attachment; filename=\"report.zip\"\r\n");
  ContinueAll();
  ASSERT_TRUE(Show("<title>Page</title>"));
  log_.Clear();
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/redirect"));
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_THAT(
      log_.Only({"can-", "before ", "complete"}),
      ElementsAre("can-download GET /file", "before report.zip [application/zip] /redirect /file",
                  "complete 100 7 0"));
  EXPECT_EQ(Content(Target(L"report.zip")), "content");
  EXPECT_EQ(downloads_->running_path(), Target(L"report.zip").wstring());
  EXPECT_THAT(Unfinished(), IsEmpty());
  // The page stays, and its navigation counts as given up.
  EXPECT_THAT(log_.Only({"error"}), ElementsAre(StartsWith("error main -3 ERR_ABORTED")));
  EXPECT_EQ(client_->First()->GetMainFrame()->GetURL().ToString(), server_.Url("/page"));
}

TEST_F(DownloadTest, ItemIsOverAfterItsCallback) {
  AddFile("/file.zip", "content");
  ContinueAll();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitFor("complete"));
  const CefRefPtr<CefDownloadItem> item = downloads_->last_item();
  EXPECT_TRUE(log_.WaitUntil([&] { return !item->IsValid(); }));
  EXPECT_GE(item->GetEndTime().val, item->GetStartTime().val);
  EXPECT_EQ(item->GetTotalBytes(), 7);
  EXPECT_EQ(item->GetCurrentSpeed(), 0);
  EXPECT_EQ(item->GetFullPath().ToWString(), Target(L"file.zip").wstring());
}

TEST_F(DownloadTest, LinkThatSavesIsNoNavigation) {
  server_.Add("/text", "text");
  ContinueAll();
  ASSERT_TRUE(Show("<a id=a href='/text' download='saved.txt'>a</a>"));
  log_.Clear();
  Run("a.click()");
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_THAT(log_.Only({"before ", "loading", "error"}),
              ElementsAre("before saved.txt [text/html] /text /text"));
  EXPECT_EQ(Content(Target(L"saved.txt")), "text");
}

TEST_F(DownloadTest, WhatThePageMadeItselfIsSaved) {
  ContinueAll();
  ASSERT_TRUE(
      Show("<a id=a href='data:text/plain;base64,aGVsbG8=' download='data.txt'>a</a><a id=b "
           "download='blob.bin'>b</a>"));
  Run("a.click()");
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_EQ(Content(Target(L"data.txt")), "hello");
  EXPECT_THAT(log_.Only({"before "}), ElementsAre(StartsWith("before data.txt [text/plain]")));
  Run("b.href = URL.createObjectURL(new Blob(['blob'])); b.click()");
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_EQ(Content(Target(L"blob.bin")), "blob");
}

TEST_F(DownloadTest, NamesThatLeadElsewhereAreMadeSafe) {
  server_.Add("/x", "x");
  ContinueAll();
  ASSERT_TRUE(Show("<a id=a href='/x'>a</a>"));
  for (const auto& [wish, name] :
       {std::pair("..\\\\..\\\\up.txt", "up.txt"), std::pair("con.txt", "con.txt"),
        std::pair("a\\rb.txt", "a"), std::pair("end. .", "end")}) {
    Run(std::string("a.download = '") + wish + "'; a.click()");
    ASSERT_TRUE(log_.WaitFor("before "));
    const std::string suggested = downloads_->last_item()->GetSuggestedFileName().ToString();
    EXPECT_THAT(suggested, HasSubstr(name));
    EXPECT_EQ(suggested.find_first_of("\\/:\r"), std::string::npos);
    EXPECT_NE(suggested, "con.txt");
    ASSERT_TRUE(log_.WaitFor("complete"));
  }
  EXPECT_EQ(Arrived().size(), 4u);
}

TEST_F(DownloadTest, WithoutAnAnswerNothingIsSaved) {
  AddFile("/file.zip", "content");
  AddFile("/next.zip", "next");
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitFor("before "));
  // The next one shows that nothing more is to come of the first.
  ContinueAll();
  Run("location.href = '/next.zip'");
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_THAT(Ends(), ElementsAre("complete 100 4 0"));
  EXPECT_THAT(Arrived(), ElementsAre("next.zip"));
  EXPECT_TRUE(WaitForOutside([&] { return Unfinished().empty(); }));
}

TEST_F(DownloadTest, CallbackThatIsLetGoLaterEndsTheDownload) {
  AddFile("/file.zip", "content");
  CefRefPtr<CefBeforeDownloadCallback> kept;
  downloads_->on_before = [&](const std::string&, auto callback) { kept = callback; };
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitFor("before "));
  ASSERT_TRUE(WaitForOutside([&] { return !Unfinished().empty(); }));
  kept = nullptr;
  EXPECT_TRUE(WaitForOutside([&] { return Unfinished().empty(); }));
  EXPECT_THAT(Ends(), IsEmpty());
  EXPECT_THAT(Arrived(), IsEmpty());
}

TEST_F(DownloadTest, AnswerMayComeLaterFromAnyThread) {
  AddFile("/file.zip", "content");
  CefRefPtr<CefBeforeDownloadCallback> kept;
  downloads_->on_before = [&](const std::string&, auto callback) { kept = callback; };
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  // Until then the file may be there whole, but nowhere that anybody named.
  ASSERT_TRUE(log_.WaitUntil([&] { return downloads_->percent() == 100; }));
  EXPECT_EQ(downloads_->running_path(), L"");
  EXPECT_THAT(Arrived(), IsEmpty());
  kept->Continue(Target(L"late.zip").wstring(), false);
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_EQ(Content(Target(L"late.zip")), "content");
}

TEST_F(DownloadTest, ClientCanRefuseBeforeItIsAsked) {
  AddFile("/file.zip", "content");
  AddFile("/next.zip", "next");
  downloads_->can_download = false;
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitFor("can-download"));
  Run("location.href = '/next.zip'");
  ASSERT_TRUE(log_.WaitFor("can-download GET /next.zip"));
  EXPECT_THAT(log_.Only({"before "}), IsEmpty());
}

TEST_F(DownloadTest, WithoutAHandlerNothingIsSaved) {
  AddFile("/file.zip", "content");
  client_->downloads = nullptr;
  ASSERT_TRUE(Show("page"));
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/file.zip"));
  ASSERT_TRUE(log_.WaitFor("error main -3"));
  EXPECT_TRUE(WaitForOutside([&] { return Unfinished().empty(); }));
}

TEST_F(DownloadTest, AnEmptyPathMeansTheTemporaryFolder) {
  const std::string name = "kz_download_" + std::to_string(GetTickCount64()) + ".zip";
  AddFile("/" + name, "content");
  downloads_->on_before = [](const std::string&, auto callback) { callback->Continue("", false); };
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/" + name + "'");
  ASSERT_TRUE(log_.WaitFor("complete"));
  const fs::path file = fs::temp_directory_path() / name;
  EXPECT_EQ(Content(file), "content");
  EXPECT_EQ(downloads_->last_item()->GetFullPath().ToWString(), file.wstring());
  fs::remove(file);
}

TEST_F(DownloadTest, AFileThatIsThereIsReplaced) {
  AddFile("/file.zip", "new");
  std::ofstream(Target(L"file.zip"), std::ios::binary) << "old and longer";
  ContinueAll();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_EQ(Content(Target(L"file.zip")), "new");
}

TEST_F(DownloadTest, AFolderIsCreatedOnDemand) {
  AddFile("/file.zip", "content");
  downloads_->on_before = [this](const std::string&, auto callback) {
    callback->Continue(Target(L"new\\deep\\file.zip").wstring(), false);
  };
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_EQ(Content(Target(L"new\\deep\\file.zip")), "content");
}

TEST_F(DownloadTest, AnotherVolumeIsReached) {
  const fs::path file = L"Z:\\dev\\shm\\kz_download_" + std::to_wstring(GetTickCount64()) + L".zip";
  AddFile("/file.zip", "content");
  downloads_->on_before = [&](const std::string&, auto callback) {
    callback->Continue(file.wstring(), false);
  };
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_EQ(Content(file), "content");
  EXPECT_FALSE(fs::exists(file.wstring() + L".crdownload"));
  EXPECT_THAT(Unfinished(), IsEmpty());
  fs::remove(file);
}

TEST_F(DownloadTest, AFileThatCannotBePutThereIsInterrupted) {
  AddFile("/file.zip", "content");
  fs::create_directories(Target(L"file.zip"));
  ContinueAll();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitFor("interrupted"));
  EXPECT_THAT(Ends(), ElementsAre(Not(EndsWith(" 0"))));
  EXPECT_THAT(Unfinished(), IsEmpty());
}

TEST_F(DownloadTest, ClientCancels) {
  AddEndlessFile("/file.zip");
  ContinueAll();
  downloads_->on_updated = [](auto item, auto callback) {
    if (item->IsInProgress() && item->GetReceivedBytes() > 0) {
      callback->Cancel();
    }
  };
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitFor("cancelled"));
  EXPECT_THAT(Ends(), ElementsAre(EndsWith(kCancelled)));
  EXPECT_EQ(downloads_->percent(), 50);
  EXPECT_THAT(Arrived(), IsEmpty());
  EXPECT_TRUE(WaitForOutside([&] { return Unfinished().empty(); }));
}

TEST_F(DownloadTest, TransferThatBreaksOffIsInterrupted) {
  PageServer::Page page;
  page.body = std::string(100'000, 'x');
  page.content_type = "application/zip";
  page.headers = "ETag: \"a\"\r\n";
  page.cut_at = 50'000;
  server_.AddPage("/file.zip", page);
  ContinueAll();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitFor("interrupted"));
  EXPECT_THAT(Ends(), ElementsAre(EndsWith(kNetworkFailed)));
  EXPECT_THAT(Arrived(), IsEmpty());
  EXPECT_THAT(Unfinished(), IsEmpty());
}

TEST_F(DownloadTest, TwoAtOnceAreKeptApart) {
  AddEndlessFile("/one.zip");
  AddFile("/two.zip", "two");
  ContinueAll();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/one.zip'");
  ASSERT_TRUE(log_.WaitFor("before one.zip"));
  const uint32_t first = downloads_->last_item()->GetId();
  Run("location.href = '/two.zip'");
  ASSERT_TRUE(log_.WaitFor("complete 100 3"));
  EXPECT_NE(downloads_->last_item()->GetId(), first);
  server_.Release();
  ASSERT_TRUE(log_.WaitFor("complete 100 200000"));
  EXPECT_EQ(fs::file_size(Target(L"one.zip")), 200'000u);
  EXPECT_EQ(Content(Target(L"two.zip")), "two");
}

TEST_F(DownloadTest, LargeFileArrivesAsItIs) {
  std::string body(size_t{200} << 20, '\0');
  uint32_t state = 1;
  for (char& byte : body) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<char>(state >> 24);
  }
  AddFile("/large.zip", body);
  ContinueAll();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/large.zip'");
  ASSERT_TRUE(log_.WaitFor("complete 100 209715200"));
  EXPECT_TRUE(Content(Target(L"large.zip")) == body);
}

TEST_F(DownloadTest, LinkToANewWindowDownloadsForThatWindow) {
  AddFile("/file.zip", "content");
  ContinueAll();
  ASSERT_TRUE(Show("<a id=a href='/file.zip' target=_blank>a</a>"));
  Run("a.click()");
  ASSERT_TRUE(log_.WaitFor("popup before file.zip"));
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_EQ(Content(Target(L"file.zip")), "content");
}

TEST_F(DownloadTest, HostDownloadsWhatAPageWouldShow) {
  PageServer::Page redirect;
  redirect.status = 302;
  redirect.headers = "Location: /shown.html\r\n";
  server_.AddPage("/redirect", redirect);
  server_.Add("/shown.html", "shown");
  AddFile("/named", "named", "Content-Disposition: inline; filename=name.pdf\r\n");
  ContinueAll();
  ASSERT_TRUE(Show("page"));
  log_.Clear();
  client_->First()->GetHost()->StartDownload(server_.Url("/redirect"));
  ASSERT_TRUE(log_.WaitFor("complete"));
  client_->First()->GetHost()->StartDownload(server_.Url("/named"));
  ASSERT_TRUE(log_.WaitFor("complete"));
  client_->First()->GetHost()->StartDownload("data:text/html,made");
  ASSERT_TRUE(log_.WaitFor("complete"));
  EXPECT_EQ(Content(Target(L"shown.html")), "shown");
  EXPECT_EQ(Content(Target(L"name.pdf")), "named");
  EXPECT_THAT(log_.Only({"before ", "created", "loading"}),
              ElementsAre("before shown.html [text/html] /redirect /shown.html",
                          "before name.pdf [application/zip] /named /named",
                          StartsWith("before download")));
  EXPECT_EQ(client_->First()->GetMainFrame()->GetURL().ToString(), server_.Url("/page"));
}

TEST_F(DownloadTest, ClosedBrowserHearsNothingMoreOfItsDownload) {
  AddEndlessFile("/file.zip");
  ContinueAll();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitUntil([&] { return downloads_->percent() == 50; }));
  client_->First()->GetHost()->CloseBrowser(true);
  ASSERT_TRUE(log_.WaitFor("closed"));
  const int updates = downloads_->updates();
  server_.Release();
  EXPECT_TRUE(WaitForOutside([&] { return fs::exists(Target(L"file.zip")); }));
  EXPECT_EQ(downloads_->updates(), updates);
}

TEST_F(DownloadTest, ShutDownLeavesNothingUnfinished) {
  AddEndlessFile("/file.zip");
  ContinueAll();
  ASSERT_TRUE(Show("page"));
  Run("location.href = '/file.zip'");
  ASSERT_TRUE(log_.WaitUntil([&] { return downloads_->percent() == 50; }));
  EXPECT_THAT(Unfinished(), Not(IsEmpty()));
  StopEngine();
  EXPECT_THAT(Arrived(), IsEmpty());
  EXPECT_FALSE(fs::exists(folder_ / L"profile" / L"EditionDownloads"));
  EXPECT_THAT(Ends(), IsEmpty());
}

TEST_F(DownloadTest, LeftoversOfAnEndedProcessAreRemoved) {
  // No process has an id that is no multiple of four.
  const fs::path leftover = folder_ / L"profile" / L"EditionDownloads" / L"123457_1";
  fs::create_directories(leftover);
  std::ofstream(leftover / L"part.crdownload") << "part";
  ASSERT_TRUE(Show("page"));
  EXPECT_FALSE(fs::exists(leftover));
}

}  // namespace
}  // namespace cefedition
