// An object of this side as the engine sees it.
#pragma once

#include <atomic>
#include <utility>

#include "convert.h"
#include "log.h"

namespace cefbinding {

// How many objects of this side the engine holds. For tests.
inline std::atomic_int g_client_objects = 0;

// A structure of functions that the engine calls, with one reference to the object that they lead
// to. Counted by the engine, on any thread, and deleted with the last reference.
template <class Class>
class ClientObject final : public StructOf<Class> {
 public:
  using Struct = StructOf<Class>;

  ClientObject(const ClientObject&) = delete;
  ClientObject& operator=(const ClientObject&) = delete;

  // A structure for `object` with one reference for the engine; null for null.
  static Struct* Wrap(CefRefPtr<Class> object) {
    if (!object) {
      return nullptr;
    }
    auto* const structure = new ClientObject(std::move(object));
    structure->count_.AddRef();
    return structure;
  }

  // The object behind `structure`, whose reference is taken over; null for null, and for a
  // structure that is not of this side.
  static CefRefPtr<Class> Unwrap(Struct* structure) {
    if (!structure || BaseOf(structure)->release != &ReleaseStruct) {
      return nullptr;
    }
    CefRefPtr<Class> object = ObjectOf(structure);
    ReleaseStruct(BaseOf(structure));
    return object;
  }

  static const CefRefPtr<Class>& ObjectOf(Struct* structure) {
    return static_cast<ClientObject*>(structure)->object_;
  }

 private:
  explicit ClientObject(CefRefPtr<Class> object) : Struct{}, object_(std::move(object)) {
    ++g_client_objects;
    *BaseOf(static_cast<Struct*>(this)) = {sizeof(Struct), &AddRefStruct, &ReleaseStruct,
                                           &HasOneRefStruct, &HasAtLeastOneRefStruct};
    Counterpart<Class>::Bind(*this);
  }
  ~ClientObject() { --g_client_objects; }

  static ClientObject* From(capi::cef_base_ref_counted_t* self) {
    return static_cast<ClientObject*>(reinterpret_cast<Struct*>(self));
  }
  static void CEF_CALLBACK AddRefStruct(capi::cef_base_ref_counted_t* self) {
    From(self)->count_.AddRef();
  }
  static int CEF_CALLBACK ReleaseStruct(capi::cef_base_ref_counted_t* self) {
    ClientObject* const object = From(self);
    const bool last = object->count_.Release();
    if (last) {
      delete object;
    }
    return last;
  }
  static int CEF_CALLBACK HasOneRefStruct(capi::cef_base_ref_counted_t* self) {
    return From(self)->count_.HasOneRef();
  }
  static int CEF_CALLBACK HasAtLeastOneRefStruct(capi::cef_base_ref_counted_t* self) {
    return From(self)->count_.HasAtLeastOneRef();
  }

  const CefRefPtr<Class> object_;
  CefRefCount count_;
};

// The function behind one member of a structure: turns the arguments into C++, calls `Method` and
// turns its result back. An exception ends here: it is logged, and the engine gets zero.
template <auto Method, class Signature>
struct Entry;

template <class Class,
          class R,
          class... Arguments,
          R (Class::*Method)(Arguments...),
          class Struct,
          class CR,
          class... Parameters>
struct Entry<Method, CR(CEF_CALLBACK*)(Struct*, Parameters...)> {
  static_assert(sizeof...(Parameters) == sizeof...(Arguments));

  static CR CEF_CALLBACK Call(Struct* self, Parameters... parameters) {
    return Contain([&]() -> CR {
      Class& object = *ClientObject<Class>::ObjectOf(self);
      if constexpr (std::is_void_v<R>) {
        (object.*Method)(Incoming<Arguments>(parameters).Get()...);
      } else {
        return ToEngine<CR>((object.*Method)(Incoming<Arguments>(parameters).Get()...));
      }
    });
  }
};

// Lets `member` of a structure lead to `Method`.
template <auto Method, class Signature>
void Bind(Signature& member) {
  member = &Entry<Method, Signature>::Call;
}

// What such a function does, for members whose arguments are not those of `Method`.
template <auto Method, class R, class Struct, class... Parameters>
R CallEntry(Struct* self, Parameters... parameters) {
  return Entry<Method, R(CEF_CALLBACK*)(Struct*, Parameters...)>::Call(self, parameters...);
}

template <ClientSide Class>
StructOf<Class>* Unwrap(const CefRefPtr<Class>& object) {
  return ClientObject<Class>::Wrap(object);
}

}  // namespace cefbinding
