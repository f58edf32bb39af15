// Which structure of the C API stands behind which class, and on whose side its objects live.
//
// An object of the engine's (a browser, a request) reaches this side as a structure of functions
// and is wrapped in a LibraryObject. An object of this side (a handler, a visitor, a task) is
// wrapped in a ClientObject, whose structure the engine calls. Each class has one line in
// classes.h.
#pragma once

#include "c_api.h"
#include "include/cef_base.h"

namespace cefbinding {

template <class Class>
struct Counterpart;

// The engine makes the objects. Each class defines Wrap beside its LibraryObject.
template <class Class, class Structure>
struct LibraryClass {
  using Struct = Structure;
  static constexpr bool kIsLibrarys = true;
  // Takes over the reference that comes with `object`, which is not null.
  static CefRefPtr<Class> Wrap(Struct* object);
};

// This side makes the objects. Each class defines Bind, which fills in the functions that lead to
// its methods.
template <class Class, class Structure>
struct ClientClass {
  using Struct = Structure;
  static constexpr bool kIsLibrarys = false;
  static void Bind(Struct& functions);
};

template <class Class>
using StructOf = typename Counterpart<Class>::Struct;

template <class Class>
concept LibrarySide = Counterpart<Class>::kIsLibrarys;

template <class Class>
concept ClientSide = !Counterpart<Class>::kIsLibrarys;

// What every structure begins with.
template <class Struct>
capi::cef_base_ref_counted_t* BaseOf(Struct* object) {
  return reinterpret_cast<capi::cef_base_ref_counted_t*>(object);
}

}  // namespace cefbinding
