// Where this program lies.
#pragma once

#include <string>

namespace kzbench {

std::wstring ProgramPath();

// The path of the file called `name` in the program's folder.
std::wstring BesideThisProgram(const std::wstring& name);

}  // namespace kzbench
