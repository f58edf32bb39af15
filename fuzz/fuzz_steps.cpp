// Fuzzes the reader of steps files, which people write by hand.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <string>
#include <variant>
#include <vector>

#include "portable/steps_reader.h"
#include "require.h"

using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  const std::string text(reinterpret_cast<const char*>(bytes), size);
  const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
  const auto read = kzhost::ReadSteps(text);
  if (const auto* error = std::get_if<kzhost::StepsError>(&read)) {
    Require(error->line >= 1 && error->line <= lines, "an error names a line of the file");
    Require(!error->message.empty(), "an error says what is wrong");
    return 0;
  }
  const auto& steps = std::get<std::vector<kzhost::Step>>(read);
  std::string rewritten;
  int last = 0;
  for (const kzhost::Step& step : steps) {
    Require(step.line > last && step.line <= lines, "steps stand in the file's order");
    last = step.line;
    Require(step.Timeout().count() >= 0, "no step waits for less than nothing");
    rewritten += step.members.dump() + "\r\n";
  }
  const auto again = kzhost::ReadSteps(rewritten);
  const auto* reread = std::get_if<std::vector<kzhost::Step>>(&again);
  Require(reread && reread->size() == steps.size(), "what was read is read again");
  for (size_t at = 0; at < steps.size(); ++at) {
    Require((*reread)[at].verb == steps[at].verb && (*reread)[at].members == steps[at].members,
            "a step stays what it is");
  }
  return 0;
}
