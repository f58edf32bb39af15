// Cutting and joining Windows paths as texts, without asking the file system. The same rules hold
// for narrow and wide texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kzcef {

// Returns `path` with every "\" and every "/" doubled, as lock files hold it.
std::string DoubleSeparators(std::string_view path);

// Returns the file name in `path`, behind the last "/" or "\", without its last "." and what
// follows. A name that has no dot, or only one at its beginning, stays whole.
std::string PathStem(std::string_view path);

// Returns `path` up to its last "\"; "." when there is none after the first character.
template <typename Char>
std::basic_string<Char> FolderOrDot(std::basic_string_view<Char> path);

// Returns the path of the sub-process program beside the module with this file name. For a name
// without a "\" the folder is empty, which makes it a path from the root of the drive.
template <typename Char>
std::basic_string<Char> SubprocessPathBeside(std::basic_string_view<Char> module_file_name);

// Returns the folder for the engine's cache below a folder for temporary files.
std::string CacheFolderBelow(std::string_view temporary_folder);

// Returns the cache directories to try, in this order: `base` itself, then 50 numbered ones in it,
// which carry the name of the host program.
std::vector<std::string> CacheCandidates(std::string_view base, std::string_view stem);

extern template std::basic_string<char16_t> FolderOrDot(std::basic_string_view<char16_t> path);
extern template std::basic_string<wchar_t> FolderOrDot(std::basic_string_view<wchar_t> path);
extern template std::basic_string<char16_t> SubprocessPathBeside(
    std::basic_string_view<char16_t> module_file_name);
extern template std::basic_string<wchar_t> SubprocessPathBeside(
    std::basic_string_view<wchar_t> module_file_name);

}  // namespace kzcef
