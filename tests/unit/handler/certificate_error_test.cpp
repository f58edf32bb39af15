// Sites whose certificate fails verification.
#include <gmock/gmock.h>

#include <new>
#include <string>

#include "include/cef_callback.h"
#include "recording_cef/fake_certificate.h"
#include "unit/handler/handler_test.h"

namespace kzcef {
namespace {

using recording_cef::FakeCertificate;
using recording_cef::FakeSslInfo;
using testing::HandlerTest;

class CountingCallback : public CefCallback {
 public:
  int continue_count = 0;
  int cancel_count = 0;

  void Continue() override { ++continue_count; }
  void Cancel() override { ++cancel_count; }

 private:
  IMPLEMENT_REFCOUNTING(CountingCallback);
};

// Fails as a certificate without memory for its results would.
class FailingSslInfo : public CefSSLInfo {
 public:
  cef_cert_status_t GetCertStatus() override { return CERT_STATUS_NONE; }
  CefRefPtr<CefX509Certificate> GetX509Certificate() override { throw std::bad_alloc(); }

 private:
  IMPLEMENT_REFCOUNTING(FailingSslInfo);
};

constexpr char kSite[] = "https://selfsigned.test/";

class CertificateErrorTest : public HandlerTest {
 protected:
  bool Error(cef_errorcode_t error, const std::string& url) {
    return handler_->OnCertificateError(browser_, error, url, information_, callback_);
  }
  void ExpectAccepted(const std::string& url) {
    EXPECT_TRUE(Error(ERR_CERT_AUTHORITY_INVALID, url)) << url;
    EXPECT_EQ(callback_->continue_count, 1);
    EXPECT_EQ(certificate_->serial_number_reads, 0);
    EXPECT_EQ(browser_->main_frame_reads, 0);
  }
  void ExpectRefused(cef_errorcode_t error, const std::string& url) {
    EXPECT_FALSE(Error(error, url)) << url;
    EXPECT_EQ(callback_->continue_count, 0);
    EXPECT_EQ(callback_->cancel_count, 0);
  }

  const CefRefPtr<FakeCertificate> certificate_ = new FakeCertificate("a.test", "Test CA");
  const CefRefPtr<FakeSslInfo> information_ = new FakeSslInfo(certificate_);
  const CefRefPtr<CountingCallback> callback_ = new CountingCallback;
};

TEST_F(CertificateErrorTest, IsAcceptedOfTheOneSiteThatSignsForItself) {
  ExpectAccepted(kSite);
}

TEST_F(CertificateErrorTest, IsAcceptedOfAllPagesOfThatSite) {
  ExpectAccepted(std::string(kSite) + "page?query#fragment");
}

TEST_F(CertificateErrorTest, IsRefusedOfThatSiteForEveryOtherReason) {
  for (const cef_errorcode_t error : {ERR_CERT_COMMON_NAME_INVALID, ERR_CERT_DATE_INVALID,
                                      ERR_CERT_REVOKED, ERR_CERT_INVALID, ERR_FAILED, ERR_NONE}) {
    ExpectRefused(error, kSite);
  }
}

TEST_F(CertificateErrorTest, IsRefusedOfEveryOtherSite) {
  for (const char* const url :
       {"", "https://a.test/", "https://selfsigned.test", "https://selfsigned.test:8443/",
        "http://selfsigned.test/", "HTTPS://selfsigned.test/", "https://Selfsigned.test/",
        " https://selfsigned.test/", "https://a.test/https://selfsigned.test/",
        "https://selfsigned.test.a.test/"}) {
    ExpectRefused(ERR_CERT_AUTHORITY_INVALID, url);
  }
}

TEST_F(CertificateErrorTest, IsRefusedForAUrlOfAnyLength) {
  ExpectRefused(ERR_CERT_AUTHORITY_INVALID, "https://" + std::string(1 << 20, 'a') + ".test/");
}

// Kept: the information is made ready, but nobody is shown it.
TEST_F(CertificateErrorTest, DeliberatelyReadsTheWholeCertificateAndShowsNothing) {
  ExpectRefused(ERR_CERT_AUTHORITY_INVALID, "https://a.test/");
  EXPECT_EQ(certificate_->subject->display_name_reads, 1);
  EXPECT_EQ(certificate_->issuer->display_name_reads, 1);
  EXPECT_EQ(certificate_->serial_number_reads, 1);
  EXPECT_EQ(certificate_->valid_start_reads, 1);
  EXPECT_EQ(certificate_->valid_expiry_reads, 1);
  EXPECT_EQ(certificate_->der_chain_reads, 1);
  EXPECT_EQ(certificate_->pem_chain_reads, 1);
  EXPECT_EQ(browser_->main_frame_reads, 1);
  EXPECT_TRUE(browser_->main_frame->loaded_urls.empty());
  EXPECT_TRUE(browser_->main_frame->loaded_requests.empty());
  EXPECT_TRUE(browser_->main_frame->scripts.empty());
}

TEST_F(CertificateErrorTest, IsRefusedWithoutACertificate) {
  information_->certificate = nullptr;
  ExpectRefused(ERR_CERT_AUTHORITY_INVALID, "https://a.test/");
}

TEST_F(CertificateErrorTest, IsRefusedWithoutInformationFrameOrBrowser) {
  browser_->has_main_frame = false;
  ExpectRefused(ERR_CERT_DATE_INVALID, "https://a.test/");
  EXPECT_FALSE(handler_->OnCertificateError(browser_, ERR_CERT_DATE_INVALID, "https://a.test/",
                                            nullptr, callback_));
  EXPECT_FALSE(handler_->OnCertificateError(nullptr, ERR_CERT_DATE_INVALID, "https://a.test/",
                                            information_, callback_));
}

TEST_F(CertificateErrorTest, IsRefusedWhenTheInformationCannotBeMade) {
  EXPECT_FALSE(handler_->OnCertificateError(browser_, ERR_CERT_DATE_INVALID, "https://a.test/",
                                            new FailingSslInfo, callback_));
  EXPECT_EQ(callback_->continue_count, 0);
}

}  // namespace
}  // namespace kzcef
