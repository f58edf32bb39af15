#include "command_line_text.h"

#include <algorithm>

namespace cefedition {
namespace {

constexpr std::u16string_view kBlanks = u" \t\n\v\r";

bool IsBlank(char16_t unit) {
  return kBlanks.find(unit) != std::u16string_view::npos;
}

std::u16string TakeProgram(std::u16string_view text, size_t* pos) {
  std::u16string program;
  bool quoted = false;
  for (; *pos < text.size() && (quoted || !IsBlank(text[*pos])); ++*pos) {
    if (text[*pos] == u'"') {
      quoted = !quoted;
    } else {
      program.push_back(text[*pos]);
    }
  }
  return program;
}

// Backslashes are themselves, except before a quote: there each pair is one backslash, and an odd
// one makes the quote an ordinary character. Inside quotes a doubled quote is one, too.
std::u16string TakeWord(std::u16string_view text, size_t* pos) {
  std::u16string word;
  bool quoted = false;
  while (*pos < text.size() && (quoted || !IsBlank(text[*pos]))) {
    size_t slashes = 0;
    for (; *pos < text.size() && text[*pos] == u'\\'; ++*pos) {
      ++slashes;
    }
    if (*pos == text.size() || text[*pos] != u'"') {
      word.append(slashes, u'\\');
      if (slashes == 0) {
        word.push_back(text[(*pos)++]);
      }
      continue;
    }
    word.append(slashes / 2, u'\\');
    ++*pos;
    if (slashes % 2 == 1) {
      word.push_back(u'"');
    } else if (quoted && *pos < text.size() && text[*pos] == u'"') {
      word.push_back(u'"');
      ++*pos;
    } else {
      quoted = !quoted;
    }
  }
  return word;
}

}  // namespace

std::vector<std::u16string> SplitCommandLine(std::u16string_view command_line) {
  std::vector<std::u16string> words;
  size_t pos = 0;
  const auto skip_blanks = [&] {
    while (pos < command_line.size() && IsBlank(command_line[pos])) {
      ++pos;
    }
  };
  for (skip_blanks(); pos < command_line.size(); skip_blanks()) {
    words.push_back(words.empty() ? TakeProgram(command_line, &pos) : TakeWord(command_line, &pos));
  }
  return words;
}

std::u16string QuoteWord(std::u16string_view word) {
  if (!word.empty() && word.find_first_of(u" \t\n\v\r\\\"") == std::u16string_view::npos) {
    return std::u16string(word);
  }
  std::u16string quoted = u"\"";
  size_t slashes = 0;
  for (const char16_t unit : word) {
    if (unit == u'"') {
      // Those just written once more, and one for the quote.
      quoted.append(slashes + 1, u'\\');
    }
    slashes = unit == u'\\' ? slashes + 1 : 0;
    quoted.push_back(unit);
  }
  return quoted.append(slashes, u'\\').append(u"\"");
}

std::u16string QuoteProgram(std::u16string_view program) {
  const bool plain = !program.empty() && std::none_of(program.begin(), program.end(), IsBlank);
  return plain ? std::u16string(program) : u"\"" + std::u16string(program) + u"\"";
}

}  // namespace cefedition
