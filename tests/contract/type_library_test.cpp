// The type library in the DLL against the contract's table.

#include <windows.h>

#include <oleauto.h>
#include <wrl/client.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "contract_table.h"
#include "server_library.h"
#include "type_library_file.h"

namespace contract {
namespace {

using Microsoft::WRL::ComPtr;
using ::testing::ElementsAreArray;

constexpr LCID kEnglishUnitedStates = 0x0409;
// The seven slots of IUnknown and IDispatch come first.
constexpr int kInheritedSlots = 7;

std::string Narrow(BSTR text) {
  const std::unique_ptr<std::remove_pointer_t<BSTR>, decltype(&SysFreeString)> own(text,
                                                                                   &SysFreeString);
  const std::wstring wide(text, text ? text + SysStringLen(text) : text);
  return {wide.begin(), wide.end()};
}

ComPtr<ITypeLib> Library() {
  ComPtr<ITypeLib> library;
  EXPECT_HRESULT_SUCCEEDED(
      LoadTypeLibEx(ServerPath().c_str(), REGKIND_NONE, library.GetAddressOf()));
  return library;
}

ComPtr<ITypeInfo> TypeOf(const char* guid) {
  ComPtr<ITypeInfo> type;
  EXPECT_HRESULT_SUCCEEDED(Library()->GetTypeInfoOfGuid(Guid(guid), type.GetAddressOf())) << guid;
  return type;
}

std::string NameOf(ITypeInfo* type) {
  BSTR name = nullptr;
  EXPECT_HRESULT_SUCCEEDED(type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
  return Narrow(name);
}

std::string HelpOf(ITypeInfo* type, MEMBERID id) {
  BSTR help = nullptr;
  EXPECT_HRESULT_SUCCEEDED(type->GetDocumentation(id, nullptr, &help, nullptr, nullptr));
  return Narrow(help);
}

ComPtr<ITypeInfo> Referred(ITypeInfo* type, HREFTYPE reference) {
  ComPtr<ITypeInfo> referred;
  EXPECT_HRESULT_SUCCEEDED(type->GetRefTypeInfo(reference, referred.GetAddressOf()));
  return referred;
}

ComPtr<ITypeInfo> Implemented(ITypeInfo* type, UINT index) {
  HREFTYPE reference = 0;
  EXPECT_HRESULT_SUCCEEDED(type->GetRefTypeOfImplType(index, &reference));
  return Referred(type, reference);
}

// The vtable's side of a dual interface.
ComPtr<ITypeInfo> VtableSide(ITypeInfo* dispatch) {
  return Implemented(dispatch, static_cast<UINT>(-1));
}

auto Attributes(ITypeInfo* type) {
  TYPEATTR* attributes = nullptr;
  EXPECT_HRESULT_SUCCEEDED(type->GetTypeAttr(&attributes));
  const auto release = [type](TYPEATTR* own) { type->ReleaseTypeAttr(own); };
  return std::unique_ptr<TYPEATTR, decltype(release)>(attributes, release);
}

auto Function(ITypeInfo* type, UINT index) {
  FUNCDESC* function = nullptr;
  EXPECT_HRESULT_SUCCEEDED(type->GetFuncDesc(index, &function));
  const auto release = [type](FUNCDESC* own) { type->ReleaseFuncDesc(own); };
  return std::unique_ptr<FUNCDESC, decltype(release)>(function, release);
}

// A type as the contract's table writes it.
std::string TypeText(ITypeInfo* type, const TYPEDESC& description) {
  switch (description.vt) {
    case VT_I4:
      return "long";
    case VT_I8:
      return "__int64";
    case VT_R8:
      return "double";
    case VT_BOOL:
      return "VARIANT_BOOL";
    case VT_BSTR:
      return "BSTR";
    case VT_VARIANT:
      return "VARIANT";
    case VT_UNKNOWN:
      return "IUnknown*";
    case VT_DISPATCH:
      return "IDispatch*";
    case VT_PTR:
      return TypeText(type, *description.lptdesc) + "*";
    case VT_USERDEFINED:
      return NameOf(Referred(type, description.hreftype).Get());
    default:
      return "VARTYPE " + std::to_string(description.vt);
  }
}

std::string DirectionText(WORD flags) {
  switch (flags) {
    case PARAMFLAG_FIN:
      return "[in]";
    case PARAMFLAG_FIN | PARAMFLAG_FOUT:
      return "[in, out]";
    case PARAMFLAG_FOUT | PARAMFLAG_FRETVAL:
      return "[out, retval]";
    default:
      return "[flags " + std::to_string(flags) + "]";
  }
}

std::string ParametersText(ITypeInfo* type,
                           const FUNCDESC& function,
                           const std::vector<std::string>& names) {
  std::string text;
  for (int i = 0; i < function.cParams; ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    text += (text.empty() ? "" : "; ") + DirectionText(parameter.paramdesc.wParamFlags) + " " +
            TypeText(type, parameter.tdesc);
    const auto index = static_cast<std::size_t>(i);
    if (index < names.size() && !names[index].empty()) {
      text += " " + names[index];
    }
  }
  return text;
}

std::string KindText(INVOKEKIND kind) {
  return kind == INVOKE_FUNC          ? "method"
         : kind == INVOKE_PROPERTYGET ? "propget"
         : kind == INVOKE_PROPERTYPUT ? "propput"
                                      : "kind " + std::to_string(kind);
}

// One member as one line, so that a difference shows the member whole.
std::string Line(DISPID id,
                 INVOKEKIND kind,
                 const std::string& name,
                 const std::string& parameters,
                 const std::string& help) {
  return std::to_string(id) + " " + KindText(kind) + " " + name + "(" + parameters + ") \"" + help +
         "\"";
}

std::vector<std::string> ContractLines(const Interface& expected) {
  std::vector<std::string> lines;
  for (const Member& member : expected.members) {
    lines.push_back(Line(member.id, member.kind, member.name, member.parameters, member.help));
  }
  return lines;
}

std::span<const std::byte> LibraryResource(HMODULE module) {
  const HRSRC found = FindResourceExW(module, L"TYPELIB", MAKEINTRESOURCEW(1),
                                      static_cast<WORD>(kEnglishUnitedStates));
  if (!found) {
    return {};
  }
  const void* bytes = LockResource(LoadResource(module, found));
  return {static_cast<const std::byte*>(bytes), SizeofResource(module, found)};
}

template <typename Row>
std::string RowName(const ::testing::TestParamInfo<Row>& row) {
  return row.param.name;
}

TEST(TypeLibrary, IsTheOneOfTheContract) {
  const auto library = Library();
  BSTR name = nullptr;
  ASSERT_HRESULT_SUCCEEDED(library->GetDocumentation(-1, &name, nullptr, nullptr, nullptr));
  EXPECT_EQ(Narrow(name), kLibraryName);

  TLIBATTR* attributes = nullptr;
  ASSERT_HRESULT_SUCCEEDED(library->GetLibAttr(&attributes));
  EXPECT_TRUE(IsEqualGUID(attributes->guid, Guid(kLibraryId)));
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  EXPECT_EQ(attributes->lcid, kEnglishUnitedStates);
  EXPECT_EQ(attributes->syskind, SYS_WIN64);
  library->ReleaseTLibAttr(attributes);
}

TEST(TypeLibrary, HoldsTheContractsTypesAndNoOthers) {
  std::vector<std::string> expected;
  for (const Interface& row : Interfaces()) {
    expected.emplace_back(row.name);
  }
  for (const Coclass& row : Coclasses()) {
    expected.emplace_back(row.name);
  }
  for (const Enumeration& row : Enumerations()) {
    expected.emplace_back(row.name);
  }
  const auto library = Library();
  std::vector<std::string> actual;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    BSTR name = nullptr;
    ASSERT_HRESULT_SUCCEEDED(
        library->GetDocumentation(static_cast<int>(i), &name, nullptr, nullptr, nullptr));
    actual.push_back(Narrow(name));
  }
  EXPECT_THAT(actual, ::testing::UnorderedElementsAreArray(expected));
}

class TypeLibraryInterface : public ::testing::TestWithParam<Interface> {};

TEST_P(TypeLibraryInterface, HasItsIdentifierBaseAndFlags) {
  const Interface& expected = GetParam();
  const auto dispatch = TypeOf(expected.iid);
  EXPECT_EQ(NameOf(dispatch.Get()), expected.name);

  const WORD flags =
      static_cast<WORD>(TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE |
                        (expected.is_nonextensible ? TYPEFLAG_FNONEXTENSIBLE : 0));
  const auto attributes = Attributes(dispatch.Get());
  EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
  // The platform never shows oleautomation on the dispatch side of a dual interface.
  EXPECT_EQ(attributes->wTypeFlags, flags & ~TYPEFLAG_FOLEAUTOMATION);

  const auto vtable = VtableSide(dispatch.Get());
  EXPECT_EQ(Attributes(vtable.Get())->typekind, TKIND_INTERFACE);
  EXPECT_EQ(Attributes(vtable.Get())->wTypeFlags, flags);
  EXPECT_EQ(NameOf(Implemented(vtable.Get(), 0).Get()), expected.base);
}

TEST_P(TypeLibraryInterface, HasItsMembersInTheOrderOfTheSlots) {
  const Interface& expected = GetParam();
  const auto dispatch = TypeOf(expected.iid);
  const auto vtable = VtableSide(dispatch.Get());
  // The bases' members come before the interface's own.
  int slot = kInheritedSlots;
  for (const char* base = expected.base; std::string(base) != "IDispatch";
       base = InterfaceNamed(base).base) {
    slot += static_cast<int>(InterfaceNamed(base).members.size());
  }

  const auto in_file = MembersInFile(LibraryResource(ServerLibrary().module()));
  ASSERT_TRUE(in_file.contains(expected.name));
  const std::vector<FileMember>& file_members = in_file.at(expected.name);
  const UINT count = Attributes(vtable.Get())->cFuncs;
  ASSERT_EQ(file_members.size(), count);

  std::vector<std::string> actual;
  for (UINT i = 0; i < count; ++i, ++slot) {
    const auto function = Function(vtable.Get(), i);
    const FileMember& file_member = file_members[i];
    EXPECT_EQ(function->memid, file_member.id);
    EXPECT_EQ(function->invkind, file_member.kind);
    actual.push_back(Line(function->memid, function->invkind, file_member.name,
                          ParametersText(vtable.Get(), *function, file_member.parameter_names),
                          file_member.help));
    EXPECT_EQ(function->oVft, slot * static_cast<int>(sizeof(void*))) << actual.back();
    EXPECT_EQ(function->funckind, FUNC_PUREVIRTUAL) << actual.back();
    EXPECT_EQ(function->callconv, CC_STDCALL) << actual.back();
    EXPECT_EQ(function->elemdescFunc.tdesc.vt, VT_HRESULT) << actual.back();
    EXPECT_EQ(function->wFuncFlags, 0) << actual.back();
  }
  EXPECT_THAT(actual, ElementsAreArray(ContractLines(expected)));
}

// What a client sees that asks the platform and does not read the file.
TEST_P(TypeLibraryInterface, DocumentsMethodsAndGetAccessors) {
  const auto dispatch = TypeOf(GetParam().iid);
  for (const Member& member : GetParam().members) {
    if (member.kind == INVOKE_PROPERTYPUT) {
      continue;
    }
    EXPECT_EQ(HelpOf(dispatch.Get(), member.id), member.help) << member.name;
    const std::string narrow = member.name;
    std::wstring wide(narrow.begin(), narrow.end());
    wchar_t* name = wide.data();
    MEMBERID id = MEMBERID_NIL;
    EXPECT_HRESULT_SUCCEEDED(dispatch->GetIDsOfNames(&name, 1, &id)) << member.name;
    EXPECT_EQ(id, member.id) << member.name;
  }
}

INSTANTIATE_TEST_SUITE_P(All,
                         TypeLibraryInterface,
                         ::testing::ValuesIn(Interfaces().begin(), Interfaces().end()),
                         RowName<Interface>);

class TypeLibraryCoclass : public ::testing::TestWithParam<Coclass> {};

TEST_P(TypeLibraryCoclass, HasItsIdentifierAndDefaultInterface) {
  const Coclass& expected = GetParam();
  const auto type = TypeOf(expected.clsid);
  EXPECT_EQ(NameOf(type.Get()), expected.name);
  const auto attributes = Attributes(type.Get());
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_EQ(attributes->wTypeFlags, expected.is_creatable ? WORD{TYPEFLAG_FCANCREATE} : WORD{0});
  ASSERT_EQ(attributes->cImplTypes, 1);
  EXPECT_EQ(NameOf(Implemented(type.Get(), 0).Get()), expected.default_interface);
  int flags = 0;
  ASSERT_HRESULT_SUCCEEDED(type->GetImplTypeFlags(0, &flags));
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
}

INSTANTIATE_TEST_SUITE_P(All,
                         TypeLibraryCoclass,
                         ::testing::ValuesIn(Coclasses().begin(), Coclasses().end()),
                         RowName<Coclass>);

class TypeLibraryEnumeration : public ::testing::TestWithParam<Enumeration> {};

TEST_P(TypeLibraryEnumeration, HasItsConstantsInOrder) {
  const Enumeration& expected = GetParam();
  const auto type = TypeOf(expected.guid);
  EXPECT_EQ(NameOf(type.Get()), expected.name);
  const auto attributes = Attributes(type.Get());
  EXPECT_EQ(attributes->typekind, TKIND_ENUM);

  std::vector<std::pair<std::string, long>> actual;
  for (UINT i = 0; i < attributes->cVars; ++i) {
    VARDESC* constant = nullptr;
    ASSERT_HRESULT_SUCCEEDED(type->GetVarDesc(i, &constant));
    BSTR name = nullptr;
    EXPECT_HRESULT_SUCCEEDED(
        type->GetDocumentation(constant->memid, &name, nullptr, nullptr, nullptr));
    EXPECT_EQ(constant->varkind, VAR_CONST);
    EXPECT_EQ(constant->lpvarValue->vt, VT_I4);
    actual.emplace_back(Narrow(name), constant->lpvarValue->lVal);
    type->ReleaseVarDesc(constant);
  }
  std::vector<std::pair<std::string, long>> constants;
  for (const Constant& constant : expected.constants) {
    constants.emplace_back(constant.name, constant.value);
  }
  EXPECT_EQ(actual, constants);
}

INSTANTIATE_TEST_SUITE_P(All,
                         TypeLibraryEnumeration,
                         ::testing::ValuesIn(Enumerations().begin(), Enumerations().end()),
                         RowName<Enumeration>);

// Texts that look like slips and are not to be put right, because hosts may show them.
TEST(TypeLibrary, KeepsItsOddHelpStrings) {
  const auto members = MembersInFile(LibraryResource(ServerLibrary().module()));
  const auto help = [&](const char* type, const char* name, INVOKEKIND kind = INVOKE_FUNC) {
    for (const FileMember& member : members.at(type)) {
      if (member.name == name && member.kind == kind) {
        return member.help;
      }
    }
    return std::string("no such member");
  };
  EXPECT_EQ(help("IKZCEFComSettings", "AcceptLanguageList", INVOKE_PROPERTYGET),
            "Get AcceptLanguageListL");
  EXPECT_EQ(help("IKZCEFComSettings", "AcceptLanguageList", INVOKE_PROPERTYPUT),
            "Set AcceptLanguageList");
  EXPECT_EQ(help("IKZCEFComSettings", "AddCefCommandLineArg"), "Get CefCommandLineArg");
  EXPECT_EQ(help("IKZCEFComApplication2", "IsProcessingNotifications"),
            "CEF is procesing notifications");
  EXPECT_EQ(help("IKZCEFComBrowserHandler3", "KeyStrokeNotify"), "Key stoke notify");
  EXPECT_EQ(help("IKZCEFComBrowserHandler", "SetOwnerWndHandle"), "Get Owner Browser handle");
  EXPECT_EQ(help("IKZCEFComBrowserHandler2", "DownloadUpdatedNotify"),
            "Download complete notification");
  EXPECT_EQ(help("IKZCEFComBrowserHandler", "BeforeResourceLoadNotify"),
            "OnBeforeResourceLoadNotify");
  EXPECT_EQ(help("IKZCEFComApplication", "GetToken"), "");
}

}  // namespace
}  // namespace contract
