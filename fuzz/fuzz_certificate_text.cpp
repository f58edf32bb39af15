// Fuzzes the text about a certificate, which takes what anybody's certificate says.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "handler/certificate_text.h"
#include "require.h"

using kzfuzz::Require;

namespace {

size_t Count(const std::string& text, const std::string& part) {
  size_t count = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

kzcef::CertificateTime AnyTime(FuzzedDataProvider& data) {
  if (data.ConsumeBool())
    return data.ConsumeBool() ? kzcef::NoTime::kInvalid : kzcef::NoTime::kUnspecified;
  kzcef::CalendarTime time;
  for (int* part : {&time.year, &time.month, &time.day, &time.hour, &time.minute, &time.second})
    *part = data.ConsumeBool() ? data.ConsumeIntegralInRange(-1, 60) : data.ConsumeIntegral<int>();
  return time;
}

kzcef::Base64 AnyBytes(FuzzedDataProvider& data) {
  if (data.ConsumeBool())
    return std::nullopt;
  return data.ConsumeRandomLengthString(64);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  kzcef::CertificateValues values;
  values.status = data.ConsumeIntegral<uint32_t>();
  values.serial_number = AnyBytes(data);
  values.valid_start = AnyTime(data);
  values.valid_expiry = AnyTime(data);
  for (size_t i = data.ConsumeIntegralInRange<size_t>(0, 4); i > 0; --i)
    values.der_chain.push_back(AnyBytes(data));
  for (size_t i = data.ConsumeIntegralInRange<size_t>(0, 4); i > 0; --i)
    values.pem_chain.push_back(AnyBytes(data));
  values.subject = data.ConsumeRandomLengthString();
  values.issuer = data.ConsumeRemainingBytesAsString();

  const std::string text = kzcef::CertificateText(values);
  const std::string head =
      "<h3>X.509 Certificate Information:</h3><table border=1>"
      "<tr><th>Field</th><th>Value</th></tr>";
  Require(text.starts_with(head) && text.ends_with("</table> * Displayed value is base64 encoded."),
          "a text is whole");
  Require(text.find("<td>" + values.subject + "</td>") != std::string::npos &&
              text.find("<td>" + values.issuer + "</td>") != std::string::npos,
          "names are taken as they are");
  const size_t chain = std::max(values.der_chain.size(), values.pem_chain.size());
  Require(Count(text, "DER Encoded*") >= chain && Count(text, "PEM Encoded*") >= chain,
          "every certificate of the chain is there");
  Require(text.starts_with(head + "<tr><td>Status</td>") == (values.status != 0),
          "only a status that is not zero is shown");
  return 0;
}
