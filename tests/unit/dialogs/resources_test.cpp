// The chooser's resources, as they stand in this program as well as in the DLL.
#include <gmock/gmock.h>
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "com/module.h"

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr WORD kEnglish = 1033;
const std::vector<WORD> kLanguages = {1028, 1029, 1031, 1033, 1036, 1040, 1041,
                                      1042, 1045, 1046, 1049, 1055, 2052, 3082};

std::vector<WORD> LanguagesOf(LPCWSTR type, WORD name) {
  std::vector<WORD> languages;
  EnumResourceLanguagesW(
      ModuleInstance(), type, MAKEINTRESOURCEW(name),
      [](HMODULE, LPCWSTR, LPCWSTR, WORD language, LONG_PTR out) -> BOOL {
        reinterpret_cast<std::vector<WORD>*>(out)->push_back(language);
        return TRUE;
      },
      reinterpret_cast<LONG_PTR>(&languages));
  std::ranges::sort(languages);
  return languages;
}

std::string ResourceBytes(LPCWSTR type, WORD name, WORD language) {
  const HMODULE module = ModuleInstance();
  const HRSRC found = FindResourceExW(module, type, MAKEINTRESOURCEW(name), language);
  EXPECT_TRUE(found) << language;
  return {static_cast<const char*>(LockResource(LoadResource(module, found))),
          SizeofResource(module, found)};
}

// Reads the fields of a resource one after the other; throws std::out_of_range past its end.
class Reader {
 public:
  explicit Reader(std::string bytes) : bytes_(std::move(bytes)) {}

  template <typename Value>
  Value Read() {
    if (position_ + sizeof(Value) > bytes_.size()) {
      throw std::out_of_range("the resource ends");
    }
    Value value;
    std::memcpy(&value, bytes_.data() + position_, sizeof(value));
    position_ += sizeof(value);
    return value;
  }
  // Characters up to a terminator.
  std::wstring ReadText() {
    std::wstring text;
    for (wchar_t letter = Read<wchar_t>(); letter != L'\0'; letter = Read<wchar_t>()) {
      text += letter;
    }
    return text;
  }
  // A text, or the number that stands in its place, as "#number".
  std::wstring ReadTextOrNumber() {
    constexpr wchar_t kNumberFollows = 0xFFFF;
    const size_t start = position_;
    if (Read<wchar_t>() == kNumberFollows) {
      return L"#" + std::to_wstring(Read<WORD>());
    }
    position_ = start;
    return ReadText();
  }
  void AlignToDoubleWord() { position_ = (position_ + 3) / 4 * 4; }

 private:
  std::string bytes_;
  size_t position_ = 0;
};

struct Box {
  short x, y, width, height;
  bool operator==(const Box&) const = default;
};

struct Control {
  DWORD identifier = 0;
  std::wstring window_class;
  DWORD style = 0;
  Box box = {};
  std::wstring text;
};

struct Dialog {
  DWORD style = 0;
  Box box = {};
  std::wstring title;
  short font_size = 0;
  std::wstring font;
  std::vector<Control> controls;
};

// Of an extended dialog template.
Dialog ReadDialog(WORD language) {
  Reader reader(ResourceBytes(RT_DIALOG, 3000, language));
  Dialog dialog;
  EXPECT_EQ(reader.Read<WORD>(), 1);
  EXPECT_EQ(reader.Read<WORD>(), 0xFFFF);
  reader.Read<DWORD>();
  reader.Read<DWORD>();
  dialog.style = reader.Read<DWORD>();
  const WORD count = reader.Read<WORD>();
  dialog.box = reader.Read<Box>();
  EXPECT_EQ(reader.ReadTextOrNumber(), L"");
  EXPECT_EQ(reader.ReadTextOrNumber(), L"");
  dialog.title = reader.ReadText();
  dialog.font_size = reader.Read<short>();
  reader.Read<DWORD>();
  dialog.font = reader.ReadText();
  for (WORD i = 0; i < count; ++i) {
    reader.AlignToDoubleWord();
    Control control;
    reader.Read<DWORD>();
    reader.Read<DWORD>();
    control.style = reader.Read<DWORD>();
    control.box = reader.Read<Box>();
    control.identifier = reader.Read<DWORD>();
    control.window_class = reader.ReadTextOrNumber();
    control.text = reader.ReadTextOrNumber();
    EXPECT_EQ(reader.Read<WORD>(), 0);
    dialog.controls.push_back(control);
  }
  return dialog;
}

// The non-empty strings of the table's first block, by their numbers.
std::map<int, std::wstring> ReadStrings(WORD language) {
  Reader reader(ResourceBytes(RT_STRING, 1, language));
  std::map<int, std::wstring> strings;
  for (int number = 0; number < 16; ++number) {
    std::wstring text(reader.Read<WORD>(), L'\0');
    for (wchar_t& letter : text) {
      letter = reader.Read<wchar_t>();
    }
    if (!text.empty()) {
      strings[number] = text;
    }
  }
  return strings;
}

size_t CountOf(const std::wstring& text, wchar_t letter) {
  return static_cast<size_t>(std::ranges::count(text, letter));
}

TEST(ChooserResources, ExistInFourteenLanguages) {
  EXPECT_THAT(LanguagesOf(RT_DIALOG, 3000), ElementsAreArray(kLanguages));
  EXPECT_THAT(LanguagesOf(RT_STRING, 1), ElementsAreArray(kLanguages));
}

TEST(ChooserResources, HaveTheContractsLayoutInEnglish) {
  const Dialog dialog = ReadDialog(kEnglish);
  EXPECT_EQ(dialog.style, DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU);
  EXPECT_EQ(dialog.box, (Box{0, 0, 365, 177}));
  EXPECT_EQ(dialog.title, L"Select a certificate");
  EXPECT_EQ(dialog.font_size, 8);
  EXPECT_EQ(dialog.font, L"Segoe UI");
  // The numbers stand for the classes of buttons (0x80) and static texts (0x82).
  const std::vector<std::tuple<DWORD, std::wstring, std::wstring, Box>> expected = {
      {0xFFFFFFFF, L"#130", L"Select a certificate to authenticate yourself to %s", {7, 7, 351, 8}},
      {3000, L"SYSLISTVIEW32", L"", {7, 23, 351, 114}},
      {3001, L"#128", L"Certificate information", {7, 156, 98, 14}},
      {IDOK, L"#128", L"OK", {254, 156, 50, 14}},
      {IDCANCEL, L"#128", L"Cancel", {308, 156, 50, 14}},
  };
  ASSERT_EQ(dialog.controls.size(), expected.size());
  for (size_t i = 0; i < expected.size(); ++i) {
    const Control& control = dialog.controls[i];
    std::wstring window_class = control.window_class;
    CharUpperBuffW(window_class.data(), static_cast<DWORD>(window_class.size()));
    EXPECT_EQ(std::tuple(control.identifier, window_class, control.text, control.box), expected[i]);
    EXPECT_EQ((control.style & WS_VISIBLE) != 0, control.identifier != 3001) << i;
  }
  constexpr DWORD kList = 0x0001 /*LVS_REPORT*/ | 0x0004 /*LVS_SINGLESEL*/ | 0x0800;
  EXPECT_EQ(dialog.controls[1].style, kList | WS_BORDER | WS_TABSTOP | WS_CHILD | WS_VISIBLE);
  EXPECT_EQ(dialog.controls[3].style & 0xF, static_cast<DWORD>(BS_DEFPUSHBUTTON));
}

TEST(ChooserResources, HaveTheSameLayoutInEveryLanguage) {
  const Dialog english = ReadDialog(kEnglish);
  for (const WORD language : kLanguages) {
    SCOPED_TRACE(language);
    const Dialog dialog = ReadDialog(language);
    EXPECT_EQ(dialog.style, english.style);
    EXPECT_EQ(dialog.box, english.box);
    EXPECT_EQ(dialog.font, english.font);
    ASSERT_EQ(dialog.controls.size(), english.controls.size());
    for (size_t i = 0; i < dialog.controls.size(); ++i) {
      EXPECT_EQ(dialog.controls[i].identifier, english.controls[i].identifier);
      EXPECT_EQ(dialog.controls[i].window_class, english.controls[i].window_class);
      EXPECT_EQ(dialog.controls[i].style, english.controls[i].style);
      EXPECT_EQ(dialog.controls[i].box, english.controls[i].box);
    }
  }
}

TEST(ChooserResources, AreTranslatedInEveryLanguage) {
  const Dialog english = ReadDialog(kEnglish);
  std::vector<std::wstring> prompts;
  for (const WORD language : kLanguages) {
    SCOPED_TRACE(language);
    const Dialog dialog = ReadDialog(language);
    EXPECT_THAT(dialog.title, Not(IsEmpty()));
    EXPECT_EQ(dialog.title == english.title, language == kEnglish);
    for (const Control& control : dialog.controls) {
      EXPECT_EQ(control.text.empty(), control.identifier == 3000) << control.identifier;
      // Neither a letter that got lost on the way through the resource compiler ...
      EXPECT_EQ(control.text.find(L'\xFFFD'), std::wstring::npos);
      EXPECT_EQ(CountOf(control.text, L'?'), 0u);
      // ... nor UTF-8 that was taken for something else.
      EXPECT_EQ(control.text.find(L'\x00C3'), std::wstring::npos);
    }
    const std::wstring& prompt = dialog.controls.at(0).text;
    EXPECT_EQ(CountOf(prompt, L'%'), 1u);
    EXPECT_NE(prompt.find(L"%s"), std::wstring::npos);
    prompts.push_back(prompt);
  }
  std::ranges::sort(prompts);
  EXPECT_EQ(std::ranges::adjacent_find(prompts), prompts.end());
}

TEST(ChooserResources, NameTheColumnsInEveryLanguage) {
  std::map<int, std::wstring> english = ReadStrings(kEnglish);
  EXPECT_THAT(english,
              ElementsAre(std::pair(10, L"Subject"), std::pair(11, L"Issuer"),
                          std::pair(12, L"Serial number"), std::pair(13, L"Expiration date")));
  for (const WORD language : kLanguages) {
    SCOPED_TRACE(language);
    const std::map<int, std::wstring> strings = ReadStrings(language);
    std::vector<int> numbers;
    for (const auto& [number, text] : strings) {
      numbers.push_back(number);
      EXPECT_NE(text, std::to_wstring(number));
      EXPECT_EQ(text == english[number], language == kEnglish) << number;
      EXPECT_EQ(CountOf(text, L'%') + CountOf(text, L'?'), 0u) << number;
    }
    EXPECT_THAT(numbers, ElementsAre(10, 11, 12, 13));
  }
}

// One letter beyond Latin each, so that a wrong code page shows.
TEST(ChooserResources, KeepTheirLetters) {
  EXPECT_EQ(ReadDialog(1031).title, L"Zertifikat ausw\u00E4hlen");
  EXPECT_EQ(ReadDialog(1049).controls.at(4).text, L"\u041E\u0442\u043C\u0435\u043D\u0430");
  EXPECT_EQ(ReadDialog(1041).controls.at(4).text, L"\u30AD\u30E3\u30F3\u30BB\u30EB");
  EXPECT_EQ(ReadDialog(1055).controls.at(4).text, L"\u0130ptal");
}

}  // namespace
}  // namespace kzcef
