// Requests, redirects and responses that the client changes.

#include <gmock/gmock.h>

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

TEST_F(ResourceTest, RewrittenUrlIsARedirect) {
  server_.Add("/new", "new");
  StartWithPage();
  resources_->before_load = [&](CefRefPtr<CefRequest> request, auto) {
    if (PathOf(request->GetURL()) == "/old") {
      request->SetURL(server_.Url("/new"));
      request->SetHeaderByName("X-Kept", "yes", true);
    }
    return RV_CONTINUE;
  };
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/old"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  ASSERT_TRUE(WaitForAny("complete"));
  EXPECT_THAT(log_.Only(kResourceEvents),
              ElementsAre("before-browse main GET " + server_.Url("/old"),
                          "wanted main /old navigation from=", "cookies /old", "before-load /old",
                          "redirect /old 307 /new",
                          "before-browse main GET " + server_.Url("/new") + " redirect",
                          "cookies /new", "before-load /new", "handler /new", "response /new 200",
                          "filter /new", "complete /new success 3"));
  EXPECT_EQ(client_->First()->GetMainFrame()->GetURL().ToString(), server_.Url("/new"));
  EXPECT_THAT(log_.Only({"end"}), ElementsAre("end main 200"));
  EXPECT_THAT(server_.Requests(), Not(Contains("/old")));
  EXPECT_THAT(server_.RequestText("/new"), HasSubstr("X-Kept: yes\r\n"));
  log_.Clear();
  EXPECT_EQ(Fetch("/old", "{method: 'POST', body: 'text'}"), "200 /new new");
  EXPECT_THAT(server_.RequestText("/new"), HasSubstr("POST /new"));
  EXPECT_THAT(server_.RequestText("/new"), HasSubstr("\r\n\r\ntext"));
}

TEST_F(ResourceTest, RewrittenUrlMayLeadToAnotherOrigin) {
  PageServer other;
  PageServer::Page open_to_all;
  open_to_all.body = "elsewhere";
  open_to_all.headers = "Access-Control-Allow-Origin: *\r\n";
  other.AddPage("/new", open_to_all);
  StartWithPage();
  resources_->before_load = [&](CefRefPtr<CefRequest> request, auto) {
    if (PathOf(request->GetURL()) == "/old") {
      request->SetURL(other.Url("/new"));
    }
    return RV_CONTINUE;
  };
  EXPECT_EQ(Fetch("/old"), "200 /new elsewhere");
  EXPECT_EQ(Fetch(other.Url("/old")), "200 /new elsewhere");
}

TEST_F(ResourceTest, UrlThatIsSetAgainIsNoRedirect) {
  server_.Add("/data?a=%20b", "data");
  StartWithPage();
  resources_->before_load = [&](CefRefPtr<CefRequest> request, auto) {
    request->SetURL(" " + request->GetURL().ToString());
    return RV_CONTINUE;
  };
  EXPECT_EQ(Fetch("/data?a=%20b#there"), "200 /data data");
  EXPECT_THAT(log_.Only({"redirect"}), testing::IsEmpty());
  log_.Clear();
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/page#there"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  client_->First()->Reload();
  ASSERT_TRUE(WaitForAny("complete /page"));
  EXPECT_THAT(log_.Only({"redirect"}), testing::IsEmpty());
}

TEST_F(ResourceTest, RewritingForEverComesToAnEnd) {
  StartWithPage();
  int count = 0;
  resources_->before_load = [&](CefRefPtr<CefRequest> request, auto) {
    request->SetURL(server_.Url("/again" + std::to_string(++count)));
    return RV_CONTINUE;
  };
  EXPECT_EQ(Fetch("/start"), "TypeError");
  ASSERT_TRUE(WaitForAny("complete"));
  EXPECT_EQ(log_.Only({"complete"}).size(), 1u);
  EXPECT_LE(count, 21);
  log_.Clear();
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/start"));
  ASSERT_TRUE(WaitForAny("error main -310 ERR_TOO_MANY_REDIRECTS"));
  ASSERT_TRUE(WaitForAny("complete"));
  EXPECT_EQ(log_.Only({"complete"}).size(), 1u);
  EXPECT_LE(count, 42);
  EXPECT_EQ(server_.Requests().size(), 1u);
}

TEST_F(ResourceTest, ChangesToTheRequestReachTheServer) {
  server_.Add("/data", "data");
  StartWithPage();
  resources_->before_load = [](CefRefPtr<CefRequest> request, auto) {
    CefRequest::HeaderMap headers;
    request->GetHeaderMap(headers);
    headers.emplace("X-Added", "one");
    // As with CEF, the last one of the same name counts.
    headers.emplace("x-added", "two");
    headers.erase("X-Mine");
    request->SetHeaderMap(headers);
    request->SetMethod("PUT");
    CefRefPtr<CefPostData> data = CefPostData::Create();
    CefRefPtr<CefPostDataElement> element = CefPostDataElement::Create();
    element->SetToBytes(3, "\0\xff!");
    data->AddElement(element);
    request->SetPostData(data);
    return RV_CONTINUE;
  };
  EXPECT_EQ(Fetch("/data", "{method: 'POST', body: 'x', headers: {'X-Mine': '1'}}"),
            "200 /data data");
  const std::string text = server_.RequestText("/data");
  EXPECT_THAT(text, testing::StartsWith("PUT /data"));
  EXPECT_THAT(text, HasSubstr("x-added: two\r\n"));
  EXPECT_THAT(text, Not(HasSubstr("X-Added: one")));
  EXPECT_THAT(text, Not(HasSubstr("X-Mine")));
  EXPECT_THAT(text, HasSubstr("Referer: " + server_.Url("/page")));
  EXPECT_TRUE(text.ends_with(std::string("\r\n\r\n\0\xff!", 7)));
}

TEST_F(ResourceTest, HeaderThatTheBrowserRefusesFailsTheRequest) {
  StartWithPage();
  resources_->before_load = [](CefRefPtr<CefRequest> request, auto) {
    request->SetHeaderByName("X-Broken", "one\r\ntwo", true);
    return RV_CONTINUE;
  };
  EXPECT_EQ(Fetch("/data"), "TypeError");
  ASSERT_TRUE(WaitForAny("complete /data"));
  EXPECT_EQ(CompletionsOf("/data").size(), 1u);
}

TEST_F(ResourceTest, RedirectMayBeChanged) {
  PageServer::Page redirect;
  redirect.status = 302;
  redirect.headers = "Location: new?a=b\r\n";
  server_.AddPage("/old", redirect);
  server_.Add("/new?a=b", "new");
  server_.Add("/else", "else");
  StartWithPage();
  EXPECT_EQ(Fetch("/old"), "200 /new new");
  EXPECT_THAT(
      log_.Only({"wanted", "before-load", "redirect", "response"}),
      ElementsAre("wanted main /old from=" + server_.Url(""), "before-load /old",
                  "redirect /old 302 /new?a=b", "before-load /new?a=b", "response /new?a=b 200"));
  // Its end comes on a way of its own, and would be taken for that of the next load.
  ASSERT_TRUE(log_.WaitFor("complete /new?a=b success 3"));
  resources_->redirect = [&](auto, CefString& new_url) { new_url = "else"; };
  log_.Clear();
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/old"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  ASSERT_TRUE(WaitForAny("complete"));
  EXPECT_THAT(log_.Only({"before-load", "redirect", "response", "complete", "address"}),
              UnorderedElementsAre("before-load /old", "redirect /old 302 /new?a=b",
                                   "before-load /else", "response /else 200",
                                   "complete /else success 4", "address " + server_.Url("/else")));
  EXPECT_EQ(std::ranges::count(server_.Requests(), "/new?a=b"), 1);
}

TEST_F(ResourceTest, ResponseMayRestartTheRequest) {
  server_.Add("/first", "first");
  server_.Add("/second", "second");
  StartWithPage();
  resources_->response = [&](CefRefPtr<CefRequest> request, auto) {
    const bool again = PathOf(request->GetURL()) == "/first";
    if (again) {
      request->SetURL(server_.Url("/second"));
    }
    return again;
  };
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/first"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  ASSERT_TRUE(WaitForAny("complete"));
  EXPECT_THAT(log_.Only({"before-load", "redirect", "response", "filter", "complete"}),
              ElementsAre("before-load /first", "response /first 200", "before-load /second",
                          "response /second 200", "filter /second", "complete /second success 6"));
  EXPECT_THAT(log_.Only({"address", "end"}),
              ElementsAre("address " + server_.Url("/second"), "end main 200"));
  EXPECT_EQ(Evaluate("document.body.innerText"), "second");
  EXPECT_EQ(Fetch("/first", "{method: 'POST', body: 'text'}"), "200 /second second");
  EXPECT_THAT(server_.RequestText("/second"), HasSubstr("\r\n\r\ntext"));
}

TEST_F(ResourceTest, RestartMayKeepTheUrl) {
  server_.Add("/data", "data");
  StartWithPage();
  resources_->response = [&](CefRefPtr<CefRequest> request, auto) {
    const bool again = request->GetHeaderByName("X-Again").empty();
    request->SetHeaderByName("X-Again", "yes", true);
    return again;
  };
  EXPECT_EQ(Fetch("/data"), "200 /data data");
  EXPECT_EQ(std::ranges::count(server_.Requests(), "/data"), 2);
  EXPECT_THAT(server_.RequestText("/data"), HasSubstr("X-Again: yes"));
}

}  // namespace
}  // namespace cefedition
