// Requests and responses that the product makes are the engine's.
#include "include/cef_request.h"

#include <gtest/gtest.h>

#include "include/cef_response.h"

namespace {

TEST(RequestTest, StartsAsAnEmptyGet) {
  CefRefPtr<CefRequest> request = CefRequest::Create();
  EXPECT_EQ(request->GetMethod().ToString(), "GET");
  EXPECT_EQ(request->GetURL(), CefString());
  EXPECT_FALSE(request->IsReadOnly());
  EXPECT_FALSE(request->GetPostData());
  EXPECT_EQ(request->GetResourceType(), RT_SUB_RESOURCE);
}

TEST(RequestTest, WritesUrlsAsTheBrowserDoes) {
  CefRefPtr<CefRequest> request = CefRequest::Create();
  request->SetURL("HTTP://Host:80/a b");
  EXPECT_EQ(request->GetURL().ToString(), "http://host/a%20b");
  request->SetURL("");
  EXPECT_EQ(request->GetURL().ToString(), "http://host/a%20b");
  request->SetURL("no url");
  EXPECT_EQ(request->GetURL().ToString(), "");
}

TEST(RequestTest, HeaderNamesHaveNoCase) {
  CefRefPtr<CefRequest> request = CefRequest::Create();
  request->SetHeaderByName("X-Test", "1", false);
  request->SetHeaderByName("x-test", "2", false);
  EXPECT_EQ(request->GetHeaderByName("X-TEST").ToString(), "1");
  request->SetHeaderByName("x-test", "3", true);
  CefRequest::HeaderMap headers;
  request->GetHeaderMap(headers);
  ASSERT_EQ(headers.size(), 1u);
  EXPECT_EQ(headers.begin()->second.ToString(), "3");
  request->SetHeaderByName("", "4", true);
  EXPECT_EQ(request->GetHeaderByName(""), CefString());
}

TEST(RequestTest, KeepsSeveralHeadersOfAName) {
  CefRefPtr<CefRequest> request = CefRequest::Create();
  request->SetHeaderMap({{"A", "1"}, {"A", "2"}, {"Referer", "http://x/"}});
  CefRequest::HeaderMap headers;
  request->GetHeaderMap(headers);
  EXPECT_EQ(headers.size(), 2u);
  EXPECT_EQ(request->GetHeaderByName("a").ToString(), "1");
}

TEST(RequestTest, TheReferrerIsNoHeader) {
  CefRefPtr<CefRequest> request = CefRequest::Create();
  request->SetHeaderByName("referer", "http://x/", true);
  EXPECT_EQ(request->GetHeaderByName("Referer"), CefString());
  request->SetReferrer("http://me:pw@x/a#b", REFERRER_POLICY_ORIGIN);
  // As much of it as the policy lets through.
  EXPECT_EQ(request->GetReferrerURL().ToString(), "http://x/");
  EXPECT_EQ(request->GetReferrerPolicy(), REFERRER_POLICY_ORIGIN);
}

TEST(RequestTest, ABodyCannotBeTakenAwayBySetter) {
  CefRefPtr<CefRequest> request = CefRequest::Create();
  request->SetPostData(CefPostData::Create());
  request->SetPostData(nullptr);
  EXPECT_TRUE(request->GetPostData());
}

TEST(PostDataTest, HoldsElementsOnce) {
  CefRefPtr<CefPostData> body = CefPostData::Create();
  CefRefPtr<CefPostDataElement> element = CefPostDataElement::Create();
  EXPECT_TRUE(body->AddElement(element));
  EXPECT_FALSE(body->AddElement(element));
  EXPECT_FALSE(body->AddElement(nullptr));
  EXPECT_EQ(body->GetElementCount(), 1u);
  EXPECT_TRUE(body->RemoveElement(element));
  EXPECT_FALSE(body->RemoveElement(element));
}

TEST(PostDataTest, ElementsAreBytesOrFiles) {
  CefRefPtr<CefPostDataElement> element = CefPostDataElement::Create();
  element->SetToBytes(3, "abc");
  EXPECT_EQ(element->GetType(), PDE_TYPE_BYTES);
  char bytes[8] = {};
  EXPECT_EQ(element->GetBytes(2, bytes), 2u);
  EXPECT_STREQ(bytes, "ab");
  EXPECT_EQ(element->GetBytes(8, nullptr), 0u);
  element->SetToFile("C:\\x");
  EXPECT_EQ(element->GetType(), PDE_TYPE_FILE);
  EXPECT_EQ(element->GetBytesCount(), 0u);
  element->SetToFile("");
  EXPECT_EQ(element->GetFile().ToString(), "C:\\x");
  element->SetToEmpty();
  EXPECT_EQ(element->GetType(), PDE_TYPE_EMPTY);
}

TEST(ResponseTest, KeepsWhatItIsGiven) {
  const CefRefPtr<CefResponse> response = CefResponse::Create();
  response->SetStatus(404);
  response->SetMimeType("text/html");
  response->SetError(ERR_ABORTED);
  response->SetHeaderByName("Content-Length", "5", true);
  response->SetURL("http://x/");
  EXPECT_EQ(response->GetStatus(), 404);
  EXPECT_EQ(response->GetError(), ERR_ABORTED);
  EXPECT_EQ(response->GetHeaderByName("content-length").ToString(), "5");
  EXPECT_EQ(response->GetURL().ToString(), "http://x/");
  EXPECT_FALSE(response->IsReadOnly());
}

}  // namespace
