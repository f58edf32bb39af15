// An object of the engine's as a C++ object.
#pragma once

#include <atomic>
#include <utility>

#include "convert.h"
#include "library.h"

namespace cefbinding {

// How many objects of the engine's this side holds. For tests.
inline std::atomic_int g_library_objects = 0;

// Base of the classes that stand for the engine's objects. Owns one reference to `Struct`. Every
// method is one line: it names the function and hands its arguments on.
//
// A call gives nothing (zero, an empty text, null) when the engine's structure has no such function
// and once the engine has ended. Methods may be called on the threads that the class's own header
// names; the count may be changed on any.
template <class Class>
class LibraryObject : public Class {
 public:
  using Struct = StructOf<Class>;

  LibraryObject(const LibraryObject&) = delete;
  LibraryObject& operator=(const LibraryObject&) = delete;

  void AddRef() const override { count_.AddRef(); }
  bool Release() const override {
    const bool last = count_.Release();
    if (last) {
      delete this;
    }
    return last;
  }
  bool HasOneRef() const override {
    return count_.HasOneRef() && !EngineHasEnded() &&
           BaseOf(struct_)->has_one_ref(BaseOf(struct_)) != 0;
  }
  bool HasAtLeastOneRef() const override { return count_.HasAtLeastOneRef(); }

  // The structure with a reference for the receiver; null once the engine has ended.
  Struct* StructWithReference() const {
    if (EngineHasEnded()) {
      return nullptr;
    }
    BaseOf(struct_)->add_ref(BaseOf(struct_));
    return struct_;
  }

 protected:
  // Takes over the reference that comes with `object`.
  explicit LibraryObject(Struct* object) : struct_(object) { ++g_library_objects; }
  ~LibraryObject() override {
    --g_library_objects;
    if (!EngineHasEnded()) {
      BaseOf(struct_)->release(BaseOf(struct_));
    }
  }

  // Calls the function `member` of the structure, or of one that the structure begins with.
  template <class Owner, class R, class... Parameters, class... Arguments>
  Result<R> Call(R (CEF_CALLBACK* Owner::*member)(Owner*, Parameters...),
                 Arguments&&... arguments) const {
    static_assert(sizeof...(Parameters) == sizeof...(Arguments));
    auto* const self = reinterpret_cast<Owner*>(struct_);
    if (EngineHasEnded() || !(self->*member) || !(IsGiven(arguments) && ...)) {
      return Result<R>();
    }
    return Result<R>::Of([&] {
      return (self->*member)(
          self, Outgoing<std::remove_cvref_t<Arguments>>(arguments).template To<Parameters>()...);
    });
  }

 private:
  Struct* const struct_;
  const CefRefCount count_;
};

// Calls a function that the library exports; nothing comes of it without a library. For functions
// that need no running engine: they work before its start and after its end.
template <class R, class... Parameters, class... Arguments>
Result<R> CallLibrary(R (*capi::Functions::*member)(Parameters...), Arguments&&... arguments) {
  static_assert(sizeof...(Parameters) == sizeof...(Arguments));
  const auto function = Engine().functions.*member;
  if (!function || !(IsGiven(arguments) && ...)) {
    return Result<R>();
  }
  return Result<R>::Of([&] {
    return function(
        Outgoing<std::remove_cvref_t<Arguments>>(arguments).template To<Parameters>()...);
  });
}

// The same for functions that reach for the engine or make objects of it: nothing comes of them
// once the engine has ended.
template <class R, class... Parameters, class... Arguments>
Result<R> CallEngine(R (*capi::Functions::*member)(Parameters...), Arguments&&... arguments) {
  return EngineHasEnded() ? Result<R>()
                          : CallLibrary(member, std::forward<Arguments>(arguments)...);
}

// The structure behind `object` with a reference for the receiver; null for null, and for an object
// that is not the engine's.
template <LibrarySide Class>
StructOf<Class>* Unwrap(const CefRefPtr<Class>& object) {
  const auto* const wrapper = dynamic_cast<const LibraryObject<Class>*>(object.get());
  return wrapper ? wrapper->StructWithReference() : nullptr;
}

}  // namespace cefbinding
