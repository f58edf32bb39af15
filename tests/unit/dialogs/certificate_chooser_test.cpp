// The chooser routine: certificates in, a choice out.
#include "dialogs/certificate_chooser.h"

#include <gmock/gmock.h>

#include <optional>
#include <stdexcept>

#include "com/module.h"
#include "recording_cef/fake_certificate.h"
#include "unit/dialogs/owner_window.h"
#include "unit/dialogs/shown_list.h"

namespace kzcef {
namespace {

using recording_cef::FakeCertificate;
using ::testing::ElementsAre;
using testing::OwnerWindow;
using testing::Press;
using testing::ShownList;

CefRequestHandler::X509CertificateList ThreeCertificates() {
  const CefRefPtr<FakeCertificate> first = new FakeCertificate("Ada", "Root");
  first->serial_number = recording_cef::BinaryOf("\x01\xAB");
  first->valid_expiry = -1;
  return {first, new FakeCertificate("Bob", "Root"), new FakeCertificate("Cy", "Root")};
}

TEST(CertificateChooser, ShowsTheTextsOfTheCertificates) {
  OwnerWindow owner;
  owner.on_dialog = [](HWND dialog) {
    EXPECT_THAT(ShownList(dialog).Row(0), ElementsAre(L"Ada", L"Root", L"01AB", L"Invalid"));
    EXPECT_EQ(ShownList(dialog).TextAt(2, 0), L"Cy");
    Press(dialog, IDCANCEL);
  };
  ChooseCertificate(owner.handle(), "intranet.test", ThreeCertificates());
  EXPECT_EQ(owner.dialogs, 1);
}

TEST(CertificateChooser, AnswersThePlaceOfTheChosenOne) {
  OwnerWindow owner;
  owner.on_dialog = [](HWND dialog) {
    ShownList(dialog).Select(1);
    Press(dialog, IDOK);
  };
  EXPECT_EQ(ChooseCertificate(owner.handle(), "intranet.test", ThreeCertificates()), 1);
}

TEST(CertificateChooser, AnswersNoneWhenTheUserCancels) {
  OwnerWindow owner;
  owner.on_dialog = [](HWND dialog) {
    ShownList(dialog).Select(1);
    Press(dialog, IDCANCEL);
  };
  EXPECT_EQ(ChooseCertificate(owner.handle(), "intranet.test", ThreeCertificates()), -1);
}

TEST(CertificateChooser, AnswersNoneWhenThereIsNoneToChoose) {
  OwnerWindow owner;
  owner.on_dialog = [](HWND dialog) { Press(dialog, IDOK); };
  EXPECT_EQ(ChooseCertificate(owner.handle(), "intranet.test", {}), -1);
}

TEST(CertificateChooser, AnswersNoneWhenTheHostsWindowGoes) {
  OwnerWindow owner;
  owner.on_dialog = [&](HWND) { owner.Destroy(); };
  EXPECT_EQ(ChooseCertificate(owner.handle(), "intranet.test", ThreeCertificates()), -1);
}

TEST(CertificateChooser, ShowsNothingWithoutAMainWindow) {
  EXPECT_EQ(ChooseCertificate(nullptr, "intranet.test", ThreeCertificates()), std::nullopt);
}

class ThrowingPrincipal : public CefX509CertPrincipal {
 public:
  CefString GetDisplayName() override { throw std::runtime_error("no name"); }
  CefString GetCommonName() override { return {}; }
  CefString GetLocalityName() override { return {}; }
  CefString GetStateOrProvinceName() override { return {}; }
  CefString GetCountryName() override { return {}; }
  void GetOrganizationNames(std::vector<CefString>&) override {}
  void GetOrganizationUnitNames(std::vector<CefString>&) override {}

 private:
  IMPLEMENT_REFCOUNTING(ThrowingPrincipal);
};

class NamelessCertificate : public CefX509Certificate {
 public:
  CefRefPtr<CefX509CertPrincipal> GetSubject() override { return new ThrowingPrincipal(); }
  CefRefPtr<CefX509CertPrincipal> GetIssuer() override { return nullptr; }
  CefRefPtr<CefBinaryValue> GetSerialNumber() override { return nullptr; }
  CefBaseTime GetValidStart() override { return {}; }
  CefBaseTime GetValidExpiry() override { return {}; }
  CefRefPtr<CefBinaryValue> GetDEREncoded() override { return nullptr; }
  CefRefPtr<CefBinaryValue> GetPEMEncoded() override { return nullptr; }
  size_t GetIssuerChainSize() override { return 0; }
  void GetDEREncodedIssuerChain(IssuerChainBinaryList&) override {}
  void GetPEMEncodedIssuerChain(IssuerChainBinaryList&) override {}

 private:
  IMPLEMENT_REFCOUNTING(NamelessCertificate);
};

TEST(CertificateChooser, EndsQuietlyAtAnError) {
  OwnerWindow owner;
  EXPECT_EQ(ChooseCertificate(owner.handle(), "intranet.test", {new NamelessCertificate()}),
            std::nullopt);
  EXPECT_EQ(owner.dialogs, 0);
}

TEST(CertificateChooser, UsesTheLibrarysStateWhileTheDialogIsOpen) {
  OwnerWindow owner;
  HINSTANCE inside = nullptr;
  owner.on_dialog = [&](HWND dialog) {
    inside = ModuleStateScope::ResourceModule();
    Press(dialog, IDCANCEL);
  };
  ChooseCertificate(owner.handle(), "intranet.test", {});
  EXPECT_EQ(inside, ModuleInstance());
  EXPECT_EQ(ModuleStateScope::ResourceModule(), nullptr);
}

}  // namespace
}  // namespace kzcef
