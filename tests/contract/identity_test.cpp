// Objects as COM sees them: which interfaces they have, their identity, and their life inside an
// outer object.

#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>
#include <wrl/client.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "contract_table.h"
#include "outer_object.h"
#include "server_library.h"

namespace contract {
namespace {

using Microsoft::WRL::ComPtr;

void* const kGarbage = reinterpret_cast<void*>(0x1234);

std::vector<Coclass> CreatableRows() {
  std::vector<Coclass> rows;
  for (const Coclass& row : Coclasses()) {
    if (row.is_creatable) {
      rows.push_back(row);
    }
  }
  return rows;
}

std::vector<std::string> Answers(const Coclass& row) {
  std::istringstream names(row.answers);
  return {std::istream_iterator<std::string>(names), {}};
}

// The identifiers of the contract's interfaces that objects of the row have, and IDispatch.
std::vector<IID> AnsweredIds(const Coclass& row) {
  std::vector<IID> ids{IID_IDispatch};
  for (const std::string& name : Answers(row)) {
    ids.push_back(Guid(InterfaceNamed(name.c_str()).iid));
  }
  return ids;
}

class Identity : public ::testing::TestWithParam<Coclass> {
 protected:
  const ServerLibrary server_;
};

TEST_P(Identity, AnswersExactlyItsInterfaces) {
  const auto object = server_.Create<IUnknown>(GetParam().name);
  ASSERT_TRUE(object);
  const std::vector<std::string> answers = Answers(GetParam());
  for (const Interface& row : Interfaces()) {
    const bool expected = std::ranges::find(answers, row.name) != answers.end();
    ComPtr<IUnknown> answer;
    const HRESULT result =
        object->QueryInterface(Guid(row.iid), reinterpret_cast<void**>(answer.GetAddressOf()));
    EXPECT_EQ(result, expected ? S_OK : E_NOINTERFACE) << row.name;
    EXPECT_EQ(answer != nullptr, expected) << row.name;
  }
  ComPtr<IDispatch> dispatch;
  EXPECT_EQ(object.As(&dispatch), S_OK);
  for (const IID& iid : {IID_IMarshal, IID_ISupportErrorInfo, IID_IConnectionPointContainer,
                         IID_IProvideClassInfo, IID_IClassFactory}) {
    void* answer = kGarbage;
    EXPECT_EQ(object->QueryInterface(iid, &answer), E_NOINTERFACE);
    EXPECT_EQ(answer, nullptr);
  }
}

TEST_P(Identity, RefusesANullOutPointer) {
  const auto object = server_.Create<IUnknown>(GetParam().name);
  EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(object->QueryInterface(IID_IMarshal, nullptr), E_POINTER);
}

TEST_P(Identity, IsOneObjectThroughAllItsInterfaces) {
  const auto object = server_.Create<IUnknown>(GetParam().name);
  for (const IID& from : AnsweredIds(GetParam())) {
    ComPtr<IUnknown> start;
    object->QueryInterface(from, reinterpret_cast<void**>(start.GetAddressOf()));
    ComPtr<IUnknown> identity;
    ASSERT_EQ(start->QueryInterface(IID_PPV_ARGS(identity.GetAddressOf())), S_OK);
    EXPECT_EQ(identity.Get(), object.Get());
    for (const IID& to : AnsweredIds(GetParam())) {
      ComPtr<IUnknown> end;
      EXPECT_EQ(start->QueryInterface(to, reinterpret_cast<void**>(end.GetAddressOf())), S_OK);
    }
  }
}

TEST_P(Identity, CountsItsReferences) {
  const auto object = server_.Create<IUnknown>(GetParam().name);
  EXPECT_EQ(object->AddRef(), 2U);
  ComPtr<IDispatch> dispatch;
  object.As(&dispatch);
  EXPECT_EQ(dispatch->AddRef(), 4U);
  EXPECT_EQ(object->Release(), 3U);
  EXPECT_EQ(object->Release(), 2U);
}

class Aggregation : public Identity {
 protected:
  OuterObject outer_;
};

TEST_P(Aggregation, IsRefusedForAnythingButIUnknown) {
  const auto factory = server_.Factory(GetParam().name);
  for (const IID& iid : AnsweredIds(GetParam())) {
    void* object = kGarbage;
    EXPECT_EQ(factory->CreateInstance(&outer_, iid, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
  }
  EXPECT_EQ(outer_.count(), 0U);
}

TEST_P(Aggregation, TakesNoReferenceOnTheOuterObject) {
  ASSERT_EQ(outer_.Aggregate(server_.Factory(GetParam().name).Get()), S_OK);
  EXPECT_EQ(outer_.count(), 0U);
}

TEST_P(Aggregation, GivesTheInnerObjectTheOuterIdentity) {
  ASSERT_EQ(outer_.Aggregate(server_.Factory(GetParam().name).Get()), S_OK);
  ASSERT_NE(outer_.inner(), static_cast<IUnknown*>(&outer_));
  for (const IID& iid : AnsweredIds(GetParam())) {
    ComPtr<IUnknown> inside;
    ASSERT_EQ(outer_.QueryInterface(iid, reinterpret_cast<void**>(inside.GetAddressOf())), S_OK);
    ComPtr<IUnknown> identity;
    ASSERT_EQ(inside->QueryInterface(IID_PPV_ARGS(identity.GetAddressOf())), S_OK);
    EXPECT_EQ(identity.Get(), static_cast<IUnknown*>(&outer_));
    // Two references of ours by now, both counted by the outer object.
    EXPECT_EQ(outer_.count(), 2U);
    EXPECT_EQ(inside->AddRef(), 3U);
    EXPECT_EQ(inside->Release(), 2U);
  }
  EXPECT_EQ(outer_.count(), 0U);
}

TEST_P(Aggregation, KeepsTheInnerIdentityToItself) {
  ASSERT_EQ(outer_.Aggregate(server_.Factory(GetParam().name).Get()), S_OK);
  ComPtr<IUnknown> again;
  ASSERT_EQ(outer_.inner()->QueryInterface(IID_PPV_ARGS(again.GetAddressOf())), S_OK);
  EXPECT_EQ(again.Get(), outer_.inner());
  EXPECT_EQ(outer_.count(), 0U);
  EXPECT_EQ(outer_.inner()->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  void* refused = kGarbage;
  EXPECT_EQ(outer_.inner()->QueryInterface(IID_IMarshal, &refused), E_NOINTERFACE);
  EXPECT_EQ(refused, nullptr);
}

TEST_P(Aggregation, LivesAsLongAsTheOuterObjectHoldsIt) {
  ASSERT_EQ(outer_.Aggregate(server_.Factory(GetParam().name).Get()), S_OK);
  EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
  outer_.ReleaseInner();
  EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

TEST_P(Aggregation, ServesLateBoundCallers) {
  ASSERT_EQ(outer_.Aggregate(server_.Factory(GetParam().name).Get()), S_OK);
  ComPtr<IDispatch> dispatch;
  ASSERT_EQ(outer_.QueryInterface(IID_PPV_ARGS(dispatch.GetAddressOf())), S_OK);
  UINT count = 0;
  EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  DISPPARAMS none{};
  EXPECT_EQ(dispatch->Invoke(999, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
}

const auto kRows = ::testing::ValuesIn(CreatableRows());

std::string RowName(const ::testing::TestParamInfo<Coclass>& row) {
  return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(All, Identity, kRows, RowName);
INSTANTIATE_TEST_SUITE_P(All, Aggregation, kRows, RowName);

}  // namespace
}  // namespace contract
