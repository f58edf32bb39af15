// Marshalling of host objects for a page's process, and reading streams.

#include "runtime/script_object.h"

#include <gmock/gmock.h>
#include <wrl/client.h>

#include <numeric>

#include "unit/instance/marshalled_object.h"

namespace kzcef {
namespace {

using Microsoft::WRL::ComPtr;
using ::testing::ElementsAre;

// A stream in memory that holds `bytes` and stands at its start.
ComPtr<IStream> StreamOf(const std::vector<uint8_t>& bytes) {
  ComPtr<IStream> stream;
  EXPECT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
  EXPECT_EQ(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr), S_OK);
  EXPECT_EQ(stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr), S_OK);
  return stream;
}

std::vector<uint8_t> CountedBytes(size_t size) {
  std::vector<uint8_t> bytes(size);
  std::iota(bytes.begin(), bytes.end(), uint8_t{0});
  return bytes;
}

TEST(ReadInBlocksTest, ReadsTwoBlocksOfAThousandBytes) {
  testing::CountingStream stream(StreamOf(CountedBytes(1000)));
  EXPECT_EQ(ReadInBlocks(&stream), CountedBytes(1000));
  EXPECT_THAT(stream.reads, ElementsAre(512, 488));
}

TEST(ReadInBlocksTest, ReadsOnAfterAFullLastBlock) {
  testing::CountingStream stream(StreamOf(CountedBytes(1024)));
  EXPECT_EQ(ReadInBlocks(&stream), CountedBytes(1024));
  EXPECT_THAT(stream.reads, ElementsAre(512, 512, 0));
}

TEST(ReadInBlocksTest, ReadsAnEmptyStream) {
  testing::CountingStream stream(StreamOf({}));
  EXPECT_EQ(ReadInBlocks(&stream), std::vector<uint8_t>());
}

TEST(ReadInBlocksTest, AnswersNothingWhenAReadFails) {
  testing::CountingStream stream(StreamOf(CountedBytes(1000)));
  stream.fail_at = 1;
  EXPECT_EQ(ReadInBlocks(&stream), std::nullopt);
}

class MarshalScriptObjectTest : public ::testing::Test {
 protected:
  MarshalScriptObjectTest() { EXPECT_EQ(CoInitialize(nullptr), S_OK); }
  ~MarshalScriptObjectTest() override { CoUninitialize(); }
};

TEST_F(MarshalScriptObjectTest, MarshalsTheIdentityForAnotherProcess) {
  testing::MarshalledObject object(100);
  const auto bytes = MarshalScriptObject(object.dispatch());
  ASSERT_TRUE(bytes);
  EXPECT_EQ(object.marshalled_interface, IID_IUnknown);
  EXPECT_EQ(object.destination_context, static_cast<DWORD>(MSHCTX_LOCAL));
  EXPECT_EQ(object.flags, static_cast<DWORD>(MSHLFLAGS_NORMAL));
  EXPECT_EQ(bytes->size(), 100u);
}

TEST_F(MarshalScriptObjectTest, LetsGoOfTheObject) {
  testing::MarshalledObject object(100);
  ASSERT_TRUE(MarshalScriptObject(object.dispatch()));
  EXPECT_EQ(object.references, 1);
}

TEST_F(MarshalScriptObjectTest, YieldsWhatUnmarshalsToTheSameObject) {
  testing::PlainObject object;
  const auto bytes = MarshalScriptObject(&object);
  ASSERT_TRUE(bytes);
  ComPtr<IUnknown> same;
  ASSERT_EQ(CoUnmarshalInterface(StreamOf(*bytes).Get(), IID_PPV_ARGS(&same)), S_OK);
  EXPECT_EQ(same.Get(), &object);
}

TEST_F(MarshalScriptObjectTest, GivesTheReferencesBackOfWhatCannotBeRead) {
  testing::PlainObject object;
  const ComPtr<IStream> memory = StreamOf({});
  ASSERT_EQ(CoMarshalInterface(memory.Get(), IID_IUnknown, &object, MSHCTX_LOCAL, nullptr,
                               MSHLFLAGS_NORMAL),
            S_OK);
  ASSERT_GT(object.references, 1u);
  testing::CountingStream stream(memory);
  stream.fail_at = 0;
  EXPECT_EQ(TakeMarshalled(&stream), std::nullopt);
  EXPECT_EQ(object.references, 1u);
}

TEST_F(MarshalScriptObjectTest, AnswersNothingForNoObject) {
  EXPECT_EQ(MarshalScriptObject(nullptr), std::nullopt);
}

TEST_F(MarshalScriptObjectTest, AnswersNothingWhenTheObjectRefuses) {
  testing::MarshalledObject object(100);
  object.refuse = true;
  EXPECT_EQ(MarshalScriptObject(object.dispatch()), std::nullopt);
  EXPECT_EQ(object.references, 1);
}

}  // namespace
}  // namespace kzcef
