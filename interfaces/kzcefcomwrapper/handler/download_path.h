// Where a download goes, worked out on texts alone. The same rules hold for narrow and wide texts.
#pragma once

#include <string>
#include <string_view>

namespace kzcef {

// Returns the path of the file `name` in the Downloads folder `folder`; empty when `folder` is
// empty, because it could not be obtained.
template <typename Char>
std::basic_string<Char> DefaultDownloadPath(std::basic_string_view<Char> folder,
                                            std::basic_string_view<Char> name);

// Returns the folder part of `path`: what comes before its last "\", or all of it when it ends with
// one. Empty, which is no folder, for a name alone.
template <typename Char>
std::basic_string_view<Char> DownloadFolderOf(std::basic_string_view<Char> path);

// Returns the path at which a download continues: `wanted`, the host's, up to its first null, if
// `is_folder` (a predicate over a text) is true of its folder part; `default_path` otherwise.
// `is_folder` is not asked about an empty text.
template <typename Char, typename Predicate>
std::basic_string<Char> ChosenDownloadPath(std::basic_string_view<Char> wanted,
                                           std::basic_string_view<Char> default_path,
                                           Predicate&& is_folder) {
  // Files are opened by texts that end there; the folder that is checked and the path that is used
  // must not differ.
  const std::basic_string_view<Char> path = wanted.substr(0, wanted.find(Char('\0')));
  const std::basic_string<Char> folder(DownloadFolderOf(path));
  return std::basic_string<Char>(!folder.empty() && is_folder(folder) ? path : default_path);
}

extern template std::basic_string<char> DefaultDownloadPath(std::basic_string_view<char> folder,
                                                            std::basic_string_view<char> name);
extern template std::basic_string<wchar_t> DefaultDownloadPath(
    std::basic_string_view<wchar_t> folder,
    std::basic_string_view<wchar_t> name);
extern template std::basic_string_view<char> DownloadFolderOf(std::basic_string_view<char> path);
extern template std::basic_string_view<wchar_t> DownloadFolderOf(
    std::basic_string_view<wchar_t> path);

}  // namespace kzcef
