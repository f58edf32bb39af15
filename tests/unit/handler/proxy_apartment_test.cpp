// The provider of credentials, asked on threads with and without COM.
#include <gmock/gmock.h>
#include <windows.h>

#include <functional>
#include <memory>
#include <thread>
#include <utility>

#include "proxy_provider_fixture.h"

namespace kzcef {
namespace {

// Sees COM come and go on its thread.
class ApartmentWatch final : public IInitializeSpy {
 public:
  ApartmentWatch(std::function<void()> on_begin, std::function<void()> on_end)
      : on_begin_(std::move(on_begin)), on_end_(std::move(on_end)) {
    EXPECT_EQ(CoRegisterInitializeSpy(this, &cookie_), S_OK);
  }
  ~ApartmentWatch() { EXPECT_EQ(CoRevokeInitializeSpy(cookie_), S_OK); }
  ApartmentWatch(const ApartmentWatch&) = delete;
  ApartmentWatch& operator=(const ApartmentWatch&) = delete;

  int begun = 0;
  int ended = 0;
  DWORD kind = 0;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IInitializeSpy)) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE PreInitialize(DWORD requested, DWORD) override {
    kind = requested;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE PostInitialize(HRESULT result, DWORD, DWORD) override {
    ++begun;
    on_begin_();
    return result;
  }
  HRESULT STDMETHODCALLTYPE PreUninitialize(DWORD) override {
    ++ended;
    on_end_();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE PostUninitialize(DWORD) override { return S_OK; }

 private:
  const std::function<void()> on_begin_;
  const std::function<void()> on_end_;
  ULARGE_INTEGER cookie_ = {};
};

TEST_F(ProxyProviderTest, IsAskedOnAThreadWithoutCom) {
  SetHostKind(L"KzxMeadow");
  std::thread([&] {
    std::unique_ptr<RegisteredProvider> provider;
    ApartmentWatch watch(
        [&] {
          provider = std::make_unique<RegisteredProvider>(kMeadow);
          (*provider)->result = Text(LR"({"username":"u","password":"p"})");
        },
        [&] {
          EXPECT_EQ((*provider)->live, 0);
          provider = nullptr;
        });
    Run();
    EXPECT_EQ(watch.begun, 1);
    EXPECT_EQ(watch.ended, 1);
    EXPECT_EQ(watch.kind, static_cast<DWORD>(COINIT_APARTMENTTHREADED));
  }).join();
  ExpectContinued(L"u", L"p");
}

TEST_F(ProxyProviderTest, IsAskedInAnApartmentOfAnyKind) {
  SetHostKind(L"KzxMeadow");
  std::thread([&] {
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    {
      RegisteredProvider provider(kMeadow);
      provider->result = Text(LR"({"username":"u","password":"p"})");
      Run();
      // Still in its apartment.
      APTTYPE type = APTTYPE_CURRENT;
      APTTYPEQUALIFIER qualifier = APTTYPEQUALIFIER_NONE;
      EXPECT_EQ(CoGetApartmentType(&type, &qualifier), S_OK);
      EXPECT_EQ(type, APTTYPE_MTA);
    }
    CoUninitialize();
  }).join();
  ExpectContinued(L"u", L"p");
}

}  // namespace
}  // namespace kzcef
