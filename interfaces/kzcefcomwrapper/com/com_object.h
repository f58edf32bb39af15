// Object identity, reference counting and aggregation for the coclasses.
//
// A coclass is an abstract class: it derives from CoClass over its most derived dual interface and
// implements that interface's own members. ComObject makes a plain object of it, ComAggregate one
// inside an outer object; CreateComObject chooses between them.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <atomic>
#include <new>

#include "com/dispatch.h"
#include "com/module.h"

namespace kzcef {

// The count of an object's references. Once the last one is released the object is going away, and
// references taken and released after that, by those who still see it while it cleans up, no longer
// count.
class ReferenceCount {
 public:
  ULONG Add() noexcept { return references_.fetch_add(1, std::memory_order_relaxed) + 1; }

  // Returns the number of references left; 0 exactly once.
  ULONG Release() noexcept {
    ULONG count = references_.load(std::memory_order_relaxed);
    while (!references_.compare_exchange_weak(count, count == 1 ? kGoing : count - 1,
                                              std::memory_order_acq_rel)) {
    }
    return count - 1;
  }

 private:
  // Far above what live objects reach.
  static constexpr ULONG kGoing = 0x40000000;
  std::atomic<ULONG> references_{0};
};

// Base of a coclass whose interfaces form one line of inheritance: Primary is the most derived,
// Bases are the ones below it. QueryInterface returns one pointer for all of them and IDispatch.
template <typename Primary, typename... Bases>
class CoClass : public DispatchImpl<Primary> {
 public:
  static bool Answers(REFIID iid) noexcept {
    return IsEqualIID(iid, __uuidof(Primary)) || IsEqualIID(iid, IID_IDispatch) ||
           (IsEqualIID(iid, __uuidof(Bases)) || ...);
  }

  // Called when the last reference is gone, while the object is still whole; a coclass that others
  // may reach without a reference hides this with its own, and cuts them off there.
  void FinalRelease() noexcept {}

 protected:
  ~CoClass() = default;
};

// An object of its own. Starts without a reference; keeps the DLL loaded while it lives.
template <typename Class>
class ComObject final : public Class {
 public:
  ComObject() { ModuleLock::Add(); }
  ~ComObject() { ModuleLock::Release(); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!object) {
      return E_POINTER;
    }
    if (!IsEqualIID(iid, IID_IUnknown) && !Class::Answers(iid)) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = references_.Release();
    if (left == 0) {
      this->FinalRelease();
      delete this;
    }
    return left;
  }

 private:
  ReferenceCount references_;
};

// An object that lives inside `outer`: the coclass's interfaces hand identity and counting to the
// outer object, and only the inner IUnknown, which the outer object holds, counts for itself.
template <typename Class>
class ComAggregate final : public IUnknown {
 public:
  explicit ComAggregate(IUnknown* outer) : contained_(outer) { ModuleLock::Add(); }
  ~ComAggregate() { ModuleLock::Release(); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!object) {
      return E_POINTER;
    }
    *object = nullptr;
    if (IsEqualIID(iid, IID_IUnknown)) {
      *object = static_cast<IUnknown*>(this);
      AddRef();
      return S_OK;
    }
    if (!Class::Answers(iid)) {
      return E_NOINTERFACE;
    }
    *object = static_cast<IDispatch*>(&contained_);
    contained_.AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = references_.Release();
    if (left == 0) {
      contained_.FinalRelease();
      delete this;
    }
    return left;
  }

 private:
  class Contained final : public Class {
   public:
    explicit Contained(IUnknown* outer) : outer_(outer) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
      return outer_->QueryInterface(iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return outer_->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return outer_->Release(); }

   private:
    // Not counted: the outer object owns this one.
    IUnknown* const outer_;
  };

  ReferenceCount references_;
  Contained contained_;
};

// Creates an object of Class, inside `outer` unless that is null, and asks it for `iid`. Returns
// E_OUTOFMEMORY when the object cannot be made, otherwise what QueryInterface returns; an object
// that lacks `iid` is destroyed again.
template <typename Class>
HRESULT CreateComObject(IUnknown* outer, REFIID iid, void** object) noexcept {
  if (!object) {
    return E_POINTER;
  }
  *object = nullptr;
  const auto answer = [&](auto* created) {
    created->AddRef();
    const HRESULT result = created->QueryInterface(iid, object);
    created->Release();
    return result;
  };
  try {
    return outer ? answer(new ComAggregate<Class>(outer)) : answer(new ComObject<Class>());
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace kzcef
