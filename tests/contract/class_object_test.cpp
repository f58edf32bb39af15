// Class objects: who has one, and what it makes.

#include <windows.h>

#include <ocidl.h>
#include <wrl/client.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "contract_table.h"
#include "server_library.h"

namespace contract {
namespace {

using Microsoft::WRL::ComPtr;

// What a call must overwrite.
void* const kGarbage = reinterpret_cast<void*>(0x1234);

class ClassObject : public ::testing::TestWithParam<Coclass> {
 protected:
  const CLSID clsid_ = Guid(GetParam().clsid);
  const ServerLibrary server_;
};

class CreatableClassObject : public ClassObject {};
class DeclaredOnlyClassObject : public ClassObject {};

std::vector<Coclass> Rows(bool creatable) {
  std::vector<Coclass> rows;
  for (const Coclass& row : Coclasses()) {
    if (row.is_creatable == creatable) {
      rows.push_back(row);
    }
  }
  return rows;
}

std::string RowName(const ::testing::TestParamInfo<Coclass>& row) {
  return row.param.name;
}

TEST_P(DeclaredOnlyClassObject, IsNotAvailable) {
  void* object = kGarbage;
  EXPECT_EQ(server_.GetClassObject(clsid_, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, DeclaredOnlyClassObject, ::testing::ValuesIn(Rows(false)), RowName);

TEST(ClassObjectLookup, KnowsNoOtherClasses) {
  const ServerLibrary server;
  void* object = kGarbage;
  EXPECT_EQ(server.GetClassObject(CLSID_NULL, IID_IClassFactory, &object),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);

  // One that differs from a known one in the last byte only.
  CLSID neighbour = Guid(CoclassNamed("KZCEFComApplication").clsid);
  neighbour.Data4[7] ^= 1;
  object = kGarbage;
  EXPECT_EQ(server.GetClassObject(neighbour, IID_IClassFactory, &object),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
}

TEST_P(CreatableClassObject, RefusesANullOutPointer) {
  EXPECT_EQ(server_.GetClassObject(clsid_, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_P(CreatableClassObject, IsAClassFactoryAndNothingElse) {
  ComPtr<IUnknown> identity;
  ASSERT_EQ(server_.GetClassObject(clsid_, IID_PPV_ARGS(identity.GetAddressOf())), S_OK);
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(identity.As(&factory), S_OK);
  EXPECT_EQ(factory->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  for (const IID& iid : {IID_IDispatch, IID_IClassFactory2, IID_IMarshal, IID_NULL}) {
    void* object = kGarbage;
    EXPECT_EQ(server_.GetClassObject(clsid_, iid, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
  }
}

TEST_P(CreatableClassObject, IsTheSameEveryTime) {
  const auto first = server_.Factory(GetParam().name);
  IClassFactory* const address = first.Get();
  EXPECT_EQ(server_.Factory(GetParam().name).Get(), address);
}

TEST_P(CreatableClassObject, IsTheSameForThreadsThatAskFirstTogether) {
  constexpr int kThreads = 8;
  std::atomic<int> ready{0};
  std::vector<void*> factories(kThreads);
  {
    std::vector<std::jthread> threads;
    for (void*& factory : factories) {
      threads.emplace_back([&] {
        ++ready;
        while (ready < kThreads) {
        }
        server_.GetClassObject(clsid_, IID_IClassFactory, &factory);
      });
    }
  }
  for (void* factory : factories) {
    EXPECT_EQ(factory, factories.front());
    ASSERT_NE(factory, nullptr);
    static_cast<IClassFactory*>(factory)->Release();
  }
  EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

TEST_P(CreatableClassObject, MakesANewObjectEachTime) {
  const auto first = server_.Create<IUnknown>(GetParam().name);
  const auto second = server_.Create<IUnknown>(GetParam().name);
  ASSERT_TRUE(first && second);
  EXPECT_NE(first.Get(), second.Get());
}

TEST_P(CreatableClassObject, MakesNothingForAnUnknownInterface) {
  const auto factory = server_.Factory(GetParam().name);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  void* object = kGarbage;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IMarshal, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
}

TEST_P(CreatableClassObject, KeepsTheServerLoadedWhileItsObjectLives) {
  EXPECT_EQ(server_.CanUnloadNow(), S_OK);
  auto object = server_.Create<IUnknown>(GetParam().name);
  ASSERT_TRUE(object);
  EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
  auto another = server_.Create<IUnknown>(GetParam().name);
  object.Reset();
  EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
  another.Reset();
  EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

TEST_P(CreatableClassObject, LeavesNoObjectBehindWhenItsInterfaceIsRefused) {
  {
    const auto factory = server_.Factory(GetParam().name);
    ComPtr<IMarshal> refused;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(refused.GetAddressOf())),
              E_NOINTERFACE);
  }
  EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

TEST_P(CreatableClassObject, LocksTheServerAsOftenAsItIsAsked) {
  {
    const auto factory = server_.Factory(GetParam().name);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  }
  EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
  EXPECT_EQ(server_.Factory(GetParam().name)->LockServer(FALSE), S_OK);
  EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

INSTANTIATE_TEST_SUITE_P(All, CreatableClassObject, ::testing::ValuesIn(Rows(true)), RowName);

}  // namespace
}  // namespace contract
