#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cefedition {

// Splits a Windows command line into its words as the C runtime and CommandLineToArgvW do: the
// first word, the program, knows quotes but no backslash escapes. White space before the program
// is skipped; an empty text has no words.
std::vector<std::u16string> SplitCommandLine(std::u16string_view command_line);

// Quotes a word so that SplitCommandLine gives it back, where that is necessary.
std::u16string QuoteWord(std::u16string_view word);

// The same for the program, whose backslashes need no care.
std::u16string QuoteProgram(std::u16string_view program);

}  // namespace cefedition
