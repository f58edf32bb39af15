// Cuts and joins the paths of downloads, for both kinds of text.

#include "handler/download_path.h"

#include <cstddef>

namespace kzcef {

template <typename Char>
std::basic_string<Char> DefaultDownloadPath(std::basic_string_view<Char> folder,
                                            std::basic_string_view<Char> name) {
  if (folder.empty()) {
    return {};
  }
  return std::basic_string<Char>(folder).append(1, Char('\\')).append(name);
}

template <typename Char>
std::basic_string_view<Char> DownloadFolderOf(std::basic_string_view<Char> path) {
  const std::size_t separator = path.rfind(Char('\\'));
  if (separator == std::basic_string_view<Char>::npos) {
    return {};
  }
  return separator + 1 == path.size() ? path : path.substr(0, separator);
}

template std::basic_string<char> DefaultDownloadPath(std::basic_string_view<char> folder,
                                                     std::basic_string_view<char> name);
template std::basic_string<wchar_t> DefaultDownloadPath(std::basic_string_view<wchar_t> folder,
                                                        std::basic_string_view<wchar_t> name);
template std::basic_string_view<char> DownloadFolderOf(std::basic_string_view<char> path);
template std::basic_string_view<wchar_t> DownloadFolderOf(std::basic_string_view<wchar_t> path);

}  // namespace kzcef
