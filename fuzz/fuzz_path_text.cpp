// Fuzzes the cutting of paths, whatever a system may call its programs and modules.
#include <fuzzer/FuzzedDataProvider.h>

#include <set>
#include <string>
#include <vector>

#include "require.h"
#include "utils/path_text.h"
#include "utils/text.h"

using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  const std::string path(reinterpret_cast<const char*>(bytes), size);

  const std::string doubled = kzcef::DoubleSeparators(path);
  Require(kzcef::ReplaceAll(kzcef::ReplaceAll(doubled, "\\\\", "\\"), "//", "/") == path,
          "doubled separators can be halved again");

  const std::string stem = kzcef::PathStem(path);
  Require(stem.find_first_of("/\\") == std::string::npos, "a stem is no path");
  Require(path.find(stem) != std::string::npos, "a stem is part of its path");

  const std::u16string wide(path.begin(), path.end());
  const std::u16string folder = kzcef::FolderOrDot(std::u16string_view(wide));
  Require(folder == u"." || wide.starts_with(folder + u"\\"), "a folder begins its path");

  const std::vector<std::string> candidates = kzcef::CacheCandidates(path, stem);
  Require(candidates.size() == 51 && candidates.front() == path, "the base and fifty more");
  Require(std::set<std::string>(candidates.begin(), candidates.end()).size() == 51,
          "no two cache directories are the same");
  return 0;
}
