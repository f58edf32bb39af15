#include <gmock/gmock.h>

#include "engine_fixture.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST_F(EngineTest, OneNavigationInOrder) {
  server_.Add("/page", "<title>The page</title><p>text");
  ASSERT_TRUE(StartEngine()) << LogText();
  CreateBrowser(client_, server_.Url("/page"));
  ASSERT_TRUE(log_.WaitFor("idle")) << testing::PrintToString(log_.All()) << LogText();
  EXPECT_THAT(log_.Only({"created", "loading", "before-browse", "start", "address", "title", "end",
                         "idle", "error"}),
              ElementsAre("created", "loading", "before-browse main GET " + server_.Url("/page"),
                          "start main 0x2000001", "address " + server_.Url("/page"),
                          "title The page", "end main 200", "idle"));
}

}  // namespace
}  // namespace cefedition
