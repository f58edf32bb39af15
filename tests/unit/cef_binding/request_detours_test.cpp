// Addresses that a client gives to redirects and to requests made again, on the engine's own
// requests.
#include "request_detours.h"

#include <gtest/gtest.h>

#include <string>

#include "include/cef_response.h"

namespace cefbinding {
namespace {

// Gives an address or a method where it has one, and counts what it is asked.
class Client final : public CefResourceRequestHandler {
 public:
  std::string address;
  std::string method;
  bool again = true;
  int loads = 0;
  int redirects = 0;

  ReturnValue OnBeforeResourceLoad(CefRefPtr<CefBrowser>,
                                   CefRefPtr<CefFrame>,
                                   CefRefPtr<CefRequest>,
                                   CefRefPtr<CefCallback>) override {
    ++loads;
    return RV_CONTINUE_ASYNC;
  }
  void OnResourceRedirect(CefRefPtr<CefBrowser>,
                          CefRefPtr<CefFrame>,
                          CefRefPtr<CefRequest>,
                          CefRefPtr<CefResponse>,
                          CefString& new_url) override {
    ++redirects;
    if (!address.empty()) {
      new_url = address;
    }
  }
  bool OnResourceResponse(CefRefPtr<CefBrowser>,
                          CefRefPtr<CefFrame>,
                          CefRefPtr<CefRequest> request,
                          CefRefPtr<CefResponse>) override {
    if (!address.empty()) {
      request->SetURL(address);
    }
    if (!method.empty()) {
      request->SetMethod(method);
    }
    return again;
  }

 private:
  IMPLEMENT_REFCOUNTING(Client);
};

class RequestDetoursTest : public ::testing::Test {
 protected:
  void TearDown() override {
    OnResourceLoadComplete(*client_, nullptr, nullptr, request_, response_, UR_SUCCESS, 0);
  }

  std::string Url() const { return request_->GetURL().ToString(); }

  // The engine is about to load `url`. Returns whether the client was asked.
  bool Load(const std::string& url) {
    request_->SetURL(url);
    const int before = client_->loads;
    const cef_return_value_t result =
        OnBeforeResourceLoad(*client_, nullptr, nullptr, request_, nullptr);
    const bool asked = client_->loads > before;
    EXPECT_EQ(result, asked ? RV_CONTINUE_ASYNC : RV_CONTINUE);
    return asked;
  }
  // The engine has been redirected. Returns the target that the client left.
  std::string Redirect(const std::string& from, const std::string& to) {
    request_->SetURL(from);
    CefString new_url(to);
    OnResourceRedirect(*client_, nullptr, nullptr, request_, response_, new_url);
    return new_url.ToString();
  }
  bool Respond(const std::string& url) {
    request_->SetURL(url);
    return OnResourceResponse(*client_, nullptr, nullptr, request_, response_);
  }

  const CefRefPtr<Client> client_ = new Client;
  const CefRefPtr<CefRequest> request_ = CefRequest::Create();
  const CefRefPtr<CefResponse> response_ = CefResponse::Create();
};

TEST_F(RequestDetoursTest, RedirectGoesWhereTheClientSaysWithoutAskingTheServersTarget) {
  client_->address = "http://a.test/elsewhere";
  EXPECT_EQ(Redirect("http://a.test/away", "http://a.test/target"), "http://a.test/elsewhere");
  EXPECT_FALSE(Load("http://a.test/target#part"));
  EXPECT_EQ(Url(), "http://a.test/elsewhere");
  // The engine tells of its going there; the client has decided that already.
  client_->address = "http://a.test/nowhere";
  EXPECT_EQ(Redirect("http://a.test/target", "http://a.test/elsewhere"), "http://a.test/elsewhere");
  EXPECT_EQ(client_->redirects, 1);
  EXPECT_TRUE(Load("http://a.test/elsewhere"));
  EXPECT_EQ(Url(), "http://a.test/elsewhere");
}

TEST_F(RequestDetoursTest, RedirectThatTheClientLeavesGoesOn) {
  EXPECT_EQ(Redirect("http://a.test/away", "http://a.test/target"), "http://a.test/target");
  EXPECT_TRUE(Load("http://a.test/target"));
}

TEST_F(RequestDetoursTest, RelativeAddressIsOneBesideTheServersTarget) {
  client_->address = "other";
  Redirect("http://a.test/away", "http://b.test/folder/target");
  EXPECT_FALSE(Load("http://b.test/folder/target"));
  EXPECT_EQ(Url(), "http://b.test/folder/other");
}

TEST_F(RequestDetoursTest, AddressThatTheEngineHasFollowedByItselfIsLoaded) {
  client_->address = "http://a.test/elsewhere";
  Redirect("http://a.test/away", "http://a.test/target");
  EXPECT_TRUE(Load("http://a.test/elsewhere"));
}

TEST_F(RequestDetoursTest, LaterRedirectOfTheRequestIsTheClientsToDecideAgain) {
  client_->address = "http://a.test/elsewhere";
  Redirect("http://a.test/away", "http://a.test/target");
  client_->address.clear();
  Redirect("http://a.test/target", "http://a.test/target");
  EXPECT_EQ(client_->redirects, 2);
  EXPECT_TRUE(Load("http://a.test/target"));
}

TEST_F(RequestDetoursTest, RequestThatIsOverLeavesNothingBehind) {
  client_->address = "http://a.test/elsewhere";
  Redirect("http://a.test/away", "http://a.test/target");
  OnResourceLoadComplete(*client_, nullptr, nullptr, request_, response_, UR_CANCELED, 0);
  EXPECT_TRUE(Load("http://a.test/target"));
}

TEST_F(RequestDetoursTest, RequestIsMadeAgainWithTheClientsAddress) {
  client_->address = "http://a.test/second";
  EXPECT_TRUE(Respond("http://a.test/first"));
  // With another URL the engine would go on with the response.
  EXPECT_EQ(Url(), "http://a.test/first");
  EXPECT_FALSE(Load("http://a.test/first"));
  EXPECT_EQ(Url(), "http://a.test/second");
}

TEST_F(RequestDetoursTest, RequestThatIsNotToBeMadeAgainGoesOn) {
  client_->address = "http://a.test/second";
  client_->again = false;
  EXPECT_FALSE(Respond("http://a.test/first"));
  EXPECT_TRUE(Load("http://a.test/first"));
}

TEST_F(RequestDetoursTest, SameAddressInOtherLettersIsNoReasonToAskAgain) {
  client_->address = "HTTP://A.test:80/first";
  EXPECT_FALSE(Respond("http://a.test/first"));
}

TEST_F(RequestDetoursTest, OtherChangesOfARequestAreTheEnginesToMake) {
  client_->method = "PUT";
  EXPECT_TRUE(Respond("http://a.test/first"));
  EXPECT_EQ(request_->GetMethod().ToString(), "PUT");
  EXPECT_TRUE(Load("http://a.test/first"));
}

}  // namespace
}  // namespace cefbinding
