// The cookie manager: reads and writes passed on to the bridge, and the arrays that hosts pass.

#include "automation/cookie_manager.h"

#include <memory>
#include <stdexcept>
#include <vector>

#include "automation_test.h"
#include "com/module.h"

namespace kzcef::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ArrayFree {
  void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};
using UniqueArray = std::unique_ptr<SAFEARRAY, ArrayFree>;

// A null text becomes a null element.
UniqueArray TextArray(const std::vector<const wchar_t*>& texts, LONG first = 0) {
  UniqueArray array(SafeArrayCreateVector(VT_BSTR, first, static_cast<ULONG>(texts.size())));
  LONG at = first;
  for (const wchar_t* text : texts) {
    if (text) {
      _bstr_t owned(text);
      EXPECT_EQ(SafeArrayPutElement(array.get(), &at, owned.GetBSTR()), S_OK);
    }
    ++at;
  }
  return array;
}

// A VARIANT that borrows the array.
VARIANT Holding(const UniqueArray& array, VARTYPE type = VT_ARRAY | VT_BSTR) {
  VARIANT value;
  VariantInit(&value);
  value.vt = type;
  value.parray = array.get();
  return value;
}

VARIANT OneText() {
  VARIANT list;
  VariantInit(&list);
  list.vt = VT_ARRAY | VT_BSTR;
  list.parray = TextArray({L"cookie"}).release();
  return list;
}

ComPtr<IKZCEFComCookieManager> NewManager() {
  ComPtr<IKZCEFComCookieManager> created;
  CreateComObject<CKZCEFComCookieManager>(nullptr, IID_PPV_ARGS(created.GetAddressOf()));
  return created;
}

class CookieManager : public AutomationTest {
 protected:
  CookieManager() { bridge.ForgetCalls(); }

  // What SetUrlCookies returns in `done`.
  VARIANT_BOOL Set(const VARIANT& cookies) {
    VARIANT_BOOL done = 5;
    EXPECT_EQ(manager->SetUrlCookies(_bstr_t(L"http://a/"), cookies, &done), S_OK);
    return done;
  }

  // The results of the three getters, each of which must return S_OK.
  std::vector<VARTYPE> Read() {
    std::vector<VARTYPE> types;
    const auto read = [&](auto call) {
      // Whatever the host left in it.
      VARIANT cookies;
      cookies.vt = 77;
      EXPECT_EQ(call(&cookies), S_OK);
      types.push_back(cookies.vt);
      EXPECT_EQ(VariantClear(&cookies), S_OK);
    };
    const _bstr_t url(L"http://a/");
    read([&](VARIANT* cookies) { return manager->GetUrlCookies(url, cookies); });
    read([&](VARIANT* cookies) { return manager->GetUrlCookiesSync(url, cookies); });
    read([&](VARIANT* cookies) { return manager->GetAllCookiesSync(cookies); });
    return types;
  }

  ComPtr<IKZCEFComCookieManager> manager = NewManager();
};

TEST_F(CookieManager, PreparesTheBridgeOnce) {
  const auto another = NewManager();
  EXPECT_THAT(bridge.calls(), ElementsAre("PrepareCookieAccess()"));
}

TEST_F(CookieManager, IsHandedOutByTheApplicationObject) {
  ComPtr<IKZCEFComCookieManager> given;
  EXPECT_EQ(application->GetCookieManager(nullptr, 3, given.GetAddressOf()), S_OK);
  ASSERT_TRUE(given);
  EXPECT_THAT(bridge.calls(), ElementsAre("PrepareCookieAccess()"));
}

TEST_F(CookieManager, CountsAsALiveObject) {
  const long before = ModuleLock::Count();
  auto another = NewManager();
  EXPECT_EQ(ModuleLock::Count(), before + 1);
  another.Reset();
  EXPECT_EQ(ModuleLock::Count(), before);
}

TEST_F(CookieManager, PassesTheReadsOn) {
  Read();
  EXPECT_THAT(bridge.calls(),
              ElementsAre("GetUrlCookies(http://a/)", "GetCookiesSync(0, http://a/)",
                          "GetCookiesSync(1, (null))"));
}

TEST_F(CookieManager, PassesANullUrlOnAsItIs) {
  VARIANT cookies;
  EXPECT_EQ(manager->GetUrlCookies(nullptr, &cookies), S_OK);
  EXPECT_EQ(manager->GetUrlCookiesSync(nullptr, &cookies), S_OK);
  EXPECT_THAT(bridge.calls(), ElementsAre("GetUrlCookies((null))", "GetCookiesSync(0, (null))"));
}

TEST_F(CookieManager, AnswersWhatTheBridgeFound) {
  EXPECT_THAT(Read(), ElementsAre(VT_EMPTY, VT_EMPTY, VT_EMPTY));
  bridge.on_cookies_read = &OneText;
  const VARTYPE list = VT_ARRAY | VT_BSTR;
  EXPECT_THAT(Read(), ElementsAre(list, list, list));
}

TEST_F(CookieManager, AnswersNothingWhenAReadFails) {
  bridge.on_cookies_read = []() -> VARIANT { throw std::out_of_range("invalid map<K, T> key"); };
  EXPECT_THAT(Read(), ElementsAre(VT_EMPTY, VT_EMPTY, VT_EMPTY));
  bridge.on_cookies_read = []() -> VARIANT { throw std::bad_alloc(); };
  EXPECT_THAT(Read(), ElementsAre(VT_EMPTY, VT_EMPTY, VT_EMPTY));
}

TEST_F(CookieManager, SurvivesMissingOutPointers) {
  bridge.on_cookies_read = &OneText;
  const _bstr_t url(L"http://a/");
  EXPECT_EQ(manager->GetUrlCookies(url, nullptr), S_OK);
  EXPECT_EQ(manager->GetUrlCookiesSync(url, nullptr), S_OK);
  EXPECT_EQ(manager->GetAllCookiesSync(nullptr), S_OK);
  bridge.ForgetCalls();
  const auto array = TextArray({L"1"});
  EXPECT_EQ(manager->SetUrlCookies(url, Holding(array), nullptr), S_OK);
  EXPECT_THAT(bridge.calls(), ElementsAre("SetUrlCookies(http://a/, 1)"));
}

TEST_F(CookieManager, SetsEachElementInOrder) {
  const auto array = TextArray({L"2", L"1", L"{}"}, 5);
  EXPECT_EQ(Set(Holding(array)), VARIANT_TRUE);
  EXPECT_THAT(bridge.calls(),
              ElementsAre("SetUrlCookies(http://a/, 2)", "SetUrlCookies(http://a/, 1)",
                          "SetUrlCookies(http://a/, {})"));
  EXPECT_EQ(array->cLocks, 0u);
}

TEST_F(CookieManager, IgnoresTheBridgesAnswers) {
  bridge.succeeds = false;
  const auto array = TextArray({L"1"});
  EXPECT_EQ(Set(Holding(array)), VARIANT_TRUE);
}

TEST_F(CookieManager, SetsTheRestWhenOneElementFails) {
  bridge.on_cookie_set = [](const wchar_t* text) {
    if (*text == L'2') {
      throw std::out_of_range("invalid map<K, T> key");
    }
    if (*text == L'3') {
      throw 3;
    }
  };
  const auto array = TextArray({L"1", L"2", L"3", L"4"});
  EXPECT_EQ(Set(Holding(array)), VARIANT_TRUE);
  EXPECT_EQ(bridge.calls().size(), 4u);
  EXPECT_EQ(bridge.calls().back(), "SetUrlCookies(http://a/, 4)");
  EXPECT_EQ(array->cLocks, 0u);
}

TEST_F(CookieManager, PassesNullElementsOn) {
  const auto array = TextArray({nullptr, L"1"});
  EXPECT_EQ(Set(Holding(array)), VARIANT_TRUE);
  EXPECT_THAT(bridge.calls(),
              ElementsAre("SetUrlCookies(http://a/, (null))", "SetUrlCookies(http://a/, 1)"));
}

TEST_F(CookieManager, SetsNothingFromAnEmptyArray) {
  const auto array = TextArray({});
  EXPECT_EQ(Set(Holding(array)), VARIANT_TRUE);
  EXPECT_THAT(bridge.calls(), IsEmpty());
}

// Kept deliberately: the element type in the tag is not looked at.
TEST_F(CookieManager, TakesAnArrayOfTextsUnderAnotherTag) {
  const auto array = TextArray({L"1"});
  for (const VARTYPE tag : {VT_ARRAY | VT_I4, VT_ARRAY | VT_VARIANT, VT_ARRAY | VT_EMPTY}) {
    bridge.ForgetCalls();
    EXPECT_EQ(Set(Holding(array, static_cast<VARTYPE>(tag))), VARIANT_TRUE);
    EXPECT_THAT(bridge.calls(), ElementsAre("SetUrlCookies(http://a/, 1)")) << tag;
  }
}

TEST_F(CookieManager, TakesAnArrayByReference) {
  const auto array = TextArray({L"1"});
  SAFEARRAY* pointer = array.get();
  VARIANT by_reference;
  VariantInit(&by_reference);
  by_reference.vt = VT_BYREF | VT_ARRAY | VT_BSTR;
  by_reference.pparray = &pointer;
  EXPECT_EQ(Set(by_reference), VARIANT_TRUE);
  EXPECT_THAT(bridge.calls(), ElementsAre("SetUrlCookies(http://a/, 1)"));

  // A script's variable: a VARIANT by reference, with the array by value or by reference in it.
  bridge.ForgetCalls();
  VARIANT by_value = Holding(array);
  for (VARIANT* inner : {&by_value, &by_reference}) {
    VARIANT variable;
    VariantInit(&variable);
    variable.vt = VT_BYREF | VT_VARIANT;
    variable.pvarVal = inner;
    EXPECT_EQ(Set(variable), VARIANT_TRUE);
  }
  EXPECT_EQ(bridge.calls().size(), 2u);
}

TEST_F(CookieManager, SetsNothingFromWhatIsNoArrayOfTexts) {
  std::vector<UniqueArray> others;
  others.emplace_back(SafeArrayCreateVector(VT_I4, 0, 3));
  others.emplace_back(SafeArrayCreateVector(VT_UI1, 0, 3));
  others.emplace_back(SafeArrayCreateVector(VT_I8, 0, 3));
  others.emplace_back(SafeArrayCreateVector(VT_VARIANT, 0, 3));
  others.emplace_back(SafeArrayCreateVector(VT_DISPATCH, 0, 3));
  SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
  others.emplace_back(SafeArrayCreate(VT_BSTR, 2, bounds));
  for (const UniqueArray& other : others) {
    ASSERT_TRUE(other);
    EXPECT_EQ(Set(Holding(other)), VARIANT_TRUE);
  }
  EXPECT_THAT(bridge.calls(), IsEmpty());
}

TEST_F(CookieManager, SetsNothingFromAnyOtherValue) {
  std::vector<VARIANT> values;
  const auto add = [&](VARTYPE type, void* pointer) {
    VARIANT value;
    VariantInit(&value);
    value.vt = type;
    value.byref = pointer;
    values.push_back(value);
  };
  _bstr_t text(L"{\"name\":\"n\",\"value\":\"v\",\"domain\":\"d\"}");
  // Numbers that would be read as addresses if the tag were not looked at at all.
  for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_I4, VT_I8, VT_R8, VT_BOOL, VT_ERROR}) {
    add(type, reinterpret_cast<void*>(0x10));
  }
  add(VT_BSTR, text.GetBSTR());
  add(VT_DISPATCH, nullptr);
  add(VT_ARRAY | VT_BSTR, nullptr);
  add(VT_BYREF | VT_ARRAY | VT_BSTR, nullptr);
  SAFEARRAY* none = nullptr;
  add(VT_BYREF | VT_ARRAY | VT_BSTR, &none);
  add(VT_BYREF | VT_VARIANT, nullptr);
  VARIANT empty;
  VariantInit(&empty);
  add(VT_BYREF | VT_VARIANT, &empty);
  for (const VARIANT& value : values) {
    EXPECT_EQ(Set(value), VARIANT_TRUE) << value.vt;
  }
  EXPECT_THAT(bridge.calls(), IsEmpty());
}

TEST_F(CookieManager, SetsNothingFromAVariableThatHoldsItself) {
  VARIANT variable;
  VariantInit(&variable);
  variable.vt = VT_BYREF | VT_VARIANT;
  variable.pvarVal = &variable;
  EXPECT_EQ(Set(variable), VARIANT_TRUE);
  EXPECT_THAT(bridge.calls(), IsEmpty());
}

TEST_F(CookieManager, ReadsAnArrayThatTheHostHasLocked) {
  const auto array = TextArray({L"1"});
  ASSERT_EQ(SafeArrayLock(array.get()), S_OK);
  EXPECT_EQ(Set(Holding(array)), VARIANT_TRUE);
  EXPECT_THAT(bridge.calls(), ElementsAre("SetUrlCookies(http://a/, 1)"));
  EXPECT_EQ(array->cLocks, 1u);
  SafeArrayUnlock(array.get());
}

// Kept deliberately: the array is unlocked also where it could not be locked.
TEST_F(CookieManager, SetsNothingFromAnArrayThatCannotBeLockedAndUnlocksItAllTheSame) {
  const auto array = TextArray({L"1"});
  constexpr ULONG kMostLocks = 0xFFFF;
  array->cLocks = kMostLocks;
  EXPECT_EQ(Set(Holding(array)), VARIANT_TRUE);
  EXPECT_THAT(bridge.calls(), IsEmpty());
  EXPECT_EQ(array->cLocks, kMostLocks - 1);
  array->cLocks = 0;
}

// The manager was made before the engine was started, and stays without a bridge for ever.
class EarlyCookieManager : public CookieManager {
 protected:
  EarlyCookieManager() {
    registry->set_bridge(nullptr);
    manager = NewManager();
    registry->set_bridge(&bridge);
    bridge.ForgetCalls();
    bridge.on_cookies_read = &OneText;
  }
};

TEST_F(EarlyCookieManager, FindsNothingAndSetsNothing) {
  EXPECT_THAT(Read(), ElementsAre(VT_EMPTY, VT_EMPTY, VT_EMPTY));
  const auto array = TextArray({L"1"});
  EXPECT_EQ(Set(Holding(array)), VARIANT_FALSE);
  EXPECT_EQ(Set(Holding(TextArray({}))), VARIANT_FALSE);
  EXPECT_EQ(manager->SetUrlCookies(nullptr, Holding(array), nullptr), S_OK);
  EXPECT_EQ(manager->GetAllCookiesSync(nullptr), S_OK);
  EXPECT_THAT(bridge.calls(), IsEmpty());
}

}  // namespace
}  // namespace kzcef::testing
