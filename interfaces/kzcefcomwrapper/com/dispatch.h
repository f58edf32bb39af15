// IDispatch over the DLL's own type library, the same for every coclass.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include "utils/never_destroyed.h"

namespace kzcef {

// Loads the type information of `iid` from the type library that the DLL carries as a resource; the
// library need not be registered. Any thread.
// Fails as LoadTypeLibEx and GetTypeInfoOfGuid do.
HRESULT ModuleTypeInfo(REFIID iid, Microsoft::WRL::ComPtr<ITypeInfo>& info) noexcept;

// The interface of the type library that describes `Primary` to late-bound callers: itself, unless
// it is one of the library's own that derives from a described one.
template <typename Primary>
struct Described {
  using Interface = Primary;
};

// The four members of IDispatch for an object whose dual interface is `Primary`.
// Late-bound calls go through the platform's ITypeInfo, so they convert arguments and report errors
// exactly as every other automation server does.
template <typename Primary>
class DispatchImpl : public Primary {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (!count) {
      return E_POINTER;
    }
    *count = 1;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    if (!info) {
      return E_POINTER;
    }
    *info = nullptr;
    if (index != 0) {
      return DISP_E_BADINDEX;
    }
    ITypeInfo* own = nullptr;
    const HRESULT result = OwnTypeInfo(&own);
    if (SUCCEEDED(result)) {
      own->AddRef();
      *info = own;
    }
    return result;
  }

  HRESULT STDMETHODCALLTYPE
  GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (!IsEqualIID(iid, IID_NULL)) {
      return DISP_E_UNKNOWNINTERFACE;
    }
    if (!names || !ids || count == 0) {
      return E_INVALIDARG;
    }
    ITypeInfo* own = nullptr;
    const HRESULT result = OwnTypeInfo(&own);
    return FAILED(result) ? result : own->GetIDsOfNames(names, count, ids);
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID id,
                                   REFIID iid,
                                   LCID,
                                   WORD flags,
                                   DISPPARAMS* params,
                                   VARIANT* result,
                                   EXCEPINFO* exception,
                                   UINT* bad_argument) override {
    if (!IsEqualIID(iid, IID_NULL)) {
      return DISP_E_UNKNOWNINTERFACE;
    }
    if (!params) {
      return E_INVALIDARG;
    }
    ITypeInfo* own = nullptr;
    const HRESULT loaded = OwnTypeInfo(&own);
    return FAILED(loaded) ? loaded
                          : own->Invoke(static_cast<Primary*>(this), id, flags, params, result,
                                        exception, bad_argument);
  }

 protected:
  ~DispatchImpl() = default;

 private:
  // Returns the object's type information without a reference for the caller: it lives as long as
  // the process.
  static HRESULT OwnTypeInfo(ITypeInfo** info) noexcept {
    static const NeverDestroyed<Microsoft::WRL::ComPtr<ITypeInfo>> cached;
    static const HRESULT loaded =
        ModuleTypeInfo(__uuidof(typename Described<Primary>::Interface), *cached);
    *info = cached->Get();
    return loaded;
  }
};

}  // namespace kzcef
