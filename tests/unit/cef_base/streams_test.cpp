#include <gtest/gtest.h>

#include <cstdio>

#include "include/cef_file_util.h"
#include "include/cef_stream.h"
#include "include/wrapper/cef_stream_resource_handler.h"

namespace {

TEST(StreamTest, ReadsMemoryLikeAFile) {
  char data[] = "0123456789";
  CefRefPtr<CefStreamReader> reader = CefStreamReader::CreateForData(data, 10);
  char read[16] = {};
  EXPECT_EQ(reader->Read(read, 4, 2), 2u);
  EXPECT_STREQ(read, "01234567");
  // Only whole elements are read.
  EXPECT_EQ(reader->Read(read, 4, 1), 0u);
  EXPECT_FALSE(reader->Eof());
  EXPECT_EQ(reader->Tell(), 8);
  EXPECT_EQ(reader->Seek(-1, SEEK_END), 0);
  EXPECT_EQ(reader->Read(read, 1, 16), 1u);
  EXPECT_TRUE(reader->Eof());
  EXPECT_NE(reader->Seek(1, SEEK_END), 0);
  EXPECT_NE(reader->Seek(-11, SEEK_CUR), 0);
  EXPECT_NE(reader->Seek(INT64_MIN, SEEK_CUR), 0);
  EXPECT_NE(reader->Seek(0, 99), 0);
  EXPECT_EQ(reader->Seek(0, SEEK_SET), 0);
  EXPECT_EQ(reader->Read(nullptr, 1, 1), 0u);
  EXPECT_EQ(reader->Read(read, 0, 1), 0u);
  EXPECT_FALSE(CefStreamReader::CreateForData(nullptr, 5));
}

TEST(StreamTest, WritesAndReadsFiles) {
  CefString folder;
  ASSERT_TRUE(CefCreateNewTempDirectory("kz_stream_", folder));
  const CefString name = folder.ToWString() + L"\\\x00E4.txt";
  {
    CefRefPtr<CefStreamWriter> writer = CefStreamWriter::CreateForFile(name);
    ASSERT_TRUE(writer);
    EXPECT_EQ(writer->Write("hello", 1, 5), 5u);
    EXPECT_EQ(writer->Flush(), 0);
  }
  {
    CefRefPtr<CefStreamReader> reader = CefStreamReader::CreateForFile(name);
    ASSERT_TRUE(reader);
    char read[8] = {};
    EXPECT_EQ(reader->Read(read, 1, 8), 5u);
    EXPECT_STREQ(read, "hello");
    EXPECT_TRUE(reader->Eof());
  }
  EXPECT_TRUE(CefDeleteFile(folder, true));
  EXPECT_FALSE(CefStreamReader::CreateForFile(name));
  EXPECT_FALSE(CefStreamReader::CreateForFile(""));
}

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
