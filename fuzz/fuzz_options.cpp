// Fuzzes the sample host's command line.
#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <string>
#include <variant>
#include <vector>

#include "portable/options.h"
#include "require.h"

using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  static const std::array<std::string, 12> kWords = {
      "--events", "--run",    "--late-bound", "--screenshot", "--help",    "--console",
      "--quit",   "--server", "--cache",      "--size",       "--timeout", "800x600"};
  FuzzedDataProvider data(bytes, size);
  std::vector<std::string> arguments;
  while (data.remaining_bytes() > 0)
    arguments.push_back(data.ConsumeBool() ? data.PickValueInArray(kWords)
                                           : data.ConsumeRandomLengthString(32));
  const auto read = kzhost::ParseOptions(arguments);
  if (const auto* complaint = std::get_if<std::string>(&read)) {
    Require(!complaint->empty(), "a complaint says what is wrong");
    return 0;
  }
  const auto& options = std::get<kzhost::Options>(read);
  Require(options.view_width > 0 && options.view_height > 0, "a view has a size");
  Require(options.timeout.count() > 0, "there is time to wait");
  return 0;
}
