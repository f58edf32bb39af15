// A server asks for a client certificate: what is left to CEF, what waits for the host's thread,
// and what CEF is given.
#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

#include "handler/certificate_request.h"
#include "handler/kz_cef_client_handler.h"
#include "handler/posted_message.h"
#include "recording_cef/fake_certificate.h"
#include "unit/dialogs/owner_window.h"
#include "unit/dialogs/shown_list.h"
#include "unit/handler/recording_dispatcher.h"

namespace kzcef {
namespace {

using recording_cef::FakeCertificate;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::OwnerWindow;
using testing::Press;
using testing::RecordingDispatcher;
using testing::ShownList;
using ::testing::SizeIs;

// Writes down which certificate it is given.
class RecordingCallback final : public CefSelectClientCertificateCallback {
 public:
  std::vector<CefX509Certificate*> selected;

  void Select(CefRefPtr<CefX509Certificate> certificate) override {
    selected.push_back(certificate.get());
  }

 private:
  IMPLEMENT_REFCOUNTING(RecordingCallback);
};

class ClientCertificateTest : public ::testing::Test {
 protected:
  ClientCertificateTest() { handler_->SetDispatcher(dispatcher_); }

  bool Ask(const CefRequestHandler::X509CertificateList& certificates) {
    return handler_->OnSelectClientCertificate(nullptr, false, "intranet.test", 443, certificates,
                                               callback_);
  }

  const CefRefPtr<FakeCertificate> ada_ = new FakeCertificate("Ada");
  const CefRefPtr<FakeCertificate> bob_ = new FakeCertificate("Bob");
  const CefRefPtr<RecordingCallback> callback_ = new RecordingCallback();
  const CefRefPtr<RecordingDispatcher> dispatcher_ = new RecordingDispatcher();
  CefRefPtr<kzCefClientHandler> handler_ = new kzCefClientHandler(nullptr, false, "");
};

TEST_F(ClientCertificateTest, LeavesASingleCertificateToCef) {
  EXPECT_FALSE(Ask({ada_}));
  EXPECT_THAT(dispatcher_->calls, IsEmpty());
  EXPECT_TRUE(callback_->HasOneRef());
  EXPECT_TRUE(ada_->HasOneRef());
}

TEST_F(ClientCertificateTest, ParksAChoiceAmongSeveral) {
  EXPECT_TRUE(Ask({ada_, bob_}));
  EXPECT_THAT(dispatcher_->calls, ElementsAre("HasPendingWork", "ParkRequest", "PostToMainWindow"));
  EXPECT_THAT(dispatcher_->keys, ElementsAre("intranet.test:443"));
  ASSERT_THAT(dispatcher_->posted, SizeIs(1));
  EXPECT_EQ(dispatcher_->posted[0].identifier, 1u);
  EXPECT_EQ(dispatcher_->posted[0].handler, handler_.get());
  EXPECT_FALSE(callback_->HasOneRef());
  EXPECT_THAT(callback_->selected, IsEmpty());
}

TEST_F(ClientCertificateTest, ParksAChoiceAmongNone) {
  EXPECT_TRUE(Ask({}));
  EXPECT_THAT(dispatcher_->keys, ElementsAre("intranet.test:443"));
  EXPECT_THAT(dispatcher_->posted, SizeIs(1));
}

TEST_F(ClientCertificateTest, WritesTheKeyInUtf8) {
  handler_->OnSelectClientCertificate(nullptr, true, CefString(L"b\u00FCcher.test"), -1, {},
                                      callback_);
  EXPECT_THAT(dispatcher_->keys, ElementsAre("b\xC3\xBC"
                                             "cher.test:-1"));
}

TEST_F(ClientCertificateTest, PostsNothingForARequestThatJoined) {
  dispatcher_->next_identifier = 0;
  EXPECT_TRUE(Ask({ada_, bob_}));
  EXPECT_THAT(dispatcher_->requests, SizeIs(1));
  EXPECT_THAT(dispatcher_->posted, IsEmpty());
}

// Kept: while any request is pending, one for another server gets no message of its own.
TEST_F(ClientCertificateTest, PostsNothingWhileOtherWorkIsPending) {
  dispatcher_->pending = true;
  dispatcher_->next_identifier = 2;
  EXPECT_TRUE(Ask({ada_, bob_}));
  EXPECT_THAT(dispatcher_->requests, SizeIs(1));
  EXPECT_THAT(dispatcher_->posted, IsEmpty());
}

TEST_F(ClientCertificateTest, GoesOnWithoutACertificateWhereNobodyCouldBeAsked) {
  handler_->SetDispatcher(nullptr);
  EXPECT_TRUE(Ask({ada_, bob_}));
  EXPECT_THAT(callback_->selected, IsEmpty());
  EXPECT_TRUE(callback_->HasOneRef());
  EXPECT_TRUE(ada_->HasOneRef());
}

TEST_F(ClientCertificateTest, KeepsTheHandlerWhileTheRequestWaits) {
  EXPECT_TRUE(Ask({ada_, bob_}));
  const kzCefClientHandler* const address = handler_.get();
  handler_ = nullptr;
  FinishPostedRequest(1, address);
  EXPECT_THAT(dispatcher_->processed, ElementsAre(1u));
  dispatcher_->requests.clear();
  FinishPostedRequest(1, address);
  EXPECT_THAT(dispatcher_->processed, ElementsAre(1u));
}

TEST_F(ClientCertificateTest, SelectsTheCertificateAtThePlaceChosen) {
  EXPECT_TRUE(Ask({ada_, bob_}));
  dispatcher_->requests.at(0)->Answer(1);
  EXPECT_THAT(callback_->selected, ElementsAre(bob_.get()));
}

TEST_F(ClientCertificateTest, SelectsNoneForNoChoiceAndForPlacesThatItLacks) {
  for (const int choice : {-1, 2, INT_MAX, INT_MIN}) {
    EXPECT_TRUE(Ask({ada_, bob_}));
    dispatcher_->requests.back()->Answer(choice);
  }
  EXPECT_THAT(callback_->selected, ElementsAre(nullptr, nullptr, nullptr, nullptr));
}

TEST_F(ClientCertificateTest, IsSelectedOnce) {
  EXPECT_TRUE(Ask({ada_, bob_}));
  dispatcher_->requests.at(0)->Answer(1);
  dispatcher_->requests.at(0)->Answer(0);
  EXPECT_THAT(callback_->selected, ElementsAre(bob_.get()));
}

TEST_F(ClientCertificateTest, NeedsNoCallback) {
  EXPECT_TRUE(handler_->OnSelectClientCertificate(nullptr, false, "a.test", 443, {}, nullptr));
  dispatcher_->requests.at(0)->Answer(-1);
}

TEST_F(ClientCertificateTest, AsksTheUserForTheServer) {
  EXPECT_TRUE(Ask({ada_, bob_}));
  OwnerWindow owner;
  owner.on_dialog = [](HWND dialog) {
    wchar_t prompt[200] = L"";
    GetDlgItemTextW(dialog, -1, prompt, 200);
    EXPECT_NE(std::wstring(prompt).find(L"intranet.test:443"), std::wstring::npos);
    EXPECT_EQ(ShownList(dialog).count(), 2);
    ShownList(dialog).Select(1);
    Press(dialog, IDOK);
  };
  EXPECT_EQ(dispatcher_->requests.at(0)->Ask(owner.handle()), 1);
  EXPECT_EQ(dispatcher_->requests.at(0)->Ask(nullptr), std::nullopt);
  EXPECT_EQ(owner.dialogs, 1);
  EXPECT_THAT(callback_->selected, IsEmpty());
}

}  // namespace
}  // namespace kzcef
