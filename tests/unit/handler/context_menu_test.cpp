// The menus of pages and the handler's own commands.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "handler/page_menu.h"
#include "recording_cef/fake_context_menu.h"
#include "recording_cef/fake_menu_model.h"
#include "unit/handler/handler_test.h"

namespace kzcef {
namespace {

using ::testing::_;
using ::testing::ElementsAre;
using testing::HandlerTest;
using ::testing::IsEmpty;

class ContextMenuTest : public HandlerTest {
 protected:
  ContextMenuTest() {
    SetSwitch(L"1");
    model_->AddItem(MENU_ID_BACK, "&Back");
    params_->type_flags = CM_TYPEFLAG_PAGE;
  }

  static void SetSwitch(const wchar_t* value) {
    ASSERT_TRUE(SetEnvironmentVariableW(L"EnablePlatformRMB", value));
  }

  // What the menu holds, a separator as -1.
  std::vector<int> Items() const {
    std::vector<int> items;
    for (size_t i = 0; i < model_->GetCount(); ++i) {
      items.push_back(model_->GetTypeAt(i) == MENUITEMTYPE_SEPARATOR ? -1
                                                                     : model_->GetCommandIdAt(i));
    }
    return items;
  }

  void Answer(VARIANT_BOOL clear_model) {
    EXPECT_CALL(*host_, BeforeContextMenuNotify(window(), _))
        .WillOnce([=](HWND, VARIANT_BOOL* clear) { *clear = clear_model; });
  }
  void AnswerNothing() { EXPECT_CALL(*host_, BeforeContextMenuNotify(window(), _)); }

  void Open() {
    EXPECT_CALL(owner_, OnBeforeContextMenu(_)).WillOnce([&](CefRefPtr<CefMenuModel> model) {
      EXPECT_EQ(model.get(), model_.get());
      shown_ = Items();
    });
    handler_->OnBeforeContextMenu(browser_, frame(), params_, model_);
  }

  bool Command(int id) {
    return handler_->OnContextMenuCommand(browser_, frame(), params_, id, EVENTFLAG_NONE);
  }

  const CefRefPtr<recording_cef::FakeContextMenuParams> params_ =
      new recording_cef::FakeContextMenuParams;
  const CefRefPtr<recording_cef::FakeMenuModel> model_ = new recording_cef::FakeMenuModel;
  // What the owner saw.
  std::vector<int> shown_;
};

TEST_F(ContextMenuTest, AsksTheHostWithTheStartValue) {
  EXPECT_CALL(*host_, BeforeContextMenuNotify(window(), _)).WillOnce([](HWND, VARIANT_BOOL* clear) {
    EXPECT_EQ(*clear, 0);
  });
  Open();
}

TEST_F(ContextMenuTest, IsEmptyWithoutTheVariable) {
  SetSwitch(nullptr);
  AnswerNothing();
  Open();
  EXPECT_THAT(shown_, IsEmpty());
}

TEST_F(ContextMenuTest, IsEmptyWithoutTheVariableWhateverTheHostAnswers) {
  SetSwitch(nullptr);
  Answer(VARIANT_FALSE);
  Open();
  EXPECT_THAT(shown_, IsEmpty());
}

TEST_F(ContextMenuTest, HasRefreshBehindASeparator) {
  AnswerNothing();
  Open();
  EXPECT_THAT(shown_, ElementsAre(MENU_ID_BACK, -1, 26511));
  EXPECT_EQ(model_->GetLabel(26511).ToString(), "&Refresh");
}

TEST_F(ContextMenuTest, IsShownForAnEmptyValue) {
  SetSwitch(L"");
  AnswerNothing();
  Open();
  EXPECT_THAT(shown_, ElementsAre(MENU_ID_BACK, -1, 26511));
}

TEST_F(ContextMenuTest, IsShownForZero) {
  SetSwitch(L"0");
  AnswerNothing();
  Open();
  EXPECT_THAT(shown_, ElementsAre(MENU_ID_BACK, -1, 26511));
}

TEST_F(ContextMenuTest, HasRefreshAloneWithoutOtherItems) {
  model_->Clear();
  AnswerNothing();
  Open();
  EXPECT_THAT(shown_, ElementsAre(26511));
}

TEST_F(ContextMenuTest, HasRefreshInAFrame) {
  params_->type_flags = CM_TYPEFLAG_FRAME | CM_TYPEFLAG_SELECTION;
  AnswerNothing();
  Open();
  EXPECT_THAT(shown_, ElementsAre(MENU_ID_BACK, -1, 26511));
}

TEST_F(ContextMenuTest, StaysAsItIsOverOtherThings) {
  params_->type_flags =
      CM_TYPEFLAG_LINK | CM_TYPEFLAG_MEDIA | CM_TYPEFLAG_SELECTION | CM_TYPEFLAG_EDITABLE;
  AnswerNothing();
  Open();
  EXPECT_THAT(shown_, ElementsAre(MENU_ID_BACK));
}

TEST_F(ContextMenuTest, IsClearedByTheHost) {
  Answer(VARIANT_TRUE);
  Open();
  EXPECT_THAT(shown_, IsEmpty());
}

TEST_F(ContextMenuTest, IsClearedByAnyNonZeroAnswer) {
  Answer(1);
  Open();
  EXPECT_THAT(shown_, IsEmpty());
}

TEST_F(ContextMenuTest, IsShownWithoutAHost) {
  PublishHostNotifications(nullptr);
  Open();
  EXPECT_THAT(shown_, ElementsAre(MENU_ID_BACK, -1, 26511));
}

TEST_F(ContextMenuTest, IsShownWhileTheHostCloses) {
  host_->closing = true;
  Open();
  EXPECT_THAT(shown_, ElementsAre(MENU_ID_BACK, -1, 26511));
}

TEST_F(ContextMenuTest, IsShownWhenTheNotificationFails) {
  EXPECT_CALL(*host_, BeforeContextMenuNotify(_, _)).WillOnce([] { throw std::bad_alloc(); });
  Open();
  EXPECT_THAT(shown_, ElementsAre(MENU_ID_BACK, -1, 26511));
}

TEST_F(ContextMenuTest, IsFilledWithoutAnOwner) {
  handler_->SetDelegate(nullptr);
  AnswerNothing();
  handler_->OnBeforeContextMenu(browser_, frame(), params_, model_);
  EXPECT_THAT(Items(), ElementsAre(MENU_ID_BACK, -1, 26511));
}

TEST_F(ContextMenuTest, StaysAsItIsOverNothing) {
  handler_->SetDelegate(nullptr);
  handler_->OnBeforeContextMenu(nullptr, nullptr, nullptr, model_);
  EXPECT_THAT(Items(), ElementsAre(MENU_ID_BACK));
}

TEST_F(ContextMenuTest, IsSettledWithTheFirstMenu) {
  SetSwitch(nullptr);
  AnswerNothing();
  Open();
  SetSwitch(L"1");
  model_->AddItem(MENU_ID_BACK, "&Back");
  AnswerNothing();
  Open();
  EXPECT_THAT(shown_, IsEmpty());
}

TEST_F(ContextMenuTest, IsSettledWithAFirstMenuThatTheHostClears) {
  Answer(VARIANT_TRUE);
  Open();
  SetSwitch(nullptr);
  model_->AddItem(MENU_ID_BACK, "&Back");
  AnswerNothing();
  Open();
  EXPECT_THAT(shown_, ElementsAre(MENU_ID_BACK, -1, 26511));
}

TEST_F(ContextMenuTest, IsSettledAfterTheHostWasAsked) {
  SetSwitch(nullptr);
  EXPECT_CALL(*host_, BeforeContextMenuNotify(window(), _)).WillOnce([] { SetSwitch(L"1"); });
  Open();
  EXPECT_THAT(shown_, ElementsAre(MENU_ID_BACK, -1, 26511));
}

TEST_F(ContextMenuTest, LeavesCommandsThatAreNotItsOwnToCef) {
  for (const int id : {0, -1, static_cast<int>(MENU_ID_BACK), 26499, 26512, 28500}) {
    EXPECT_FALSE(Command(id)) << id;
  }
  EXPECT_EQ(browser_->reload_count, 0);
  EXPECT_THAT(browser_host().devtools_windows, IsEmpty());
}

TEST_F(ContextMenuTest, OpensTheTools) {
  EXPECT_TRUE(Command(26500));
  ASSERT_EQ(browser_host().devtools_windows.size(), 1u);
  const recording_cef::DevToolsWindow& shown = browser_host().devtools_windows[0];
  EXPECT_EQ(shown.inspected, CefPoint(0, 0));
  // Not this client's: the tools are no browser of its owner.
  EXPECT_FALSE(shown.client);
  EXPECT_EQ(shown.window_info.parent_window, nullptr);
  EXPECT_EQ(CefString(&shown.window_info.window_name).ToString(), "DevTools");
  EXPECT_NE(shown.window_info.style & WS_VISIBLE, 0u);
  EXPECT_EQ(shown.window_info.bounds.width, CW_USEDEFAULT);
}

TEST_F(ContextMenuTest, OpensTheToolsWithoutTheMenusPosition) {
  params_->x = 12;
  params_->y = 34;
  EXPECT_TRUE(Command(26500));
  ASSERT_EQ(browser_host().devtools_windows.size(), 1u);
  EXPECT_EQ(browser_host().devtools_windows[0].inspected, CefPoint());
}

TEST_F(ContextMenuTest, InspectsWhatIsAtTheMenusPosition) {
  params_->x = 12;
  params_->y = -34;
  EXPECT_TRUE(Command(26502));
  ASSERT_EQ(browser_host().devtools_windows.size(), 1u);
  EXPECT_EQ(browser_host().devtools_windows[0].inspected, CefPoint(12, -34));
}

TEST_F(ContextMenuTest, ClosesTheTools) {
  EXPECT_TRUE(Command(26501));
  EXPECT_EQ(browser_host().close_devtools_count, 1u);
  EXPECT_THAT(browser_host().devtools_windows, IsEmpty());
}

TEST_F(ContextMenuTest, FlipsWhoSetsTheCursor) {
  EXPECT_TRUE(Command(26504));
  EXPECT_TRUE(handler_->OnCursorChange(browser_, nullptr, CT_HAND, CefCursorInfo()));
  EXPECT_TRUE(Command(26504));
  EXPECT_FALSE(handler_->OnCursorChange(browser_, nullptr, CT_HAND, CefCursorInfo()));
}

TEST_F(ContextMenuTest, CutsTheBrowserOffAndBackOn) {
  EXPECT_TRUE(Command(26505));
  ExpectEmulation(true, 1);
  EXPECT_TRUE(Command(26505));
  ExpectEmulation(false, 2);
}

TEST_F(ContextMenuTest, KeepsLaterBrowsersCutOff) {
  handler_->SetDelegate(nullptr);
  EXPECT_TRUE(Command(26505));
  handler_->OnDocumentAvailableInMainFrame(browser_);
  ExpectEmulation(true, 2);
  EXPECT_CALL(*host_, BrowserCreatedNotify(popup_window()));
  handler_->OnAfterCreated(popup_);
  EXPECT_EQ(popup_->host->devtools_calls.size(), 1u);
}

TEST_F(ContextMenuTest, Reloads) {
  EXPECT_TRUE(Command(26511));
  EXPECT_EQ(browser_->reload_count, 1);
  EXPECT_EQ(browser_->reload_ignore_cache_count, 0);
}

TEST_F(ContextMenuTest, TakesItsCommandsWithoutAnActionToo) {
  for (const int id : {26503, 26506, 26507, 26508, 26509, 26510}) {
    EXPECT_TRUE(Command(id)) << id;
  }
  EXPECT_EQ(browser_->reload_count, 0);
  EXPECT_EQ(browser_host().close_devtools_count, 0u);
  EXPECT_THAT(browser_host().devtools_windows, IsEmpty());
  EXPECT_THAT(browser_host().devtools_calls, IsEmpty());
  EXPECT_FALSE(handler_->OnCursorChange(browser_, nullptr, CT_HAND, CefCursorInfo()));
}

TEST_F(ContextMenuTest, TakesItsCommandsFromABrowserThatIsGoingAway) {
  browser_->has_host = false;
  for (int id = 26500; id <= 26511; ++id) {
    EXPECT_TRUE(Command(id)) << id;
    EXPECT_TRUE(handler_->OnContextMenuCommand(nullptr, nullptr, nullptr, id, EVENTFLAG_NONE))
        << id;
  }
}

TEST_F(ContextMenuTest, InspectsTheOriginOverNothing) {
  EXPECT_TRUE(handler_->OnContextMenuCommand(browser_, frame(), nullptr, 26502, EVENTFLAG_NONE));
  ASSERT_EQ(browser_host().devtools_windows.size(), 1u);
  EXPECT_EQ(browser_host().devtools_windows[0].inspected, CefPoint());
}

}  // namespace
}  // namespace kzcef
