// Keys, focus and drags.
#include <gmock/gmock.h>

#include <optional>
#include <vector>

#include "unit/handler/handler_test.h"

namespace kzcef {
namespace {

using ::testing::_;
using testing::HandlerTest;
using ::testing::InSequence;
using ::testing::IsEmpty;

class KeyTest : public HandlerTest {
 protected:
  // True when the key does not reach the page.
  bool Press(int key, cef_key_event_type_t type = KEYEVENT_RAWKEYDOWN, bool in_field = false) {
    CefKeyEvent event;
    event.type = type;
    event.windows_key_code = key;
    event.focus_on_editable_field = in_field;
    bool is_keyboard_shortcut = false;
    const bool consumed = handler_->OnPreKeyEvent(browser_, event, nullptr, &is_keyboard_shortcut);
    EXPECT_FALSE(is_keyboard_shortcut);
    return consumed;
  }

  void Answer(int key, std::optional<VARIANT_BOOL> is_handled) {
    EXPECT_CALL(*host_, KeyStrokeNotify(window(), key, _))
        .WillOnce([=](HWND, long, VARIANT_BOOL* handled) {
          EXPECT_EQ(*handled, 0);
          if (is_handled) {
            *handled = *is_handled;
          }
        });
  }
};

TEST_F(KeyTest, GoesToThePageWhenNobodyAnswers) {
  Answer('A', std::nullopt);
  EXPECT_FALSE(Press('A'));
  EXPECT_EQ(host_->exchanges, (std::vector<bool>{true, false}));
}

TEST_F(KeyTest, IsStoppedByTrue) {
  Answer(VK_F5, VARIANT_TRUE);
  EXPECT_TRUE(Press(VK_F5));
}

TEST_F(KeyTest, IsNotStoppedByZero) {
  Answer(VK_F5, VARIANT_FALSE);
  EXPECT_FALSE(Press(VK_F5));
}

// Kept: only the automation's own true stops a key.
TEST_F(KeyTest, IsDeliberatelyNotStoppedByOne) {
  Answer(VK_F5, 1);
  EXPECT_FALSE(Press(VK_F5));
}

TEST_F(KeyTest, IsDeliberatelyNotStoppedByTwo) {
  Answer(VK_F5, 2);
  EXPECT_FALSE(Press(VK_F5));
}

TEST_F(KeyTest, EscapeIsToldFirstAsEscapeAndThenAsAKey) {
  {
    const InSequence in_order;
    EXPECT_CALL(*host_, EscapeKeyNotify(window()));
    Answer(27, VARIANT_TRUE);
  }
  EXPECT_TRUE(Press(27));
}

TEST_F(KeyTest, EscapeInAFieldIsThePagesAlone) {
  EXPECT_FALSE(Press(27, KEYEVENT_RAWKEYDOWN, /*in_field=*/true));
  EXPECT_THAT(host_->exchanges, IsEmpty());
}

TEST_F(KeyTest, AKeyInAFieldIsThePagesAlone) {
  EXPECT_FALSE(Press('A', KEYEVENT_RAWKEYDOWN, /*in_field=*/true));
}

TEST_F(KeyTest, OnlyThePressingIsTold) {
  for (const cef_key_event_type_t type : {KEYEVENT_KEYDOWN, KEYEVENT_KEYUP, KEYEVENT_CHAR}) {
    EXPECT_FALSE(Press(27, type)) << type;
    EXPECT_FALSE(Press('A', type)) << type;
  }
}

TEST_F(KeyTest, GoesToThePageWithoutAHost) {
  PublishHostNotifications(nullptr);
  EXPECT_FALSE(Press(27));
}

TEST_F(KeyTest, GoesToThePageWhileTheHostCloses) {
  host_->closing = true;
  EXPECT_FALSE(Press(27));
}

TEST_F(KeyTest, GoesToThePageOfABrowserThatIsGone) {
  CefKeyEvent event;
  event.type = KEYEVENT_RAWKEYDOWN;
  event.windows_key_code = 27;
  EXPECT_FALSE(handler_->OnPreKeyEvent(nullptr, event, nullptr, nullptr));
}

TEST_F(KeyTest, IsToldAsAKeyWhenTheNotificationOfEscapeFails) {
  EXPECT_CALL(*host_, EscapeKeyNotify(window())).WillOnce([] { throw std::bad_alloc(); });
  Answer(27, VARIANT_TRUE);
  EXPECT_TRUE(Press(27));
}

TEST_F(KeyTest, GoesToThePageWhenTheNotificationFails) {
  EXPECT_CALL(*host_, KeyStrokeNotify(_, _, _)).WillOnce([] { throw std::bad_alloc(); });
  EXPECT_FALSE(Press('A'));
}

TEST_F(KeyTest, IsLeftToCefAfterThePage) {
  CefKeyEvent event;
  event.type = KEYEVENT_RAWKEYDOWN;
  event.windows_key_code = 27;
  EXPECT_FALSE(handler_->OnKeyEvent(browser_, event, nullptr));
}

TEST_F(HandlerTest, TellsItsOwnerWhoTakesTheFocus) {
  {
    const InSequence in_order;
    EXPECT_CALL(owner_, OnTakeFocus(true));
    EXPECT_CALL(owner_, OnTakeFocus(false));
  }
  handler_->OnTakeFocus(browser_, true);
  handler_->OnTakeFocus(browser_, false);
}

TEST_F(HandlerTest, LetsTheBrowserHaveTheFocus) {
  EXPECT_FALSE(handler_->OnSetFocus(browser_, FOCUS_SOURCE_NAVIGATION));
  EXPECT_FALSE(handler_->OnSetFocus(browser_, FOCUS_SOURCE_SYSTEM));
  handler_->OnGotFocus(browser_);
}

TEST_F(HandlerTest, LetsAnythingBeDraggedIntoThePage) {
  EXPECT_FALSE(handler_->OnDragEnter(browser_, nullptr, DRAG_OPERATION_EVERY));
}

TEST_F(HandlerTest, TellsItsOwnerOfDraggableRegions) {
  const std::vector<CefDraggableRegion> regions = {{CefRect(1, 2, 3, 4), true},
                                                   {CefRect(5, 6, 7, 8), false}};
  EXPECT_CALL(owner_, OnSetDraggableRegions(_))
      .WillOnce([](const std::vector<CefDraggableRegion>& told) {
        ASSERT_EQ(told.size(), 2u);
        EXPECT_EQ(told[0].bounds.x, 1);
        EXPECT_EQ(told[0].bounds.height, 4);
        EXPECT_TRUE(told[0].draggable);
        EXPECT_EQ(told[1].bounds.width, 7);
        EXPECT_FALSE(told[1].draggable);
      });
  handler_->OnDraggableRegionsChanged(browser_, frame(), regions);
  EXPECT_CALL(owner_, OnSetDraggableRegions(IsEmpty()));
  handler_->OnDraggableRegionsChanged(browser_, sub_frame(), {});
}

TEST_F(HandlerTest, TakesFocusAndRegionsWithoutAnOwner) {
  handler_->SetDelegate(nullptr);
  handler_->OnTakeFocus(nullptr, true);
  handler_->OnDraggableRegionsChanged(nullptr, nullptr, {});
}

}  // namespace
}  // namespace kzcef
