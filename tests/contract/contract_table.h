// The automation contract as it was agreed with the hosts, written out by hand.
//
// It is the yardstick for the type library, so it is never derived from what it measures.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <ostream>
#include <span>

namespace contract {

struct Member {
  DISPID id;
  INVOKEKIND kind;
  const char* name;
  // Every parameter with its direction, type and name in order, as "[in] BSTR Name; ...". A put
  // accessor's only parameter has no name.
  const char* parameters;
  // Empty when the member has none.
  const char* help;
};

struct Interface {
  const char* name;
  const char* iid;
  const char* base;
  bool is_nonextensible;
  // The interface's own members in the order of their slots.
  std::span<const Member> members;
};

struct Coclass {
  const char* name;
  const char* clsid;
  const char* default_interface;
  // Whether the server has a class object for it.
  bool is_creatable;
  // The interfaces that an object of it has besides IUnknown and IDispatch, in one blank-separated
  // text; the last one is what its IDispatch describes.
  const char* answers;
};

struct Constant {
  const char* name;
  long value;
};

struct Enumeration {
  const char* name;
  const char* guid;
  std::span<const Constant> constants;
};

inline constexpr char kLibraryName[] = "KZCEFComWrapperLib";
inline constexpr char kLibraryId[] = "{F0673E78-FAF0-4477-BEB2-0EF5B0E6A7C2}";

std::span<const Interface> Interfaces();
std::span<const Coclass> Coclasses();
std::span<const Enumeration> Enumerations();

// The row of that name; throws std::out_of_range when the table has none.
const Interface& InterfaceNamed(const char* name);
const Coclass& CoclassNamed(const char* name);

// How the test framework names a row.
inline void PrintTo(const Interface& row, std::ostream* out) {
  *out << row.name;
}
inline void PrintTo(const Coclass& row, std::ostream* out) {
  *out << row.name;
}
inline void PrintTo(const Enumeration& row, std::ostream* out) {
  *out << row.name;
}

// The identifier that `text` holds in braces.
GUID Guid(const char* text);

}  // namespace contract
