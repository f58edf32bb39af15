// Fuzzes patterns with stars, against the table that textbooks fill.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>
#include <vector>

#include "portable/text_match.h"
#include "require.h"

using kzfuzz::Require;

namespace {

bool MatchesByTable(const std::string& text, const std::string& pattern) {
  std::vector<bool> row(text.size() + 1, false);
  row[0] = true;
  for (const char c : pattern) {
    std::vector<bool> next(row.size(), false);
    next[0] = c == '*' && row[0];
    for (size_t at = 1; at < row.size(); ++at)
      next[at] = c == '*' ? row[at] || next[at - 1] : row[at - 1] && text[at - 1] == c;
    row = std::move(next);
  }
  return row.back();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  const std::string pattern = data.ConsumeRandomLengthString(64);
  const std::string text = data.ConsumeRandomLengthString(256);
  Require(kzhost::MatchesText(text, pattern) == MatchesByTable(text, pattern),
          "a star stands for any run of characters");
  return 0;
}
