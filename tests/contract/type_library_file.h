// A type library's members read from the file itself.
//
// ITypeInfo finds documentation by member identifier only, and a property's two accessors share
// one: the put accessor's help string is out of its reach, and so is the absence of a name.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace contract {

struct FileMember {
  DISPID id;
  INVOKEKIND kind;
  std::string name;
  std::string help;
  // Empty for a parameter without a name.
  std::vector<std::string> parameter_names;
};

// The members of every interface by the interface's name, in the order of the file. Throws
// std::out_of_range when `file` is no type library in the MSFT format.
std::map<std::string, std::vector<FileMember>> MembersInFile(std::span<const std::byte> file);

}  // namespace contract
