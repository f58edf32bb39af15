#include "base64.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

std::vector<uint8_t> Bytes(std::string_view text) {
  return {text.begin(), text.end()};
}

TEST(Base64Test, EncodesWithPadding) {
  EXPECT_EQ(Base64Encode(Bytes("")), "");
  EXPECT_EQ(Base64Encode(Bytes("f")), "Zg==");
  EXPECT_EQ(Base64Encode(Bytes("fo")), "Zm8=");
  EXPECT_EQ(Base64Encode(Bytes("foo")), "Zm9v");
  EXPECT_EQ(Base64Encode(Bytes("foobar")), "Zm9vYmFy");
  EXPECT_EQ(Base64Encode(std::vector<uint8_t>{0xFB, 0xFF}), "+/8=");
}

TEST(Base64Test, DecodesWhatItEncodes) {
  std::vector<uint8_t> all;
  for (int i = 0; i < 256; ++i) {
    all.push_back(static_cast<uint8_t>(i));
    EXPECT_EQ(Base64Decode(Base64Encode(all)), all);
  }
}

TEST(Base64Test, RefusesWhatIsNotBase64) {
  for (const char* text : {"Z", "Zg", "Zg=", "Zg===", "Z===", "Zm9v\n", "Zm 9", "Zm9-",
                           "====", "Zg==Zg==", "Zm9\x80"}) {
    EXPECT_FALSE(Base64Decode(text)) << text;
  }
}

}  // namespace
}  // namespace cefedition
