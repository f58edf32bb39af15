// What is read from a certificate of CEF's for the text about it.

#include "handler/certificate_information.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "handler/certificate_text.h"
#include "recording_cef/fake_certificate.h"

namespace kzcef {
namespace {

using recording_cef::BinaryOf;
using recording_cef::FakeCertificate;

// Microseconds since 1601, where CEF's time begins.
int64_t Microseconds(int64_t seconds_since_1970) {
  constexpr int64_t kSecondsTo1970 = 11644473600;
  return (seconds_since_1970 + kSecondsTo1970) * 1000000;
}

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

class CertificateInformationTest : public ::testing::Test {
 protected:
  CertificateInformationTest() {
    certificate_->serial_number = BinaryOf("\x01\x02");
    certificate_->valid_start = Microseconds(1709802300);
    certificate_->valid_expiry = Microseconds(2051222398);
    certificate_->der_chain = {BinaryOf("DER1"), nullptr};
    certificate_->pem_chain = {BinaryOf("PEM1"), BinaryOf("PEM2")};
  }

  std::string Text(cef_cert_status_t status = CERT_STATUS_NONE) const {
    return CertificateInformation(certificate_, status);
  }

  const CefRefPtr<FakeCertificate> certificate_ = new FakeCertificate("\xC3\xA4.test", "Test CA");
};

TEST_F(CertificateInformationTest, SaysAllThatTheCertificateSays) {
  CertificateValues values;
  values.status = 1u << 1;
  values.subject = "\xC3\xA4.test";
  values.issuer = "Test CA";
  values.serial_number = "AQI=";
  values.valid_start = CalendarTime{2024, 3, 7, 9, 5, 0};
  values.valid_expiry = CalendarTime{2034, 12, 31, 23, 59, 58};
  values.der_chain = {"REVSMQ==", std::nullopt};
  values.pem_chain = {"UEVNMQ==", "UEVNMg=="};
  EXPECT_EQ(Text(CERT_STATUS_DATE_INVALID), CertificateText(values));
}

TEST_F(CertificateInformationTest, HasNoStatusRowForStatusZero) {
  EXPECT_FALSE(Holds(Text(CERT_STATUS_NONE), "Status"));
  EXPECT_TRUE(Holds(Text(CERT_STATUS_REVOKED), "<td>CERT_STATUS_REVOKED<br/></td>"));
}

TEST_F(CertificateInformationTest, HasNoEncodedRowsWithoutAChain) {
  certificate_->der_chain.clear();
  certificate_->pem_chain.clear();
  const std::string text = Text();
  EXPECT_FALSE(Holds(text, "DER Encoded"));
  EXPECT_FALSE(Holds(text, "PEM Encoded"));
  EXPECT_TRUE(text.ends_with("</tr></table> * Displayed value is base64 encoded."));
}

TEST_F(CertificateInformationTest, ManagesWithoutWhatACertificateMayLack) {
  certificate_->subject = nullptr;
  certificate_->issuer = nullptr;
  certificate_->serial_number = nullptr;
  const std::string text = Text();
  EXPECT_TRUE(Holds(text, "<td>Subject</td><td></td>"));
  EXPECT_TRUE(Holds(text, "<td>Issuer</td><td></td>"));
  EXPECT_TRUE(Holds(text, "<td>Serial #*</td><td>&nbsp;</td>"));
}

TEST_F(CertificateInformationTest, CallsATimeBeyondTheCalendarInvalid) {
  certificate_->valid_start = std::numeric_limits<int64_t>::max();
  certificate_->valid_expiry = std::numeric_limits<int64_t>::min();
  const std::string text = Text();
  EXPECT_TRUE(Holds(text, "<td>Valid Start</td><td>Invalid</td>"));
  EXPECT_TRUE(Holds(text, "<td>Valid Expiry</td><td>Invalid</td>"));
}

TEST_F(CertificateInformationTest, CallsATimeWithoutAValueUnspecified) {
  certificate_->valid_start = Microseconds(0);
  EXPECT_TRUE(Holds(Text(), "<td>Valid Start</td><td>Unspecified</td>"));
}

TEST_F(CertificateInformationTest, IsEmptyWithoutACertificate) {
  EXPECT_EQ(CertificateInformation(nullptr, CERT_STATUS_REVOKED), "");
}

TEST(CertificateStatusFlags, AreThoseOfCef) {
  const auto names = [](int status) {
    return CertificateStatusText(static_cast<uint32_t>(status));
  };
#define EXPECT_NAMED(flag) EXPECT_EQ(names(flag), #flag "<br/>")
  EXPECT_NAMED(CERT_STATUS_COMMON_NAME_INVALID);
  EXPECT_NAMED(CERT_STATUS_DATE_INVALID);
  EXPECT_NAMED(CERT_STATUS_AUTHORITY_INVALID);
  EXPECT_NAMED(CERT_STATUS_NO_REVOCATION_MECHANISM);
  EXPECT_NAMED(CERT_STATUS_UNABLE_TO_CHECK_REVOCATION);
  EXPECT_NAMED(CERT_STATUS_REVOKED);
  EXPECT_NAMED(CERT_STATUS_INVALID);
  EXPECT_NAMED(CERT_STATUS_WEAK_SIGNATURE_ALGORITHM);
  EXPECT_NAMED(CERT_STATUS_NON_UNIQUE_NAME);
  EXPECT_NAMED(CERT_STATUS_WEAK_KEY);
  EXPECT_NAMED(CERT_STATUS_PINNED_KEY_MISSING);
  EXPECT_NAMED(CERT_STATUS_NAME_CONSTRAINT_VIOLATION);
  EXPECT_NAMED(CERT_STATUS_VALIDITY_TOO_LONG);
  EXPECT_NAMED(CERT_STATUS_IS_EV);
  EXPECT_NAMED(CERT_STATUS_REV_CHECKING_ENABLED);
  EXPECT_NAMED(CERT_STATUS_SHA1_SIGNATURE_PRESENT);
  EXPECT_NAMED(CERT_STATUS_CT_COMPLIANCE_FAILED);
#undef EXPECT_NAMED
}

}  // namespace
}  // namespace kzcef
