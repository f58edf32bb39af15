// Loads: their state, start, end and failure.
#include <gmock/gmock.h>

#include "unit/handler/handler_test.h"

namespace kzcef {
namespace {

using testing::HandlerTest;

TEST_F(HandlerTest, EndsTheInitialNavigationWithTheFirstLoad) {
  EXPECT_CALL(owner_, OnSetLoadingState(true, false, false));
  handler_->OnLoadingStateChange(browser_, true, false, false);
  EXPECT_TRUE(handler_->initial_navigation());

  EXPECT_CALL(owner_, OnSetLoadingState(false, true, false)).WillOnce([&] {
    EXPECT_FALSE(handler_->initial_navigation());
  });
  handler_->OnLoadingStateChange(browser_, false, true, false);

  EXPECT_CALL(owner_, OnSetLoadingState(true, false, true));
  handler_->OnLoadingStateChange(browser_, true, false, true);
  EXPECT_FALSE(handler_->initial_navigation());
}

TEST_F(HandlerTest, EndsTheInitialNavigationWithoutAnOwner) {
  handler_->SetDelegate(nullptr);
  handler_->OnLoadingStateChange(browser_, false, true, true);
  EXPECT_FALSE(handler_->initial_navigation());
}

TEST_F(HandlerTest, TellsTheHostOfEveryFramesLoadStart) {
  EXPECT_CALL(*host_, LoadStartNotify(window(), TT_LINK));
  handler_->OnLoadStart(browser_, frame(), TT_LINK);
  EXPECT_CALL(*host_, LoadStartNotify(window(), TT_AUTO_SUBFRAME));
  handler_->OnLoadStart(browser_, sub_frame(), TT_AUTO_SUBFRAME);
}

TEST_F(HandlerTest, PassesTheTransitionsFlagsOnAsThirtyTwoBits) {
  const auto transition = static_cast<cef_transition_type_t>(TT_RELOAD | TT_SERVER_REDIRECT_FLAG);
  EXPECT_CALL(*host_, LoadStartNotify(window(), static_cast<long>(0x80000008)));
  handler_->OnLoadStart(browser_, frame(), transition);
}

TEST_F(HandlerTest, TellsTheHostOfEveryFramesLoadEnd) {
  EXPECT_CALL(*host_, LoadEndNotify(window(), 404));
  handler_->OnLoadEnd(browser_, frame(), 404);
  EXPECT_CALL(*host_, LoadEndNotify(window(), 0));
  handler_->OnLoadEnd(browser_, sub_frame(), 0);
}

TEST_F(HandlerTest, ShowsAndTellsNothingOfALoadError) {
  for (const cef_errorcode_t error : {ERR_ABORTED, ERR_UNKNOWN_URL_SCHEME, ERR_FAILED}) {
    handler_->OnLoadError(browser_, frame(), error, "text", "scheme:thing");
    handler_->OnLoadError(browser_, sub_frame(), error, "", "http://a.test/");
  }
  EXPECT_THAT(browser_->main_frame->loaded_urls, ::testing::IsEmpty());
  EXPECT_THAT(sub_frame_->loaded_urls, ::testing::IsEmpty());
}

TEST_F(HandlerTest, TellsAClosingHostNothingOfLoads) {
  host_->closing = true;
  handler_->OnLoadStart(browser_, frame(), TT_LINK);
  handler_->OnLoadEnd(browser_, frame(), 200);
}

TEST_F(HandlerTest, TellsAHostThatStaysAgain) {
  host_->closing = true;
  handler_->OnLoadEnd(browser_, frame(), 200);
  host_->closing = false;
  EXPECT_CALL(*host_, LoadEndNotify(window(), 201));
  handler_->OnLoadEnd(browser_, frame(), 201);
}

}  // namespace
}  // namespace kzcef
