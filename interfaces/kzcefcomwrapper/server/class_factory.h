// The class objects that the server hands out, one for each class of the table.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>

namespace kzcef {

// Creates an object, inside `outer` unless that is null, and asks it for `iid`.
using ObjectCreator = HRESULT (*)(IUnknown* outer, REFIID iid, void** object) noexcept;

// A class factory that the class table caches for the life of the process. Only references beyond
// the cache's own keep the DLL loaded. Any thread.
class ClassFactory final : public IClassFactory {
 public:
  // Makes a factory and returns its `iid` in `factory`, with the first reference. Returns
  // E_OUTOFMEMORY when it cannot be made.
  static HRESULT Create(ObjectCreator creator, REFIID iid, void** factory) noexcept;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  // Returns E_POINTER for a null `object`, CLASS_E_NOAGGREGATION when an outer object asks for
  // anything but IUnknown, otherwise what the creator returns.
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  explicit ClassFactory(ObjectCreator creator) : creator_(creator) {}
  ~ClassFactory() = default;

  const ObjectCreator creator_;
  std::atomic<ULONG> references_{0};
};

}  // namespace kzcef
