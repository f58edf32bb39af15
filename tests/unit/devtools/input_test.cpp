#include <gmock/gmock.h>

#include "devtools/win_handle.h"
#include "include/base/cef_bind.h"
#include "include/wrapper/cef_closure_task.h"
#include "input_fixture.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Writes down what keys the page gets.
constexpr char kKeyPage[] =
    "<body style='margin:0'><script>"
    "for (const name of ['keydown', 'keypress', 'keyup'])"
    "  addEventListener(name, event => console.log(name + ' ' + event.key));"
    "</script>";

class InputTest : public InputFixture {
 protected:
  void Click(int x, int y, CefBrowserHost::MouseButtonType button = MBT_LEFT) {
    CefMouseEvent event;
    event.x = x;
    event.y = y;
    Host()->SendMouseClickEvent(event, button, false, 1);
    Host()->SendMouseClickEvent(event, button, true, 1);
  }

  /// A letter as a user types it, up to the window procedure.
  void Type(char letter) const {
    const auto key = static_cast<WPARAM>(letter - 'a' + 'A');
    const LPARAM scan_code =
        static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC)) << 16;
    // Sent, because what is posted at once would overtake the character made from it.
    SendMessageW(View(), WM_KEYDOWN, key, 1 | scan_code);
    SendMessageW(View(), WM_CHAR, static_cast<WPARAM>(letter), 1 | scan_code);
    SendMessageW(View(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001U) | scan_code);
  }

  void Press(int virtual_key, uint32_t modifiers = 0) {
    CefKeyEvent event;
    event.type = KEYEVENT_RAWKEYDOWN;
    event.windows_key_code = virtual_key;
    event.modifiers = modifiers;
    Host()->SendKeyEvent(event);
    event.type = KEYEVENT_KEYUP;
    Host()->SendKeyEvent(event);
  }

  std::vector<std::string> Heard() const { return log_.Only({"key", "console"}); }
};

TEST_F(InputTest, TheClientHearsKeysBeforeThePage) {
  Load(kKeyPage);
  Type('a');
  ASSERT_TRUE(log_.WaitFor("console 2 [keyup a]"));
  std::vector<std::string> heard = log_.Only({"key"});
  EXPECT_THAT(heard, ElementsAre("key down 65 os", "key char 97 os", "key up 65 os"));
  const std::vector<std::string> all = log_.All();
  EXPECT_LT(std::find(all.begin(), all.end(), "key down 65 os"),
            std::find_if(all.begin(), all.end(),
                         [](const std::string& text) { return text.starts_with("console"); }));
}

TEST_F(InputTest, AConsumedKeyAndWhatFollowsFromItDoNotReachThePage) {
  input_->consume_key = [](const CefKeyEvent& event) {
    return event.type == KEYEVENT_RAWKEYDOWN && event.windows_key_code == 'A';
  };
  Load(kKeyPage);
  Type('a');
  Type('b');
  ASSERT_TRUE(log_.WaitFor("console 2 [keyup b]"));
  EXPECT_THAT(log_.Only({"key"}),
              ElementsAre("key down 65 os", "key down 66 os", "key char 98 os", "key up 66 os"));
  EXPECT_THAT(log_.Only({"console 2 [keydown", "console 2 [keypress", "console 2 [keyup"}),
              testing::SizeIs(3));
}

TEST_F(InputTest, KeysKnowWhetherTheyGoToAFieldRightAfterTheClick) {
  Load(std::string(kKeyPage) +
       "<input id=i style='position:absolute;left:10px;top:10px;width:100px'>"
       "<input readonly style='position:absolute;left:10px;top:60px;width:100px'>"
       "<iframe srcdoc='<body style=margin:0><input style=width:100px>'"
       " style='position:absolute;left:10px;top:110px;border:0'></iframe>");
  ASSERT_TRUE(WaitForValue("frames[0].document.readyState", "complete"));
  log_.Clear();
  Click(20, 20);
  Press('1');
  Click(300, 300);
  Press('2');
  Click(20, 120);
  Press('3');
  Click(20, 70);
  Press('4');
  Click(20, 120);
  Press('5');
  ASSERT_TRUE(log_.WaitFor("key up 53"));
  EXPECT_THAT(log_.Only({"key down"}),
              ElementsAre("key down 49 editable", "key down 50", "key down 51 editable",
                          "key down 52", "key down 53 editable"));
  Run("i.focus()");
  ASSERT_EQ(Evaluate("document.activeElement.id"), "i");
  Press('6');
  Press(VK_TAB);
  Press('7');
  ASSERT_TRUE(log_.WaitFor("key up 55"));
  EXPECT_THAT(log_.Only({"key down 54", "key down 55"}),
              ElementsAre("key down 54 editable", "key down 55"));
}

TEST_F(InputTest, KeysAndClicksKeepTheirOrder) {
  Load(
      "<body style='margin:0'><script>let heard = '';"
      "addEventListener('keydown', event => heard += event.key);"
      "addEventListener('mousedown', () => heard += '.');</script>");
  for (int round = 0; round < 5; ++round) {
    Press('A');
    Click(5, 5);
    Press('B');
    Press('C');
  }
  ASSERT_TRUE(log_.WaitUntil([&] { return log_.Only({"key up 67"}).size() == 5; }));
  EXPECT_TRUE(WaitForValue("heard", "a.bca.bca.bca.bca.bc"));
}

TEST_F(InputTest, APageThatHangsDelaysKeysOnlyForAWhile) {
  server_.AddPage("/held", {.body = "", .headers = "", .held = true});
  Load("<body>");
  Run("const request = new XMLHttpRequest(); request.open('GET', '/held', false); request.send()");
  ASSERT_TRUE(server_.WaitForRequest("/held"));
  Press(VK_ESCAPE);
  EXPECT_TRUE(log_.WaitFor("key down 27"));
  EXPECT_TRUE(log_.WaitFor("key up 27"));
  server_.Release();
  EXPECT_EQ(Evaluate("1"), "1");
}

TEST_F(InputTest, AClientMayRefuseTheFocus) {
  input_->refuse_focus = true;
  Load("<body>");
  Host()->SetFocus(true);
  ASSERT_TRUE(log_.WaitFor("set-focus 1"));
  // What is posted behind it finds it done.
  EXPECT_EQ(Evaluate("1"), "1");
  EXPECT_THAT(log_.Only({"got-focus"}), IsEmpty());
  EXPECT_FALSE(client_->First()->GetMainFrame()->IsFocused());
  EXPECT_EQ(client_->First()->GetFocusedFrame(), nullptr);
}

TEST_F(InputTest, TheFocusIsAskedForOnceAndThenGot) {
  Load("<body>");
  Host()->SetFocus(true);
  ASSERT_TRUE(log_.WaitFor("got-focus"));
  EXPECT_THAT(log_.Only({"set-focus", "got-focus"}), ElementsAre("set-focus 1", "got-focus"));
  EXPECT_TRUE(client_->First()->GetMainFrame()->IsFocused());
}

TEST_F(InputTest, TabbingOutOfThePageHandsTheFocusOn) {
  Load("<body><input id=a><button id=b>b</button>");
  Run("a.focus()");
  ASSERT_EQ(Evaluate("document.activeElement.id"), "a");
  Press(VK_TAB);
  ASSERT_TRUE(log_.WaitFor("key up 9"));
  ASSERT_TRUE(WaitForValue("document.activeElement.id", "b"));
  EXPECT_THAT(log_.Only({"take-focus"}), IsEmpty());
  Press(VK_TAB);
  EXPECT_TRUE(log_.WaitFor("take-focus next"));
  Run("a.focus()");
  ASSERT_EQ(Evaluate("document.activeElement.id"), "a");
  Press(VK_TAB, EVENTFLAG_SHIFT_DOWN);
  EXPECT_TRUE(log_.WaitFor("take-focus previous"));
  EXPECT_EQ(log_.Only({"take-focus"}).size(), 2u);
}

TEST_F(InputTest, DraggableRegionsAreReportedAndFollowThePage) {
  Load(
      "<style>#bar { position: absolute; left: 10px; top: 5px; width: 200px; height: 30px;"
      " app-region: drag } #bar b { position: absolute; left: 20px; top: 0; width: 40px;"
      " height: 30px; app-region: no-drag }</style><div id=bar><b></b></div>");
  // The report may have come before the end of the load.
  Run("bar.style.left = '50px'");
  EXPECT_TRUE(log_.WaitFor("regions 50,5,200x30 70,5,40x30-"));
  Run("bar.remove()");
  EXPECT_TRUE(log_.WaitUntil([&] { return log_.All().back() == "regions"; }));
}

// "-1" and 0 mean that there is no limit, as in the browser itself.
TEST_F(InputTest, EmulatedNetworkIsCutOffUntilItIsBackAndNeverThrottledToNothing) {
  server_.Add("/more", "more");
  Load("<body>");
  const auto emulate = [this](bool offline) {
    CefPostTask(TID_UI, CefCreateClosureTask(base::BindOnce(
                            [](CefRefPtr<CefBrowserHost> host, bool cut_off) {
                              CefRefPtr<CefDictionaryValue> params = CefDictionaryValue::Create();
                              params->SetBool("offline", cut_off);
                              params->SetDouble("latency", 0.0);
                              params->SetDouble("downloadThroughput", 0.0);
                              params->SetDouble("uploadThroughput", 0.0);
                              host->ExecuteDevToolsMethod(0, "Network.emulateNetworkConditions",
                                                          params);
                            },
                            Host(), offline)));
  };
  const std::string fetch =
      "fetch('/more?' + Math.random()).then(r => r.text()).then(t => console.log('got ' + t),"
      " () => console.log('failed'))";
  emulate(true);
  ASSERT_TRUE(WaitForValue("navigator.onLine", "false"));
  Run(fetch);
  ASSERT_TRUE(log_.WaitFor("console 2 [failed]"));
  client_->First()->Reload();
  ASSERT_TRUE(log_.WaitFor("error main -106"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  emulate(false);
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/page"));
  ASSERT_TRUE(log_.WaitFor("end main 200"));
  Run(fetch);
  EXPECT_TRUE(log_.WaitFor("console 2 [got "));
}

}  // namespace
}  // namespace cefedition
