// What the engine is answered where the client leaves something to CEF.

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <vector>

#include "engine_double.h"
#include "external_protocol.h"
#include "favicon_requests.h"
#include "include/cef_client.h"
#include "recording_cef/recording_cef.h"

namespace cefbinding {
namespace {

using engine_double::Counted;
using engine_double::Held;
using engine_double::Received;
using engine_double::TextForReceiver;
using recording_cef::RecordingCef;

class RequestHandler final : public CefRequestHandler {
 public:
  std::function<bool(CefRefPtr<CefCallback>)> on_certificate_error = [](auto) { return false; };
  std::function<bool(CefRefPtr<CefSelectClientCertificateCallback>)> on_select = [](auto) {
    return false;
  };
  std::vector<cef_termination_status_t> terminations;
  int resource_requests = 0;

  CefRefPtr<CefResourceRequestHandler> GetResourceRequestHandler(CefRefPtr<CefBrowser>,
                                                                 CefRefPtr<CefFrame>,
                                                                 CefRefPtr<CefRequest>,
                                                                 bool,
                                                                 bool,
                                                                 const CefString&,
                                                                 bool& disables) override {
    ++resource_requests;
    disables = true;
    return nullptr;
  }
  bool OnCertificateError(CefRefPtr<CefBrowser>,
                          cef_errorcode_t,
                          const CefString&,
                          CefRefPtr<CefSSLInfo>,
                          CefRefPtr<CefCallback> callback) override {
    return on_certificate_error(callback);
  }
  bool OnSelectClientCertificate(CefRefPtr<CefBrowser>,
                                 bool,
                                 const CefString&,
                                 int,
                                 const X509CertificateList&,
                                 CefRefPtr<CefSelectClientCertificateCallback> callback) override {
    return on_select(callback);
  }
  void OnRenderProcessTerminated(CefRefPtr<CefBrowser>, TerminationStatus status) override {
    terminations.push_back(status);
  }

  IMPLEMENT_REFCOUNTING(RequestHandler);
};

class CertificateErrorTest : public testing::Test {
 protected:
  CertificateErrorTest() {
    callback_.cancel = [](capi::cef_callback_t*) { ++cancelled; };
    callback_.cont = [](capi::cef_callback_t*) { ++continued; };
    cancelled = continued = 0;
  }
  int Ask() {
    const Held<CefRequestHandler> handler(host_);
    return handler->on_certificate_error(handler.get(), nullptr, ERR_CERT_DATE_INVALID, nullptr,
                                         nullptr, callback_.Given());
  }

  inline static int cancelled = 0;
  inline static int continued = 0;
  Counted<capi::cef_callback_t> callback_;
  const CefRefPtr<RequestHandler> host_ = new RequestHandler;
};

TEST_F(CertificateErrorTest, EndsTheLoadWhereTheClientLeavesItToCef) {
  EXPECT_EQ(Ask(), 1);
  EXPECT_EQ(cancelled, 1);
}

TEST_F(CertificateErrorTest, IsTheClientsWhereItTakesCareOfIt) {
  host_->on_certificate_error = [](CefRefPtr<CefCallback> callback) {
    callback->Continue();
    return true;
  };
  EXPECT_EQ(Ask(), 1);
  EXPECT_EQ(cancelled, 0);
  EXPECT_EQ(continued, 1);
}

TEST_F(CertificateErrorTest, EndsTheLoadWhereTheClientThrows) {
  host_->on_certificate_error = [](auto) -> bool { throw std::runtime_error("on purpose"); };
  EXPECT_EQ(Ask(), 1);
  EXPECT_EQ(cancelled, 1);
}

class ClientCertificateTest : public testing::Test {
 protected:
  using Certificate = capi::cef_x509certificate_t;
  using Callback = capi::cef_select_client_certificate_callback_t;

  ClientCertificateTest() {
    callback_.select = [](Callback*, Certificate* certificate) {
      ++selections;
      selected = certificate;
      if (certificate) {
        BaseOf(certificate)->release(BaseOf(certificate));
      }
    };
    selections = 0;
    selected = nullptr;
  }
  int Ask(std::vector<Certificate*> certificates) {
    const Held<CefRequestHandler> handler(host_);
    return handler->on_select_client_certificate(handler.get(), nullptr, 0, nullptr, 443,
                                                 certificates.size(), certificates.data(),
                                                 callback_.Given());
  }

  inline static int selections = 0;
  inline static Certificate* selected = nullptr;
  Counted<Certificate> first_;
  Counted<Certificate> second_;
  Counted<Callback> callback_;
  const CefRefPtr<RequestHandler> host_ = new RequestHandler;
};

TEST_F(ClientCertificateTest, IsTheFirstWhereTheClientLeavesItToCef) {
  EXPECT_EQ(Ask({first_.Given(), second_.Given()}), 1);
  EXPECT_EQ(selections, 1);
  EXPECT_EQ(selected, &first_);
}

TEST_F(ClientCertificateTest, IsNoneWhereThereIsNone) {
  EXPECT_EQ(Ask({}), 1);
  EXPECT_EQ(selections, 1);
  EXPECT_EQ(selected, nullptr);
}

TEST_F(ClientCertificateTest, IsTheClientsToChoose) {
  host_->on_select = [](auto) { return true; };
  EXPECT_EQ(Ask({first_.Given()}), 1);
  EXPECT_EQ(selections, 0);
}

TEST(TerminationTest, ReasonsThatAreNewToTheEngineAreKeptFromTheClient) {
  const CefRefPtr<RequestHandler> host = new RequestHandler;
  const Held<CefRequestHandler> handler(host);
  for (uint32_t status = 0; status < 6; ++status) {
    handler->on_render_process_terminated(handler.get(), nullptr, status, 7, nullptr);
  }
  EXPECT_EQ(host->terminations, (std::vector{TS_ABNORMAL_TERMINATION, TS_PROCESS_WAS_KILLED,
                                             TS_PROCESS_CRASHED, TS_PROCESS_OOM}));
}

// A client without any handler.
class BareClient final : public CefClient {
  IMPLEMENT_REFCOUNTING(BareClient);
};

TEST(BareClientTest, TheEngineFindsHandlersThatDoAsCef123Did) {
  const Held<CefClient> client(new BareClient);
  const Received<capi::cef_download_handler_t> downloads(
      client->get_download_handler(client.get()));
  ASSERT_TRUE(downloads.get());
  EXPECT_EQ(downloads->on_before_download(downloads.get(), nullptr, nullptr, nullptr, nullptr), 1);
  EXPECT_EQ(downloads->can_download(downloads.get(), nullptr, nullptr, nullptr), 1);
  const Received<capi::cef_request_handler_t> requests(client->get_request_handler(client.get()));
  ASSERT_TRUE(requests.get());
  EXPECT_TRUE(requests->on_certificate_error);
  EXPECT_TRUE(
      Received<capi::cef_life_span_handler_t>(client->get_life_span_handler(client.get())).get());
  EXPECT_TRUE(
      Received<capi::cef_jsdialog_handler_t>(client->get_jsdialog_handler(client.get())).get());
  EXPECT_FALSE(Received<capi::cef_load_handler_t>(client->get_load_handler(client.get())).get());
}

class FaviconTest : public testing::Test {
 protected:
  FaviconTest() {
    request_.get_resource_type = [](capi::cef_request_t*) -> uint32_t { return type; };
    request_.get_identifier = [](capi::cef_request_t*) -> uint64_t { return identifier; };
    request_.get_url = [](capi::cef_request_t*) { return TextForReceiver(url); };
    browser_.get_identifier = [](capi::cef_browser_t*) { return 5; };
    type = RT_FAVICON;
    identifier = 1;
    url = "http://site.test/favicon.ico";
  }

  // Whether the request goes out.
  bool IsSent() {
    const Held<CefRequestHandler> handler(host_);
    int disables = 0;
    const Received<capi::cef_resource_request_handler_t> answer(
        handler->get_resource_request_handler(handler.get(), browser_.Given(), nullptr,
                                              request_.Given(), 0, 0, nullptr, &disables));
    if (answer.get()) {
      EXPECT_EQ(answer->on_before_resource_load(answer.get(), nullptr, nullptr, nullptr, nullptr),
                RV_CANCEL);
    }
    // The client says that, if it is asked.
    EXPECT_EQ(disables, answer.get() ? 0 : 1);
    return !answer.get();
  }

  inline static uint32_t type = 0;
  inline static uint64_t identifier = 0;
  inline static const char* url = "";
  Counted<capi::cef_request_t> request_;
  Counted<capi::cef_browser_t> browser_;
  const CefRefPtr<RequestHandler> host_ = new RequestHandler;
};

class ImageCallback final : public CefDownloadImageCallback {
 public:
  int finished = 0;
  void OnDownloadImageFinished(const CefString&, int, CefRefPtr<CefImage>) override { ++finished; }

  IMPLEMENT_REFCOUNTING(ImageCallback);
};

TEST_F(FaviconTest, IsNotSentNorReportedWhereNobodyHasAskedForIt) {
  EXPECT_FALSE(IsSent());
  EXPECT_EQ(host_->resource_requests, 0);
}

TEST_F(FaviconTest, IsTheClientsWhileItAsksForIt) {
  const CefRefPtr<ImageCallback> callback = new ImageCallback;
  auto expected = ExpectFavicon(5, "HTTP://site.test/favicon.ico", callback);
  EXPECT_TRUE(IsSent());
  EXPECT_EQ(host_->resource_requests, 1);
  url = "http://site.test/moved.ico";
  EXPECT_TRUE(IsSent()) << "a redirected request";
  identifier = 2;
  EXPECT_FALSE(IsSent()) << "another request";
  identifier = 1;
  expected->OnDownloadImageFinished(url, 200, nullptr);
  EXPECT_EQ(callback->finished, 1);
  expected = nullptr;
  EXPECT_FALSE(IsSent()) << "a request after the end";
}

TEST_F(FaviconTest, IsNoOtherBrowsers) {
  const auto expected = ExpectFavicon(6, url, new ImageCallback);
  EXPECT_FALSE(IsSent());
}

TEST_F(FaviconTest, OtherRequestsAreAlwaysTheClients) {
  type = RT_IMAGE;
  EXPECT_TRUE(IsSent());
  EXPECT_EQ(host_->resource_requests, 1);
}

// Allows or forbids other applications.
class ResourceHandler final : public CefResourceRequestHandler {
 public:
  explicit ResourceHandler(bool allows) : allows_(allows) {}
  void OnProtocolExecution(CefRefPtr<CefBrowser>,
                           CefRefPtr<CefFrame>,
                           CefRefPtr<CefRequest>,
                           bool& allow_os_execution) override {
    allow_os_execution = allows_;
  }

 private:
  const bool allows_;

  IMPLEMENT_REFCOUNTING(ResourceHandler);
};

TEST(ExternalProtocolTest, TheEngineItselfNeverStartsAnApplication) {
  Counted<capi::cef_request_t> request;
  request.get_url = [](capi::cef_request_t*) {
    return TextForReceiver("mailto:somebody@site.test");
  };
  for (const bool allows : {false, true}) {
    const Held<CefResourceRequestHandler> handler(new ResourceHandler(allows));
    int allow = 1;
    handler->on_protocol_execution(handler.get(), nullptr, nullptr, request.Given(), &allow);
    EXPECT_EQ(allow, 0);
    ASSERT_EQ(RecordingCef::Get().tasks.size(), allows ? 1u : 0u);
  }
  EXPECT_EQ(RecordingCef::Get().tasks[0].thread, TID_FILE_USER_VISIBLE);
  RecordingCef::Get().Reset();
}

TEST(ExternalProtocolTest, AnAddressStaysOneArgument) {
  EXPECT_EQ(EscapedForCommand(L"mailto:a@b.test?subject=x%20y&body=z"),
            L"mailto:a@b.test?subject=x%20y&body=z");
  EXPECT_EQ(EscapedForCommand(L"app:a\" -flag \\<>"), L"app:a%22%20-flag%20%5C%3C%3E");
}

}  // namespace
}  // namespace cefbinding
