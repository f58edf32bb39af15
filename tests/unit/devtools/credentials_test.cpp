#include <gmock/gmock.h>

#include <atomic>

#include "engine_fixture.h"
#include "include/cef_app.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

// "visitor:open sesame" and "visitor:wrong guess".
constexpr char kRight[] = "dmlzaXRvcjpvcGVuIHNlc2FtZQ==";
constexpr char kWrong[] = "dmlzaXRvcjp3cm9uZyBndWVzcw==";

/// Sends the browser through a proxy.
class ProxyApp : public CefApp {
 public:
  explicit ProxyApp(int port) : port_(port) {}
  void OnBeforeCommandLineProcessing(const CefString&,
                                     CefRefPtr<CefCommandLine> command_line) override {
    command_line->AppendSwitchWithValue("proxy-server", "127.0.0.1:" + std::to_string(port_));
    command_line->AppendSwitchWithValue("proxy-bypass-list", "<-loopback>");
  }

 private:
  const int port_;

  IMPLEMENT_REFCOUNTING(ProxyApp);
};

class CredentialsTest : public EngineTest {
 protected:
  /// A page that only shows itself to who knows the password.
  void Guard(const std::string& path, bool is_proxy = false) {
    server_.AddAnswer(path, [is_proxy](const std::string& request) {
      PageServer::Page page;
      const std::string name = is_proxy ? "Proxy-Authorization: Basic " : "Authorization: Basic ";
      if (request.find("\r\n" + name + kRight) != std::string::npos) {
        page.body = "<title>Inside</title>";
        return page;
      }
      page.status = is_proxy ? 407 : 401;
      page.headers = is_proxy ? "Proxy-Authenticate: Basic realm=\"the gate\"\r\n"
                              : "WWW-Authenticate: Basic realm=\"the door\"\r\n";
      page.body = "<title>Outside</title>";
      return page;
    });
  }

  std::string Demand(const std::string& path) const {
    return "credentials server 127.0.0.1:" + std::to_string(server_.port()) + " basic [the door] " +
           server_.Url(path);
  }

  void ExpectNoSecretsInTheLog() {
    StopEngine();
    const std::string log = LogText();
    EXPECT_THAT(log, HasSubstr("Fetch.authRequired"));
    EXPECT_THAT(log, Not(HasSubstr("open sesame")));
    EXPECT_THAT(log, Not(HasSubstr("wrong guess")));
    EXPECT_THAT(log, Not(HasSubstr("visitor")));
    EXPECT_THAT(log, Not(HasSubstr(kRight)));
    EXPECT_THAT(log, Not(HasSubstr(kWrong)));
  }
};

TEST_F(CredentialsTest, ServerGetsWhatTheClientSays) {
  Guard("/door");
  client_->on_credentials = [](const std::string&, auto callback) {
    callback->Continue("visitor", "open sesame");
    return true;
  };
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/door"));
  EXPECT_TRUE(log_.WaitFor("title Inside"));
  EXPECT_THAT(log_.Only({"credentials"}), ElementsAre(Demand("/door")));
  EXPECT_TRUE(log_.WaitFor("end main 200"));
  ExpectNoSecretsInTheLog();
}

TEST_F(CredentialsTest, WrongOnesAreAskedForAgain) {
  Guard("/door");
  std::atomic<int> asked{0};
  client_->on_credentials = [&](const std::string&, auto callback) {
    callback->Continue("visitor", asked++ == 0 ? "wrong guess" : "open sesame");
    return true;
  };
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/door"));
  EXPECT_TRUE(log_.WaitFor("title Inside"));
  EXPECT_EQ(asked, 2);
  ExpectNoSecretsInTheLog();
}

TEST_F(CredentialsTest, ClientThatDoesNotCareSeesTheServersPage) {
  Guard("/door");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/door"));
  EXPECT_TRUE(log_.WaitFor("title Outside"));
  EXPECT_TRUE(log_.WaitFor("end main 401"));
  EXPECT_THAT(log_.Only({"credentials"}), SizeIs(1));
}

TEST_F(CredentialsTest, ClientCancels) {
  Guard("/door");
  client_->on_credentials = [](const std::string&, auto callback) {
    callback->Cancel();
    // Too late.
    callback->Continue("visitor", "open sesame");
    return true;
  };
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/door"));
  EXPECT_TRUE(log_.WaitFor("title Outside"));
}

TEST_F(CredentialsTest, AnswerMayComeLaterFromAnyThread) {
  Guard("/door");
  CefRefPtr<CefAuthCallback> kept;
  client_->on_credentials = [&](const std::string&, auto callback) {
    kept = callback;
    return true;
  };
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/door"));
  ASSERT_TRUE(log_.WaitFor("credentials"));
  EXPECT_THAT(log_.Only({"title"}), IsEmpty());
  kept->Continue("visitor", "open sesame");
  EXPECT_TRUE(log_.WaitFor("title Inside"));
}

TEST_F(CredentialsTest, CallbackThatIsLetGoCancels) {
  Guard("/door");
  client_->on_credentials = [](const std::string&, auto) { return true; };
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/door"));
  EXPECT_TRUE(log_.WaitFor("title Outside"));
}

TEST_F(CredentialsTest, AnswerAfterTheEndIsHarmless) {
  Guard("/door");
  CefRefPtr<CefAuthCallback> kept;
  client_->on_credentials = [&](const std::string&, auto callback) {
    kept = callback;
    return true;
  };
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/door"));
  ASSERT_TRUE(log_.WaitFor("credentials"));
  client_->First()->GetHost()->CloseBrowser(true);
  ASSERT_TRUE(log_.WaitFor("closed"));
  kept->Continue("visitor", "open sesame");
  StopEngine();
  kept->Cancel();
}

TEST_F(CredentialsTest, SubResourcesAskToo) {
  Guard("/door");
  server_.Add("/page", "<script>fetch('/door').then(r => document.title = r.status)</script>");
  client_->on_credentials = [](const std::string&, auto callback) {
    callback->Continue("visitor", "open sesame");
    return true;
  };
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/page"));
  EXPECT_TRUE(log_.WaitFor("title 200"));
  EXPECT_THAT(log_.Only({"credentials"}), ElementsAre(Demand("/door")));
}

TEST_F(CredentialsTest, ProxyIsToldApart) {
  // A proxy is asked for whole URLs.
  Guard("http://somewhere.test/page", /*is_proxy=*/true);
  client_->on_credentials = [](const std::string& demand, auto callback) {
    callback->Continue("visitor", demand.starts_with("proxy ") ? "open sesame" : "wrong guess");
    return true;
  };
  ASSERT_TRUE(StartEngine({}, new ProxyApp(server_.port())));
  CreateBrowser(client_, "http://somewhere.test/page");
  EXPECT_TRUE(log_.WaitFor("title Inside"));
  EXPECT_THAT(log_.Only({"credentials"}),
              ElementsAre("credentials proxy 127.0.0.1:" + std::to_string(server_.port()) +
                          " basic [the gate] http://somewhere.test/page"));
  ExpectNoSecretsInTheLog();
}

TEST_F(CredentialsTest, RefusedProxyShowsItsPage) {
  Guard("http://somewhere.test/page", /*is_proxy=*/true);
  client_->on_credentials = [](const std::string&, auto callback) {
    callback->Cancel();
    return true;
  };
  ASSERT_TRUE(StartEngine({}, new ProxyApp(server_.port())));
  CreateBrowser(client_, "http://somewhere.test/page");
  EXPECT_TRUE(log_.WaitFor("title Outside"));
  EXPECT_TRUE(log_.WaitFor("end main 407"));
}

}  // namespace
}  // namespace cefedition
