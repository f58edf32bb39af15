// Credential providers of a host installation, one class for each kind of host.
// "GetProxyCredential" returns the text of the environment variable KZ_CREDENTIALS, in which
// "{kind}" is replaced by the name of the class; without the variable it fails.
#include <windows.h>

#include <oaidl.h>
#include <objbase.h>
#include <wrl/client.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <new>
#include <string>

namespace {

using Microsoft::WRL::ComPtr;

struct ProviderClass {
  CLSID id;
  const wchar_t* name;
};

constexpr std::array kClasses = {
    ProviderClass{{0xD7EBFB49, 0xDC9B, 0x4560, {0xA7, 0x3F, 0x89, 0x3A, 0x93, 0x57, 0x5A, 0x8E}},
                  L"meadow"},
    ProviderClass{{0xC9E54B23, 0x10E5, 0x4F0C, {0xAB, 0x9B, 0x81, 0x18, 0x1B, 0x50, 0x8E, 0x3E}},
                  L"quill"},
    ProviderClass{{0x219180B0, 0x7183, 0x4FE2, {0xB1, 0x67, 0x4E, 0x2B, 0xFE, 0x53, 0x40, 0x04}},
                  L"harbor"},
};

constexpr DISPID kGetProxyCredential = 1;
constexpr wchar_t kMemberName[] = L"GetProxyCredential";
constexpr std::wstring_view kKind = L"{kind}";

// Counts the references of an object that may have one interface beside IUnknown.
template <typename Interface>
class Object : public Interface {
 public:
  virtual ~Object() = default;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) {
      return E_POINTER;
    }
    *object = id == __uuidof(IUnknown) || id == __uuidof(Interface) ? this : nullptr;
    if (!*object) {
      return E_NOINTERFACE;
    }
    this->AddRef();
    return S_OK;
  }

  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }

  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }

 private:
  std::atomic<ULONG> references_{1};
};

class Provider final : public Object<IDispatch> {
 public:
  explicit Provider(const wchar_t* name) : name_(name) {}

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }

  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    std::fill_n(ids, count, DISPID_UNKNOWN);
    if (count != 1 || _wcsicmp(names[0], kMemberName) != 0) {
      return DISP_E_UNKNOWNNAME;
    }
    ids[0] = kGetProxyCredential;
    return S_OK;
  }

  STDMETHODIMP Invoke(DISPID member,
                      REFIID,
                      LCID,
                      WORD kind,
                      DISPPARAMS* parameters,
                      VARIANT* result,
                      EXCEPINFO*,
                      UINT*) override {
    if (member != kGetProxyCredential || !(kind & DISPATCH_METHOD)) {
      return DISP_E_MEMBERNOTFOUND;
    }
    if (parameters->cArgs != 0) {
      return DISP_E_BADPARAMCOUNT;
    }
    const wchar_t* const answer = _wgetenv(L"KZ_CREDENTIALS");
    if (!answer) {
      return E_FAIL;
    }
    std::wstring text = answer;
    if (const size_t place = text.find(kKind); place != std::wstring::npos) {
      text.replace(place, kKind.size(), name_);
    }
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocString(text.c_str());
    return S_OK;
  }

 private:
  const wchar_t* const name_;
};

class Factory final : public Object<IClassFactory> {
 public:
  explicit Factory(const wchar_t* name) : name_(name) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    *object = nullptr;
    if (outer) {
      return CLASS_E_NOAGGREGATION;
    }
    ComPtr<Provider> provider;
    *provider.GetAddressOf() = new (std::nothrow) Provider(name_);
    return provider ? provider->QueryInterface(id, object) : E_OUTOFMEMORY;
  }

  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  const wchar_t* const name_;
};

}  // namespace

STDAPI DllCanUnloadNow() {
  return S_FALSE;
}

STDAPI DllGetClassObject(REFCLSID class_id, REFIID id, void** object) {
  *object = nullptr;
  const auto* found = std::ranges::find_if(
      kClasses, [&](const ProviderClass& known) { return known.id == class_id; });
  if (found == kClasses.end()) {
    return CLASS_E_CLASSNOTAVAILABLE;
  }
  ComPtr<Factory> factory;
  *factory.GetAddressOf() = new (std::nothrow) Factory(found->name);
  return factory ? factory->QueryInterface(id, object) : E_OUTOFMEMORY;
}
