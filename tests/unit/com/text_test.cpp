// Copies of automation texts in both directions.

#include "com/text.h"

#include <comutil.h>

#include <gtest/gtest.h>

namespace kzcef {
namespace {

TEST(TextOf, TakesANullTextForEmpty) {
  EXPECT_EQ(TextOf(nullptr), L"");
}

TEST(TextOf, KeepsBlanksAndEmbeddedNulls) {
  const std::wstring text(L" a\0b ", 5);
  const _bstr_t given(SysAllocStringLen(text.data(), 5), false);
  EXPECT_EQ(TextOf(given), text);
}

TEST(NewBstr, CopiesTheWholeText) {
  const std::wstring text(L"a\0b", 3);
  const _bstr_t copy(NewBstr(text), false);
  EXPECT_EQ(copy.length(), 3U);
  EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(copy), 3), text);
}

TEST(NewBstr, MakesAnEmptyTextAndNotANullOne) {
  const _bstr_t empty(NewBstr(L""), false);
  EXPECT_NE(static_cast<const wchar_t*>(empty), nullptr);
  EXPECT_EQ(empty.length(), 0U);
}

}  // namespace
}  // namespace kzcef
