// Writes the rows of the table. Works on plain values and texts only, so that it can be tested with
// any certificate.

#include "handler/certificate_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace kzcef {
namespace {

struct StatusFlag {
  uint32_t bit;
  std::string_view name;
};

constexpr std::array kStatusFlags = {
    StatusFlag{1u << 0, "CERT_STATUS_COMMON_NAME_INVALID"},
    StatusFlag{1u << 1, "CERT_STATUS_DATE_INVALID"},
    StatusFlag{1u << 2, "CERT_STATUS_AUTHORITY_INVALID"},
    StatusFlag{1u << 4, "CERT_STATUS_NO_REVOCATION_MECHANISM"},
    StatusFlag{1u << 5, "CERT_STATUS_UNABLE_TO_CHECK_REVOCATION"},
    StatusFlag{1u << 6, "CERT_STATUS_REVOKED"},
    StatusFlag{1u << 7, "CERT_STATUS_INVALID"},
    StatusFlag{1u << 8, "CERT_STATUS_WEAK_SIGNATURE_ALGORITHM"},
    StatusFlag{1u << 10, "CERT_STATUS_NON_UNIQUE_NAME"},
    StatusFlag{1u << 11, "CERT_STATUS_WEAK_KEY"},
    StatusFlag{1u << 13, "CERT_STATUS_PINNED_KEY_MISSING"},
    StatusFlag{1u << 14, "CERT_STATUS_NAME_CONSTRAINT_VIOLATION"},
    StatusFlag{1u << 15, "CERT_STATUS_VALIDITY_TOO_LONG"},
    StatusFlag{1u << 16, "CERT_STATUS_IS_EV"},
    StatusFlag{1u << 17, "CERT_STATUS_REV_CHECKING_ENABLED"},
    StatusFlag{1u << 19, "CERT_STATUS_SHA1_SIGNATURE_PRESENT"},
    StatusFlag{1u << 20, "CERT_STATUS_CT_COMPLIANCE_FAILED"},
};

constexpr std::array<std::string_view, 12> kMonths = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

constexpr std::string_view kNothing = "&nbsp;";
constexpr std::string_view kInvalid = "Invalid";
// Of a cell whose value may be long.
constexpr std::string_view kScrolling = " style=\"max-width:800px;overflow:scroll;\"";

std::string TwoDigits(int value) {
  return (value >= 0 && value < 10 ? "0" : "") + std::to_string(value);
}

std::string CalendarText(const CalendarTime& time) {
  const bool has_name = time.month >= 1 && time.month <= static_cast<int>(kMonths.size());
  std::string text(has_name ? kMonths[static_cast<std::size_t>(time.month - 1)] : kInvalid);
  text.append(" ").append(std::to_string(time.day));
  text.append(", ").append(std::to_string(time.year));
  text.append(" ").append(TwoDigits(time.hour));
  text.append(":").append(TwoDigits(time.minute));
  text.append(":").append(TwoDigits(time.second));
  return text;
}

void AppendRow(std::string& text,
               std::string_view field,
               std::string_view value,
               std::string_view attributes = {}) {
  text.append("<tr><td>").append(field).append("</td><td").append(attributes).append(">");
  text.append(value).append("</td></tr>");
}

// A missing entry of the shorter chain is shown as a missing value.
std::string_view EntryOf(const std::vector<Base64>& chain, std::size_t index) {
  return index < chain.size() && chain[index] ? std::string_view(*chain[index]) : kNothing;
}

}  // namespace

std::string CertificateStatusText(uint32_t status) {
  std::string text;
  for (const StatusFlag& flag : kStatusFlags) {
    if (status & flag.bit) {
      text.append(flag.name).append("<br/>");
    }
  }
  return text.empty() ? std::string(kNothing) : text;
}

std::string CertificateTimeText(const CertificateTime& time) {
  if (const auto* const calendar = std::get_if<CalendarTime>(&time)) {
    return CalendarText(*calendar);
  }
  return std::get<NoTime>(time) == NoTime::kInvalid ? std::string(kInvalid) : "Unspecified";
}

std::string CertificateText(const CertificateValues& values) {
  std::string text(
      "<h3>X.509 Certificate Information:</h3><table border=1><tr><th>Field</th><th>Value</th>"
      "</tr>");
  if (values.status != 0) {
    AppendRow(text, "Status", CertificateStatusText(values.status));
  }
  AppendRow(text, "Subject", values.subject);
  AppendRow(text, "Issuer", values.issuer);
  AppendRow(text, "Serial #*", values.serial_number ? *values.serial_number : kNothing);
  AppendRow(text, "Valid Start", CertificateTimeText(values.valid_start));
  AppendRow(text, "Valid Expiry", CertificateTimeText(values.valid_expiry));
  const std::size_t length = std::max(values.der_chain.size(), values.pem_chain.size());
  for (std::size_t i = 0; i < length; ++i) {
    AppendRow(text, "DER Encoded*", EntryOf(values.der_chain, i), kScrolling);
    AppendRow(text, "PEM Encoded*", EntryOf(values.pem_chain, i), kScrolling);
  }
  return text + "</table> * Displayed value is base64 encoded.";
}

}  // namespace kzcef
