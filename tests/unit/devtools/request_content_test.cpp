#include "devtools/request_content.h"

#include <gmock/gmock.h>

#include "devtools/response_filter.h"

namespace cefedition {
namespace {

TEST(RequestContent, MistypedProtocolMembersAreHarmless) {
  const Json odd = {{"url", 7},
                    {"method", nullptr},
                    {"headers", {{"A", 1}, {"B", "b"}, {"Referer", "http://host/from#x"}}},
                    {"postDataEntries", {1, {{"bytes", "***"}}, {{"bytes", "AP8="}}}}};
  const CefRefPtr<Request> request = RequestFromProtocol(odd);
  EXPECT_EQ(request->GetURL().ToString(), "");
  EXPECT_EQ(request->GetMethod().ToString(), "GET");
  EXPECT_EQ(request->GetReferrerURL().ToString(), "http://host/from");
  CefRequest::HeaderMap headers;
  request->GetHeaderMap(headers);
  EXPECT_EQ(headers.size(), 1u);
  EXPECT_EQ(BodyText(*request->GetPostData()), std::string("\0\xff", 2));
  EXPECT_EQ(RequestFromProtocol(Json())->GetPostData(), nullptr);
  EXPECT_EQ(ResponseFromProtocol(Json::array(), "http://host/")->GetStatus(), 0);
}

TEST(RequestContent, ResponseHasTypeAndCharsetOfItsHeader) {
  const CefRefPtr<Response> response = MakeResponse(
      200, "OK", {{"content-type", "Text/HTML ; Charset=\"utf-8\"; x=y"}}, "http://h/");
  EXPECT_EQ(response->GetMimeType().ToString(), "text/html");
  EXPECT_EQ(response->GetCharset().ToString(), "utf-8");
  EXPECT_EQ(RedirectTarget(*response), "");
}

TEST(RequestContent, RedirectLeadsWhereLocationSays) {
  const auto target = [](int status, const std::string& location) {
    return RedirectTarget(*MakeResponse(status, "", {{"Location", location}}, "http://h/a/b"));
  };
  EXPECT_EQ(target(302, "c?d"), "http://h/a/c?d");
  EXPECT_EQ(target(308, "//other/"), "http://other/");
  EXPECT_EQ(target(304, "c"), "");
  EXPECT_EQ(target(201, "c"), "");
  EXPECT_EQ(target(301, ""), "");
}

TEST(RequestContent, LanguagesCountLessOneAfterTheOther) {
  EXPECT_EQ(AcceptLanguageHeader(""), "");
  EXPECT_EQ(AcceptLanguageHeader("de"), "de");
  EXPECT_EQ(AcceptLanguageHeader(" de-DE, de,,en"), "de-DE,de;q=0.9,en;q=0.8");
  EXPECT_EQ(AcceptLanguageHeader("a,b,c,d,e,f,g,h,i,j,k,l"),
            "a,b;q=0.9,c;q=0.8,d;q=0.7,e;q=0.6,f;q=0.5,g;q=0.4,h;q=0.3,i;q=0.2,j;q=0.1,k;q=0.1,"
            "l;q=0.1");
}

TEST(RequestContent, OnlyWhatWasChangedIsSent) {
  const CefRefPtr<Request> request =
      RequestFromProtocol({{"url", "http://h/"},
                           {"method", "POST"},
                           {"headers", {{"A", "1"}, {"Referer", "http://r/"}}}});
  const RequestContent before(*request);
  Json params = Json::object();
  RequestChanges(before, *request).AddTo(params);
  EXPECT_EQ(params, Json::object());
  request->SetHeaderByName("B", "2", true);
  RequestChanges(before, *request).AddTo(params);
  EXPECT_EQ(params, Json({{"headers",
                           {{{"name", "A"}, {"value", "1"}},
                            {{"name", "B"}, {"value", "2"}},
                            {{"name", "Referer"}, {"value", "http://r/"}}}}}));
}

TEST(ResponseFilter, ErrorsAndStandstillAreNoBody) {
  class Odd : public CefResponseFilter {
   public:
    explicit Odd(FilterStatus status, size_t claimed) : status_(status), claimed_(claimed) {}
    bool InitFilter() override { return true; }
    FilterStatus Filter(void*, size_t, size_t& read, void*, size_t, size_t& written) override {
      read = claimed_;
      written = 0;
      return status_;
    }

   private:
    const FilterStatus status_;
    const size_t claimed_;
    IMPLEMENT_REFCOUNTING(Odd);
  };
  const auto filtered = [](cef_response_filter_status_t status, size_t claimed) {
    const CefRefPtr<Odd> filter(new Odd(status, claimed));
    return FilterBody(*filter, "body");
  };
  EXPECT_FALSE(filtered(RESPONSE_FILTER_ERROR, 4));
  EXPECT_FALSE(filtered(RESPONSE_FILTER_NEED_MORE_DATA, 0));
  EXPECT_FALSE(filtered(RESPONSE_FILTER_NEED_MORE_DATA, 5));
  EXPECT_EQ(filtered(RESPONSE_FILTER_DONE, 4), "");
}

}  // namespace
}  // namespace cefedition
