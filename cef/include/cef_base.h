// include/cef_base.h of CEF 123, as far as it is used here: the bases of the
// API's classes and the counting of their references.
#pragma once

#include "include/base/cef_atomic_ref_count.h"
#include "include/base/cef_build.h"
#include "include/base/cef_macros.h"
#include "include/internal/cef_ptr.h"
#include "include/internal/cef_time_wrappers.h"
#include "include/internal/cef_types_wrappers.h"
#include "include/internal/cef_win.h"

// Base of all counted objects. Release returns true when it deleted the object.
class CefBaseRefCounted {
 public:
  virtual void AddRef() const = 0;
  virtual bool Release() const = 0;
  virtual bool HasOneRef() const = 0;
  virtual bool HasAtLeastOneRef() const = 0;

 protected:
  virtual ~CefBaseRefCounted() {}
};

// Base of objects that are owned by one place or live for one call only.
class CefBaseScoped {
 public:
  virtual ~CefBaseScoped() {}
};

// The count of one object, for IMPLEMENT_REFCOUNTING.
class CefRefCount {
 public:
  CefRefCount() = default;
  CefRefCount(const CefRefCount&) = delete;
  CefRefCount& operator=(const CefRefCount&) = delete;

  void AddRef() const { ref_count_.Increment(); }
  // Returns true when the last reference is gone.
  bool Release() const { return !ref_count_.Decrement(); }
  bool HasOneRef() const { return ref_count_.IsOne(); }
  bool HasAtLeastOneRef() const { return !ref_count_.IsZero(); }

 private:
  mutable base::AtomicRefCount ref_count_{0};
};

// Placed last in a class: counts its objects and deletes each with its last reference.
#define IMPLEMENT_REFCOUNTING(ClassName)          \
 public:                                          \
  void AddRef() const override {                  \
    ref_count_.AddRef();                          \
  }                                               \
  bool Release() const override {                 \
    const bool last = ref_count_.Release();       \
    if (last) {                                   \
      delete static_cast<const ClassName*>(this); \
    }                                             \
    return last;                                  \
  }                                               \
  bool HasOneRef() const override {               \
    return ref_count_.HasOneRef();                \
  }                                               \
  bool HasAtLeastOneRef() const override {        \
    return ref_count_.HasAtLeastOneRef();         \
  }                                               \
                                                  \
 private:                                         \
  CefRefCount ref_count_
