// A structure of the C API as the engine would hand it over, for tests: it counts its references.
#pragma once

#include <cstddef>

#include "binding.h"

namespace cefbinding {

// Lives on the test's stack, and is only counted, never freed. The receiver of `Give` owes one
// release for each call.
template <class Struct>
class CountedStruct : public Struct {
 public:
  CountedStruct() : Struct{} {
    *BaseOf(static_cast<Struct*>(this)) = {sizeof(Struct), &AddRef, &Release, &HasOneRef,
                                           &HasAtLeastOneRef};
  }
  CountedStruct(const CountedStruct&) = delete;
  CountedStruct& operator=(const CountedStruct&) = delete;

  // This structure with one more reference, for the receiver.
  Struct* Give() {
    ++references;
    return this;
  }

  // What the receivers still hold; 0 when each has released what it was given, exactly once.
  int references = 0;

 private:
  static CountedStruct* From(capi::cef_base_ref_counted_t* self) {
    return static_cast<CountedStruct*>(reinterpret_cast<Struct*>(self));
  }
  static void CEF_CALLBACK AddRef(capi::cef_base_ref_counted_t* self) { ++From(self)->references; }
  static int CEF_CALLBACK Release(capi::cef_base_ref_counted_t* self) {
    return --From(self)->references == 0;
  }
  static int CEF_CALLBACK HasOneRef(capi::cef_base_ref_counted_t* self) {
    return From(self)->references == 1;
  }
  static int CEF_CALLBACK HasAtLeastOneRef(capi::cef_base_ref_counted_t* self) {
    return From(self)->references >= 1;
  }
};

// The counts of both sides, to be compared with those of a later moment.
struct LiveObjects {
  int of_the_engine = g_library_objects;
  int of_this_side = g_client_objects;
  bool operator==(const LiveObjects&) const = default;
};

}  // namespace cefbinding
