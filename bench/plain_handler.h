// A host's handler of the simplest kind.
#pragma once

#include <windows.h>

#include <functional>

#include "alike_handler/alike_handler.h"

namespace kzbench {

// Counts the notifications, calls `on_load_end` for each LoadEndNotify, and otherwise does
// nothing. Owned by whoever made it and not by its references; early-bound only. Any thread.
class PlainHandler : public AlikeHandler<PlainHandler> {
 public:
  PlainHandler() = default;
  virtual ~PlainHandler() = default;
  PlainHandler(const PlainHandler&) = delete;
  PlainHandler& operator=(const PlainHandler&) = delete;

  std::function<void()> on_load_end;
  long long calls() const { return calls_; }
  HRESULT Noted() {
    ++calls_;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (IsEqualIID(iid, __uuidof(IKZCEFComBrowserHandler)) || IsEqualIID(iid, IID_IDispatch) ||
        IsEqualIID(iid, IID_IUnknown)) {
      *object = static_cast<IKZCEFComBrowserHandler*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    return static_cast<ULONG>(InterlockedDecrement(&references_));
  }
  HRESULT STDMETHODCALLTYPE LoadEndNotify(LONG) override {
    if (on_load_end)
      on_load_end();
    return Noted();
  }
  HRESULT STDMETHODCALLTYPE SetOwnerWndHandle(INT64 window) override {
    window_ = window;
    return S_OK;
  }

 private:
  volatile LONG references_ = 0;
  volatile INT64 window_ = 0;
  long long calls_ = 0;
};

}  // namespace kzbench
