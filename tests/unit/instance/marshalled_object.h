// Host objects and streams whose marshalling a test can watch.
#pragma once

#include <windows.h>

#include <objidl.h>
#include <wrl/client.h>

#include <optional>
#include <utility>
#include <vector>

#include "early_bound/early_bound.h"

namespace kzcef::testing {

// A host object on the stack that does nothing.
class HostObject : public EarlyBound<IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (iid != IID_IUnknown && iid != IID_IDispatch) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }

  ULONG references = 1;

 protected:
  ~HostObject() = default;
};

// One with the standard marshalling.
class PlainObject final : public HostObject {};

// One that marshals itself, to exactly as many bytes as asked for.
class MarshalledObject final : public HostObject, public IMarshal {
 public:
  // At least the 48 bytes that COM puts before an object's own.
  explicit MarshalledObject(size_t size) : own_bytes_(size - 48, 0xA5) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (iid == IID_IMarshal) {
      *object = static_cast<IMarshal*>(this);
      AddRef();
      return S_OK;
    }
    return HostObject::QueryInterface(iid, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return HostObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return HostObject::Release(); }

  HRESULT STDMETHODCALLTYPE
  GetUnmarshalClass(REFIID, void*, DWORD, void*, DWORD, CLSID* clsid) override {
    *clsid = CLSID{1, 2, 3, {4}};
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE
  GetMarshalSizeMax(REFIID, void*, DWORD, void*, DWORD, DWORD* size) override {
    *size = static_cast<DWORD>(own_bytes_.size());
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE MarshalInterface(IStream* stream,
                                             REFIID iid,
                                             void*,
                                             DWORD context,
                                             void*,
                                             DWORD marshal_flags) override {
    marshalled_interface = iid;
    destination_context = context;
    flags = marshal_flags;
    return refuse
               ? E_FAIL
               : stream->Write(own_bytes_.data(), static_cast<ULONG>(own_bytes_.size()), nullptr);
  }
  HRESULT STDMETHODCALLTYPE UnmarshalInterface(IStream*, REFIID, void**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ReleaseMarshalData(IStream*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DisconnectObject(DWORD) override { return S_OK; }

  IDispatch* dispatch() { return this; }

  bool refuse = false;
  IID marshalled_interface = {};
  DWORD destination_context = 0;
  DWORD flags = 0;

 private:
  const std::vector<uint8_t> own_bytes_;
};

// Reads from another stream and writes down how.
class CountingStream final : public IStream {
 public:
  explicit CountingStream(Microsoft::WRL::ComPtr<IStream> stream) : stream_(std::move(stream)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE Read(void* buffer, ULONG size, ULONG* read) override {
    if (reads.size() == fail_at) {
      fail_at.reset();
      return STG_E_READFAULT;
    }
    const HRESULT result = stream_->Read(buffer, size, read);
    reads.push_back(*read);
    return result;
  }
  HRESULT STDMETHODCALLTYPE Write(const void*, ULONG, ULONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move,
                                 DWORD origin,
                                 ULARGE_INTEGER* position) override {
    return stream_->Seek(move, origin, position);
  }
  HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CopyTo(IStream*,
                                   ULARGE_INTEGER,
                                   ULARGE_INTEGER*,
                                   ULARGE_INTEGER*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Commit(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Revert() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IStream**) override { return E_NOTIMPL; }

  // How many bytes each read gave.
  std::vector<ULONG> reads;
  // The index of the read that fails, once, if any.
  std::optional<size_t> fail_at;

 private:
  const Microsoft::WRL::ComPtr<IStream> stream_;
};

}  // namespace kzcef::testing
