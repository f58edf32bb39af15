// The four lists of texts that the chooser shows of certificates, and the dates among them.

#include "dialogs/certificate_texts.h"

#include <gmock/gmock.h>

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "recording_cef/fake_certificate.h"

namespace kzcef {
namespace {

using recording_cef::FakeCertificate;
using ::testing::AnyOf;
using ::testing::ElementsAre;

std::vector<std::string> Plain(const std::vector<CefString>& texts) {
  std::vector<std::string> plain;
  for (const CefString& text : texts) {
    plain.push_back(text.ToString());
  }
  return plain;
}

int64_t TimeOf(int year, int month, int day, int hour, int minute) {
  const cef_time_t parts = {year, month, 0, day, hour, minute, 0, 0};
  cef_basetime_t time = {};
  EXPECT_TRUE(cef_time_to_basetime(&parts, &time));
  return time.val;
}

// The expiry text of a certificate that is valid up to then.
std::string ExpiryTextOf(int64_t valid_expiry) {
  const CefRefPtr<FakeCertificate> certificate = new FakeCertificate();
  certificate->valid_expiry = valid_expiry;
  return TextsOf({certificate}).expiry_dates.at(0).ToString();
}

// The C runtime's zone, east of Greenwich.
void UseZone(const char* zone) {
  _putenv_s("TZ", zone);
  _tzset();
}

TEST(CertificateTexts, AreFourListsInTheOrderOfTheCertificates) {
  UseZone("UTC0");
  const CefRefPtr<FakeCertificate> first = new FakeCertificate("Ada", "Root \xC3\x84");
  first->serial_number = recording_cef::BinaryOf("\x01\xAB");
  first->valid_expiry = TimeOf(2031, 2, 3, 12, 0);
  const CefRefPtr<FakeCertificate> second =
      new FakeCertificate("\xD0\x9B\xD0\xB5\xD0\xBD\xD0\xB0", "%s%n");
  second->serial_number = recording_cef::BinaryOf("\xFF");
  second->valid_expiry = TimeOf(1999, 12, 31, 12, 0);
  const CertificateTexts texts = TextsOf({first, second});
  EXPECT_THAT(Plain(texts.subjects), ElementsAre("Ada", "\xD0\x9B\xD0\xB5\xD0\xBD\xD0\xB0"));
  EXPECT_THAT(Plain(texts.issuers), ElementsAre("Root \xC3\x84", "%s%n"));
  EXPECT_THAT(Plain(texts.serial_numbers), ElementsAre("01AB", "FF"));
  EXPECT_THAT(Plain(texts.expiry_dates), ElementsAre("02/03/31", "12/31/99"));
}

TEST(CertificateTexts, AreEmptyForWhatACertificateLacks) {
  const CefRefPtr<FakeCertificate> certificate = new FakeCertificate();
  certificate->subject = nullptr;
  certificate->issuer = nullptr;
  const CertificateTexts texts = TextsOf({certificate, nullptr});
  EXPECT_THAT(Plain(texts.subjects), ElementsAre("", ""));
  EXPECT_THAT(Plain(texts.issuers), ElementsAre("", ""));
  EXPECT_THAT(Plain(texts.serial_numbers), ElementsAre("", ""));
  EXPECT_EQ(texts.expiry_dates.size(), 2u);
  EXPECT_EQ(texts.expiry_dates.at(1).ToString(), "Invalid");
}

TEST(CertificateTexts, OfNoCertificatesAreEmptyLists) {
  const CertificateTexts texts = TextsOf({});
  EXPECT_TRUE(texts.subjects.empty());
  EXPECT_TRUE(texts.issuers.empty());
  EXPECT_TRUE(texts.serial_numbers.empty());
  EXPECT_TRUE(texts.expiry_dates.empty());
}

TEST(ExpiryText, IsInvalidForWhatIsNoTime) {
  EXPECT_EQ(ExpiryTextOf(-1), "Invalid");
  EXPECT_EQ(ExpiryTextOf(INT64_MIN), "Invalid");
  EXPECT_EQ(ExpiryTextOf(INT64_MAX), "Invalid");
}

// The C runtime knows no local time before 1970.
TEST(ExpiryText, IsTheLocalDate) {
  const int64_t late = TimeOf(2031, 2, 3, 23, 30);
  UseZone("UTC0");
  EXPECT_EQ(ExpiryTextOf(late), "02/03/31");
  UseZone("XXX-5");
  EXPECT_EQ(ExpiryTextOf(late), "02/04/31");
}

TEST(ExpiryText, IsWrittenAsTheLocaleHasIt) {
  UseZone("UTC0");
  ASSERT_TRUE(std::setlocale(LC_TIME, "German"));
  // Not every runtime writes the zeros.
  EXPECT_THAT(ExpiryTextOf(TimeOf(2031, 2, 3, 12, 0)), AnyOf("03.02.2031", "3.2.2031"));
}

}  // namespace
}  // namespace kzcef
