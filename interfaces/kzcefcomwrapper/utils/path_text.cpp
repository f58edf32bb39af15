// Works on the texts alone, so paths may be of any length and need not exist.

#include "utils/path_text.h"

#include <cstddef>

#include "utils/text.h"

namespace kzcef {

std::string DoubleSeparators(std::string_view path) {
  return ReplaceAll(ReplaceAll(path, "\\", "\\\\"), "/", "//");
}

std::string PathStem(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  const std::string_view name =
      separator == std::string_view::npos ? path : path.substr(separator + 1);
  const std::size_t dot = name.rfind('.');
  return std::string(dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot));
}

template <typename Char>
std::basic_string<Char> FolderOrDot(std::basic_string_view<Char> path) {
  const std::size_t separator = path.rfind(Char('\\'));
  if (separator == std::basic_string_view<Char>::npos || separator == 0) {
    return std::basic_string<Char>(1, Char('.'));
  }
  return std::basic_string<Char>(path.substr(0, separator));
}

template <typename Char>
std::basic_string<Char> SubprocessPathBeside(std::basic_string_view<Char> module_file_name) {
  constexpr std::string_view kProgram = "\\kzCefSubProc.exe";
  const std::size_t separator = module_file_name.rfind(Char('\\'));
  std::basic_string<Char> path;
  if (separator != std::basic_string_view<Char>::npos) {
    path = module_file_name.substr(0, separator);
  }
  return path.append(kProgram.begin(), kProgram.end());
}

std::string CacheFolderBelow(std::string_view temporary_folder) {
  std::string folder(temporary_folder);
  if (!folder.ends_with('\\')) {
    folder += '\\';
  }
  return folder + "CefCache";
}

std::vector<std::string> CacheCandidates(std::string_view base, std::string_view stem) {
  constexpr int kNumbered = 50;
  std::vector<std::string> candidates = {std::string(base)};
  const std::string prefix = std::string(base).append("\\").append(stem).append("_");
  for (int i = 1; i <= kNumbered; ++i) {
    candidates.push_back(prefix + std::to_string(i));
  }
  return candidates;
}

template std::basic_string<char16_t> FolderOrDot(std::basic_string_view<char16_t> path);
template std::basic_string<wchar_t> FolderOrDot(std::basic_string_view<wchar_t> path);
template std::basic_string<char16_t> SubprocessPathBeside(
    std::basic_string_view<char16_t> module_file_name);
template std::basic_string<wchar_t> SubprocessPathBeside(
    std::basic_string_view<wchar_t> module_file_name);

}  // namespace kzcef
