#include <gmock/gmock.h>

#include "devtools/win_handle.h"
#include "include/base/cef_bind.h"
#include "include/wrapper/cef_closure_task.h"
#include "input_fixture.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr UINT kGetMenuHandle = 0x01E1;  // MN_GETHMENU

// This program's menu on the screen, null when there is none. Other programs may show one too.
HWND MenuWindow() {
  HWND window = nullptr;
  while ((window = FindWindowExW(nullptr, window, L"#32768", nullptr)) != nullptr) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId() && IsWindowVisible(window)) {
      return window;
    }
  }
  return nullptr;
}

// What it shows; empty when there is none.
std::string MenuOnScreen() {
  const HWND window = MenuWindow();
  if (!window) {
    return {};
  }
  const auto menu = reinterpret_cast<HMENU>(SendMessageW(window, kGetMenuHandle, 0, 0));
  std::string text;
  for (int at = 0; at < GetMenuItemCount(menu); ++at) {
    char label[100] = "";
    MENUITEMINFOA item{};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_STRING | MIIM_SUBMENU;
    item.dwTypeData = label;
    item.cch = sizeof(label);
    GetMenuItemInfoA(menu, static_cast<UINT>(at), TRUE, &item);
    text += at == 0 ? "" : "|";
    if ((item.fType & MFT_SEPARATOR) != 0) {
      text += "--";
      continue;
    }
    text += label;
    text += (item.fState & MFS_DISABLED) != 0 ? " off" : "";
    text += (item.fState & MFS_CHECKED) != 0 ? " checked" : "";
    text += (item.fType & MFT_RADIOCHECK) != 0 ? " radio" : "";
    text += item.hSubMenu ? " >" : "";
  }
  return text;
}

class MenuTest : public InputFixture {
 protected:
  /// As a user does it, up to the window procedure.
  void RightClick(int x, int y) const {
    const HWND view = Host()->GetWindowHandle();
    PostMessageW(view, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(x, y));
    PostMessageW(view, WM_RBUTTONUP, 0, MAKELPARAM(x, y));
  }

  bool WaitForMenu() {
    return log_.WaitUntil([] {
      // No event tells of another thread's menu.
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
      return !MenuOnScreen().empty();
    });
  }
  bool WaitForNoMenu() {
    return log_.WaitUntil([] {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
      return MenuOnScreen().empty();
    });
  }
  void MenuKey(WPARAM key) const { PostMessageW(Host()->GetWindowHandle(), WM_KEYDOWN, key, 1); }
};

TEST_F(MenuTest, AClickOnThePageShowsTheDefaultMenu) {
  Load("<body>text");
  RightClick(200, 200);
  ASSERT_TRUE(log_.WaitFor("menu main 1 100-|101-|--|131|132"));
  ASSERT_TRUE(log_.WaitFor("run-menu"));
  ASSERT_TRUE(WaitForMenu());
  EXPECT_EQ(MenuOnScreen(), "&Back off|&Forward off|--|&Print...|&View page source");
  MenuKey(VK_ESCAPE);
  EXPECT_TRUE(log_.WaitFor("dismissed"));
  EXPECT_THAT(log_.Only({"command"}), IsEmpty());
}

TEST_F(MenuTest, AClearedMenuIsNotShownNorDismissed) {
  input_->change_menu = [](CefRefPtr<CefMenuModel> model) { model->Clear(); };
  Load("<body>text");
  RightClick(200, 200);
  ASSERT_TRUE(log_.WaitFor("menu main"));
  RightClick(100, 100);
  ASSERT_TRUE(log_.WaitFor("menu main"));
  EXPECT_EQ(MenuOnScreen(), "");
  EXPECT_THAT(log_.Only({"run-menu", "dismissed"}), IsEmpty());
}

TEST_F(MenuTest, APageThatPreventsTheEventHasNoMenu) {
  Load(
      "<body><script>let seen = 0; addEventListener('contextmenu', event => {"
      " event.stopImmediatePropagation(); if (++seen == 1) event.preventDefault() }, true)"
      "</script>");
  RightClick(200, 200);
  ASSERT_TRUE(WaitForValue("seen", "1"));
  // One that script makes up asks for no menu either; by the end of the time-out it would have.
  Run("dispatchEvent(new MouseEvent('contextmenu')); setTimeout(() => console.log('later'), 0)");
  ASSERT_TRUE(log_.WaitFor("console 2 [later]"));
  EXPECT_THAT(log_.Only({"menu"}), IsEmpty());
  RightClick(200, 200);
  EXPECT_TRUE(log_.WaitFor("menu main"));
}

TEST_F(MenuTest, TheParametersTellWhatWasClicked) {
  input_->change_menu = [](CefRefPtr<CefMenuModel> model) { model->Clear(); };
  input_->look_at_params = [this](CefRefPtr<CefContextMenuParams> params) {
    log_.Add("params " + std::to_string(params->GetXCoord()) + "," +
             std::to_string(params->GetYCoord()) + " link=" + params->GetLinkUrl().ToString() +
             " source=" + params->GetSourceUrl().ToString() +
             " media=" + std::to_string(params->GetMediaType()) +
             " pixels=" + std::to_string(params->HasImageContents()) + " selected=" +
             params->GetSelectionText().ToString() + " page=" + params->GetPageUrl().ToString() +
             " frame=" + params->GetFrameUrl().ToString() +
             " edit=" + std::to_string(params->GetEditStateFlags()));
  };
  const std::string image =
      "data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9Q"
      "DwADhgGAWjR9awAAAABJRU5ErkJggg==";
  server_.Add("/frame", "<body style='margin:0'><p>frame</p>");
  Load(
      "<style>body > * { position: absolute; left: 10px; margin: 0; border: 0 }</style><body>"
      "<a style='top:0' href='/target'><b>link</b></a>"
      "<img style='top:40px;width:30px;height:30px' src='" +
      image +
      "'>"
      "<input id=i style='top:80px;width:100px' value='some text'>"
      "<iframe src=/frame style='top:120px;width:100px;height:50px'></iframe>"
      "<p id=p style='top:200px'>chosen words</p>");
  const std::string page = " page=" + server_.Url("/page");
  const std::string none = " source= media=0 pixels=0 selected=";
  RightClick(15, 8);
  ASSERT_TRUE(log_.WaitFor("params 15,8 link=" + server_.Url("/target") + none + page + " frame="));
  ASSERT_TRUE(log_.WaitFor("menu main 5 100-|101-|"));
  RightClick(20, 50);
  ASSERT_TRUE(log_.WaitFor("params 20,50 link= source=" + image + " media=1 pixels=1 selected="));
  ASSERT_TRUE(log_.WaitFor("menu main 9 100-"));
  RightClick(15, 130);
  ASSERT_TRUE(
      log_.WaitFor("params 15,130 link=" + none + page + " frame=" + server_.Url("/frame")));
  ASSERT_TRUE(log_.WaitFor("menu sub 3 100-"));
  Run("getSelection().selectAllChildren(p)");
  RightClick(20, 205);
  ASSERT_TRUE(log_.WaitFor("params 20,205 link= source= media=0 pixels=0 selected=chosen words"));
  ASSERT_TRUE(log_.WaitFor("menu main 17 113"));
  Run("getSelection().removeAllRanges(); i.focus(); i.setSelectionRange(5, 9)");
  RightClick(60, 88);
  ASSERT_TRUE(log_.WaitFor("params 60,88"));
  ASSERT_TRUE(log_.WaitFor("menu main"));
  EXPECT_THAT(log_.Only({"params 60,88"}).front(), HasSubstr("selected=text" + page));
  EXPECT_THAT(log_.Only({"menu main 49"}),
              ElementsAre("menu main 49 110-|111-|--|112|113|114|115|--|116"));
}

TEST_F(MenuTest, ZoomedPagesHaveTheirMenuWhereTheClickWas) {
  input_->change_menu = [](CefRefPtr<CefMenuModel> model) { model->Clear(); };
  input_->look_at_params = [this](CefRefPtr<CefContextMenuParams> params) {
    log_.Add("at " + std::to_string(params->GetXCoord()) + "," +
             std::to_string(params->GetYCoord()));
  };
  Load("<body>");
  Host()->SetZoomLevel(3.8);  // Twice as large.
  ASSERT_TRUE(WaitForValue("devicePixelRatio > 1.9", "true"));
  RightClick(200, 100);
  EXPECT_TRUE(log_.WaitFor("at 200,100"));
}

TEST_F(MenuTest, CommandsGoToTheClientAndElseAreCarriedOut) {
  Load("<input id=i value='some text' style='position:absolute;left:0;top:0;width:100px'>");
  RightClick(20, 10);
  ASSERT_TRUE(log_.WaitFor("run-menu"));
  ASSERT_TRUE(WaitForMenu());
  // The way up from nowhere is to the last item, "Select all".
  MenuKey(VK_UP);
  MenuKey(VK_RETURN);
  ASSERT_TRUE(log_.WaitFor("command 116 0"));
  ASSERT_TRUE(log_.WaitFor("dismissed"));
  EXPECT_TRUE(WaitForValue("i.selectionEnd - i.selectionStart", "9"));
  input_->handle_commands = true;
  Run("i.setSelectionRange(0, 0)");
  RightClick(20, 10);
  ASSERT_TRUE(log_.WaitFor("run-menu"));
  ASSERT_TRUE(WaitForMenu());
  MenuKey(VK_UP);
  MenuKey(VK_RETURN);
  ASSERT_TRUE(log_.WaitFor("command 116 0"));
  EXPECT_EQ(Evaluate("i.selectionEnd - i.selectionStart"), "0");
}

TEST_F(MenuTest, TheMenuShowsWhatTheModelHolds) {
  input_->change_menu = [](CefRefPtr<CefMenuModel> model) {
    model->Clear();
    model->AddItem(0, "&Zero");
    model->SetAccelerator(0, 'A', true, true, false);
    model->AddItem(MENU_ID_USER_FIRST, "Off");
    model->SetEnabled(MENU_ID_USER_FIRST, false);
    model->AddItem(MENU_ID_USER_FIRST + 1, "Hidden");
    model->SetVisible(MENU_ID_USER_FIRST + 1, false);
    model->AddSeparator();
    model->AddCheckItem(MENU_ID_USER_FIRST + 2, "Check");
    model->SetChecked(MENU_ID_USER_FIRST + 2, true);
    model->AddRadioItem(MENU_ID_USER_FIRST + 3, "Radio", 1);
    model->AddSubMenu(MENU_ID_USER_FIRST + 4, "Below")->AddItem(MENU_ID_USER_FIRST + 5, "Inner");
  };
  Load("<body>");
  RightClick(100, 100);
  ASSERT_TRUE(WaitForMenu());
  EXPECT_EQ(MenuOnScreen(), "&Zero\tCtrl+Shift+A|Off off|--|Check checked|Radio radio|Below >");
  MenuKey(VK_UP);
  MenuKey(VK_RIGHT);
  MenuKey(VK_RETURN);
  ASSERT_TRUE(log_.WaitFor("command " + std::to_string(MENU_ID_USER_FIRST + 5)));
  RightClick(100, 100);
  ASSERT_TRUE(WaitForMenu());
  MenuKey(VK_DOWN);
  MenuKey(VK_RETURN);
  EXPECT_TRUE(log_.WaitFor("command 0 "));
}

TEST_F(MenuTest, AClientMayShowTheMenuItself) {
  input_->show_menu_itself = true;
  input_->handle_commands = true;
  Load("<body>");
  RightClick(100, 100);
  ASSERT_TRUE(log_.WaitFor("run-menu"));
  // One at a time.
  RightClick(50, 50);
  EXPECT_EQ(Evaluate("1"), "1");
  CefRefPtr<CefRunContextMenuCallback> callback = input_->TakeMenuCallback();
  ASSERT_TRUE(callback);
  callback->Continue(26511, EVENTFLAG_CONTROL_DOWN);
  ASSERT_TRUE(log_.WaitFor("command 26511 4"));
  ASSERT_TRUE(log_.WaitFor("dismissed"));
  callback->Continue(26511, EVENTFLAG_NONE);
  EXPECT_EQ(MenuOnScreen(), "");
  RightClick(100, 100);
  ASSERT_TRUE(log_.WaitFor("run-menu"));
  input_->TakeMenuCallback()->Cancel();
  ASSERT_TRUE(log_.WaitFor("dismissed"));
  RightClick(100, 100);
  ASSERT_TRUE(log_.WaitFor("run-menu"));
  input_->TakeMenuCallback();
  ASSERT_TRUE(log_.WaitFor("dismissed")) << "let go without an answer";
  EXPECT_EQ(log_.Only({"command"}).size(), 1u);
}

TEST_F(MenuTest, TheMenuKeyAsksAtTheFocus) {
  input_->change_menu = [](CefRefPtr<CefMenuModel> model) { model->Clear(); };
  Load("<input id=i autofocus>");
  PostMessageW(Host()->GetWindowHandle(), WM_KEYDOWN, VK_APPS, 1);
  PostMessageW(Host()->GetWindowHandle(), WM_KEYUP, VK_APPS, static_cast<LPARAM>(0xC0000001U));
  EXPECT_TRUE(log_.WaitFor("menu main 33"));
}

TEST_F(MenuTest, AnOpenMenuHoldsUpNothing) {
  Load("<body>");
  RightClick(100, 100);
  ASSERT_TRUE(WaitForMenu());
  EXPECT_EQ(Evaluate("6 * 7"), "42");
  const UniqueHandle ran(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  const auto set = [](HANDLE event) { SetEvent(event); };
  CefPostDelayedTask(TID_UI, CefCreateClosureTask(base::BindOnce(set, ran.get())), 50);
  EXPECT_EQ(WaitForSingleObject(ran.get(), 10'000), WAIT_OBJECT_0);
  EXPECT_NE(MenuOnScreen(), "");
  client_->First()->Reload();
  EXPECT_TRUE(log_.WaitFor("end main 200"));
  MenuKey(VK_ESCAPE);
  EXPECT_TRUE(log_.WaitFor("dismissed"));
}

TEST_F(MenuTest, ClosingTheBrowserEndsItsMenu) {
  Load("<body>");
  RightClick(100, 100);
  ASSERT_TRUE(WaitForMenu());
  Host()->CloseBrowser(true);
  ASSERT_TRUE(log_.WaitFor("dismissed"));
  ASSERT_TRUE(log_.WaitFor("closed"));
  EXPECT_TRUE(WaitForNoMenu());
  // The UI thread is out of the menu's loop.
  CreateBrowser(client_, server_.Url("/page"));
  EXPECT_TRUE(log_.WaitFor("end main 200"));
}

TEST_F(MenuTest, ShutdownEndsAnOpenMenu) {
  Load("<body>");
  RightClick(100, 100);
  ASSERT_TRUE(WaitForMenu());
  StopEngine();
  EXPECT_THAT(log_.Only({"dismissed", "closed"}), ElementsAre("dismissed", "closed"));
  EXPECT_THAT(LogText(), testing::Not(HasSubstr("could not be closed in time")));
}

}  // namespace
}  // namespace cefedition
