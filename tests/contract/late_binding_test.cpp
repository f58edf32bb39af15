// IDispatch: names, member kinds, conversions and errors, for late-bound clients.

#include <windows.h>

#include <wrl/client.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "KZCEFComWrapper.h"
#include "contract_table.h"
#include "late_bound.h"
#include "server_library.h"

namespace contract {
namespace {

using Microsoft::WRL::ComPtr;

std::vector<Coclass> CreatableRows() {
  std::vector<Coclass> rows;
  for (const Coclass& row : Coclasses()) {
    if (row.is_creatable) {
      rows.push_back(row);
    }
  }
  return rows;
}

// The interface that the coclass's IDispatch describes.
std::string Described(const Coclass& row) {
  std::istringstream names(row.answers);
  std::string name;
  while (names >> name) {
  }
  return name;
}

// The members of an interface and of its bases.
std::vector<Member> AllMembers(const std::string& name) {
  std::vector<Member> members;
  for (std::string next = name; next != "IDispatch"; next = InterfaceNamed(next.c_str()).base) {
    const auto own = InterfaceNamed(next.c_str()).members;
    members.insert(members.end(), own.begin(), own.end());
  }
  return members;
}

std::wstring Wide(const std::string& text) {
  return {text.begin(), text.end()};
}

class LateBinding : public ::testing::TestWithParam<Coclass> {
 protected:
  const ServerLibrary server_;
  const ComPtr<IDispatch> object_ = server_.Create<IDispatch>(GetParam().name);
};

TEST_P(LateBinding, DescribesTheNewestInterface) {
  UINT count = 0;
  ASSERT_EQ(object_->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(object_->GetTypeInfoCount(nullptr), E_POINTER);

  ComPtr<ITypeInfo> type;
  ASSERT_EQ(object_->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.GetAddressOf()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
  const std::string described = Described(GetParam());
  EXPECT_TRUE(IsEqualGUID(attributes->guid, Guid(InterfaceNamed(described.c_str()).iid)));
  type->ReleaseTypeAttr(attributes);

  ITypeInfo* none = type.Get();
  EXPECT_EQ(object_->GetTypeInfo(1, LOCALE_USER_DEFAULT, &none), DISP_E_BADINDEX);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(object_->GetTypeInfo(0, LOCALE_USER_DEFAULT, nullptr), E_POINTER);
}

TEST_P(LateBinding, KnowsEveryMemberByNameInAnyLetterCase) {
  for (const Member& member : AllMembers(Described(GetParam()))) {
    std::wstring name = Wide(member.name);
    EXPECT_EQ(IdOf(object_.Get(), name), member.id) << member.name;
    CharUpperW(name.data());
    EXPECT_EQ(IdOf(object_.Get(), name), member.id) << member.name;
  }
}

TEST_P(LateBinding, KnowsNothingElse) {
  wchar_t name[] = L"NoSuchMember";
  wchar_t* names[] = {name};
  DISPID id = 0;
  EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id),
            DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
  EXPECT_EQ(Invoke(object_.Get(), 99, DISPATCH_METHOD).result, DISP_E_MEMBERNOTFOUND);
}

TEST_P(LateBinding, TakesNoInterfaceIdentifier) {
  wchar_t name[] = L"GetToken";
  wchar_t* names[] = {name};
  DISPID id = 0;
  EXPECT_EQ(object_->GetIDsOfNames(IID_IDispatch, names, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
  DISPPARAMS none{};
  EXPECT_EQ(object_->Invoke(1, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
}

INSTANTIATE_TEST_SUITE_P(All,
                         LateBinding,
                         ::testing::ValuesIn(CreatableRows()),
                         [](const auto& row) { return std::string(row.param.name); });

class LateBoundCall : public ::testing::Test {
 protected:
  const ServerLibrary server_;
  const ComPtr<IDispatch> settings_ = server_.Create<IDispatch>("KZCEFComSettings");
  const ComPtr<IDispatch> browser_ = server_.Create<IDispatch>("KZCEFComBrowser");
  const ComPtr<IDispatch> application_ = server_.Create<IDispatch>("KZCEFComApplication");
};

TEST_F(LateBoundCall, ConvertsArguments) {
  const DISPID port = IdOf(settings_.Get(), L"HubPort");
  EXPECT_EQ(Invoke(settings_.Get(), port, DISPATCH_PROPERTYPUT, {_variant_t(L"8080")}).result,
            S_OK);
  EXPECT_EQ(static_cast<long>(Invoke(settings_.Get(), port, DISPATCH_PROPERTYGET).value), 8080);
  const DISPID locale = IdOf(settings_.Get(), L"Locale");
  EXPECT_EQ(Invoke(settings_.Get(), locale, DISPATCH_PROPERTYPUT, {_variant_t(12L)}).result, S_OK);
  EXPECT_EQ(static_cast<_bstr_t>(Invoke(settings_.Get(), locale, DISPATCH_PROPERTYGET).value),
            _bstr_t(L"12"));
}

TEST_F(LateBoundCall, AnswersATypeMismatch) {
  const Outcome outcome = Invoke(settings_.Get(), IdOf(settings_.Get(), L"HubPort"),
                                 DISPATCH_PROPERTYPUT, {_variant_t(L"no number")});
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
}

TEST_F(LateBoundCall, AnswersMissingArguments) {
  const HRESULT result = Invoke(browser_.Get(), IdOf(browser_.Get(), L"ResizeBrowser"),
                                DISPATCH_METHOD, {_variant_t(1.0)})
                             .result;
  EXPECT_TRUE(result == DISP_E_BADPARAMCOUNT || result == DISP_E_PARAMNOTOPTIONAL);
}

// Windows and Wine do not return the same for these, but the object adds nothing of its own.
TEST_F(LateBoundCall, AnswersUnfittingArgumentsAsThePlatformDoes) {
  ComPtr<ITypeInfo> type;
  ASSERT_EQ(browser_->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.GetAddressOf()), S_OK);
  ComPtr<IKZCEFComBrowser> vtable;
  ASSERT_EQ(browser_.As(&vtable), S_OK);
  const DISPID resize = IdOf(browser_.Get(), L"ResizeBrowser");
  for (std::vector<_variant_t> arguments :
       {std::vector<_variant_t>{_variant_t(1.0), _variant_t(2.0), _variant_t(3.0)},
        std::vector<_variant_t>{_variant_t(L"no number"), _variant_t(2.0)},
        std::vector<_variant_t>{_variant_t(1.0), _variant_t(L"no number")}}) {
    const Outcome outcome = Invoke(browser_.Get(), resize, DISPATCH_METHOD, arguments);
    std::ranges::reverse(arguments);
    DISPPARAMS params{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    UINT bad_argument = 0;
    EXPECT_EQ(outcome.result, type->Invoke(vtable.Get(), resize, DISPATCH_METHOD, &params, nullptr,
                                           nullptr, &bad_argument));
    EXPECT_EQ(outcome.bad_argument, bad_argument);
  }
}

TEST_F(LateBoundCall, AnswersAKindThatTheMemberIsNot) {
  EXPECT_EQ(Invoke(browser_.Get(), IdOf(browser_.Get(), L"StartBrowser"), DISPATCH_PROPERTYPUT,
                   {_variant_t(1L)})
                .result,
            DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateBoundCall, RefusesMissingParameters) {
  EXPECT_EQ(
      settings_->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
      E_INVALIDARG);
}

TEST_F(LateBoundCall, NeedsNoPlaceForTheResult) {
  DISPPARAMS none{};
  EXPECT_EQ(
      settings_->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
      S_OK);
}

TEST_F(LateBoundCall, AnswersObjectsAndNothing) {
  // An out parameter that is never written comes back empty.
  const Outcome token = Invoke(application_.Get(), IdOf(application_.Get(), L"GetToken"),
                               DISPATCH_METHOD, {_variant_t(L"KzxMeadow"), _variant_t()});
  EXPECT_EQ(token.result, S_OK);
  EXPECT_TRUE(token.value.vt == VT_EMPTY || token.value.pdispVal == nullptr);

  const _variant_t no_token(static_cast<IDispatch*>(nullptr));
  const Outcome settings =
      Invoke(application_.Get(), IdOf(application_.Get(), L"GetKzCEFComSettings"), DISPATCH_METHOD,
             {no_token});
  EXPECT_EQ(settings.result, S_OK);
  ASSERT_EQ(settings.value.vt, VT_DISPATCH);
  EXPECT_EQ(
      static_cast<long>(Invoke(settings.value.pdispVal, IdOf(settings.value.pdispVal, L"HubPort"),
                               DISPATCH_PROPERTYGET)
                            .value),
      -1);

  const Outcome browser = Invoke(application_.Get(), IdOf(application_.Get(), L"GetKzCEFBrowser"),
                                 DISPATCH_METHOD, {no_token, _variant_t(0L)});
  EXPECT_EQ(browser.result, S_OK);
  ASSERT_EQ(browser.value.vt, VT_DISPATCH);
  EXPECT_EQ(static_cast<_bstr_t>(Invoke(browser.value.pdispVal,
                                        IdOf(browser.value.pdispVal, L"URL"), DISPATCH_PROPERTYGET)
                                     .value),
            _bstr_t(L""));
}

TEST_F(LateBoundCall, ReachesTheNewestInterfacesMembers) {
  EXPECT_EQ(Invoke(application_.Get(), 11, DISPATCH_METHOD, {_variant_t(true)}).result, S_OK);
  const Outcome processing = Invoke(application_.Get(), 12, DISPATCH_METHOD);
  EXPECT_EQ(processing.result, S_OK);
  EXPECT_EQ(processing.value.vt, VT_BOOL);
  EXPECT_EQ(processing.value.boolVal, VARIANT_FALSE);
}

TEST_F(LateBoundCall, PassesTheHandlersRefusalOn) {
  const auto handler = server_.Create<IDispatch>("KZCEFComBrowserHandler");
  for (const auto& [id, arguments] : std::vector<std::pair<DISPID, std::vector<_variant_t>>>{
           {1, {_variant_t(L"http://a/")}},
           {3, {_variant_t(200L)}},
           {6, {}},
           {15, {}},
           {16, {_variant_t(5L)}},
           {17, {_variant_t(L"path"), _variant_t(1L), _variant_t(50L)}}}) {
    const Outcome outcome = Invoke(handler.Get(), id, DISPATCH_METHOD, arguments);
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION) << id;
    EXPECT_EQ(outcome.member_result, E_NOTIMPL) << id;
  }
}

TEST_F(LateBoundCall, PassesInOutArgumentsByReference) {
  const auto handler = server_.Create<IDispatch>("KZCEFComBrowserHandler");
  VARIANT_BOOL flag = 5;
  _variant_t by_reference;
  by_reference.vt = VT_BYREF | VT_BOOL;
  by_reference.pboolVal = &flag;
  const Outcome outcome =
      Invoke(handler.Get(), 19, DISPATCH_METHOD, {_variant_t(27L), by_reference});
  EXPECT_EQ(outcome.member_result, E_NOTIMPL);
  EXPECT_EQ(flag, 5);
}

}  // namespace
}  // namespace contract
