// Turns arguments and results of the C++ API into those of the C API and back, by their types.
//
//   C++                        C
//   bool, numbers, enums       int and the like
//   CefString                  cef_string_utf16_t*; as a result, a text that the receiver frees
//   CefRefPtr<T>               the structure behind T, with one reference for the receiver
//   CefRect and the like       a pointer to the same structure
//   vector<CefString>, maps    cef_string_list_t* and the like
//   T& or T* to be set         a pointer; bool travels as int, and is written back after the call
//
// A null object arrives as null on either side.
#pragma once

#include <concepts>
#include <map>
#include <type_traits>
#include <utility>
#include <vector>

#include "classes.h"
#include "include/internal/cef_types_wrappers.h"
#include "text_lists.h"

namespace cefbinding {

template <LibrarySide Class>
StructOf<Class>* Unwrap(const CefRefPtr<Class>& object);
template <ClientSide Class>
StructOf<Class>* Unwrap(const CefRefPtr<Class>& object);
template <class Class>
class ClientObject;

// The C++ object for a structure whose reference is taken over; null for null.
template <class Class>
CefRefPtr<Class> Rewrap(StructOf<Class>* structure) {
  if constexpr (LibrarySide<Class>) {
    return structure ? Counterpart<Class>::Wrap(structure) : nullptr;
  } else {
    return ClientObject<Class>::Unwrap(structure);
  }
}

// The objects of an array, whose references are taken over.
template <class Class>
std::vector<CefRefPtr<Class>> RewrapAll(const std::vector<StructOf<Class>*>& structures) {
  std::vector<CefRefPtr<Class>> objects;
  objects.reserve(structures.size());
  for (StructOf<Class>* const structure : structures) {
    objects.push_back(Rewrap<Class>(structure));
  }
  return objects;
}

// A text without which a call makes no sense: with an empty one it is not made. CEF's own wrapper
// does the same for every text that its headers do not mark as optional.
struct Needed {
  explicit Needed(const CefString& value) : text(value) {}
  const CefString& text;
};

template <class T>
bool IsGiven(const T&) {
  return true;
}
inline bool IsGiven(const Needed& needed) {
  return !needed.text.empty();
}

// ---- This side calls the engine: arguments ----

template <class T>
concept Scalar = std::is_arithmetic_v<T> || std::is_enum_v<T>;

// An argument on its way to the engine; holds what must live as long as the call, and writes back
// what the call has set.
template <class T>
class Outgoing;

template <Scalar T>
class Outgoing<T> {
 public:
  explicit Outgoing(T value) : value_(value) {}
  template <Scalar C>
  C To() const {
    return static_cast<C>(value_);
  }

 private:
  const T value_;
};

// Plain memory, handles and places for numbers: the C API knows no const.
template <class T>
requires(!TextContainer<T>) class Outgoing<T*> {
 public:
  explicit Outgoing(T* value) : value_(value) {}
  template <class C>
  C To() const {
    return const_cast<std::remove_const_t<T>*>(value_);
  }

 private:
  T* const value_;
};

template <>
class Outgoing<bool*> {
 public:
  explicit Outgoing(bool* target) : target_(target), value_(target && *target) {}
  Outgoing(const Outgoing&) = delete;
  Outgoing& operator=(const Outgoing&) = delete;
  ~Outgoing() {
    if (target_) {
      *target_ = value_ != 0;
    }
  }
  template <class C>
  int* To() {
    return target_ ? &value_ : nullptr;
  }

 private:
  bool* const target_;
  int value_;
};

template <>
class Outgoing<CefString> {
 public:
  explicit Outgoing(const CefString& text) : text_(text) {}
  template <class C>
  cef_string_utf16_t* To() const {
    // An empty text may have no structure, but is not the same as none.
    return text_.GetStruct() ? const_cast<cef_string_utf16_t*>(text_.GetStruct()) : &empty_;
  }

 private:
  const CefString& text_;
  mutable cef_string_utf16_t empty_ = {};
};

template <>
class Outgoing<Needed> : public Outgoing<CefString> {
 public:
  explicit Outgoing(const Needed& needed) : Outgoing<CefString>(needed.text) {}
};

// A text that the engine sets.
template <>
class Outgoing<CefString*> {
 public:
  explicit Outgoing(CefString* text) : text_(*text) {}
  template <class C>
  cef_string_utf16_t* To() const {
    return text_.GetWritableStruct();
  }

 private:
  CefString& text_;
};

template <class Class>
class Outgoing<CefRefPtr<Class>> {
 public:
  explicit Outgoing(const CefRefPtr<Class>& object) : object_(object) {}
  // Makes the reference that goes along with the argument.
  template <class C>
  StructOf<Class>* To() const {
    return Unwrap(object_);
  }

 private:
  const CefRefPtr<Class>& object_;
};

// Structures that both APIs share, read or written in place.
template <class T>
inline constexpr bool kIsRefPtr = false;
template <class T>
inline constexpr bool kIsRefPtr<CefRefPtr<T>> = true;
template <class T>
concept SharedStruct = std::is_class_v<T> && !TextContainer<T> && !kIsRefPtr<T>;

template <SharedStruct T>
class Outgoing<T> {
 public:
  explicit Outgoing(const T& value) : value_(value) {}
  template <class C>
  C To() const {
    return const_cast<T*>(&value_);
  }

 private:
  const T& value_;
};

template <TextContainer T>
class Outgoing<T> {
 public:
  explicit Outgoing(const T& texts) : texts_(texts) {}
  template <class C>
  C To() const {
    return texts_.get();
  }

 private:
  const EngineTexts<T> texts_;
};

// Texts that the engine sets.
template <TextContainer T>
class Outgoing<T*> {
 public:
  explicit Outgoing(T* target) : target_(*target), texts_(*target) {}
  Outgoing(const Outgoing&) = delete;
  Outgoing& operator=(const Outgoing&) = delete;
  ~Outgoing() { texts_.CopyTo(target_); }
  template <class C>
  C To() const {
    return texts_.get();
  }

 private:
  T& target_;
  const EngineTexts<T> texts_;
};

// ---- This side calls the engine: results ----

// Takes a text that the engine leaves to its receiver.
CefString TakeText(cef_string_utf16_t* text);

// What the engine returned, until the method that asked for it says which type it has: the
// description of the C API calls pointers numbers. Zero, an empty text or null by default.
template <class R>
class Result {
 public:
  Result() = default;

  template <class Call>
  static Result Of(Call call) {
    return Result(call());
  }

  template <Scalar T>
  operator T() const {
    return static_cast<T>(value_);
  }
  operator CefString() const { return TakeText(Pointer<cef_string_utf16_t>()); }
  template <class Class>
  operator CefRefPtr<Class>() const {
    return Rewrap<Class>(Pointer<StructOf<Class>>());
  }
  template <class T>
  requires(!Scalar<T>) operator T*() const { return Pointer<T>(); }

 private:
  explicit Result(R value) : value_(value) {}

  template <class T>
  T* Pointer() const {
    if constexpr (std::is_pointer_v<R>) {
      return static_cast<T*>(static_cast<void*>(value_));
    } else {
      return reinterpret_cast<T*>(static_cast<uintptr_t>(value_));
    }
  }

  R value_ = {};
};

template <>
class Result<void> {
 public:
  template <class Call>
  static Result Of(Call call) {
    call();
    return Result();
  }
};

template <class R>
requires std::is_class_v<R>
class Result<R> {
 public:
  Result() = default;
  template <class Call>
  static Result Of(Call call) {
    Result result;
    result.value_ = call();
    return result;
  }
  template <std::constructible_from<R> T>
  operator T() const {
    return T(value_);
  }

 private:
  R value_ = {};
};

// ---- The engine calls this side: arguments ----

// An argument that came from the engine; holds what the C++ side is given for the call, and writes
// back what it has set.
template <class T>
class Incoming;

template <Scalar T>
class Incoming<T> {
 public:
  template <Scalar C>
  explicit Incoming(C value) : value_(static_cast<T>(value)) {}
  T Get() const { return value_; }

 private:
  const T value_;
};

template <class T>
requires(!std::same_as<T, bool>) class Incoming<T*> {
 public:
  template <class C>
  explicit Incoming(C* value) : value_(value) {}
  T* Get() const { return value_; }

 private:
  T* const value_;
};

template <>
class Incoming<bool&> {
 public:
  explicit Incoming(int* target) : target_(target), value_(target && *target != 0) {}
  Incoming(const Incoming&) = delete;
  Incoming& operator=(const Incoming&) = delete;
  ~Incoming() {
    if (target_) {
      *target_ = value_;
    }
  }
  bool& Get() { return value_; }

 private:
  int* const target_;
  bool value_;
};

template <>
class Incoming<bool*> : public Incoming<bool&> {
 public:
  using Incoming<bool&>::Incoming;
  bool* Get() { return &Incoming<bool&>::Get(); }
};

// A number that the C++ side sets.
template <class T>
requires(std::is_arithmetic_v<T> && !std::same_as<T, bool>) class Incoming<T&> {
 public:
  explicit Incoming(T* target) : target_(target ? target : &unused_) {}
  Incoming(const Incoming&) = delete;
  Incoming& operator=(const Incoming&) = delete;
  T& Get() const { return *target_; }

 private:
  T unused_ = {};
  T* const target_;
};

template <>
class Incoming<const CefString&> {
 public:
  explicit Incoming(const cef_string_utf16_t* text) : text_(text) {}
  const CefString& Get() const { return text_; }

 private:
  const CefString text_;
};

// Set in place.
template <>
class Incoming<CefString&> {
 public:
  explicit Incoming(const cef_string_utf16_t* text) : text_(text) {}
  CefString& Get() { return text_; }

 private:
  CefString text_;
};

template <class Class>
class Incoming<CefRefPtr<Class>> {
 public:
  explicit Incoming(StructOf<Class>* structure) : object_(Rewrap<Class>(structure)) {}
  CefRefPtr<Class> Get() { return std::move(object_); }

 private:
  CefRefPtr<Class> object_;
};

// An object that the C++ side may replace: what it leaves in place stays the engine's.
template <class Class>
class Incoming<CefRefPtr<Class>&> {
 public:
  explicit Incoming(StructOf<Class>** place)
      : place_(place), object_(place ? Rewrap<Class>(*place) : nullptr), before_(object_) {}
  Incoming(const Incoming&) = delete;
  Incoming& operator=(const Incoming&) = delete;
  ~Incoming() {
    if (place_ && object_ != before_) {
      *place_ = Unwrap(object_);
    }
  }
  CefRefPtr<Class>& Get() { return object_; }

 private:
  StructOf<Class>** const place_;
  CefRefPtr<Class> object_;
  const CefRefPtr<Class> before_;
};

// A structure to be read. Its texts stay the engine's.
template <class T>
requires(std::is_class_v<T> && !TextContainer<T>) class Incoming<const T&> {
 public:
  template <class C>
  explicit Incoming(const C* structure) {
    if (structure) {
      if constexpr (requires { value_.Set(*structure, false); }) {
        value_.Set(*structure, false);
      } else {
        value_ = T(*structure);
      }
    }
  }
  const T& Get() const { return value_; }

 private:
  T value_;
};

// A structure that the C++ side may change.
template <SharedStruct T>
requires(!std::is_const_v<T>) class Incoming<T&> {
 public:
  explicit Incoming(typename T::struct_type* structure) : structure_(structure) {
    if (structure_) {
      value_.AttachTo(*structure_);
    }
  }
  Incoming(const Incoming&) = delete;
  Incoming& operator=(const Incoming&) = delete;
  ~Incoming() {
    if (structure_) {
      value_.DetachTo(*structure_);
    }
  }
  T& Get() { return value_; }

 private:
  typename T::struct_type* const structure_;
  T value_;
};

template <TextContainer T>
class Incoming<const T&> {
 public:
  template <class C>
  explicit Incoming(C* texts) {
    CopyTexts(texts, value_);
  }
  const T& Get() const { return value_; }

 private:
  T value_;
};

// ---- The engine calls this side: results ----

template <class C, Scalar T>
C ToEngine(T value) {
  return static_cast<C>(value);
}

template <class C, class Class>
C ToEngine(const CefRefPtr<Class>& object) {
  if constexpr (std::is_pointer_v<C>) {
    return Unwrap(object);
  } else {
    return static_cast<C>(reinterpret_cast<uintptr_t>(Unwrap(object)));
  }
}

}  // namespace cefbinding
