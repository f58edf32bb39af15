// A client certificate from the server's request to the user's choice: the message to the host, the
// host's way back, the dialog, and what CEF is given.
#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "handler/posted_message.h"
#include "recording_cef/fake_certificate.h"
#include "runtime/main_window.h"
#include "runtime/pending_requests.h"
#include "unit/dialogs/owner_window.h"
#include "unit/dialogs/shown_list.h"
#include "unit/instance/instance_test.h"

namespace kzcef {
namespace {

using recording_cef::FakeCertificate;
using testing::BrowserInWindowTest;
using ::testing::ElementsAre;
using testing::HandleMessages;
using ::testing::IsEmpty;
using testing::OwnerWindow;
using ::testing::Pair;
using testing::Press;
using testing::ShownList;

// Adds the certificate that it is given to a list, under its own number.
class NumberedCallback final : public CefSelectClientCertificateCallback {
 public:
  using Answers = std::vector<std::pair<int, std::string>>;

  NumberedCallback(int number, Answers& answers) : number_(number), answers_(answers) {}

  void Select(CefRefPtr<CefX509Certificate> certificate) override {
    answers_.emplace_back(
        number_, certificate ? certificate->GetSubject()->GetDisplayName().ToString() : "none");
  }

 private:
  const int number_;
  Answers& answers_;

  IMPLEMENT_REFCOUNTING(NumberedCallback);
};

// The host has marked its main window and forwards the message, as hosts do.
class CertificateChoiceTest : public BrowserInWindowTest {
 protected:
  CertificateChoiceTest() {
    SetPropW(main_window_.handle(), kMainWindowProperty, reinterpret_cast<HANDLE>(1));
    main_window_.on_message = [this](UINT message, WPARAM wparam, LPARAM lparam) {
      EXPECT_EQ(message, kHostThreadMessage);
      messages_.emplace_back(wparam, lparam);
      FinishPostedRequest(static_cast<std::uint32_t>(wparam),
                          reinterpret_cast<const kzCefClientHandler*>(lparam));
    };
    EXPECT_EQ(instance_->CreateBrowser(parent_.handle(), "http://a.test/"), 1);
    handler_ = requested_handler();
    ForgetRequests();
  }

  // A request with certificates of those names.
  void Request(int number, const std::string& host, const std::vector<std::string>& names) {
    CefRequestHandler::X509CertificateList certificates;
    for (const std::string& name : names) {
      certificates.push_back(new FakeCertificate(name));
    }
    EXPECT_TRUE(handler_->OnSelectClientCertificate(browser_, false, host, 443, certificates,
                                                    new NumberedCallback(number, answers_)));
  }
  // What the user does in the dialog.
  void Choose(int row, int button) {
    main_window_.on_dialog = [row, button](HWND dialog) {
      ShownList(dialog).Select(row);
      Press(dialog, button);
    };
  }
  LPARAM handler_address() const { return reinterpret_cast<LPARAM>(handler_.get()); }

  NumberedCallback::Answers answers_;
  std::vector<std::pair<WPARAM, LPARAM>> messages_;
  OwnerWindow main_window_{WS_OVERLAPPEDWINDOW};
  std::unique_ptr<kzCefInstance> instance_ = std::make_unique<kzCefInstance>();
  CefRefPtr<kzCefClientHandler> handler_;
};

TEST_F(CertificateChoiceTest, IsChosenByTheUser) {
  Request(1, "intranet.test", {"Ada", "Bob"});
  EXPECT_EQ(main_window_.dialogs, 0);
  Choose(1, IDOK);
  HandleMessages();
  EXPECT_THAT(messages_, ElementsAre(Pair(1, handler_address())));
  EXPECT_EQ(main_window_.dialogs, 1);
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "Bob")));
}

TEST_F(CertificateChoiceTest, IsNoneWhenTheUserCancels) {
  Request(1, "intranet.test", {"Ada", "Bob"});
  Choose(1, IDCANCEL);
  HandleMessages();
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "none")));
}

TEST_F(CertificateChoiceTest, IsNoneAmongNone) {
  Request(1, "intranet.test", {});
  Choose(-1, IDOK);
  HandleMessages();
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "none")));
}

TEST_F(CertificateChoiceTest, IsAskedForOnceForTheSameServer) {
  Request(1, "intranet.test", {"Ada", "Bob", "Cy"});
  Request(2, "intranet.test", {"Dan", "Eve"});
  Request(3, "intranet.test", {"Fay", "Guy", "Hal"});
  Choose(2, IDOK);
  HandleMessages();
  EXPECT_THAT(messages_, ElementsAre(Pair(1, handler_address())));
  EXPECT_EQ(main_window_.dialogs, 1);
  // Each from its own list, and none where that is too short.
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "Cy"), Pair(2, "none"), Pair(3, "Hal")));
}

TEST_F(CertificateChoiceTest, IsAskedForAnewAfterwards) {
  Choose(0, IDOK);
  Request(1, "intranet.test", {"Ada", "Bob"});
  HandleMessages();
  Request(2, "intranet.test", {"Ada", "Bob"});
  HandleMessages();
  EXPECT_THAT(messages_, ElementsAre(Pair(1, handler_address()), Pair(2, handler_address())));
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "Ada"), Pair(2, "Ada")));
}

// Kept: only the first of several pending requests gets a message.
TEST_F(CertificateChoiceTest, GetsNoMessageOfItsOwnWhileAnotherServerWaits) {
  Choose(0, IDOK);
  Request(1, "intranet.test", {"Ada", "Bob"});
  Request(2, "other.test", {"Cy", "Dan"});
  HandleMessages();
  EXPECT_THAT(messages_, ElementsAre(Pair(1, handler_address())));
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "Ada")));
  // It waits on, and with it whatever comes.
  Request(3, "intranet.test", {"Ada", "Bob"});
  HandleMessages();
  EXPECT_THAT(messages_, ElementsAre(Pair(1, handler_address())));
}

TEST_F(CertificateChoiceTest, IsAnsweredToARequestThatComesWhileTheDialogIsOpen) {
  Request(1, "intranet.test", {"Ada", "Bob"});
  main_window_.on_dialog = [&](HWND dialog) {
    Request(2, "intranet.test", {"Ada", "Bob"});
    ShownList(dialog).Select(1);
    Press(dialog, IDOK);
  };
  HandleMessages();
  EXPECT_THAT(messages_, ElementsAre(Pair(1, handler_address())));
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "Bob"), Pair(2, "Bob")));
}

TEST_F(CertificateChoiceTest, OpensNoSecondDialogForAMessageThatCameTwice) {
  Request(1, "intranet.test", {"Ada", "Bob"});
  main_window_.on_dialog = [&](HWND dialog) {
    FinishPostedRequest(1, handler_.get());
    ShownList(dialog).Select(0);
    Press(dialog, IDOK);
  };
  HandleMessages();
  FinishPostedRequest(1, handler_.get());
  EXPECT_EQ(main_window_.dialogs, 1);
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "Ada")));
}

TEST_F(CertificateChoiceTest, OutlivesItsBrowser) {
  Request(1, "intranet.test", {"Ada", "Bob"});
  const kzCefClientHandler* const address = handler_.get();
  main_window_.on_dialog = [&](HWND dialog) {
    instance_ = nullptr;
    handler_ = nullptr;
    ShownList(dialog).Select(0);
    Press(dialog, IDOK);
  };
  HandleMessages();
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "Ada")));
  // Nobody has kept the handler.
  FinishPostedRequest(1, address);
  EXPECT_EQ(main_window_.dialogs, 1);
}

TEST_F(CertificateChoiceTest, IsNoneAtTheEndOfTheEngineEvenWhileTheDialogIsOpen) {
  Request(1, "intranet.test", {"Ada", "Bob"});
  Request(2, "intranet.test", {"Ada", "Bob"});
  main_window_.on_dialog = [&](HWND dialog) {
    EndPendingRequests();
    EXPECT_THAT(answers_, ElementsAre(Pair(1, "none"), Pair(2, "none")));
    ShownList(dialog).Select(0);
    Press(dialog, IDOK);
  };
  HandleMessages();
  EXPECT_EQ(main_window_.dialogs, 1);
  EXPECT_EQ(answers_.size(), 2u);
}

TEST_F(CertificateChoiceTest, OpensNoDialogForAMessageThatComesAfterTheEndOfTheEngine) {
  Request(1, "intranet.test", {"Ada", "Bob"});
  EndPendingRequests();
  HandleMessages();
  EXPECT_EQ(messages_.size(), 1u);
  EXPECT_EQ(main_window_.dialogs, 0);
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "none")));
}

TEST_F(CertificateChoiceTest, IsAskedForAfterItsBrowserHasGone) {
  Request(1, "intranet.test", {"Ada", "Bob"});
  instance_ = nullptr;
  handler_ = nullptr;
  Choose(0, IDOK);
  HandleMessages();
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "Ada")));
}

TEST_F(CertificateChoiceTest, WaitsWithoutAMainWindow) {
  main_window_.Destroy();
  Request(1, "intranet.test", {"Ada", "Bob"});
  HandleMessages();
  EXPECT_THAT(messages_, IsEmpty());
  EXPECT_THAT(answers_, IsEmpty());
}

TEST_F(CertificateChoiceTest, IsNoLongerWaitedForWhenTheMainWindowWentAfterTheMessage) {
  Request(1, "intranet.test", {"Ada", "Bob"});
  main_window_.Destroy();
  FinishPostedRequest(1, handler_.get());
  EXPECT_THAT(answers_, IsEmpty());
  EXPECT_FALSE(handler_->dispatcher()->HasPendingWork());
}

TEST_F(CertificateChoiceTest, IsTheSameMatterForAllBrowsers) {
  kzCefInstance second;
  EXPECT_EQ(second.CreateBrowser(parent_.handle(), "http://b.test/"), 1);
  const CefRefPtr<kzCefClientHandler> second_handler = requested_handler();
  ForgetRequests();
  Request(1, "intranet.test", {"Ada", "Bob"});
  EXPECT_TRUE(second_handler->OnSelectClientCertificate(
      nullptr, false, "intranet.test", 443,
      {new FakeCertificate("Ada"), new FakeCertificate("Bob")}, new NumberedCallback(2, answers_)));
  Choose(1, IDOK);
  HandleMessages();
  EXPECT_EQ(messages_.size(), 1u);
  EXPECT_THAT(answers_, ElementsAre(Pair(1, "Bob"), Pair(2, "Bob")));
}

}  // namespace
}  // namespace kzcef
