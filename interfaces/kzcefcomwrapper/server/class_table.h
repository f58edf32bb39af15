// The creatable classes: what each is called, how it is registered and how it is made.
#pragma once

#include <windows.h>

#include <span>

#include "server/class_factory.h"

namespace kzcef {

// One creatable class. The rows are constant but for the cached factory.
struct ClassEntry {
  const CLSID* clsid;
  // The default value of the class's CLSID key.
  const wchar_t* description;
  ObjectCreator creator;
  // The class factory, as EncodePointer returns it; it lives until the process ends. Null before it
  // is first asked for.
  void* encoded_factory;
};

// Returns the table, in the order in which classes are registered.
std::span<ClassEntry> ClassTable() noexcept;

// Writes the class object of `clsid`, which is made on first demand, to `object`. Returns
// CLASS_E_CLASSNOTAVAILABLE when the table has no such class; otherwise what the creation of the
// factory or its QueryInterface returns. Any thread: all get the same factory.
HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept;

}  // namespace kzcef
