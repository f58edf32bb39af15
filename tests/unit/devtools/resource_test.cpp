// The client's resource callbacks on real requests.

#include <gmock/gmock.h>

#include "include/cef_request_context.h"
#include "include/cef_request_context_handler.h"
#include "include/cef_waitable_event.h"
#include "include/wrapper/cef_closure_task.h"
#include "resource_fixture.h"

namespace cefedition {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

const std::vector<std::string> kResourceEvents = {"before-browse", "wanted",  "cookies",
                                                  "before-load",   "handler", "redirect",
                                                  "response",      "filter",  "complete"};

TEST_F(ResourceTest, OneDocumentInOrder) {
  server_.Add("/page", "<p>text");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/page"));
  ASSERT_TRUE(WaitForAny("complete"));
  EXPECT_THAT(log_.Only(kResourceEvents),
              ElementsAre("before-browse main GET " + server_.Url("/page"),
                          "wanted main /page navigation from=", "cookies /page",
                          "before-load /page", "handler /page", "response /page 200",
                          "filter /page", "complete /page success 7"));
}

TEST_F(ResourceTest, EveryKindOfRequestIsAskedAboutAndEndsOnce) {
  server_.Add("/page",
              "<link rel=stylesheet href=/style.css><script src=/script.js></script>"
              "<img src=/image.png><iframe src=/frame></iframe>"
              "<script>fetch('/fetch'); const x = new XMLHttpRequest(); x.open('GET', '/xhr');"
              " x.send(); navigator.sendBeacon('/beacon', 'b');</script>");
  server_.Add("/frame", "frame");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/page"));
  const std::map<std::string, cef_resource_type_t> expected = {
      {"/page", RT_MAIN_FRAME}, {"/style.css", RT_STYLESHEET}, {"/script.js", RT_SCRIPT},
      {"/image.png", RT_IMAGE}, {"/frame", RT_SUB_FRAME},      {"/fetch", RT_XHR},
      {"/xhr", RT_XHR},         {"/beacon", RT_PING}};
  std::set<uint64_t> identifiers;
  for (const auto& [path, type] : expected) {
    ASSERT_TRUE(WaitForAny("complete " + path)) << path;
    const RecordingResources::Completed completed = resources_->CompletedFor(path);
    EXPECT_EQ(completed.request->GetResourceType(), type) << path;
    EXPECT_EQ(completed.request->GetFirstPartyForCookies().ToString(), server_.Url("/page"));
    EXPECT_EQ(completed.request->GetReferrerURL().ToString(),
              path == "/page" ? "" : server_.Url("/page"))
        << path;
    EXPECT_EQ(completed.request->GetHeaderByName("Referer").ToString(), "") << path;
    EXPECT_EQ(completed.response->GetURL().ToString(), server_.Url(path));
    EXPECT_EQ(completed.response->GetMimeType().ToString(), "text/html");
    identifiers.insert(completed.request->GetIdentifier());
    EXPECT_THAT(log_.Only({"before-load " + path}), ElementsAre("before-load " + path));
  }
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_EQ(identifiers.size(), expected.size());
  EXPECT_EQ(log_.Only({"complete"}).size(), expected.size());
  const std::string origin = server_.Url("");
  EXPECT_THAT(log_.Only({"wanted"}), Contains("wanted main /script.js from=" + origin));
  EXPECT_THAT(log_.Only({"wanted"}), Contains("wanted sub: /frame navigation from=" + origin));
}

TEST_F(ResourceTest, HandlerOfTheContextIsAskedWhenTheClientHasNone) {
  class ContextHandler : public CefRequestContextHandler {
   public:
    explicit ContextHandler(CefRefPtr<CefResourceRequestHandler> handler) : handler_(handler) {}
    CefRefPtr<CefResourceRequestHandler> GetResourceRequestHandler(CefRefPtr<CefBrowser>,
                                                                   CefRefPtr<CefFrame>,
                                                                   CefRefPtr<CefRequest>,
                                                                   bool,
                                                                   bool,
                                                                   const CefString&,
                                                                   bool&) override {
      return handler_;
    }

   private:
    const CefRefPtr<CefResourceRequestHandler> handler_;
    IMPLEMENT_REFCOUNTING(ContextHandler);
  };
  client_->resources = nullptr;
  server_.Add("/page", "page");
  ASSERT_TRUE(StartEngine());
  HWND window = MakeHostWindow();
  CefWindowInfo info;
  info.SetAsChild(window, CefRect(0, 0, 300, 200));
  const CefRefPtr<CefRequestContext> context =
      CefRequestContext::CreateContext(CefRequestContextSettings(), new ContextHandler(resources_));
  ASSERT_TRUE(CefBrowserHost::CreateBrowser(info, client_, server_.Url("/page"),
                                            CefBrowserSettings(), nullptr, context));
  EXPECT_TRUE(WaitForAny("complete /page success 4"));
}

TEST_F(ResourceTest, CancelledRequestReachesNoServer) {
  server_.Add("/script.js", "console.log('ran')");
  StartWithPage();
  resources_->before_load = [](auto, auto) { return RV_CANCEL; };
  EXPECT_EQ(Fetch("/script.js"), "TypeError");
  EXPECT_THAT(CompletionsOf("/script.js"), ElementsAre("complete /script.js canceled 0"));
  EXPECT_EQ(resources_->CompletedFor("/script.js").response->GetError(), ERR_ABORTED);
  EXPECT_THAT(server_.Requests(), Not(Contains("/script.js")));
  log_.Clear();
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/other"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"error", "complete"}),
              UnorderedElementsAre("complete /other canceled 0",
                                   "error main -3 ERR_ABORTED " + server_.Url("/other")));
  EXPECT_THAT(server_.Requests(), Not(Contains("/other")));
}

TEST_F(ResourceTest, RequestWaitsForTheAnswerFromAnyThread) {
  server_.Add("/data", "data");
  StartWithPage();
  CefRefPtr<CefCallback> pending;
  resources_->before_load = [&](auto, CefRefPtr<CefCallback> callback) {
    pending = callback;
    log_.Add("pending");
    return RV_CONTINUE_ASYNC;
  };
  Run("fetch('/data').then(r => r.text()).then(t => console.log('got ' + t))");
  ASSERT_TRUE(log_.WaitFor("pending"));
  EXPECT_THAT(server_.Requests(), Not(Contains("/data")));
  // An answer counts once.
  pending->Continue();
  pending->Cancel();
  EXPECT_TRUE(log_.WaitFor("console 2 [got data]"));
  EXPECT_TRUE(WaitForAny("complete /data success 4"));
  Run("fetch('/data').catch(e => console.log('failed ' + e.name))");
  ASSERT_TRUE(log_.WaitFor("pending"));
  pending->Cancel();
  EXPECT_TRUE(log_.WaitFor("console 2 [failed TypeError]"));
  EXPECT_THAT(CompletionsOf("/data"),
              ElementsAre("complete /data success 4", "complete /data canceled 0"));
}

TEST_F(ResourceTest, AnswerThatIsLetGoLetsTheRequestGoOn) {
  server_.Add("/data", "data");
  StartWithPage();
  resources_->before_load = [](auto, auto) { return RV_CONTINUE_ASYNC; };
  EXPECT_EQ(Fetch("/data"), "200 /data data");
}

TEST_F(ResourceTest, UnansweredRequestEndsWithItsBrowser) {
  StartWithPage();
  CefRefPtr<CefCallback> pending;
  resources_->before_load = [&](auto, CefRefPtr<CefCallback> callback) {
    pending = callback;
    log_.Add("pending");
    return RV_CONTINUE_ASYNC;
  };
  Run("fetch('/data')");
  ASSERT_TRUE(log_.WaitFor("pending"));
  client_->First()->GetHost()->CloseBrowser(true);
  ASSERT_TRUE(WaitForAny("closed"));
  ASSERT_TRUE(WaitForAny("complete"));
  EXPECT_THAT(CompletionsOf("/data"), ElementsAre("complete /data canceled 0"));
  pending->Continue();
  StopEngine();
  EXPECT_EQ(CompletionsOf("/data").size(), 1u);
  // Nothing of the engine keeps the request's object.
  pending = nullptr;
  EXPECT_TRUE(resources_->CompletedFor("/data").request);
}

TEST_F(ResourceTest, UnansweredRequestEndsWithItsDocument) {
  server_.Add("/next", "next");
  StartWithPage();
  CefRefPtr<CefCallback> pending;
  resources_->before_load = [&](CefRefPtr<CefRequest> request, CefRefPtr<CefCallback> callback) {
    if (PathOf(request->GetURL()) != "/data") {
      return RV_CONTINUE;
    }
    pending = callback;
    log_.Add("pending");
    return RV_CONTINUE_ASYNC;
  };
  Run("fetch('/data')");
  ASSERT_TRUE(log_.WaitFor("pending"));
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/next"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  ASSERT_TRUE(WaitForAny("complete /next success 4"));
  ASSERT_TRUE(WaitForAny("complete /data"));
  pending->Continue();
  EXPECT_EQ(Fetch("/next"), "200 /next next");
  EXPECT_THAT(CompletionsOf("/data"), ElementsAre("complete /data canceled 0"));
  EXPECT_THAT(server_.Requests(), Not(Contains("/data")));
}

TEST_F(ResourceTest, BodiesOfPosts) {
  for (const char* path : {"/none", "/text", "/bytes", "/form", "/long"}) {
    server_.Add(path, "ok");
  }
  StartWithPage("<form method=post action=/form><input name=a value='b c'></form>");
  Fetch("/none", "{method: 'POST'}");
  EXPECT_EQ(BodyOf(resources_->CompletedFor("/none").request), "none");
  Fetch("/text",
        "{method: 'POST', body: '{\"a\":\"\\u00e4\"}',"
        " headers: {'Content-Type': 'Application/JSON; charset=utf-8'}}");
  const CefRefPtr<CefRequest> text = resources_->CompletedFor("/text").request;
  EXPECT_EQ(BodyOf(text), "{\"a\":\"\xc3\xa4\"}");
  EXPECT_EQ(text->GetMethod().ToString(), "POST");
  EXPECT_EQ(text->GetHeaderByName("content-type").ToString(), "Application/JSON; charset=utf-8");
  EXPECT_TRUE(text->GetPostData()->IsReadOnly());
  Fetch("/bytes", "{method: 'POST', body: new Uint8Array([0, 255, 254, 128, 10])}");
  EXPECT_EQ(BodyOf(resources_->CompletedFor("/bytes").request), std::string("\0\xff\xfe\x80\n", 5));
  Fetch("/long", "{method: 'POST', body: 'x'.repeat(3000000)}");
  EXPECT_EQ(BodyOf(resources_->CompletedFor("/long").request), std::string(3000000, 'x'));
  EXPECT_EQ(resources_->CompletedFor("/text").length, 2);
  Run("document.forms[0].submit()");
  ASSERT_TRUE(WaitForAny("complete /form"));
  EXPECT_EQ(BodyOf(resources_->CompletedFor("/form").request), "a=b+c");
}

TEST_F(ResourceTest, BodyOfSeveralElementsKeepsTheirOrder) {
  server_.Add("/data", "ok");
  StartWithPage();
  Run("const form = new FormData(); form.append('a', 'first');"
      " form.append('b', new Blob([new Uint8Array([255, 0, 1])])); form.append('c', 'last');"
      " fetch('/data', {method: 'POST', body: form});");
  ASSERT_TRUE(WaitForAny("complete /data success 2"));
  const CefRefPtr<CefRequest> request = resources_->CompletedFor("/data").request;
  EXPECT_EQ(request->GetPostData()->GetElementCount(), 3u);
  const std::string body = BodyOf(request);
  EXPECT_THAT(body, HasSubstr("first"));
  EXPECT_THAT(body, HasSubstr(std::string("\r\n\r\n|\xff\0\1|\r\n", 11)));
  EXPECT_LT(body.find("first"), body.find("last"));
  EXPECT_THAT(request->GetHeaderByName("Content-Type").ToString(),
              testing::StartsWith("multipart/form-data; boundary="));
}

TEST_F(ResourceTest, EveryOutcomeIsReportedOnce) {
  server_.Add("/data", "data");
  PageServer::Page held;
  held.held = true;
  server_.AddPage("/held", held);
  StartWithPage();
  EXPECT_EQ(Fetch("/data"), "200 /data data");
  EXPECT_EQ(Fetch("/missing"), "404 /missing not found");
  EXPECT_EQ(Fetch("http://127.0.0.1:64999/refused"), "TypeError");
  Run("const abort = new AbortController(); fetch('/held', {signal: abort.signal})"
      ".catch(e => console.log(e.name))");
  ASSERT_TRUE(server_.WaitForRequest("/held"));
  Run("abort.abort()");
  ASSERT_TRUE(WaitForAny("complete /held"));
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/held"));
  ASSERT_TRUE(WaitForAny("before-browse main GET " + server_.Url("/held")));
  ASSERT_TRUE(log_.WaitUntil([&] { return std::ranges::count(server_.Requests(), "/held") == 2; }));
  client_->First()->GetHost()->CloseBrowser(true);
  ASSERT_TRUE(WaitForAny("closed"));
  ASSERT_TRUE(log_.WaitUntil([&] { return CompletionsOf("/held").size() == 2; }));
  StopEngine();
  EXPECT_THAT(log_.Only({"complete"}),
              ElementsAre("complete /data success 4", "complete /missing success 9",
                          "complete /refused failed 0", "complete /held canceled 0",
                          "complete /held canceled 0"));
  const RecordingResources::Completed refused = resources_->CompletedFor("/refused");
  EXPECT_EQ(refused.response->GetError(), ERR_CONNECTION_REFUSED);
  EXPECT_EQ(refused.response->GetStatus(), 0);
}

TEST_F(ResourceTest, RequestsOfAWorkerEndWithTheirResponse) {
  PageServer::Page script;
  script.body = "fetch('/data').then(r => r.text()).then(t => postMessage(t))";
  script.content_type = "text/javascript";
  server_.AddPage("/worker.js", script);
  server_.Add("/data", "data");
  StartWithPage();
  Run("new Worker('/worker.js').onmessage = e => console.log('worker ' + e.data)");
  ASSERT_TRUE(log_.WaitFor("console 2 [worker data]"));
  EXPECT_THAT(log_.Only({"complete"}),
              ElementsAre("complete /worker.js success " + std::to_string(script.body.size()),
                          "complete /data success 4"));
}

TEST_F(ResourceTest, PreflightsAreNoRequestsOfThePage) {
  PageServer other;
  PageServer::Page open_to_all;
  open_to_all.body = "data";
  open_to_all.headers = "Access-Control-Allow-Origin: *\r\nAccess-Control-Allow-Headers: *\r\n";
  other.AddPage("/data", open_to_all);
  StartWithPage();
  EXPECT_EQ(Fetch(other.Url("/data"), "{headers: {'X-Own': '1'}}"), "200 /data data");
  EXPECT_THAT(other.Requests(), ElementsAre("/data", "/data"));
  EXPECT_EQ(log_.Only({"wanted"}).size(), 1u);
}

TEST_F(ResourceTest, SlowCallbackHoldsUpNothingButRequests) {
  server_.Add("/data", "data");
  StartWithPage();
  const CefRefPtr<CefWaitableEvent> released = CefWaitableEvent::CreateWaitableEvent(
      /*automatic_reset=*/false, /*initially_signaled=*/false);
  resources_->before_load = [&](auto, auto) {
    log_.Add("slow");
    EXPECT_TRUE(released->TimedWait(20'000));
    return RV_CONTINUE;
  };
  Run("fetch('/data').then(r => r.text()).then(t => console.log('got ' + t))");
  ASSERT_TRUE(log_.WaitFor("slow"));
  // The page runs script, another title reaches the client, and a window is made and closed, all of
  // which takes the UI thread.
  EXPECT_EQ(Evaluate("1 + 1"), "2");
  Run("document.title = 'meanwhile'");
  EXPECT_TRUE(log_.WaitFor("title meanwhile"));
  const CefRefPtr<RecordingClient> other(new RecordingClient(&log_, "other "));
  CreateBrowser(other, "data:text/html,<title>Other</title>");
  EXPECT_TRUE(log_.WaitFor("other title Other"));
  EXPECT_THAT(log_.Only({"console 2 [got"}), testing::IsEmpty());
  released->Signal();
  EXPECT_TRUE(log_.WaitFor("console 2 [got data]"));
}

TEST_F(ResourceTest, LanguagesChosenBeforeANavigationCountForIt) {
  server_.Add("/next", "next");
  StartWithPage();
  client_->cancel_navigation = [](const std::string&) {
    CefRefPtr<CefValue> languages = CefValue::Create();
    languages->SetString("de-DE,de,en");
    CefString error;
    EXPECT_TRUE(CefRequestContext::GetGlobalContext()->SetPreference("intl.accept_languages",
                                                                     languages, error));
    return false;
  };
  for (const bool with_handler : {true, false}) {
    client_->resources = with_handler ? resources_ : nullptr;
    log_.Clear();
    client_->First()->GetMainFrame()->LoadURL(server_.Url("/next"));
    ASSERT_TRUE(log_.WaitFor("idle"));
    EXPECT_THAT(server_.RequestText("/next"),
                HasSubstr("Accept-Language: de-DE,de;q=0.9,en;q=0.8\r\n"));
    EXPECT_EQ(Evaluate("navigator.languages.join()"), "de-DE,de,en");
  }
}

TEST_F(ResourceTest, CrashedPageLoadsAnotherFromInsideTheCallback) {
  server_.Add("/start", "start");
  StartWithPage();
  client_->on_terminated = [this] {
    client_->First()->GetMainFrame()->LoadURL(server_.Url("/start"));
  };
  client_->First()->GetMainFrame()->LoadURL("chrome://crash");
  ASSERT_TRUE(log_.WaitFor("terminated " + std::to_string(TS_PROCESS_CRASHED)));
  ASSERT_TRUE(log_.WaitFor("end main 200"));
  EXPECT_EQ(client_->First()->GetMainFrame()->GetURL().ToString(), server_.Url("/start"));
  EXPECT_EQ(Evaluate("document.body.innerText"), "start");
  EXPECT_TRUE(WaitForAny("complete /start success 5"));
}

}  // namespace
}  // namespace cefedition
