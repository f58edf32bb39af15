#include <gmock/gmock.h>

#include "devtools/text.h"
#include "engine_fixture.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class InspectorTest : public EngineTest {
 protected:
  InspectorTest() : tools_(new RecordingClient(&log_, "tools ")) {}

  void Load(const std::string& path, const std::string& body) {
    server_.Add(path, body);
    CreateBrowser(client_, server_.Url(path));
    ASSERT_TRUE(log_.WaitFor("end main"));
    ASSERT_TRUE(log_.WaitFor("idle"));
  }

  void Show(CefRefPtr<CefBrowser> browser, CefPoint point = {}) {
    CefWindowInfo info;
    info.SetAsPopup(nullptr, "Tools");
    browser->GetHost()->ShowDevTools(info, tools_, CefBrowserSettings(), point);
  }

  /// Whether the source of the tools' window holds a text now.
  bool HasText(CefRefPtr<CefBrowser> window, const std::string& text) {
    class Visitor : public CefStringVisitor {
     public:
      Visitor(EventLog* log, std::string wanted) : log_(log), wanted_(std::move(wanted)) {}
      void Visit(const CefString& string) override {
        log_->Add(string.ToString().find(wanted_) != std::string::npos ? "text there"
                                                                       : "text missing");
      }

     private:
      EventLog* const log_;
      const std::string wanted_;
      IMPLEMENT_REFCOUNTING(Visitor);
    };
    const size_t before = log_.Only({"text "}).size();
    window->GetMainFrame()->GetSource(new Visitor(&log_, text));
    return log_.WaitUntil([&] { return log_.Only({"text "}).size() > before; }) &&
           log_.Only({"text "}).back() == "text there";
  }
  bool WaitForText(CefRefPtr<CefBrowser> window, const std::string& text) {
    const ULONGLONG deadline = GetTickCount64() + 15'000;
    while (!HasText(window, text)) {
      if (GetTickCount64() >= deadline) {
        return false;
      }
    }
    return true;
  }

  const CefRefPtr<RecordingClient> tools_;
};

TEST_F(InspectorTest, AWindowInspectsTheRightOneOfTwoPages) {
  ASSERT_TRUE(StartEngine());
  Load("/one", "<title>One</title><p id=first>first");
  Load("/two", "<title>Two</title><p id=second>second");
  const CefRefPtr<CefBrowser> one = client_->Browsers().front();
  const CefRefPtr<CefBrowser> two = client_->Browsers().back();
  EXPECT_FALSE(two->GetHost()->HasDevTools());
  Show(two);
  ASSERT_TRUE(log_.WaitFor("tools popup created"));
  EXPECT_TRUE(two->GetHost()->HasDevTools());
  EXPECT_FALSE(one->GetHost()->HasDevTools());
  const CefRefPtr<CefBrowser> window = tools_->First();
  EXPECT_TRUE(window->IsPopup());
  EXPECT_EQ(window->GetHost()->GetOpenerWindowHandle(), two->GetHost()->GetWindowHandle());
  EXPECT_TRUE(WaitForText(window, server_.Url("/two")));
  EXPECT_TRUE(WaitForText(window, ">second<"));
  EXPECT_FALSE(HasText(window, ">first<"));
  two->GetHost()->CloseDevTools();
  ASSERT_TRUE(log_.WaitFor("tools popup closed"));
  EXPECT_FALSE(two->GetHost()->HasDevTools());
  EXPECT_EQ(client_->Browsers().size(), 2u);
}

TEST_F(InspectorTest, ANodeCanBeChosenByItsPlace) {
  ASSERT_TRUE(StartEngine());
  Load("/page",
       "<body style='margin:0'><div><div><div><div><p id=deep style='position:absolute;"
       "left:50px;top:100px;width:50px;height:50px'>");
  Show(client_->First(), CefPoint(60, 120));
  ASSERT_TRUE(log_.WaitFor("tools popup created"));
  const std::string chosen = "class=\"node chosen\"";
  EXPECT_TRUE(WaitForText(tools_->First(), chosen));
  tools_->First()->GetMainFrame()->ExecuteJavaScript(
      "console.log(document.querySelector('.chosen').textContent)", CefString(), 1);
  ASSERT_TRUE(log_.WaitFor("tools popup console 2"));
  EXPECT_THAT(log_.Only({"tools popup console"}).front(), HasSubstr("id=\"deep\""));
}

TEST_F(InspectorTest, ASecondCallUsesTheWindowThatIsThere) {
  ASSERT_TRUE(StartEngine());
  Load("/page", "<p>text");
  Show(client_->First());
  ASSERT_TRUE(log_.WaitFor("tools popup created"));
  Show(client_->First(), CefPoint(10, 20));
  EXPECT_TRUE(WaitForText(tools_->First(), "class=\"node chosen\""));
  EXPECT_EQ(tools_->Browsers().size(), 1u);
}

TEST_F(InspectorTest, TheInspectedBrowserTakesItsToolsWithIt) {
  ASSERT_TRUE(StartEngine());
  Load("/page", "<p>text");
  Show(client_->First());
  ASSERT_TRUE(log_.WaitFor("tools popup created"));
  ASSERT_TRUE(WaitForText(tools_->First(), server_.Url("/page")));
  client_->First()->GetHost()->CloseBrowser(true);
  ASSERT_TRUE(log_.WaitFor("closed"));
  EXPECT_THAT(log_.Only({"tools popup closed", "closed"}),
              ElementsAre("tools popup closed", "closed"));
}

TEST_F(InspectorTest, TheUserMayCloseTheWindowAndOpenAnother) {
  ASSERT_TRUE(StartEngine());
  Load("/page", "<p>text");
  Show(client_->First());
  ASSERT_TRUE(log_.WaitFor("tools popup created"));
  PostMessageW(tools_->First()->GetHost()->GetWindowHandle(), WM_CLOSE, 0, 0);
  ASSERT_TRUE(log_.WaitFor("tools popup closed"));
  EXPECT_FALSE(client_->First()->GetHost()->HasDevTools());
  Show(client_->First());
  ASSERT_TRUE(log_.WaitFor("tools popup created"));
  EXPECT_TRUE(WaitForText(tools_->First(), server_.Url("/page")));
}

TEST_F(InspectorTest, ADefaultWindowIsATopLevelOneWithoutAClient) {
  ASSERT_TRUE(StartEngine());
  Load("/page", "<p>text");
  client_->First()->GetHost()->ShowDevTools(CefWindowInfo(), nullptr, CefBrowserSettings(),
                                            CefPoint());
  HWND window = nullptr;
  ASSERT_TRUE(log_.WaitUntil([&] {
    // No event tells of another thread's window.
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    window = FindWindowW(nullptr, Utf8ToWide("DevTools - " + server_.Url("/page")).c_str());
    return window != nullptr;
  }));
  EXPECT_TRUE(IsWindowVisible(window));
  EXPECT_EQ(GetAncestor(window, GA_ROOT), window);
  StopEngine();
  EXPECT_FALSE(IsWindow(window));
}

// Whoever leads the window elsewhere does not get the inspected page with it.
TEST_F(InspectorTest, AnotherPageInTheWindowControlsNothing) {
  server_.Add("/other",
              "<script>cefeditionInspector(JSON.stringify({id: 1,"
              " method: 'Runtime.evaluate', params: {expression: 'document.title = 1'}}));"
              "console.log('sent')</script>");
  ASSERT_TRUE(StartEngine());
  Load("/page", "<title>mine</title>");
  Show(client_->First());
  ASSERT_TRUE(log_.WaitFor("tools popup created"));
  ASSERT_TRUE(WaitForText(tools_->First(), server_.Url("/page")));
  tools_->First()->GetMainFrame()->LoadURL(server_.Url("/other"));
  ASSERT_TRUE(log_.WaitFor("tools popup console 2 [sent]"));
  EXPECT_EQ(Evaluate("document.title"), "mine");
}

}  // namespace
}  // namespace cefedition
