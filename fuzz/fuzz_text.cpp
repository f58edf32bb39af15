// Fuzzes splitting, trimming, replacing and reading numbers, against what must hold of the results
// and against slower ways to the same ones.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "require.h"
#include "utils/text.h"

using kzfuzz::Require;

namespace {

void Split(const std::string& text, char separator) {
  const std::vector<std::string> pieces = kzcef::SplitAt(text, separator);
  Require(pieces.size() == static_cast<size_t>(std::count(text.begin(), text.end(), separator)) + 1,
          "one piece more than separators");
  std::string joined = pieces.front();
  for (size_t at = 1; at < pieces.size(); ++at)
    joined += separator + pieces[at];
  Require(joined == text, "the pieces make the text");
}

void Trim(const std::string& text) {
  constexpr std::string_view kBlanks = " \n\r\t\f\v";
  const std::string trimmed = kzcef::Trim(text);
  Require(kzcef::Trim(trimmed) == trimmed, "there is nothing to trim twice");
  const size_t at = text.find_first_not_of(kBlanks);
  if (at == std::string::npos) {
    Require(trimmed.empty(), "of blanks nothing is left");
    return;
  }
  Require(text.compare(at, trimmed.size(), trimmed) == 0, "the middle stays");
  Require(text.find_first_not_of(kBlanks, at + trimmed.size()) == std::string::npos,
          "only blanks go");
}

void Replace(const std::string& text, const std::string& find, const std::string& replacement) {
  std::string expected;
  for (size_t at = 0; at < text.size();) {
    if (!find.empty() && text.compare(at, find.size(), find) == 0) {
      expected += replacement;
      at += find.size();
    } else {
      expected += text[at++];
    }
  }
  Require(kzcef::ReplaceAll(text, find, replacement) == expected, "each find is replaced once");
}

void ReadInteger(const std::string& text) {
  errno = 0;
  const long long number = std::strtoll(text.c_str(), nullptr, 10);
  const auto expected = static_cast<int>(std::clamp<long long>(
      number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
  Require(kzcef::LeadingInteger(std::string_view(text)) == expected, "as the C library reads it");
  const std::u16string wide(text.begin(), text.end());
  const bool ascii = std::all_of(text.begin(), text.end(), [](char c) { return c >= 0; });
  if (ascii) {
    Require(kzcef::LeadingInteger(std::u16string_view(wide)) == expected,
            "the same in wide characters");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  const auto separator = data.ConsumeIntegral<char>();
  const std::string find = data.ConsumeRandomLengthString(8);
  const std::string replacement = data.ConsumeRandomLengthString(16);
  const std::string text = data.ConsumeRemainingBytesAsString();
  Split(text, separator);
  Trim(text);
  Replace(text, find, replacement);
  ReadInteger(text);
  return 0;
}
