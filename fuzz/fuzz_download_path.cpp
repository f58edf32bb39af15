// Fuzzes the paths of downloads, which come from hosts and pages.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>
#include <string_view>

#include "handler/download_path.h"
#include "require.h"

using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  const bool is_folder = data.ConsumeBool();
  const std::string name = data.ConsumeRandomLengthString();
  const std::string path = data.ConsumeRemainingBytesAsString();

  const std::string default_path =
      kzcef::DefaultDownloadPath<char>("C:\\Downloads", std::string_view(name));
  Require(default_path == "C:\\Downloads\\" + name, "a default path is in the folder");
  Require(kzcef::DefaultDownloadPath<char>("", std::string_view(name)).empty(),
          "there is none without a folder");

  const std::string folder(kzcef::DownloadFolderOf<char>(path));
  Require(path.starts_with(folder), "a folder begins its path");
  Require(folder == path || path.find('\\', folder.size() + 1) == std::string::npos,
          "no separator is left behind a folder");

  std::string asked;
  const std::string chosen =
      kzcef::ChosenDownloadPath<char>(path, default_path, [&](const std::string& text) {
        asked = text;
        return is_folder;
      });
  Require(chosen == default_path || chosen == path.c_str(), "one of the two is chosen");
  Require(chosen == default_path || (is_folder && !asked.empty() && chosen.starts_with(asked)),
          "the wanted one only in a folder that is there");
  Require(asked.find('\0') == std::string::npos, "what is asked about is one path");
  return 0;
}
