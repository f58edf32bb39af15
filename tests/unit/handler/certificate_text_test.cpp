// The text about a certificate: its rows, flags and times.

#include "handler/certificate_text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace kzcef {
namespace {

constexpr char kHead[] =
    "<h3>X.509 Certificate Information:</h3><table border=1><tr><th>Field</th><th>Value</th></tr>";
constexpr char kTail[] = "</table> * Displayed value is base64 encoded.";

CertificateValues Values() {
  CertificateValues values;
  values.subject = "a.test";
  values.issuer = "Test CA";
  values.serial_number = "AQI=";
  values.valid_start = CalendarTime{2024, 3, 7, 9, 5, 0};
  values.valid_expiry = CalendarTime{2034, 12, 31, 23, 59, 58};
  return values;
}

// The rows that every certificate has, for Values().
constexpr char kRows[] =
    "<tr><td>Subject</td><td>a.test</td></tr><tr><td>Issuer</td><td>Test CA</td></tr>"
    "<tr><td>Serial #*</td><td>AQI=</td></tr>"
    "<tr><td>Valid Start</td><td>March 7, 2024 09:05:00</td></tr>"
    "<tr><td>Valid Expiry</td><td>December 31, 2034 23:59:58</td></tr>";

std::string Chained(const std::string& der, const std::string& pem) {
  return "<tr><td>DER Encoded*</td><td style=\"max-width:800px;overflow:scroll;\">" + der +
         "</td></tr><tr><td>PEM Encoded*</td><td style=\"max-width:800px;overflow:scroll;\">" +
         pem + "</td></tr>";
}

TEST(CertificateText, HasNoStatusRowForStatusZero) {
  EXPECT_EQ(CertificateText(Values()), std::string(kHead) + kRows + kTail);
}

TEST(CertificateText, BeginsWithTheStatusThatIsNotZero) {
  CertificateValues values = Values();
  values.status = 1u << 2 | 1u << 0;
  EXPECT_EQ(CertificateText(values),
            std::string(kHead) +
                "<tr><td>Status</td><td>CERT_STATUS_COMMON_NAME_INVALID<br/>"
                "CERT_STATUS_AUTHORITY_INVALID<br/></td></tr>" +
                kRows + kTail);
}

TEST(CertificateText, HasAStatusRowForBitsWithoutAName) {
  CertificateValues values = Values();
  values.status = 1u << 3;
  EXPECT_EQ(CertificateText(values),
            std::string(kHead) + "<tr><td>Status</td><td>&nbsp;</td></tr>" + kRows + kTail);
}

TEST(CertificateText, HasEmptyCellsForMissingNamesAndABlankForAMissingSerialNumber) {
  EXPECT_EQ(CertificateText(CertificateValues()),
            std::string(kHead) +
                "<tr><td>Subject</td><td></td></tr><tr><td>Issuer</td><td></td></tr>"
                "<tr><td>Serial #*</td><td>&nbsp;</td></tr>"
                "<tr><td>Valid Start</td><td>Unspecified</td></tr>"
                "<tr><td>Valid Expiry</td><td>Unspecified</td></tr>" +
                kTail);
}

TEST(CertificateText, EndsWithTheChain) {
  CertificateValues values = Values();
  values.der_chain = {"REVSMQ==", std::nullopt};
  values.pem_chain = {"UEVNMQ==", "UEVNMg=="};
  EXPECT_EQ(CertificateText(values), std::string(kHead) + kRows + Chained("REVSMQ==", "UEVNMQ==") +
                                         Chained("&nbsp;", "UEVNMg==") + kTail);
}

TEST(CertificateText, ShowsChainsOfUnlikeLengths) {
  CertificateValues values = Values();
  values.der_chain = {"REVSMQ=="};
  EXPECT_EQ(CertificateText(values),
            std::string(kHead) + kRows + Chained("REVSMQ==", "&nbsp;") + kTail);
  std::swap(values.der_chain, values.pem_chain);
  EXPECT_EQ(CertificateText(values),
            std::string(kHead) + kRows + Chained("&nbsp;", "REVSMQ==") + kTail);
}

TEST(CertificateText, TakesNamesAsTheyAre) {
  CertificateValues values = Values();
  values.subject = "<b>\"\xC3\xA4\"</b>";
  EXPECT_NE(CertificateText(values).find("<td><b>\"\xC3\xA4\"</b></td>"), std::string::npos);
  values.subject = std::string(1 << 20, 'a');
  EXPECT_EQ(CertificateText(values).size(), std::string(kHead).size() + std::string(kRows).size() +
                                                std::string(kTail).size() + (1 << 20) -
                                                std::string("a.test").size());
}

TEST(CertificateStatusText, NamesEveryFlagInTheOrderOfTheBits) {
  EXPECT_EQ(CertificateStatusText(~0u),
            "CERT_STATUS_COMMON_NAME_INVALID<br/>CERT_STATUS_DATE_INVALID<br/>"
            "CERT_STATUS_AUTHORITY_INVALID<br/>CERT_STATUS_NO_REVOCATION_MECHANISM<br/>"
            "CERT_STATUS_UNABLE_TO_CHECK_REVOCATION<br/>CERT_STATUS_REVOKED<br/>"
            "CERT_STATUS_INVALID<br/>CERT_STATUS_WEAK_SIGNATURE_ALGORITHM<br/>"
            "CERT_STATUS_NON_UNIQUE_NAME<br/>CERT_STATUS_WEAK_KEY<br/>"
            "CERT_STATUS_PINNED_KEY_MISSING<br/>CERT_STATUS_NAME_CONSTRAINT_VIOLATION<br/>"
            "CERT_STATUS_VALIDITY_TOO_LONG<br/>CERT_STATUS_IS_EV<br/>"
            "CERT_STATUS_REV_CHECKING_ENABLED<br/>CERT_STATUS_SHA1_SIGNATURE_PRESENT<br/>"
            "CERT_STATUS_CT_COMPLIANCE_FAILED<br/>");
}

TEST(CertificateStatusText, IsABlankWithoutANamedFlag) {
  EXPECT_EQ(CertificateStatusText(0), "&nbsp;");
  for (const int bit : {3, 9, 12, 18, 21, 31}) {
    EXPECT_EQ(CertificateStatusText(1u << bit), "&nbsp;") << bit;
  }
}

TEST(CertificateTimeText, NamesTheMonths) {
  const char* const months[] = {"January",   "February", "March",    "April",
                                "May",       "June",     "July",     "August",
                                "September", "October",  "November", "December"};
  for (int month = 1; month <= 12; ++month) {
    EXPECT_EQ(CertificateTimeText(CalendarTime{1999, month, 28, 12, 34, 56}),
              std::string(months[month - 1]) + " 28, 1999 12:34:56");
  }
}

TEST(CertificateTimeText, NamesAMonthThatDoesNotExistInvalid) {
  for (const int month : {0, 13, -1}) {
    EXPECT_EQ(CertificateTimeText(CalendarTime{1999, month, 1, 2, 3, 4}),
              "Invalid 1, 1999 02:03:04");
  }
}

TEST(CertificateTimeText, SaysWhyThereIsNoTime) {
  EXPECT_EQ(CertificateTimeText(NoTime::kInvalid), "Invalid");
  EXPECT_EQ(CertificateTimeText(NoTime::kUnspecified), "Unspecified");
}

TEST(CertificateTimeText, TakesAnyNumber) {
  EXPECT_EQ(CertificateTimeText(CalendarTime{-1, 1, 123, 100, -5, 9}), "January 123, -1 100:-5:09");
}

}  // namespace
}  // namespace kzcef
