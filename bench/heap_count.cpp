// Replaces the program's operator new and watches COM's allocator; each counts what it hands out.

#include "heap_count.h"

#include <windows.h>

#include <objbase.h>
#include <oleauto.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>
#include <stdexcept>

namespace {

std::atomic<long long> allocations{0};

void* Allocate(std::size_t size) {
  ++allocations;
  if (void* const memory = std::malloc(size > 0 ? size : 1))
    return memory;
  throw std::bad_alloc();
}

// Hears of every allocation before COM makes it, and changes nothing. Never destroyed.
class Spy final : public IMallocSpy {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    const bool known = IsEqualIID(iid, IID_IMallocSpy) || IsEqualIID(iid, IID_IUnknown);
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override {
    ++allocations;
    return size;
  }
  void* STDMETHODCALLTYPE PostAlloc(void* memory) override { return memory; }
  void* STDMETHODCALLTYPE PreFree(void* memory, BOOL) override { return memory; }
  void STDMETHODCALLTYPE PostFree(BOOL) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* memory, SIZE_T size, void** changed, BOOL) override {
    ++allocations;
    *changed = memory;
    return size;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* memory, BOOL) override { return memory; }
  void* STDMETHODCALLTYPE PreGetSize(void* memory, BOOL) override { return memory; }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
  void* STDMETHODCALLTYPE PreDidAlloc(void* memory, BOOL) override { return memory; }
  int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int actual) override { return actual; }
  void STDMETHODCALLTYPE PreHeapMinimize() override {}
  void STDMETHODCALLTYPE PostHeapMinimize() override {}
};

Spy spy;

// Freed BSTRs are otherwise handed out again without asking the allocator. Not in every SDK.
void TurnBstrCacheOff() {
  using Function = void(WINAPI*)();
  const auto turn_off =
      reinterpret_cast<Function>(GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache"));
  if (turn_off)
    turn_off();
}

void Expect(bool holds, const char* what) {
  if (!holds)
    throw std::runtime_error(what);
}

}  // namespace

void* operator new(std::size_t size) {
  return Allocate(size);
}

void* operator new[](std::size_t size) {
  return Allocate(size);
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete[](void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace kzbench {

HeapCount::HeapCount() {
  TurnBstrCacheOff();
  Expect(SUCCEEDED(CoRegisterMallocSpy(&spy)), "COM's allocations cannot be watched");
  ::allocations = 0;
  // Not with a new-expression, which a compiler may leave out.
  ::operator delete(::operator new(1));
  Expect(allocations() == 1, "an object is not counted");
  for (int expected = 2; expected <= 3; ++expected) {
    SysFreeString(SysAllocString(L"a text"));
    Expect(allocations() == expected, "a BSTR is not counted");
  }
  ::allocations = 0;
}

HeapCount::~HeapCount() {
  CoRevokeMallocSpy();
}

long long HeapCount::allocations() const {
  return ::allocations;
}

}  // namespace kzbench
