#include <gmock/gmock.h>

#include "devtools/process_message_observer.h"
#include "devtools/win_handle.h"
#include "engine_fixture.h"
#include "include/base/cef_bind.h"
#include "include/cef_process_message.h"
#include "include/wrapper/cef_closure_task.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class PageTest : public EngineTest {
 protected:
  /// Starts the engine and loads a page with this body from the server.
  void Load(const std::string& body) {
    server_.Add("/page", body);
    ASSERT_TRUE(StartEngine());
    CreateBrowser(client_, server_.Url("/page"));
    ASSERT_TRUE(log_.WaitFor("idle"));
    log_.Clear();
  }
};

TEST_F(PageTest, ConsoleMessagesCarryLevelSourceAndLine) {
  Load("<body></body>");
  client_->First()->GetMainFrame()->ExecuteJavaScript(
      "console.log('plain', 1, true, null, undefined);\nconsole.warn({}, [1, 'b']);\n"
      "console.error(new TypeError('bad'));\nconsole.debug('fine');",
      "http://host/script.js", 10);
  ASSERT_TRUE(log_.WaitFor("console 1 [fine]"));
  EXPECT_THAT(log_.Only({"console"}),
              ElementsAre("console 2 [plain 1 true null undefined] http://host/script.js:10",
                          "console 3 [[object Object] 1,b] http://host/script.js:11",
                          "console 4 [TypeError: bad] http://host/script.js:12",
                          "console 1 [fine] http://host/script.js:13"));
}

TEST_F(PageTest, ScriptErrorsReachTheConsole) {
  Load("<body></body>");
  client_->First()->GetMainFrame()->ExecuteJavaScript("\nthrow new Error('now')",
                                                      "http://host/s.js", 5);
  Run("setTimeout(() => { throw new Error('later') }, 0)");
  ASSERT_TRUE(log_.WaitFor("console 4 [Uncaught Error: now] http://host/s.js:6"));
  EXPECT_TRUE(log_.WaitFor("console 4 [Uncaught Error: later]"));
}

TEST_F(PageTest, UntakenDialogsNeverHoldThePage) {
  Load("<body></body>");
  Run("alert('a'); console.log('got ' + confirm('c') + ' ' + prompt('p', 'd'))");
  ASSERT_TRUE(log_.WaitFor("console 2 [got false null]"));
  EXPECT_THAT(log_.Only({"dialog"}), ElementsAre("dialog 0 a ", "dialog 1 c ", "dialog 2 p d"));
}

TEST_F(PageTest, TakenDialogsWaitForTheAnswer) {
  client_->take_dialogs = true;
  Load("<body></body>");
  Run("console.log('got ' + prompt('p'))");
  ASSERT_TRUE(log_.WaitFor("dialog 2 p"));
  client_->dialog()->Continue(true, "text");
  EXPECT_TRUE(log_.WaitFor("console 2 [got text]"));
}

TEST_F(PageTest, PageMayBeLeftWithoutAHandler) {
  server_.Add("/next", "<title>next</title>");
  Load("<script>onbeforeunload = e => { e.preventDefault(); return 'x' }</script><body>");
  // Only a page that was used may ask.
  const CefRefPtr<CefBrowserHost> host = client_->First()->GetHost();
  CefMouseEvent event;
  event.x = 10;
  event.y = 10;
  host->SendMouseClickEvent(event, MBT_LEFT, false, 1);
  host->SendMouseClickEvent(event, MBT_LEFT, true, 1);
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/next"));
  ASSERT_TRUE(log_.WaitFor("leaving"));
  EXPECT_TRUE(log_.WaitFor("title next"));
}

TEST_F(PageTest, AllowedPopupBecomesABrowserOfTheSameClient) {
  server_.Add("/popup", "<title>Popup</title>");
  Load("<body></body>");
  Run("window.opened = window.open('/popup', 'name', 'width=300,height=200')");
  ASSERT_TRUE(log_.WaitFor("popup idle"));
  EXPECT_THAT(
      log_.Only({"before-popup", "popup created", "popup start", "popup end"}),
      ElementsAre("before-popup main " + server_.Url("/popup") + " name=name window width=300",
                  "popup created", "popup start main 0x0", "popup end main 200"));
  ASSERT_EQ(client_->Browsers().size(), 2u);
  const CefRefPtr<CefBrowser> popup = client_->Browsers().back();
  EXPECT_TRUE(popup->IsPopup());
  EXPECT_EQ(popup->GetHost()->GetOpenerWindowHandle(),
            client_->First()->GetHost()->GetWindowHandle());
  RECT area;
  GetClientRect(popup->GetHost()->GetWindowHandle(), &area);
  EXPECT_EQ(area.right, 300);
  EXPECT_EQ(area.bottom, 200);
  Run("opened.close()");
  EXPECT_TRUE(log_.WaitFor("popup closed"));
  EXPECT_EQ(Evaluate("opened.closed"), "true");
}

TEST_F(PageTest, RefusedPopupIsNeverLoaded) {
  server_.Add("/popup", "<title>Popup</title>");
  server_.Add("/after", "after");
  client_->cancel_popups = true;
  Load("<a id=link target=_blank href=/popup>x</a>");
  Run("document.getElementById('link').click(); window.open('/popup')");
  ASSERT_TRUE(log_.WaitFor("before-popup"));
  ASSERT_TRUE(log_.WaitFor("before-popup"));
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/after"));
  ASSERT_TRUE(log_.WaitFor("end main 200"));
  EXPECT_EQ(client_->Browsers().size(), 1u);
  EXPECT_THAT(server_.Requests(), testing::Not(testing::Contains("/popup")));
  EXPECT_TRUE(log_.Only({"popup"}).empty());
}

class Recorder : public ProcessMessageObserver {
 public:
  explicit Recorder(EventLog* log) : log_(log) { SetProcessMessageObserver(this); }
  ~Recorder() { SetProcessMessageObserver(nullptr); }
  void OnProcessMessage(CefRefPtr<CefFrame> frame, CefRefPtr<CefProcessMessage> message) override {
    log_->Add("message " + frame->GetIdentifier().ToString() + " " + message->GetName().ToString() +
              " " + message->GetArgumentList()->GetString(0).ToString());
  }

 private:
  EventLog* const log_;
};

TEST_F(PageTest, ProcessMessagesGoToTheObserver) {
  Load("<body></body>");
  Recorder recorder(&log_);
  CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("Hello");
  message->GetArgumentList()->SetString(0, "argument");
  const CefRefPtr<CefFrame> frame = client_->First()->GetMainFrame();
  frame->SendProcessMessage(PID_RENDERER, message);
  frame->SendProcessMessage(PID_BROWSER, message);
  EXPECT_THAT(log_.Only({"message"}),
              ElementsAre("message " + frame->GetIdentifier().ToString() + " Hello argument"));
}

class DevToolsRecorder : public CefDevToolsMessageObserver {
 public:
  explicit DevToolsRecorder(EventLog* log) : log_(log) {}
  void OnDevToolsMethodResult(CefRefPtr<CefBrowser>,
                              int message_id,
                              bool success,
                              const void* result,
                              size_t result_size) override {
    log_->Add("result " + std::to_string(message_id) + (success ? " ok " : " failed ") +
              std::string(static_cast<const char*>(result), result_size));
  }
  void OnDevToolsEvent(CefRefPtr<CefBrowser>,
                       const CefString& method,
                       const void*,
                       size_t) override {
    log_->Add("event " + method.ToString());
  }

 private:
  EventLog* const log_;
  IMPLEMENT_REFCOUNTING(DevToolsRecorder);
};

TEST_F(PageTest, DevToolsMethodsArePassedThrough) {
  Load("<body></body>");
  const CefRefPtr<CefBrowserHost> host = client_->First()->GetHost();
  CefRefPtr<CefRegistration> registration =
      host->AddDevToolsMessageObserver(new DevToolsRecorder(&log_));
  const std::string message =
      R"({"id":41,"method":"Runtime.evaluate","params":{"expression":"6*7"}})";
  EXPECT_TRUE(host->SendDevToolsMessage(message.data(), message.size()));
  EXPECT_FALSE(host->SendDevToolsMessage("{", 1));
  ASSERT_TRUE(log_.WaitFor("result 41 ok"));
  EXPECT_THAT(log_.Only({"result"}).front(), HasSubstr("\"value\":42"));
  // Only what the client itself has enabled is heard.
  EXPECT_TRUE(log_.Only({"event"}).empty());
  EXPECT_EQ(host->ExecuteDevToolsMethod(0, "Page.enable", nullptr), 0) << "not the UI thread";
  CefPostTask(TID_UI, CefCreateClosureTask(base::BindOnce(
                          [](CefRefPtr<CefBrowserHost> on, EventLog* log) {
                            CefRefPtr<CefDictionaryValue> params = CefDictionaryValue::Create();
                            params->SetBool("offline", true);
                            params->SetInt("latency", 0);
                            params->SetInt("downloadThroughput", -1);
                            params->SetInt("uploadThroughput", -1);
                            log->Add("id " + std::to_string(on->ExecuteDevToolsMethod(
                                                 0, "Network.emulateNetworkConditions", params)));
                            on->ExecuteDevToolsMethod(77, "No.suchMethod", nullptr);
                          },
                          host, &log_)));
  ASSERT_TRUE(log_.WaitFor("id 1"));
  ASSERT_TRUE(log_.WaitFor("result 1 ok"));
  ASSERT_TRUE(log_.WaitFor("result 77 failed"));
  EXPECT_EQ(Evaluate("navigator.onLine"), "false");
  registration = nullptr;
  EXPECT_TRUE(host->SendDevToolsMessage(message.data(), message.size()));
  EXPECT_EQ(Evaluate("1"), "1");
  EXPECT_EQ(log_.Only({"result 41"}).size(), 1u);
}

class ImageRecorder : public CefDownloadImageCallback {
 public:
  explicit ImageRecorder(EventLog* log) : log_(log) {}
  void OnDownloadImageFinished(const CefString& image_url,
                               int http_status_code,
                               CefRefPtr<CefImage> image) override {
    log_->Add("image " + image_url.ToString() + " " + std::to_string(http_status_code) + " " +
              (image ? std::to_string(image->GetWidth()) + "x" + std::to_string(image->GetHeight())
                     : "none"));
  }

 private:
  EventLog* const log_;
  IMPLEMENT_REFCOUNTING(ImageRecorder);
};

TEST_F(PageTest, ImagesAreDownloadedWithTheirStatus) {
  Load("<script>document.cookie = 'who=me'</script>");
  const CefRefPtr<CefBrowserHost> host = client_->First()->GetHost();
  PageServer::Page broken;
  broken.body = "not a picture";
  broken.content_type = "image/png";
  server_.AddPage("/broken.png", broken);
  const std::string small =
      "data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9Q"
      "DwADhgGAWjR9awAAAABJRU5ErkJggg==";
  CefRefPtr<CefDownloadImageCallback> recorder = new ImageRecorder(&log_);
  host->DownloadImage(server_.Url("/missing.png"), false, 0, true, recorder);
  ASSERT_TRUE(log_.WaitFor("image " + server_.Url("/missing.png") + " 404 none"));
  host->DownloadImage(server_.Url("/broken.png"), false, 0, true, recorder);
  ASSERT_TRUE(log_.WaitFor("image " + server_.Url("/broken.png") + " 200 none"));
  EXPECT_THAT(server_.RequestText("/broken.png"), HasSubstr("Cookie: who=me"));
  host->DownloadImage(small, false, 0, false, recorder);
  ASSERT_TRUE(log_.WaitFor("image data:"));
  EXPECT_THAT(log_.Only({"image data:"}).front(), testing::EndsWith(" 0 1x1"));
}

// Whether a point of the window turns green within 15 s. Painting raises no event here, so the
// point is looked at until it does.
bool BecomesGreen(HWND window, int x, int y) {
  const auto is_green = [=] {
    HDC dc = GetDC(window);
    const COLORREF color = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return color == RGB(0, 255, 0);
  };
  const ULONGLONG deadline = GetTickCount64() + 15'000;
  while (!is_green() && GetTickCount64() < deadline) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      DispatchMessageW(&message);
    }
  }
  return is_green();
}

TEST_F(PageTest, PageIsPaintedAndFollowsTheWindowsSize) {
  Load("<body style='margin:0;background:#00ff00'>");
  const HWND view = client_->First()->GetHost()->GetWindowHandle();
  EXPECT_TRUE(BecomesGreen(view, 100, 100));
  SetWindowPos(GetParent(view), nullptr, 0, 0, 800, 600, SWP_NOZORDER);
  SetWindowPos(view, nullptr, 0, 0, 700, 500, SWP_NOZORDER);
  Run("if (innerWidth == 700) console.log('wide'); else onresize = () => { if (innerWidth == 700) "
      "console.log('wide') }");
  EXPECT_TRUE(log_.WaitFor("console 2 [wide]"));
  EXPECT_TRUE(BecomesGreen(view, 690, 490));
}

// The browser drops frames while earlier ones are not acknowledged, and sends none of a page that
// rests.
TEST_F(PageTest, LastPaintingIsShownThoughTheUiThreadWasBusyMeanwhile) {
  server_.Add("/done", "");
  Load("<body style='margin:0;background:#ff0000'>");
  const UniqueHandle release(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  Run("let step = 0;"
      "const change = () => {"
      "  const last = ++step == 40;"
      "  document.body.style.background = last ? '#00ff00' : `rgb(255, 0, ${step})`;"
      "  if (last) setTimeout(() => fetch('/done'), 200); else setTimeout(change, 20);"
      "};"
      "setTimeout(change, 300);"
      "console.log('begun')");
  ASSERT_TRUE(log_.WaitFor("console 2 [begun]"));
  ASSERT_TRUE(CefPostTask(
      TID_UI, CefCreateClosureTask(base::BindOnce(
                  [](HANDLE until) { WaitForSingleObject(until, 60'000); }, release.get()))));
  ASSERT_TRUE(server_.WaitForRequest("/done"));
  SetEvent(release.get());
  EXPECT_TRUE(BecomesGreen(client_->First()->GetHost()->GetWindowHandle(), 100, 100));
}

TEST_F(PageTest, TextAndSourceAreVisited) {
  Load("<p>some text</p>");
  class Visitor : public CefStringVisitor {
   public:
    explicit Visitor(EventLog* log) : log_(log) {}
    void Visit(const CefString& string) override { log_->Add("text " + string.ToString()); }

   private:
    EventLog* const log_;
    IMPLEMENT_REFCOUNTING(Visitor);
  };
  client_->First()->GetMainFrame()->GetText(new Visitor(&log_));
  ASSERT_TRUE(log_.WaitFor("text some text"));
  client_->First()->GetMainFrame()->GetSource(new Visitor(&log_));
  ASSERT_TRUE(log_.WaitFor("text <html>"));
}

}  // namespace
}  // namespace cefedition
