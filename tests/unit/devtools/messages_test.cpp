#include <gmock/gmock.h>

#include "devtools/engine.h"
#include "engine_fixture.h"
#include "messages_client.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MessagesTest : public EngineTest {
 protected:
  MessagesTest() : messages_(new MessagesClient(&log_)) { client_ = messages_; }

  void Load(const std::string& body) {
    server_.Add("/page", body);
    ASSERT_TRUE(StartEngine());
    CreateBrowser(client_, server_.Url("/page"));
    // What the page asked while it loaded is still to be waited for.
    ASSERT_TRUE(log_.WaitUntil([&] { return !log_.Only({"idle"}).empty(); }));
  }

  /// What `code` throws.
  std::string Thrown(const std::string& code) {
    return Evaluate("(() => { try { " + code + "; return 'nothing' } catch (e) { return e } })()");
  }
  bool WaitForConsole(const std::string& text) { return log_.WaitFor("console 2 [" + text + "]"); }
  std::vector<std::string> Focus() const { return log_.Only({"message"}); }

  const CefRefPtr<MessagesClient> messages_;
};

// Asks and tells the console of the answer.
constexpr char kAsk[] =
    "<script>const ask = (request, persistent = false) => cefQuery({request, persistent,"
    " onSuccess: r => console.log('ok ' + r),"
    " onFailure: (code, text) => console.log('failed ' + code + ' ' + text)});</script>";

TEST_F(MessagesTest, AQueryIsAnsweredOnce) {
  Load(std::string(kAsk) + "<script>console.log('id ' + ask('echo \\u00fc\"\\n\\u2028'))</script>");
  ASSERT_TRUE(WaitForConsole("id 1"));
  ASSERT_TRUE(WaitForConsole("ok \xc3\xbc\"\n\xe2\x80\xa8"));
  Run("console.log('id ' + ask('fail no'))");
  ASSERT_TRUE(WaitForConsole("id 2"));
  ASSERT_TRUE(WaitForConsole("failed 42 no"));
  Run("ask('keep')");
  ASSERT_TRUE(log_.WaitFor("query main keep"));
  messages_->Answer("keep", true, "first");
  messages_->Answer("keep", true, "second");
  ASSERT_TRUE(WaitForConsole("ok first"));
  EXPECT_EQ(Evaluate("1"), "1");
  EXPECT_THAT(log_.Only({"console 2 [ok second"}), IsEmpty());
}

TEST_F(MessagesTest, AQueryThatNobodyTakesFails) {
  Load(std::string(kAsk) + "<script>ask('unknown')</script>");
  EXPECT_TRUE(WaitForConsole("failed -1 The query has been canceled"));
}

TEST_F(MessagesTest, PersistentQueriesAreAnsweredUntilTheyFail) {
  Load(std::string(kAsk) + "<script>ask('keep', true)</script>");
  ASSERT_TRUE(log_.WaitFor("query main keep persistent"));
  messages_->Answer("keep", true, "1");
  ASSERT_TRUE(WaitForConsole("ok 1"));
  messages_->Answer("keep", true, "2");
  ASSERT_TRUE(WaitForConsole("ok 2"));
  messages_->Answer("keep", false, "end");
  ASSERT_TRUE(WaitForConsole("failed 5 end"));
  messages_->Answer("keep", true, "3");
  EXPECT_EQ(Evaluate("1"), "1");
  EXPECT_THAT(log_.Only({"console 2 [ok 3"}), IsEmpty());
}

TEST_F(MessagesTest, ThePageCancelsItsQueries) {
  Load(std::string(kAsk) + "<script>const id = ask('keep', true)</script>");
  ASSERT_TRUE(log_.WaitFor("query main keep persistent"));
  EXPECT_EQ(Evaluate("cefQueryCancel(id) + ' ' + cefQueryCancel(id) + ' ' + cefQueryCancel(0)"),
            "true false false");
  ASSERT_TRUE(log_.WaitUntil([&] { return !log_.Only({"canceled keep"}).empty(); }));
  messages_->Answer("keep", true, "late");
  EXPECT_EQ(Evaluate("1"), "1");
  EXPECT_THAT(log_.Only({"console 2 [ok"}), IsEmpty());
}

TEST_F(MessagesTest, QueriesEndWithTheirDocumentFrameAndBrowser) {
  server_.Add("/frame", std::string(kAsk) + "<script>ask('keep frame')</script>");
  server_.Add("/frame2", std::string(kAsk) + "<script>ask('keep frame2')</script>");
  Load(std::string(kAsk) + "<iframe id=f src=/frame></iframe><script>ask('keep page')</script>");
  ASSERT_TRUE(log_.WaitUntil([&] { return log_.Only({"query"}).size() == 2; }));
  EXPECT_THAT(log_.Only({"query sub"}), ElementsAre("query sub keep frame"));
  Run("f.src = '/frame2'");
  ASSERT_TRUE(log_.WaitFor("canceled keep frame"));
  ASSERT_TRUE(log_.WaitFor("query sub keep frame2"));
  Run("f.remove()");
  ASSERT_TRUE(log_.WaitFor("canceled keep frame2"));
  EXPECT_THAT(log_.Only({"canceled keep page"}), IsEmpty());
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/frame"));
  ASSERT_TRUE(log_.WaitFor("canceled keep page"));
  ASSERT_TRUE(log_.WaitFor("query main keep frame"));
  client_->First()->GetHost()->CloseBrowser(true);
  ASSERT_TRUE(log_.WaitFor("canceled keep frame"));
  EXPECT_TRUE(log_.WaitFor("closed"));
}

TEST_F(MessagesTest, EveryFrameHasTheFunctionsFromTheStart) {
  Load(
      "<script>console.log('first ' + typeof cefQuery + ' ' + typeof cefQueryCancel)</script>"
      "<iframe srcdoc=\"<script>cefQuery({request: 'echo in', onSuccess: r => console.log(r)})"
      "</script>\"></iframe>"
      "<script>const made = document.createElement('iframe'); document.body.append(made);"
      "made.contentWindow.cefQuery({request: 'echo made', onSuccess: r => console.log(r)})"
      "</script>");
  ASSERT_TRUE(log_.WaitUntil([&] { return log_.Only({"query sub"}).size() == 2; }));
  EXPECT_TRUE(log_.WaitUntil([&] {
    return log_.Only({"console 2 [in]", "console 2 [made]", "console 2 [first function function]"})
               .size() == 3;
  }));
}

TEST_F(MessagesTest, BytesTravelBothWays) {
  Load("<body></body>");
  Run("cefQuery({request: new Uint8Array([1, 2, 255, 0]).buffer, onSuccess: r =>"
      " console.log((r instanceof ArrayBuffer) + ' ' + new Uint8Array(r))})");
  ASSERT_TRUE(WaitForConsole("true 0,255,2,1"));
  Run("cefQuery({request: new ArrayBuffer(1000000), onSuccess: r => console.log(r.byteLength)})");
  ASSERT_TRUE(WaitForConsole("1000000"));
  EXPECT_THAT(log_.Only({"bytes"}), ElementsAre("bytes 4", "bytes 1000000"));
  // The values of the messages hold no bytes of length 0.
  Run("cefQuery({request: new ArrayBuffer(0)})");
  EXPECT_TRUE(log_.WaitFor("query main "));
}

TEST_F(MessagesTest, BadArgumentsThrowWithTheRoutersTexts) {
  Load("<body></body>");
  const std::string invalid = "Error: Invalid arguments; ";
  const std::string object = invalid + "expecting a single object";
  for (const char* code : {"cefQuery()", "cefQuery(1)", "cefQuery(null)", "cefQuery({}, {})"}) {
    EXPECT_EQ(Thrown(code), object) << code;
  }
  const std::string request = invalid + "object member 'request' ";
  EXPECT_EQ(Thrown("cefQuery({})"), request + "must have type string or ArrayBuffer");
  EXPECT_EQ(Thrown("cefQuery({request: new Uint8Array(1)})"),
            request + "must have type string or ArrayBuffer");
  EXPECT_EQ(Thrown("cefQuery({get request() { throw 1 }})"), request + "is required");
  EXPECT_EQ(Thrown("cefQuery({request: '', onSuccess: 1})"),
            invalid + "object member 'onSuccess' must have type function");
  EXPECT_EQ(Thrown("cefQuery({request: '', onFailure: null})"),
            invalid + "object member 'onFailure' must have type function");
  EXPECT_EQ(Thrown("cefQuery({request: '', persistent: 1})"),
            invalid + "object member 'persistent' must have type boolean");
  const std::string integer = invalid + "expecting a single integer";
  for (const char* code : {"cefQueryCancel()", "cefQueryCancel('1')", "cefQueryCancel(1.5)",
                           "cefQueryCancel(1, 2)", "cefQueryCancel(4294967296)"}) {
    EXPECT_EQ(Thrown(code), integer) << code;
  }
  EXPECT_EQ(Thrown("cefQuery({request: ''})"), "nothing");
}

TEST_F(MessagesTest, ThePageNeitherSeesNorBreaksTheWay) {
  Load(
      "<script>"
      "const own = Object.getOwnPropertyNames(window).filter(n => /^b[0-9a-f]{32}$/.test(n));"
      "const seen = [];"
      "Array.prototype[Symbol.iterator] = function*() { seen.push(this) };"
      "JSON.stringify = JSON.parse = Reflect.apply = window.btoa = window.atob = null;"
      "Object.prototype.toJSON = () => 'broken'; String.prototype.toWellFormed = null;"
      "Map.prototype.get = window.queueMicrotask = String.fromCharCode = null;"
      "window.cefQuery = v => seen.push(v); delete window.cefQuery;"
      "cefQuery({request: 'echo fine', onSuccess: r => console.log(r)});"
      "cefQuery({request: new ArrayBuffer(3), onSuccess: r => console.log(r.byteLength)});"
      "</script>");
  ASSERT_TRUE(WaitForConsole("fine"));
  ASSERT_TRUE(WaitForConsole("3"));
  EXPECT_EQ(Evaluate("own.length + ' ' + seen.length + ' ' + Object.keys(window).includes"
                     "('cefQuery') + ' ' + cefQuery.name + ' ' + cefQuery"),
            "0 0 false cefQuery function () { [native code] }");
}

TEST_F(MessagesTest, WhatACallbackThrowsIsThePagesError) {
  Load(
      "<script>cefQuery({request: 'echo x', onSuccess: () => { throw new Error('mine') }})"
      "</script>");
  EXPECT_TRUE(log_.WaitFor("console 4 [Uncaught Error: mine]"));
}

TEST_F(MessagesTest, PopupsAskToo) {
  server_.Add("/popup", std::string(kAsk) + "<script>ask('echo popup')</script>");
  Load("<body></body>");
  Run("window.open('/popup')");
  EXPECT_TRUE(log_.WaitFor("popup console 2 [ok popup]"));
}

const std::string kEditable = "message ClientRenderer.FocusedNodeChanged true ";
const std::string kNotEditable = "message ClientRenderer.FocusedNodeChanged false ";

TEST_F(MessagesTest, TheClientHearsWhetherOneCanWriteInTheFocusedNode) {
  Load(
      "<input id=i><input id=c type=checkbox><input id=r readonly><input id=p type=password>"
      "<input id=d type=date><textarea id=t></textarea><button id=b>b</button>"
      "<div id=e contenteditable>e</div><div id=n tabindex=0>n</div>"
      "<div id=x role=textbox tabindex=0>x</div>");
  for (const char* id : {"i", "c", "t", "b", "e", "n", "x", "r", "p", "d"}) {
    Run(std::string("document.getElementById('") + id + "').focus()");
  }
  EXPECT_EQ(Evaluate("1"), "1");
  EXPECT_THAT(Focus(), ElementsAre(kEditable + "main", kNotEditable + "main", kEditable + "main",
                                   kNotEditable + "main", kEditable + "main", kNotEditable + "main",
                                   kEditable + "main", kNotEditable + "main", kEditable + "main",
                                   kNotEditable + "main"));
}

TEST_F(MessagesTest, LosingTheFocusIsAChangeAndKeepingItIsNone) {
  Load("<input id=i><input id=j>");
  Run("i.focus(); i.focus(); i.select()");
  ASSERT_TRUE(log_.WaitFor(kEditable + "main"));
  Run("i.blur()");
  ASSERT_TRUE(log_.WaitFor(kNotEditable + "main"));
  Run("j.focus()");
  ASSERT_TRUE(log_.WaitFor(kEditable + "main"));
  Run("j.remove()");
  ASSERT_TRUE(log_.WaitFor(kNotEditable + "main"));
  EXPECT_EQ(Focus().size(), 4u);
}

TEST_F(MessagesTest, FocusIsReportedFromFramesShadowTreesAndNewDocuments) {
  server_.Add("/next", "<input id=next autofocus>");
  Load(
      "<input id=i><iframe id=f srcdoc='<textarea></textarea>'></iframe><div id=h></div>"
      "<script>h.attachShadow({mode: 'open'}).innerHTML = '<input>'</script>");
  Run("i.focus(); f.contentDocument.querySelector('textarea').focus()");
  ASSERT_TRUE(log_.WaitFor(kEditable + "main"));
  ASSERT_TRUE(log_.WaitFor(kEditable + "sub"));
  Run("h.shadowRoot.querySelector('input').focus()");
  ASSERT_TRUE(log_.WaitFor(kEditable + "main"));
  EXPECT_EQ(Focus().back(), kEditable + "main");
  log_.Clear();
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/next"));
  EXPECT_TRUE(log_.WaitFor(kEditable + "main"));
}

}  // namespace
}  // namespace cefedition
