// Reference counting, the end of an object's life, and the
// creation of plain and aggregated objects.

#include "com/com_object.h"

#include <wrl/client.h>

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

#include "KZCEFComWrapper.h"

namespace kzcef {
namespace {

using Microsoft::WRL::ComPtr;

TEST(ReferenceCount, CountsUpAndDown) {
  ReferenceCount count;
  EXPECT_EQ(count.Add(), 1U);
  EXPECT_EQ(count.Add(), 2U);
  EXPECT_EQ(count.Release(), 1U);
  EXPECT_EQ(count.Release(), 0U);
}

TEST(ReferenceCount, IsZeroOnlyOnce) {
  ReferenceCount count;
  count.Add();
  EXPECT_EQ(count.Release(), 0U);
  // Somebody still sees the object while it cleans up.
  count.Add();
  count.Add();
  EXPECT_NE(count.Release(), 0U);
  EXPECT_NE(count.Release(), 0U);
}

TEST(ReferenceCount, IsZeroForOneOfManyThreads) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 5000;
  ReferenceCount count;
  for (int i = 0; i < kThreads * kRounds; ++i) {
    count.Add();
  }
  std::atomic<int> zeros{0};
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < kThreads; ++i) {
      threads.emplace_back([&] {
        for (int round = 0; round < kRounds; ++round) {
          zeros += count.Release() == 0 ? 1 : 0;
        }
      });
    }
  }
  EXPECT_EQ(zeros, 1);
}

// A coclass that tells how its life ends.
class Mortal : public CoClass<IKZCEFComToken> {
 public:
  static inline int final_releases = 0;
  static inline int destructions = 0;

  void FinalRelease() noexcept {
    ++final_releases;
    EXPECT_EQ(destructions, 0);
    // The object is still whole, and a reference taken and given back here does no harm.
    ComPtr<IUnknown> self;
    EXPECT_EQ(QueryInterface(IID_PPV_ARGS(self.GetAddressOf())), S_OK);
  }

 protected:
  Mortal() { final_releases = destructions = 0; }
  ~Mortal() { ++destructions; }
};

TEST(ComObject, EndsItsLifeOnce) {
  ComPtr<IUnknown> object;
  ASSERT_EQ(CreateComObject<Mortal>(nullptr, IID_PPV_ARGS(object.GetAddressOf())), S_OK);
  EXPECT_EQ(ModuleLock::Count(), 1);
  object.Reset();
  EXPECT_EQ(Mortal::final_releases, 1);
  EXPECT_EQ(Mortal::destructions, 1);
  EXPECT_EQ(ModuleLock::Count(), 0);
}

// An outer object without an interface of its own.
class Outer final : public IUnknown {
 public:
  ComPtr<IUnknown> inner;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!IsEqualIID(iid, IID_IUnknown)) {
      return inner->QueryInterface(iid, object);
    }
    *object = this;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
  ULONG STDMETHODCALLTYPE Release() override { return --count_; }

 private:
  ULONG count_ = 0;
};

TEST(ComAggregate, EndsItsLifeOnce) {
  Outer outer;
  ASSERT_EQ(CreateComObject<Mortal>(&outer, IID_PPV_ARGS(outer.inner.GetAddressOf())), S_OK);
  EXPECT_EQ(ModuleLock::Count(), 1);
  outer.inner.Reset();
  EXPECT_EQ(Mortal::final_releases, 1);
  EXPECT_EQ(Mortal::destructions, 1);
  EXPECT_EQ(ModuleLock::Count(), 0);
}

class Stillborn : public CoClass<IKZCEFComToken> {
 protected:
  Stillborn() { throw std::runtime_error("cannot be made"); }
  ~Stillborn() = default;
};

TEST(CreateComObject, AnswersMissingMemoryForAnObjectThatCannotBeMade) {
  void* object = &object;
  EXPECT_EQ(CreateComObject<Stillborn>(nullptr, IID_IUnknown, &object), E_OUTOFMEMORY);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(ModuleLock::Count(), 0);
  Outer outer;
  EXPECT_EQ(CreateComObject<Stillborn>(&outer, IID_IUnknown, &object), E_OUTOFMEMORY);
  EXPECT_EQ(ModuleLock::Count(), 0);
}

TEST(CreateComObject, RefusesANullOutPointer) {
  EXPECT_EQ(CreateComObject<Mortal>(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(ModuleLock::Count(), 0);
}

TEST(CreateComObject, LeavesNoObjectWithoutTheInterfaceAskedFor) {
  void* object = &object;
  EXPECT_EQ(CreateComObject<Mortal>(nullptr, IID_IMarshal, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(Mortal::destructions, 1);
  EXPECT_EQ(ModuleLock::Count(), 0);
}

}  // namespace
}  // namespace kzcef
