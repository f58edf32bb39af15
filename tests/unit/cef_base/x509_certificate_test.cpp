#include "base/x509_certificate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "certificates/real_certificates.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using certificates::Der;
using certificates::kAuthority;
using certificates::kNameless;
using certificates::kServer;
using certificates::kUnit;

std::vector<uint8_t> Bytes(CefRefPtr<CefBinaryValue> value) {
  std::vector<uint8_t> bytes(value->GetSize());
  value->GetData(bytes.data(), bytes.size(), 0);
  return bytes;
}

std::string Text(CefRefPtr<CefBinaryValue> value) {
  const std::vector<uint8_t> bytes = Bytes(value);
  return {bytes.begin(), bytes.end()};
}

std::vector<std::string> Names(const std::vector<CefString>& names) {
  return {names.begin(), names.end()};
}

std::string When(CefBaseTime time) {
  cef_time_t parts = {};
  EXPECT_TRUE(cef_time_from_basetime(time, &parts));
  char text[32];
  std::snprintf(text, sizeof(text), "%04d-%02d-%02d %02d:%02d:%02d", parts.year, parts.month,
                parts.day_of_month, parts.hour, parts.minute, parts.second);
  return text;
}

TEST(X509CertificateTest, NamesAreTold) {
  const auto certificate = MakeX509Certificate({Der(kServer)});
  ASSERT_TRUE(certificate);
  const auto subject = certificate->GetSubject();
  EXPECT_EQ(subject->GetDisplayName().ToString(), "intranet.test");
  EXPECT_EQ(subject->GetCommonName().ToString(), "intranet.test");
  EXPECT_EQ(subject->GetCountryName().ToString(), "DE");
  EXPECT_EQ(subject->GetStateOrProvinceName().ToString(), "Hesse");
  EXPECT_EQ(subject->GetLocalityName().ToString(), "Frankfurt am Main");
  std::vector<CefString> names;
  subject->GetOrganizationNames(names);
  EXPECT_THAT(Names(names), ElementsAre("M\xC3\xBCller & Co"));
  subject->GetOrganizationUnitNames(names);
  EXPECT_THAT(Names(names), ElementsAre("One", "Two"));
}

TEST(X509CertificateTest, WithoutCommonNameTheOrganizationIsDisplayed) {
  const auto issuer = MakeX509Certificate({Der(kServer)})->GetIssuer();
  EXPECT_EQ(issuer->GetDisplayName().ToString(), "Alpha Authority");
  EXPECT_EQ(issuer->GetCommonName().ToString(), "");
  std::vector<CefString> names;
  issuer->GetOrganizationNames(names);
  EXPECT_THAT(Names(names), ElementsAre("Alpha Authority", "Second Name"));
}

TEST(X509CertificateTest, WithoutOrganizationTheUnitIsDisplayed) {
  EXPECT_EQ(MakeX509Certificate({Der(kUnit)})->GetSubject()->GetDisplayName().ToString(),
            "Only Unit");
}

TEST(X509CertificateTest, OtherNamesAreNotDisplayed) {
  const auto subject = MakeX509Certificate({Der(kNameless)})->GetSubject();
  EXPECT_EQ(subject->GetDisplayName().ToString(), "");
  EXPECT_EQ(subject->GetLocalityName().ToString(), "Nowhere");
}

TEST(X509CertificateTest, SerialNumberBeginsWithItsHighestByte) {
  const std::vector<uint8_t> serial = Bytes(MakeX509Certificate({Der(kServer)})->GetSerialNumber());
  ASSERT_GE(serial.size(), 8u);
  EXPECT_THAT(std::vector<uint8_t>(serial.end() - 8, serial.end()),
              ElementsAre(0x81, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08));
  EXPECT_THAT(Bytes(MakeX509Certificate({Der(kAuthority)})->GetSerialNumber()), ElementsAre(1));
}

TEST(X509CertificateTest, ValidityIsTold) {
  const auto certificate = MakeX509Certificate({Der(kServer)});
  EXPECT_EQ(When(certificate->GetValidStart()), "2026-11-21 22:42:47");
  EXPECT_EQ(When(certificate->GetValidExpiry()), "2036-11-18 22:42:47");
}

TEST(X509CertificateTest, BothEncodingsAreTold) {
  const auto certificate = MakeX509Certificate({Der(kServer)});
  EXPECT_EQ(Bytes(certificate->GetDEREncoded()), Der(kServer));
  const std::string pem = Text(certificate->GetPEMEncoded());
  const std::string text = kServer;
  EXPECT_TRUE(pem.starts_with("-----BEGIN CERTIFICATE-----\n" + text.substr(0, 64) + "\n" +
                              text.substr(64, 64) + "\n"));
  EXPECT_TRUE(pem.ends_with("\n-----END CERTIFICATE-----\n"));
}

TEST(X509CertificateTest, ChainHoldsTheIssuersOnly) {
  const auto certificate = MakeX509Certificate({Der(kServer), Der(kAuthority)});
  EXPECT_EQ(certificate->GetIssuerChainSize(), 1u);
  CefX509Certificate::IssuerChainBinaryList chain;
  certificate->GetDEREncodedIssuerChain(chain);
  ASSERT_EQ(chain.size(), 1u);
  EXPECT_EQ(Bytes(chain.front()), Der(kAuthority));
  certificate->GetPEMEncodedIssuerChain(chain);
  ASSERT_EQ(chain.size(), 1u);
  EXPECT_TRUE(Text(chain.front()).starts_with("-----BEGIN CERTIFICATE-----\n"));
}

TEST(X509CertificateTest, ACertificateAloneHasNoChain) {
  const auto certificate = MakeX509Certificate({Der(kAuthority)});
  EXPECT_EQ(certificate->GetIssuerChainSize(), 0u);
  CefX509Certificate::IssuerChainBinaryList chain(3);
  certificate->GetDEREncodedIssuerChain(chain);
  EXPECT_THAT(chain, IsEmpty());
}

TEST(X509CertificateTest, WhatIsNoCertificateIsRefused) {
  EXPECT_FALSE(MakeX509Certificate({}));
  EXPECT_FALSE(MakeX509Certificate({{}}));
  EXPECT_FALSE(MakeX509Certificate({{1, 2, 3}}));
  DerCertificate half = Der(kServer);
  half.resize(half.size() / 2);
  EXPECT_FALSE(MakeX509Certificate({half}));
}

}  // namespace
}  // namespace cefedition
