// Fuzzes the reader of lock files: one process writes them and another reads them, possibly after a
// crash in between.
#include <fuzzer/FuzzedDataProvider.h>

#include <stdexcept>
#include <string>

#include "require.h"
#include "utils/lock_record.h"
#include "utils/path_text.h"

using kzfuzz::Require;

namespace {

void ReadWhatWasWritten(FuzzedDataProvider& data) {
  const auto process_id = data.ConsumeIntegralInRange<uint32_t>(0, 0x7FFFFFFF);
  std::string program = data.ConsumeRandomLengthString();
  std::erase(program, '\n');
  const kzcef::LockRecord read =
      kzcef::ParseLockRecord(kzcef::FormatLockRecord(process_id, program));
  Require(static_cast<uint32_t>(read.process_id) == process_id, "the process is read back");
  Require(read.program == kzcef::DoubleSeparators(program), "the program is read back");
}

void ReadAnything(const std::string& text) {
  kzcef::LockRecord read;
  try {
    read = kzcef::ParseLockRecord(text);
  } catch (const std::invalid_argument&) {
    return;
  } catch (const std::out_of_range&) {
    return;
  }
  Require(read.program.find('\n') == std::string::npos, "a program is on one line");
  const std::string plain =
      "PID:" + std::to_string(read.process_id) + "\nPROGRAM:" + read.program + "\n";
  Require(kzcef::ParseLockRecord(plain) == read, "a record says the same when written plainly");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  if (data.ConsumeBool())
    ReadWhatWasWritten(data);
  else
    ReadAnything(data.ConsumeRemainingBytesAsString());
  return 0;
}
