// The paths of downloads: the default, the folder of a path,
// and the choice between host and default.

#include "handler/download_path.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace kzcef {
namespace {

using namespace std::string_view_literals;

TEST(DefaultDownloadPath, IsTheNameInTheFolder) {
  EXPECT_EQ(DefaultDownloadPath("C:\\Users\\a\\Downloads"sv, "file.bin"sv),
            "C:\\Users\\a\\Downloads\\file.bin");
  EXPECT_EQ(DefaultDownloadPath(L"C:\\d"sv, L"\u00E4.bin"sv), L"C:\\d\\\u00E4.bin");
  EXPECT_EQ(DefaultDownloadPath("C:\\d"sv, ""sv), "C:\\d\\");
}

TEST(DefaultDownloadPath, IsEmptyWithoutAFolder) {
  EXPECT_EQ(DefaultDownloadPath(""sv, "file.bin"sv), "");
}

TEST(DownloadFolderOf, CutsBeforeTheLastBackslash) {
  EXPECT_EQ(DownloadFolderOf("C:\\a\\b.bin"sv), "C:\\a");
  EXPECT_EQ(DownloadFolderOf("C:\\b.bin"sv), "C:");
  EXPECT_EQ(DownloadFolderOf("C:/a\\b.bin"sv), "C:/a");
}

TEST(DownloadFolderOf, IsAllOfAPathThatEndsWithABackslash) {
  EXPECT_EQ(DownloadFolderOf("C:\\a\\"sv), "C:\\a\\");
  EXPECT_EQ(DownloadFolderOf("\\"sv), "\\");
}

TEST(DownloadFolderOf, IsEmptyWithoutAFolder) {
  EXPECT_EQ(DownloadFolderOf("b.bin"sv), "");
  EXPECT_EQ(DownloadFolderOf("C:/a/b.bin"sv), "");
  EXPECT_EQ(DownloadFolderOf("\\b.bin"sv), "");
  EXPECT_EQ(DownloadFolderOf(""sv), "");
}

// What a choice asked about, and what it came to.
struct Choice {
  std::vector<std::string> folders;
  std::string path;
};

Choice Choose(std::string_view wanted, bool is_folder) {
  Choice choice;
  choice.path = ChosenDownloadPath(wanted, "default"sv, [&](const std::string& folder) {
    choice.folders.push_back(folder);
    return is_folder;
  });
  return choice;
}

TEST(ChosenDownloadPath, IsTheWantedOneInAFolderThatIsThere) {
  const Choice choice = Choose("C:\\a\\b.bin", true);
  EXPECT_EQ(choice.path, "C:\\a\\b.bin");
  EXPECT_EQ(choice.folders, std::vector<std::string>{"C:\\a"});
}

TEST(ChosenDownloadPath, IsTheDefaultWhereThereIsNoFolder) {
  const Choice choice = Choose("C:\\a\\b.bin", false);
  EXPECT_EQ(choice.path, "default");
  EXPECT_EQ(choice.folders, std::vector<std::string>{"C:\\a"});
}

TEST(ChosenDownloadPath, IsTheDefaultForAPathWithoutAFolder) {
  for (const std::string_view wanted : {""sv, "b.bin"sv, "\\b.bin"sv, "\0C:\\a\\b.bin"sv}) {
    const Choice choice = Choose(wanted, true);
    EXPECT_EQ(choice.path, "default") << wanted;
    EXPECT_TRUE(choice.folders.empty()) << wanted;
  }
}

TEST(ChosenDownloadPath, EndsAtTheFirstNull) {
  const Choice choice = Choose("C:\\a\\b.bin\0\\x\\c.bin"sv, true);
  EXPECT_EQ(choice.path, "C:\\a\\b.bin");
  EXPECT_EQ(choice.folders, std::vector<std::string>{"C:\\a"});
}

TEST(ChosenDownloadPath, MayBeAFolder) {
  const Choice choice = Choose("C:\\a\\", true);
  EXPECT_EQ(choice.path, "C:\\a\\");
  EXPECT_EQ(choice.folders, std::vector<std::string>{"C:\\a\\"});
}

TEST(ChosenDownloadPath, MayBeOfAnyLength) {
  const std::string folder = "C:" + std::string(1 << 20, '\\') + std::string(1 << 20, 'a');
  EXPECT_EQ(Choose(folder + "\\b.bin", true).path, folder + "\\b.bin");
}

}  // namespace
}  // namespace kzcef
