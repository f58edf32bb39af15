// Protocol messages on their way into the log.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <string>

#include "log_secrets.h"
#include "require.h"

using cefedition::WithoutSecrets;
using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  std::string before = data.ConsumeRandomLengthString();
  const std::string after = data.ConsumeRemainingBytesAsString();
  const std::string hidden = WithoutSecrets(before + after);
  Require(WithoutSecrets(hidden) == hidden, "what is hidden once is hidden");

  // Up to here a message without strings, in which nothing else can begin.
  std::erase_if(before, [](char c) { return c == '"' || c == '\\'; });
  const std::string secret = "K7secretK7";
  if ((before + after).find(secret) == std::string::npos) {
    const std::string message =
        before + R"("Proxy-Authorization":")" + secret + R"(","x":")" + after;
    Require(WithoutSecrets(message).find(secret) == std::string::npos, "the secret is hidden");
  }
  return 0;
}
