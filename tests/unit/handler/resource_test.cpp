// Requests and their responses.
#include <gmock/gmock.h>

#include <optional>
#include <string>

#include "include/wrapper/cef_resource_manager.h"
#include "include/wrapper/cef_stream_resource_handler.h"
#include "unit/handler/request_test.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

using ::testing::_;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The text behind an in/out argument becomes another one.
void Replace(BSTR* text, const wchar_t* replacement) {
  SysFreeString(*text);
  *text = replacement ? SysAllocString(replacement) : nullptr;
}

class ResourceTest : public testing::RequestTest {
 protected:
  static CefRefPtr<CefResponse> Response(int status) {
    const CefRefPtr<CefResponse> response = CefResponse::Create();
    response->SetStatus(status);
    return response;
  }
};

TEST_F(ResourceTest, HandlerIsTheClientItself) {
  bool disable_default_handling = true;
  EXPECT_EQ(handler_
                ->GetResourceRequestHandler(browser_, frame(), Request("http://a.test/x"), true,
                                            false, "null", disable_default_handling)
                .get(),
            handler_.get());
  EXPECT_TRUE(disable_default_handling) << "left as it was";
  EXPECT_THAT(Traced(), ElementsAre(L"GetResourceRequestHandler : http://a.test/x"));
}

TEST_F(ResourceTest, HasNoCookieFilterAndNoResponseFilter) {
  const auto request = Request("http://a.test/x");
  EXPECT_FALSE(handler_->GetCookieAccessFilter(browser_, frame(), request));
  EXPECT_FALSE(handler_->GetResourceResponseFilter(browser_, frame(), request, Response(200)));
  EXPECT_THAT(Traced(), ElementsAre(L"GetCookieAccessFilter : http://a.test/x",
                                    L"GetResourceResponseFilter : http://a.test/x"));
}

TEST_F(ResourceTest, LoadIsTracedAndToldAndContinues) {
  EXPECT_CALL(*host_, BeforeResourceLoadNotify(window(), _, _))
      .WillOnce([](HWND, BSTR* url, BSTR* type_name) {
        EXPECT_STREQ(*url, L"http://a.test/x");
        EXPECT_STREQ(*type_name, L"");
        // What the host writes is not used.
        Replace(url, L"http://b.test/");
        Replace(type_name, nullptr);
      });
  const auto request = Request("http://a.test/x");
  EXPECT_EQ(handler_->OnBeforeResourceLoad(browser_, frame(), request, nullptr), RV_CONTINUE);
  EXPECT_EQ(request->url.ToString(), "http://a.test/x");
  EXPECT_THAT(Traced(), ElementsAre(L"OnBeforeResourceLoad(before) : http://a.test/x",
                                    L"OnBeforeResourceLoad(after) : http://a.test/x"));
}

TEST_F(ResourceTest, HostIsToldTheTypesOfPagesAndScriptsOnly) {
  for (int type = RT_MAIN_FRAME; type <= RT_NAVIGATION_PRELOAD_SUB_FRAME; ++type) {
    const auto request = Request("http://a.test/x");
    request->resource_type = static_cast<cef_resource_type_t>(type);
    EXPECT_CALL(*host_, BeforeResourceLoadNotify(_, _, _)).WillOnce([=](HWND, BSTR*, BSTR* name) {
      EXPECT_STREQ(*name, type == 0 ? L"MainFrame" : type == 3 ? L"Script" : L"") << type;
    });
    handler_->OnBeforeResourceLoad(browser_, frame(), request, nullptr);
  }
}

TEST_F(ResourceTest, HostHearsOfTheUrlThatTheHubGets) {
  SetConfiguredHubPort(8080);
  EXPECT_CALL(*host_, BeforeResourceLoadNotify(window(), _, _))
      .WillOnce([](HWND, BSTR* url, BSTR*) { EXPECT_STREQ(*url, L"https://a.test/x"); });
  const auto request = Request("https://a.test:443/x");
  handler_->OnBeforeResourceLoad(browser_, frame(), request, nullptr);
  EXPECT_EQ(request->url.ToString(), "https://a.test/x");
  EXPECT_THAT(Traced(), ElementsAre(L"OnBeforeResourceLoad(before) : https://a.test:443/x",
                                    L"OnBeforeResourceLoad(after) : https://a.test/x"));
}

TEST_F(ResourceTest, LoadContinuesWhenMemoryForTheHostRunsOut) {
  EXPECT_CALL(*host_, BeforeResourceLoadNotify(_, _, _)).WillOnce([] { throw std::bad_alloc(); });
  EXPECT_EQ(handler_->OnBeforeResourceLoad(browser_, frame(), Request("http://a.test/"), nullptr),
            RV_CONTINUE);
}

TEST_F(ResourceTest, RequestOfNoBrowserIsHarmless) {
  // A service worker's, for instance.
  const auto request = Request("http://a.test/");
  EXPECT_EQ(handler_->OnBeforeResourceLoad(nullptr, nullptr, request, nullptr), RV_CONTINUE);
  EXPECT_FALSE(handler_->OnResourceResponse(nullptr, nullptr, request, Response(200)));
}

TEST_F(ResourceTest, RequestOfABrowserThatGoesAwayIsHarmless) {
  browser_->has_host = false;
  EXPECT_EQ(handler_->OnBeforeResourceLoad(browser_, frame(), Request("http://a.test/"), nullptr),
            RV_CONTINUE);
}

// Serves one URL.
class OnePage : public CefResourceManager::Provider {
 public:
  bool OnRequest(scoped_refptr<CefResourceManager::Request> request) override {
    if (request->url() != "http://a.test/served") {
      return false;
    }
    request->Continue(new CefStreamResourceHandler("text/plain", nullptr));
    return true;
  }
};

// A request that goes on later.
class CountedCallback : public CefCallback {
 public:
  void Continue() override { ++continued; }
  void Cancel() override {}

  int continued = 0;

 private:
  IMPLEMENT_REFCOUNTING(CountedCallback);
};

TEST_F(ResourceTest, ResourceManagerDecidesHowALoadGoesOnAndWhoServesIt) {
  EXPECT_CALL(*host_, BeforeResourceLoadNotify(_, _, _)).Times(2);
  handler_->resource_manager()->AddProvider(new OnePage, 0, "");
  const auto other = Request("http://a.test/other");
  EXPECT_EQ(handler_->OnBeforeResourceLoad(browser_, frame(), other, nullptr), RV_CONTINUE);
  EXPECT_FALSE(handler_->GetResourceHandler(browser_, frame(), other));

  const auto served = Request("http://a.test/served");
  const CefRefPtr<CountedCallback> callback = new CountedCallback;
  EXPECT_EQ(handler_->OnBeforeResourceLoad(browser_, frame(), served, callback), RV_CONTINUE_ASYNC);
  cef_.RunTasks();
  EXPECT_EQ(callback->continued, 1);
  EXPECT_TRUE(handler_->GetResourceHandler(browser_, frame(), served));
  EXPECT_THAT(Traced(), Contains(L"GetResourceHandler : http://a.test/served"));
}

TEST_F(ResourceTest, RedirectGoesWhereTheHostSays) {
  EXPECT_CALL(*host_, ResourceRedirectNotify(window(), std::wstring(L"http://a.test/old"), _, 302))
      .WillOnce([](HWND, const std::wstring&, BSTR* new_url, long) {
        EXPECT_STREQ(*new_url, L"http://a.test/new");
        Replace(new_url, L"http://b.test/\u00e4");
      });
  CefString new_url = "http://a.test/new";
  handler_->OnResourceRedirect(browser_, frame(), Request("http://a.test/old"), Response(302),
                               new_url);
  EXPECT_EQ(new_url.ToWString(), L"http://b.test/\u00e4");
  EXPECT_THAT(Traced(), ElementsAre(L"OnResourceRedirect : http://b.test/\u00e4"));
}

TEST_F(ResourceTest, RedirectStaysWithoutATextOfTheHosts) {
  for (const wchar_t* const text : {L"", static_cast<const wchar_t*>(nullptr)}) {
    EXPECT_CALL(*host_, ResourceRedirectNotify(_, _, _, 0))
        .WillOnce([=](HWND, const std::wstring&, BSTR* new_url, long) { Replace(new_url, text); });
    CefString new_url = "http://a.test/new";
    // Without a status.
    handler_->OnResourceRedirect(browser_, frame(), Request("http://a.test/old"),
                                 CefResponse::Create(), new_url);
    EXPECT_EQ(new_url.ToString(), "http://a.test/new");
  }
}

TEST_F(ResourceTest, RedirectStaysWhileTheHostCloses) {
  host_->closing = true;
  CefString new_url = "http://a.test/new";
  handler_->OnResourceRedirect(browser_, frame(), Request("http://a.test/old"), Response(301),
                               new_url);
  EXPECT_EQ(new_url.ToString(), "http://a.test/new");
  EXPECT_THAT(Traced(), ElementsAre(L"OnResourceRedirect : http://a.test/new"));
}

// The host answers a response with these.
class ResponseTest : public ResourceTest {
 protected:
  // True when the request restarts. A null `url` is what a host makes of the text by freeing it;
  // without a value it leaves the text alone.
  bool Respond(std::optional<const wchar_t*> url, VARIANT_BOOL modify) {
    EXPECT_CALL(*host_, ResourceResponseNotify(window(), _, _, RT_IMAGE))
        .WillOnce([=, this](HWND, BSTR* text, VARIANT_BOOL* modify_request, long) {
          EXPECT_EQ(*text, request_->url.ToWString());
          EXPECT_EQ(*modify_request, VARIANT_FALSE);
          if (url) {
            Replace(text, *url);
          }
          *modify_request = modify;
        });
    request_->resource_type = RT_IMAGE;
    return handler_->OnResourceResponse(browser_, frame(), request_, Response(200));
  }

  const CefRefPtr<recording_cef::FakeRequest> request_ = Request("http://a.test/x");
};

TEST_F(ResponseTest, RestartsWithTheHostsUrl) {
  EXPECT_TRUE(Respond(L"http://b.test/y", VARIANT_TRUE));
  EXPECT_EQ(request_->url.ToString(), "http://b.test/y");
  EXPECT_THAT(Traced(), ElementsAre(L"OnResourceResponse(1) : http://b.test/y"));
}

TEST_F(ResponseTest, AnyNonZeroAnswerRestarts) {
  EXPECT_TRUE(Respond(L"http://b.test/y", 1));
}

TEST_F(ResponseTest, GoesOnWithAnotherUrlThatIsNotToBeUsed) {
  EXPECT_FALSE(Respond(L"http://b.test/y", VARIANT_FALSE));
  EXPECT_EQ(request_->url.ToString(), "http://a.test/x");
  EXPECT_THAT(Traced(), ElementsAre(L"OnResourceResponse(2) : http://a.test/x"));
}

TEST_F(ResponseTest, GoesOnWithTheSameUrl) {
  EXPECT_FALSE(Respond(std::nullopt, VARIANT_TRUE));
  EXPECT_THAT(Traced(), ElementsAre(L"OnResourceResponse(2) : http://a.test/x"));
}

TEST_F(ResponseTest, GoesOnWithTheSameUrlAndASlashMore) {
  EXPECT_FALSE(Respond(L"http://a.test/x/", VARIANT_TRUE));
  EXPECT_EQ(request_->url.ToString(), "http://a.test/x");
  EXPECT_THAT(Traced(), ElementsAre(L"OnResourceResponse(2) : http://a.test/x"));
}

TEST_F(ResponseTest, GoesOnWithTheSameUrlAndASlashLess) {
  request_->url = "http://a.test/x/";
  EXPECT_FALSE(Respond(L"http://a.test/x", VARIANT_TRUE));
}

TEST_F(ResponseTest, RestartsForTwoSlashesMore) {
  EXPECT_TRUE(Respond(L"http://a.test/x//", VARIANT_TRUE));
}

TEST_F(ResponseTest, RestartsForAnotherLetterCase) {
  EXPECT_TRUE(Respond(L"http://a.test/X", VARIANT_TRUE));
}

TEST_F(ResponseTest, GoesOnWithoutATextOfTheHosts) {
  EXPECT_FALSE(Respond(L"", VARIANT_TRUE));
  EXPECT_FALSE(Respond(nullptr, VARIANT_TRUE));
  EXPECT_EQ(request_->url.ToString(), "http://a.test/x");
  EXPECT_THAT(Traced(), ElementsAre(L"OnResourceResponse(0) : http://a.test/x",
                                    L"OnResourceResponse(0) : http://a.test/x"));
}

TEST_F(ResponseTest, GoesOnWithoutAHost) {
  PublishHostNotifications(nullptr);
  EXPECT_FALSE(handler_->OnResourceResponse(browser_, frame(), request_, Response(200)));
  EXPECT_THAT(Traced(), ElementsAre(L"OnResourceResponse(2) : http://a.test/x"));
}

TEST_F(ResponseTest, GoesOnWhenMemoryForTheHostRunsOut) {
  EXPECT_CALL(*host_, ResourceResponseNotify(_, _, _, _)).WillOnce([] { throw std::bad_alloc(); });
  EXPECT_FALSE(handler_->OnResourceResponse(browser_, frame(), request_, Response(200)));
}

// Tracing is off in these: they look at what is not even read.
class UnheardRequestTest : public testing::HandlerTest {};

TEST_F(UnheardRequestTest, MakesNoTextForAHostWithoutHandlers) {
  host_->listening = false;
  const CefRefPtr<recording_cef::FakeRequest> request =
      new recording_cef::FakeRequest("http://a.test/x");
  bool disable_default_handling = false;
  const CefRefPtr<CefResponse> response = CefResponse::Create();
  handler_->GetResourceRequestHandler(browser_, frame(), request, false, false, "null",
                                      disable_default_handling);
  handler_->GetCookieAccessFilter(browser_, frame(), request);
  handler_->OnResourceResponse(browser_, frame(), request, response);
  handler_->GetResourceResponseFilter(browser_, frame(), request, response);
  handler_->OnResourceLoadComplete(browser_, frame(), request, response, UR_SUCCESS, 0);
  EXPECT_EQ(request->url_reads, 0);
  CefString new_url = "http://a.test/y";
  handler_->OnResourceRedirect(browser_, frame(), request, response, new_url);
  EXPECT_EQ(request->url_reads, 0);
  // CEF's resource manager reads it, and the host, whose mock is strict, is not told.
  handler_->OnBeforeResourceLoad(browser_, frame(), request, nullptr);
}

class ProtocolTest : public ResourceTest {
 protected:
  bool Allows(const char* url) {
    bool allow_os_execution = true;
    handler_->OnProtocolExecution(browser_, frame(), Request(url), allow_os_execution);
    return allow_os_execution;
  }
};

TEST_F(ProtocolTest, OnlyOneSchemeIsLeftToTheOperatingSystem) {
  EXPECT_TRUE(Allows("spotify:track:1"));
  EXPECT_TRUE(Allows("spotify:"));
  for (const char* const url :
       {"mailto:a@b.test", "spotify", "spotifyx:1", "http://spotify:1/", ""}) {
    EXPECT_FALSE(Allows(url)) << url;
  }
  EXPECT_THAT(Traced(), IsEmpty());
}

}  // namespace
}  // namespace kzcef
