// The resource handler that serves a stream: status, headers, body, and none.

#include "include/wrapper/cef_stream_resource_handler.h"

#include <gtest/gtest.h>

namespace {

TEST(StreamResourceHandlerTest, ServesAStream) {
  char data[] = "content";
  CefRefPtr<CefStreamResourceHandler> handler =
      new CefStreamResourceHandler("text/plain", CefStreamReader::CreateForData(data, 7));
  bool handle_request = false;
  EXPECT_TRUE(handler->Open(CefRequest::Create(), handle_request, nullptr));
  EXPECT_TRUE(handle_request);
  CefRefPtr<CefResponse> response = CefResponse::Create();
  int64_t length = 0;
  CefString redirect;
  handler->GetResponseHeaders(response, length, redirect);
  EXPECT_EQ(response->GetStatus(), 200);
  EXPECT_EQ(response->GetMimeType().ToString(), "text/plain");
  EXPECT_EQ(length, -1);
  char read[5] = {};
  int count = 0;
  EXPECT_TRUE(handler->Read(read, 5, count, nullptr));
  EXPECT_EQ(count, 5);
  EXPECT_TRUE(handler->Read(read, 5, count, nullptr));
  EXPECT_EQ(count, 2);
  EXPECT_FALSE(handler->Read(read, 5, count, nullptr));
  EXPECT_EQ(count, 0);
}

TEST(StreamResourceHandlerTest, MayHaveNoBody) {
  CefRefPtr<CefStreamResourceHandler> handler =
      new CefStreamResourceHandler(404, "Not Found", "text/html", {{"X-Why", "gone"}}, nullptr);
  CefRefPtr<CefResponse> response = CefResponse::Create();
  int64_t length = -1;
  CefString redirect;
  handler->GetResponseHeaders(response, length, redirect);
  EXPECT_EQ(response->GetStatus(), 404);
  EXPECT_EQ(response->GetHeaderByName("X-Why").ToString(), "gone");
  EXPECT_EQ(length, 0);
  char byte = 0;
  int count = 5;
  EXPECT_FALSE(handler->Read(&byte, 1, count, nullptr));
  EXPECT_EQ(count, 0);
}

}  // namespace
