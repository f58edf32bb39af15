#include "devtools/painting_rest.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

TEST(PaintingRestTest, FrameThatNobodyAskedForIsAskedAfterOnce) {
  PaintingRest rest;
  const int frame = rest.CountFrame();
  EXPECT_TRUE(rest.AskAfterRest(frame));
  const int answer = rest.CountFrame();
  EXPECT_FALSE(rest.AskAfterRest(answer)) << "a page at rest is left alone";
}

TEST(PaintingRestTest, PageThatGoesOnPaintingIsNotAskedAfter) {
  PaintingRest rest;
  const int first = rest.CountFrame();
  rest.CountFrame();
  EXPECT_FALSE(rest.AskAfterRest(first));
}

TEST(PaintingRestTest, FrameAfterTheAnswerIsAskedAfterAgain) {
  PaintingRest rest;
  ASSERT_TRUE(rest.AskAfterRest(rest.CountFrame()));
  rest.CountFrame();
  EXPECT_TRUE(rest.AskAfterRest(rest.CountFrame()));
}

TEST(PaintingRestTest, LoadedPageIsAskedAfterThoughNoFrameCame) {
  PaintingRest rest;
  ASSERT_TRUE(rest.AskAfterRest(rest.CountFrame()));
  rest.CountFrame();
  EXPECT_TRUE(rest.AskAfterRest(rest.ExpectFrame()));
}

TEST(PaintingRestTest, PageThatNeverAnswersIsAskedAFewTimesOnly) {
  PaintingRest rest;
  const int frame = rest.CountFrame();
  int asked = 0;
  while (asked < 100 && rest.AskAfterRest(frame)) {
    ++asked;
  }
  EXPECT_EQ(asked, 5);
  rest.CountFrame();
  EXPECT_TRUE(rest.AskAfterRest(rest.CountFrame())) << "it paints again";
}

}  // namespace
}  // namespace cefedition
