#include <gmock/gmock.h>

#include "devtools/certificate_errors.h"
#include "engine_fixture.h"
#include "include/cef_app.h"
#include "tls_server.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::Gt;
using testing::IsEmpty;
using testing::SizeIs;

constexpr char kSite[] = "https://selfsigned.test";
constexpr char kRefused[] = "error main -202 ERR_CERT_AUTHORITY_INVALID ";

class TlsApp : public CefApp {
 public:
  TlsApp(std::string rule, bool ignore_errors) : rule_(std::move(rule)), ignore_(ignore_errors) {}
  void OnBeforeCommandLineProcessing(const CefString&,
                                     CefRefPtr<CefCommandLine> command_line) override {
    command_line->AppendSwitchWithValue("host-resolver-rules", rule_);
    if (ignore_) {
      command_line->AppendSwitch("ignore-certificate-errors");
    }
  }

 private:
  const std::string rule_;
  const bool ignore_;

  IMPLEMENT_REFCOUNTING(TlsApp);
};

class CertificateTest : public EngineTest {
 protected:
  bool Start(bool ignore_errors = false) {
    return tls_.IsRunning() && StartEngine({}, new TlsApp(tls_.Rule(), ignore_errors));
  }

  static std::string Url(const std::string& path) { return kSite + path; }

  TlsServer tls_;
};

TEST_F(CertificateTest, WithoutAnAnswerTheServerIsRefused) {
  ASSERT_TRUE(Start());
  CreateBrowser(client_, Url("/page"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"certificate", "error", "title"}),
              ElementsAre("certificate -202 " + Url("/page"), kRefused + Url("/page")));
}

TEST_F(CertificateTest, PagesNavigationIsRefusedAlike) {
  server_.Add("/start", "<title>Start</title>");
  ASSERT_TRUE(Start());
  CreateBrowser(client_, server_.Url("/start"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  Run("location.href = '" + Url("/page") + "'");
  ASSERT_TRUE(log_.WaitFor("error"));
  EXPECT_THAT(log_.Only({"error"}), ElementsAre(kRefused + Url("/page")));
  // It stays the page that it was.
  EXPECT_EQ(Evaluate("document.title"), "Start");
}

TEST_F(CertificateTest, ClientAccepts) {
  client_->on_certificate = [](cef_errorcode_t, auto ssl_info, auto callback) {
    EXPECT_EQ(ssl_info->GetCertStatus(), CERT_STATUS_AUTHORITY_INVALID);
    EXPECT_TRUE(CefIsCertStatusError(ssl_info->GetCertStatus()));
    EXPECT_FALSE(ssl_info->GetX509Certificate());
    callback->Continue();
    return true;
  };
  ASSERT_TRUE(Start());
  CreateBrowser(client_, Url("/page"));
  EXPECT_TRUE(log_.WaitFor("title Secure /page"));
  EXPECT_THAT(log_.Only({"error"}), IsEmpty());
}

TEST_F(CertificateTest, AnswerMayComeLaterFromAnyThread) {
  CefRefPtr<CefCallback> kept;
  client_->on_certificate = [&](cef_errorcode_t, auto, auto callback) {
    kept = callback;
    return true;
  };
  ASSERT_TRUE(Start());
  CreateBrowser(client_, Url("/page"));
  ASSERT_TRUE(log_.WaitFor("certificate"));
  EXPECT_THAT(log_.Only({"error", "title"}), IsEmpty());
  kept->Continue();
  EXPECT_TRUE(log_.WaitFor("title Secure /page"));
  kept->Cancel();
}

TEST_F(CertificateTest, CancelledAndForgottenCallbacksRefuse) {
  bool cancel = true;
  client_->on_certificate = [&](cef_errorcode_t, auto, auto callback) {
    if (cancel) {
      callback->Cancel();
    }
    return true;
  };
  ASSERT_TRUE(Start());
  CreateBrowser(client_, Url("/one"));
  ASSERT_TRUE(log_.WaitFor(kRefused + Url("/one")));
  cancel = false;
  client_->First()->GetMainFrame()->LoadURL(Url("/two"));
  ASSERT_TRUE(log_.WaitFor(kRefused + Url("/two")));
}

TEST_F(CertificateTest, AcceptedOnceIsNotAcceptedForGood) {
  bool accept = true;
  client_->on_certificate = [&](cef_errorcode_t, auto, auto callback) {
    if (accept) {
      callback->Continue();
    }
    return true;
  };
  ASSERT_TRUE(Start());
  CreateBrowser(client_, Url("/one"));
  ASSERT_TRUE(log_.WaitFor("title Secure /one"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  accept = false;
  client_->First()->GetMainFrame()->LoadURL(Url("/two"));
  EXPECT_TRUE(log_.WaitFor(kRefused + Url("/two")));
}

TEST_F(CertificateTest, SubResourcesAskToo) {
  server_.Add("/start",
              "<img src='" + Url("/picture.svg") +
                  "' onload='document.title = \"shown\"' onerror='document.title = \"missing\"'>");
  client_->on_certificate = [](cef_errorcode_t, auto, auto callback) {
    callback->Continue();
    return true;
  };
  ASSERT_TRUE(Start());
  CreateBrowser(client_, server_.Url("/start"));
  EXPECT_TRUE(log_.WaitFor("title shown"));
  EXPECT_THAT(log_.Only({"certificate"}), ElementsAre("certificate -202 " + Url("/picture.svg")));
}

TEST_F(CertificateTest, RefusedSubResourceLeavesThePage) {
  server_.Add("/start",
              "<img src='" + Url("/picture.svg") +
                  "' onload='document.title = \"shown\"' onerror='document.title = \"missing\"'>");
  ASSERT_TRUE(Start());
  CreateBrowser(client_, server_.Url("/start"));
  EXPECT_TRUE(log_.WaitFor("title missing"));
  EXPECT_THAT(log_.Only({"certificate"}), SizeIs(Gt(0u)));
  EXPECT_THAT(log_.Only({"error"}), IsEmpty());
}

TEST_F(CertificateTest, SwitchAcceptsWithoutAsking) {
  ASSERT_TRUE(Start(/*ignore_errors=*/true));
  CreateBrowser(client_, Url("/page"));
  EXPECT_TRUE(log_.WaitFor("title Secure /page"));
  EXPECT_THAT(log_.Only({"certificate"}), IsEmpty());
}

TEST_F(CertificateTest, AnswerAfterTheEndIsHarmless) {
  CefRefPtr<CefCallback> kept;
  client_->on_certificate = [&](cef_errorcode_t, auto, auto callback) {
    kept = callback;
    return true;
  };
  ASSERT_TRUE(Start());
  CreateBrowser(client_, Url("/page"));
  ASSERT_TRUE(log_.WaitFor("certificate"));
  client_->First()->GetHost()->CloseBrowser(true);
  ASSERT_TRUE(log_.WaitFor("closed"));
  kept->Continue();
  StopEngine();
  kept = nullptr;
}

}  // namespace
}  // namespace cefedition
