#include "devtools/refused_pages.h"

#include <gmock/gmock.h>

#include <vector>

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RefusedPagesTest : public testing::Test {
 protected:
  // What was sent since the last call.
  std::vector<std::string> Sent() { return std::exchange(sent_, {}); }

  static ProtocolEvent RequestPaused(const std::string& session) {
    return {session, "Fetch.requestPaused", {{"requestId", "r1"}}};
  }

  std::vector<std::string> sent_;
  RefusedPages pages_{
      [this](const std::string& session, const std::string& method, const Json& params) {
        sent_.push_back(session + " " + method + " " + params.dump());
      }};
};

TEST_F(RefusedPagesTest, PageThatLoadsIsClosedOnlyAfterItsRequestHasFailed) {
  pages_.Refuse("t1", "s1", /*loads=*/true);
  EXPECT_THAT(Sent(), ElementsAre("s1 Fetch.enable {}", "s1 Runtime.runIfWaitingForDebugger {}"));
  EXPECT_TRUE(pages_.OnEvent(RequestPaused("s1")));
  EXPECT_THAT(Sent(),
              ElementsAre(R"(s1 Fetch.failRequest {"errorReason":"Aborted","requestId":"r1"})",
                          R"( Target.closeTarget {"targetId":"t1"})"));
}

TEST_F(RefusedPagesTest, PageThatLoadsNothingIsClosedAtOnce) {
  pages_.Refuse("t1", "s1", /*loads=*/false);
  EXPECT_THAT(Sent(), ElementsAre("s1 Fetch.enable {}", "s1 Runtime.runIfWaitingForDebugger {}",
                                  R"( Target.closeTarget {"targetId":"t1"})"));
}

TEST_F(RefusedPagesTest, RequestsOfAPageThatCloses) {
  pages_.Refuse("t1", "s1", /*loads=*/false);
  Sent();
  pages_.OnEvent(RequestPaused("s1"));
  EXPECT_THAT(Sent(),
              ElementsAre(R"(s1 Fetch.failRequest {"errorReason":"Aborted","requestId":"r1"})"));
}

TEST_F(RefusedPagesTest, PageThatNeverRequestsAnythingIsClosedOnce) {
  pages_.Refuse("t1", "s1", /*loads=*/true);
  Sent();
  pages_.CloseIfOpen("s1");
  EXPECT_THAT(Sent(), ElementsAre(R"( Target.closeTarget {"targetId":"t1"})"));
  pages_.CloseIfOpen("s1");
  EXPECT_THAT(Sent(), IsEmpty());
}

TEST_F(RefusedPagesTest, ClosedAndForeignPagesAreNoConcern) {
  pages_.Refuse("t1", "s1", /*loads=*/true);
  Sent();
  EXPECT_FALSE(pages_.OnEvent(RequestPaused("s2")));
  EXPECT_TRUE(pages_.OnEvent({"s1", "Page.loadEventFired", Json::object()}));
  pages_.OnDetached("s1");
  EXPECT_FALSE(pages_.OnEvent(RequestPaused("s1")));
  pages_.CloseIfOpen("s1");
  EXPECT_THAT(Sent(), IsEmpty());
}

}  // namespace
}  // namespace cefedition
