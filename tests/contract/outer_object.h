// An object of a client that aggregates another one.
#pragma once

#include <windows.h>

#include <unknwn.h>
#include <wrl/client.h>

namespace contract {

// Has IUnknown itself and passes every other request for an interface on to the object inside.
// Lives on the stack; its count tells how many references clients hold.
class OuterObject final : public IUnknown {
 public:
  // Creates the inner object and returns what the factory returned.
  HRESULT Aggregate(IClassFactory* factory) {
    return factory->CreateInstance(this, IID_PPV_ARGS(inner_.GetAddressOf()));
  }
  IUnknown* inner() const { return inner_.Get(); }
  void ReleaseInner() { inner_.Reset(); }
  ULONG count() const { return count_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (IsEqualIID(iid, IID_IUnknown)) {
      *object = static_cast<IUnknown*>(this);
      AddRef();
      return S_OK;
    }
    return inner_ ? inner_->QueryInterface(iid, object) : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
  ULONG STDMETHODCALLTYPE Release() override { return --count_; }

 private:
  ULONG count_ = 0;
  Microsoft::WRL::ComPtr<IUnknown> inner_;
};

}  // namespace contract
