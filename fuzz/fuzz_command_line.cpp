// Command lines of hosts, cut into words and put together again.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstring>
#include <string>
#include <vector>

#include "command_line_text.h"
#include "require.h"

using kzfuzz::Require;

namespace {

std::u16string Join(const std::vector<std::u16string>& words) {
  std::u16string line = cefedition::QuoteProgram(words.front());
  for (size_t at = 1; at < words.size(); ++at)
    line += u" " + cefedition::QuoteWord(words[at]);
  return line;
}

std::u16string ConsumeWord(FuzzedDataProvider& data) {
  const std::string text = data.ConsumeRandomLengthString(32);
  std::u16string word(text.begin(), text.end());
  std::erase(word, u'\0');
  return word;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  std::u16string program = ConsumeWord(data);
  std::erase(program, u'"');  // no file name holds one
  std::vector<std::u16string> words = {u"p" + program};
  for (int left = data.ConsumeIntegralInRange(0, 6); left > 0; --left)
    words.push_back(ConsumeWord(data));
  Require(cefedition::SplitCommandLine(Join(words)) == words, "quoted words come back");

  const std::string rest = data.ConsumeRemainingBytesAsString();
  const std::u16string line(rest.begin(), rest.end());
  std::vector<std::u16string> cut = cefedition::SplitCommandLine(line);
  if (!cut.empty() && !cut.front().empty() && cut.front().front() > u' ') {
    std::erase(cut.front(), u'"');
    if (!cut.front().empty())
      Require(cefedition::SplitCommandLine(Join(cut)) == cut, "cut words come back");
  }
  return 0;
}
