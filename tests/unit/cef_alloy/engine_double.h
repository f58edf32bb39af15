// Structures of the engine's, for tests that play the engine.
#pragma once

#include <gtest/gtest.h>

#include "binding.h"

namespace engine_double {

// A structure of the C API whose references are counted. All its functions are null at first.
template <class Struct>
class Counted final : public Struct {
 public:
  Counted() : Struct{} {
    *cefbinding::BaseOf(static_cast<Struct*>(this)) = {sizeof(Struct), &AddRef, &Release, &IsOne,
                                                       &IsOne};
  }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  // Whatever the test has handed out must have come back.
  ~Counted() { EXPECT_EQ(references_, 0); }

  // This structure with a reference for its receiver.
  Struct* Given() {
    ++references_;
    return this;
  }

 private:
  static Counted& Of(capi::cef_base_ref_counted_t* self) {
    return *static_cast<Counted*>(reinterpret_cast<Struct*>(self));
  }
  static void CEF_CALLBACK AddRef(capi::cef_base_ref_counted_t* self) { ++Of(self).references_; }
  static int CEF_CALLBACK Release(capi::cef_base_ref_counted_t* self) {
    return --Of(self).references_ == 0;
  }
  static int CEF_CALLBACK IsOne(capi::cef_base_ref_counted_t*) { return 1; }

  int references_ = 0;
};

// The engine's reference to an object of this side's, for the length of a scope.
template <class Class>
class Held {
 public:
  explicit Held(CefRefPtr<Class> object)
      : structure_(cefbinding::ClientObject<Class>::Wrap(object)) {}
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  ~Held() { cefbinding::BaseOf(structure_)->release(cefbinding::BaseOf(structure_)); }

  cefbinding::StructOf<Class>* get() const { return structure_; }
  cefbinding::StructOf<Class>* operator->() const { return structure_; }

 private:
  cefbinding::StructOf<Class>* const structure_;
};

// What the engine receives of this side's as a number (the description of the C API calls pointers
// numbers), with its reference.
template <class Struct>
class Received {
 public:
  explicit Received(uint64_t number) : structure_(reinterpret_cast<Struct*>(number)) {}
  Received(const Received&) = delete;
  Received& operator=(const Received&) = delete;
  ~Received() {
    if (structure_) {
      cefbinding::BaseOf(structure_)->release(cefbinding::BaseOf(structure_));
    }
  }

  Struct* get() const { return structure_; }
  Struct* operator->() const { return structure_; }

 private:
  Struct* const structure_;
};

// A text that is left to its receiver, as such a number.
inline uint64_t TextForReceiver(const CefString& text) {
  cef_string_utf16_t* const result =
      cefbinding::Engine().functions.cef_string_userfree_utf16_alloc();
  cef_string_utf16_set(text.c_str(), text.length(), result, /*copy=*/1);
  return reinterpret_cast<uint64_t>(result);
}

}  // namespace engine_double
