// The text about the certificate of a site that was refused.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace kzcef {

// A UTC time; months are 1 to 12.
struct CalendarTime {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Why a certificate's time has no calendar time to show.
enum class NoTime {
  // It is no time that a calendar has.
  kInvalid,
  // It stands for no time at all.
  kUnspecified,
};

using CertificateTime = std::variant<CalendarTime, NoTime>;

// Bytes as base64; nothing where a certificate has none.
using Base64 = std::optional<std::string>;

// What the text is made of. Names are UTF-8 and empty where a certificate has none; they go into
// the text as they are.
struct CertificateValues {
  // CEF's flags, 0 for a certificate that nothing is said about.
  uint32_t status = 0;
  std::string subject;
  std::string issuer;
  Base64 serial_number;
  CertificateTime valid_start = NoTime::kUnspecified;
  CertificateTime valid_expiry = NoTime::kUnspecified;
  // One entry per certificate of the chain.
  std::vector<Base64> der_chain;
  std::vector<Base64> pem_chain;
};

// Returns the names of the flags that are set in `status`, in ascending order of their bits, each
// followed by "<br/>"; "&nbsp;" when none of the set flags has a name.
std::string CertificateStatusText(uint32_t status);

// Returns a text such as "March 7, 2024 09:05:00" for a time, "Invalid" or "Unspecified" for none.
// A month that does not exist has the name "Invalid".
std::string CertificateTimeText(const CertificateTime& time);

// Returns the whole text, an HTML table in UTF-8.
std::string CertificateText(const CertificateValues& values);

}  // namespace kzcef
