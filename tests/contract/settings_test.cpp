// The settings object: a property bag, early and late bound.

#include <windows.h>

#include <comutil.h>
#include <wrl/client.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "KZCEFComWrapper.h"
#include "late_bound.h"
#include "server_library.h"

namespace contract {
namespace {

using Microsoft::WRL::ComPtr;

template <typename Value>
struct Property {
  const wchar_t* name;
  HRESULT (STDMETHODCALLTYPE IKZCEFComSettings::*get)(Value*);
  HRESULT (STDMETHODCALLTYPE IKZCEFComSettings::*put)(Value);
};

#define KZ_PROPERTY(name) \
  { L## #name, &IKZCEFComSettings::get_##name, &IKZCEFComSettings::put_##name }

const Property<BSTR> kTexts[] = {
    KZ_PROPERTY(AcceptLanguageList),
    KZ_PROPERTY(BrowserSubprocessPath),
    KZ_PROPERTY(CachePath),
    KZ_PROPERTY(JavascriptFlags),
    KZ_PROPERTY(Locale),
    KZ_PROPERTY(LocalesDirPath),
    KZ_PROPERTY(LogFile),
    KZ_PROPERTY(ResourcesDirPath),
    KZ_PROPERTY(UserAgent),
    KZ_PROPERTY(UserDataPath),
    KZ_PROPERTY(ApplicationType),
    KZ_PROPERTY(LangResourceDllPath),
};
const Property<VARIANT_BOOL> kFlags[] = {
    KZ_PROPERTY(CommandLineArgsDisabled),    KZ_PROPERTY(MultiThreadedMessageLoop),
    KZ_PROPERTY(PackLoadingDisabled),        KZ_PROPERTY(PersistSessionCookies),
    KZ_PROPERTY(WindowlessRenderingEnabled),
};
const Property<long> kNumbers[] = {
    KZ_PROPERTY(LogSeverity),
    KZ_PROPERTY(RemoteDebuggingPort),
    KZ_PROPERTY(UncaughtExceptionStackSize),
    KZ_PROPERTY(HubPort),
};

std::wstring Take(BSTR text) {
  std::wstring copy(text, text ? text + SysStringLen(text) : text);
  SysFreeString(text);
  return copy;
}

class Settings : public ::testing::Test {
 protected:
  std::wstring Get(const Property<BSTR>& property) {
    BSTR text = nullptr;
    EXPECT_EQ((settings_.Get()->*property.get)(&text), S_OK) << property.name;
    EXPECT_NE(text, nullptr) << property.name;
    return Take(text);
  }
  template <typename Value>
  Value Get(const Property<Value>& property) {
    Value value = 77;
    EXPECT_EQ((settings_.Get()->*property.get)(&value), S_OK) << property.name;
    return value;
  }
  template <typename Value>
  void Put(const Property<Value>& property, Value value) {
    EXPECT_EQ((settings_.Get()->*property.put)(value), S_OK) << property.name;
  }
  void PutText(const Property<BSTR>& property, const std::wstring& text) {
    const BSTR given = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    Put(property, given);
    // The object has a copy of its own.
    if (!text.empty()) {
      given[0] = L'#';
    }
    SysFreeString(given);
  }

  const ServerLibrary server_;
  const ComPtr<IKZCEFComSettings> settings_ = server_.Create<IKZCEFComSettings>("KZCEFComSettings");
  const Property<BSTR> product_ = KZ_PROPERTY(UserAgentProduct);
};

TEST_F(Settings, StartWithTheEnginesDefaults) {
  for (const auto& text : kTexts) {
    EXPECT_EQ(Get(text), L"") << text.name;
  }
  EXPECT_EQ(Get(product_), L"");
  for (const auto& flag : kFlags) {
    EXPECT_EQ(Get(flag), VARIANT_FALSE) << flag.name;
  }
  for (const auto& number : kNumbers) {
    EXPECT_EQ(Get(number), std::wstring(number.name) == L"HubPort" ? -1 : 0) << number.name;
  }
}

TEST_F(Settings, KeepEachTextApart) {
  for (const auto& text : kTexts) {
    PutText(text, text.name);
  }
  for (const auto& text : kTexts) {
    EXPECT_EQ(Get(text), text.name);
    // And a second get returns the same.
    EXPECT_EQ(Get(text), text.name);
  }
}

TEST_F(Settings, KeepTextsOfAnyContentAndLength) {
  const std::vector<std::wstring> texts{std::wstring(L"a\0b\0", 4), L"\"quoted\" 'text'",
                                        L" blanks ", L"\x00e4\x4e2d\xd83d\xde00",
                                        std::wstring(1 << 20, L'x')};
  for (const auto& property : kTexts) {
    for (const std::wstring& text : texts) {
      PutText(property, text);
      EXPECT_TRUE(Get(property) == text) << property.name << " " << text.size();
    }
  }
}

TEST_F(Settings, TakeANullTextForAnEmptyOne) {
  for (const auto& text : kTexts) {
    PutText(text, L"before");
    Put(text, BSTR{nullptr});
    EXPECT_EQ(Get(text), L"") << text.name;
  }
}

TEST_F(Settings, KeepEveryFlagAsItIs) {
  for (const auto& flag : kFlags) {
    for (const VARIANT_BOOL value :
         {VARIANT_TRUE, VARIANT_FALSE, VARIANT_BOOL{1}, VARIANT_BOOL{2}, VARIANT_BOOL{-32768}}) {
      Put(flag, value);
      EXPECT_EQ(Get(flag), value) << flag.name;
    }
  }
}

TEST_F(Settings, KeepEachFlagApart) {
  for (const auto& set : kFlags) {
    Put(set, VARIANT_TRUE);
    for (const auto& flag : kFlags) {
      EXPECT_EQ(Get(flag), std::wstring(flag.name) == set.name ? VARIANT_TRUE : VARIANT_FALSE);
    }
    Put(set, VARIANT_FALSE);
  }
}

TEST_F(Settings, KeepEveryNumberUnchecked) {
  long next = 1;
  for (const auto& number : kNumbers) {
    for (const long value : {LONG_MIN, -2L, 0L, 65536L, LONG_MAX, next}) {
      Put(number, value);
      EXPECT_EQ(Get(number), value) << number.name;
    }
    ++next;
  }
  next = 1;
  for (const auto& number : kNumbers) {
    EXPECT_EQ(Get(number), next++) << number.name;
  }
}

// There is no separator, and hosts count on it.
TEST_F(Settings, PutTheEnginesProductDirectlyBeforeTheHosts) {
  PutText(product_, L"MyHost/1.0");
  EXPECT_EQ(Get(product_), L"Chrome/123.0.6312.124MyHost/1.0");
  PutText(product_, L" MyHost/1.0");
  EXPECT_EQ(Get(product_), L"Chrome/123.0.6312.124 MyHost/1.0");
  PutText(product_, L"");
  EXPECT_EQ(Get(product_), L"Chrome/123.0.6312.124");
  Put(product_, BSTR{nullptr});
  EXPECT_EQ(Get(product_), L"Chrome/123.0.6312.124");
}

TEST_F(Settings, TakeCommandLineArguments) {
  for (const wchar_t* value : {L"A", L"B", L""}) {
    EXPECT_EQ(settings_->AddCefCommandLineArg(_bstr_t(L"proxy-server"), _bstr_t(value)), S_OK);
  }
  EXPECT_EQ(settings_->AddCefCommandLineArg(nullptr, nullptr), S_OK);
}

TEST_F(Settings, SurviveMissingOutPointers) {
  for (const auto& text : kTexts) {
    (settings_.Get()->*text.get)(nullptr);
  }
  for (const auto& flag : kFlags) {
    (settings_.Get()->*flag.get)(nullptr);
  }
  for (const auto& number : kNumbers) {
    (settings_.Get()->*number.get)(nullptr);
  }
}

TEST_F(Settings, ServeLateBoundHosts) {
  IDispatch* const object = settings_.Get();
  for (const auto& text : kTexts) {
    const DISPID id = IdOf(object, text.name);
    EXPECT_EQ(Invoke(object, id, DISPATCH_PROPERTYPUT, {_variant_t(text.name)}).result, S_OK);
    EXPECT_EQ(Get(text), text.name);
    const Outcome got = Invoke(object, id, DISPATCH_PROPERTYGET);
    EXPECT_EQ(got.value.vt, VT_BSTR);
    EXPECT_EQ(static_cast<_bstr_t>(got.value), _bstr_t(text.name));
  }
  for (const auto& flag : kFlags) {
    const DISPID id = IdOf(object, flag.name);
    EXPECT_EQ(Invoke(object, id, DISPATCH_PROPERTYPUT, {_variant_t(true)}).result, S_OK);
    EXPECT_EQ(Get(flag), VARIANT_TRUE);
    const Outcome got = Invoke(object, id, DISPATCH_PROPERTYGET);
    EXPECT_EQ(got.value.vt, VT_BOOL);
    EXPECT_EQ(got.value.boolVal, VARIANT_TRUE);
  }
  for (const auto& number : kNumbers) {
    const DISPID id = IdOf(object, number.name);
    EXPECT_EQ(Invoke(object, id, DISPATCH_PROPERTYPUT, {_variant_t(-9L)}).result, S_OK);
    EXPECT_EQ(Get(number), -9);
    const Outcome got = Invoke(object, id, DISPATCH_PROPERTYGET);
    EXPECT_EQ(got.value.vt, VT_I4);
    EXPECT_EQ(got.value.lVal, -9);
  }
  EXPECT_EQ(Invoke(object, IdOf(object, L"AddCefCommandLineArg"), DISPATCH_METHOD,
                   {_variant_t(L"name"), _variant_t(L"value")})
                .result,
            S_OK);
}

}  // namespace
}  // namespace contract
