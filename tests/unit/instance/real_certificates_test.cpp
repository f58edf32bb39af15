// Real certificates all the way: on the screen, in the answer, and in the text about a refused
// site.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "certificates/real_certificates.h"
#include "handler/certificate_information.h"
#include "handler/posted_message.h"
#include "runtime/main_window.h"
#include "unit/dialogs/owner_window.h"
#include "unit/dialogs/shown_list.h"
#include "unit/instance/instance_test.h"

namespace kzcef {
namespace {

using certificates::kAuthority;
using certificates::kServer;
using certificates::kUnit;
using certificates::MakeCertificate;
using testing::BrowserInWindowTest;
using testing::HandleMessages;
using ::testing::HasSubstr;
using testing::OwnerWindow;
using testing::Press;
using testing::ShownList;

class KeepingCallback final : public CefSelectClientCertificateCallback {
 public:
  void Select(CefRefPtr<CefX509Certificate> certificate) override {
    ++answers;
    chosen = certificate;
  }

  int answers = 0;
  CefRefPtr<CefX509Certificate> chosen;

 private:
  IMPLEMENT_REFCOUNTING(KeepingCallback);
};

class RealCertificatesTest : public BrowserInWindowTest {
 protected:
  RealCertificatesTest() {
    SetPropW(main_window_.handle(), kMainWindowProperty, reinterpret_cast<HANDLE>(1));
    main_window_.on_message = [](UINT, WPARAM wparam, LPARAM lparam) {
      FinishPostedRequest(static_cast<std::uint32_t>(wparam),
                          reinterpret_cast<const kzCefClientHandler*>(lparam));
    };
    EXPECT_EQ(instance_->CreateBrowser(parent_.handle(), "http://a.test/"), 1);
    handler_ = requested_handler();
    ForgetRequests();
  }

  OwnerWindow main_window_{WS_OVERLAPPEDWINDOW};
  std::unique_ptr<kzCefInstance> instance_ = std::make_unique<kzCefInstance>();
  CefRefPtr<kzCefClientHandler> handler_;
};

TEST_F(RealCertificatesTest, AreShownAndAnswered) {
  const CefRequestHandler::X509CertificateList offered = {MakeCertificate({kUnit}),
                                                          MakeCertificate({kServer, kAuthority})};
  const CefRefPtr<KeepingCallback> callback = new KeepingCallback();
  EXPECT_TRUE(handler_->OnSelectClientCertificate(browser_, false, "intranet.test", 443, offered,
                                                  callback));
  std::vector<std::wstring> first;
  std::vector<std::wstring> second;
  main_window_.on_dialog = [&](HWND dialog) {
    const ShownList list(dialog);
    first = list.Row(0);
    second = list.Row(1);
    list.Select(1);
    Press(dialog, IDOK);
  };
  HandleMessages();
  EXPECT_EQ(first, (std::vector<std::wstring>{L"Only Unit", L"Only Unit", L"02", L"11/16/46"}));
  // The number's high bit is set: it begins with a null byte, as it is written in the certificate.
  EXPECT_EQ(second, (std::vector<std::wstring>{L"intranet.test", L"Alpha Authority",
                                               L"008102030405060708", L"11/18/36"}));
  EXPECT_EQ(callback->answers, 1);
  EXPECT_EQ(callback->chosen.get(), offered[1].get());
}

TEST_F(RealCertificatesTest, AreDescribedWithTheirChain) {
  const std::string text =
      CertificateInformation(MakeCertificate({kServer, kAuthority}), CERT_STATUS_AUTHORITY_INVALID);
  EXPECT_THAT(text, HasSubstr("<td>Subject</td><td>intranet.test</td>"));
  EXPECT_THAT(text, HasSubstr("<td>Issuer</td><td>Alpha Authority</td>"));
  EXPECT_THAT(text, HasSubstr("<td>Serial #*</td><td>AIECAwQFBgcI</td>"));
  EXPECT_THAT(text, HasSubstr("<td>Valid Start</td><td>November 21, 2026 22:42:47</td>"));
  EXPECT_THAT(text, HasSubstr("<td>Valid Expiry</td><td>November 18, 2036 22:42:47</td>"));
  EXPECT_THAT(text, HasSubstr(std::string("<td>DER Encoded*</td><td style=\"max-width:800px;"
                                          "overflow:scroll;\">") +
                              kAuthority + "</td>"));
}

}  // namespace
}  // namespace kzcef
