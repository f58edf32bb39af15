// Streams of the engine, and a stream of this side that the engine reads.
#include "include/cef_stream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>

#include "binding.h"

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
  EXPECT_EQ(reader->Seek(0, SEEK_SET), 0);
  EXPECT_FALSE(CefStreamReader::CreateForData(nullptr, 5));
}

// A source of bytes whose end is watched.
class TextSource final : public CefReadHandler {
 public:
  TextSource(std::string text, bool* destroyed) : text_(std::move(text)), destroyed_(destroyed) {}
  ~TextSource() override { *destroyed_ = true; }

  size_t Read(void* ptr, size_t size, size_t n) override {
    if (throws) {
      throw std::runtime_error("no more");
    }
    const size_t count = std::min(n, (text_.size() - position_) / size);
    std::memcpy(ptr, text_.data() + position_, count * size);
    position_ += count * size;
    return count;
  }
  int Seek(int64_t offset, int whence) override {
    seeks.emplace_back(offset, whence);
    position_ = static_cast<size_t>(offset);
    return 0;
  }
  int64_t Tell() override { return static_cast<int64_t>(position_); }
  int Eof() override { return position_ == text_.size(); }
  bool MayBlock() override { return true; }

  bool throws = false;
  std::vector<std::pair<int64_t, int>> seeks;

 private:
  const std::string text_;
  bool* const destroyed_;
  size_t position_ = 0;

  IMPLEMENT_REFCOUNTING(TextSource);
};

class SourceTest : public testing::Test {
 protected:
  bool destroyed_ = false;
  const int engine_holds_ = cefbinding::g_client_objects;
  CefRefPtr<TextSource> source_ = new TextSource("0123456789", &destroyed_);
  CefRefPtr<CefStreamReader> reader_ = CefStreamReader::CreateForHandler(source_);
};

TEST_F(SourceTest, IsReadByTheEngine) {
  char read[5] = {};
  EXPECT_EQ(reader_->Read(read, 2, 2), 2u);
  EXPECT_STREQ(read, "0123");
  EXPECT_EQ(reader_->Tell(), 4);
  EXPECT_FALSE(reader_->Eof());
  EXPECT_EQ(reader_->Seek(9, SEEK_SET), 0);
  EXPECT_EQ(source_->seeks, (std::vector<std::pair<int64_t, int>>{{9, SEEK_SET}}));
  EXPECT_EQ(reader_->Read(read, 1, 4), 1u);
  EXPECT_TRUE(reader_->Eof());
  EXPECT_TRUE(reader_->MayBlock());
}

TEST_F(SourceTest, LivesAsLongAsTheEngineHoldsIt) {
  EXPECT_EQ(cefbinding::g_client_objects, engine_holds_ + 1);
  source_ = nullptr;
  EXPECT_FALSE(destroyed_);
  char read[2] = {};
  EXPECT_EQ(reader_->Read(read, 1, 1), 1u);
  reader_ = nullptr;
  EXPECT_TRUE(destroyed_);
  EXPECT_EQ(cefbinding::g_client_objects, engine_holds_);
}

TEST_F(SourceTest, GivesNothingWhenItThrows) {
  source_->throws = true;
  char read[2] = {};
  EXPECT_EQ(reader_->Read(read, 1, 1), 0u);
}

}  // namespace
