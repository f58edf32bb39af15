// The trace library of the sample host's installation: prints each line to the console.
#include <windows.h>

#include <cwchar>
#include <string>

namespace {

std::wstring Format(const wchar_t* format, const wchar_t* text) {
  const int length = _scwprintf(format, text);
  if (length < 0) {
    return text;
  }
  std::wstring formatted(static_cast<size_t>(length) + 1, L'\0');
  _snwprintf(formatted.data(), formatted.size(), format, text);
  formatted.resize(static_cast<size_t>(length));
  return formatted;
}

std::string ToUtf8(const std::wstring& text) {
  const int wide_length = static_cast<int>(text.size());
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), wide_length, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<size_t>(length), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), wide_length, utf8.data(), length, nullptr, nullptr);
  return utf8;
}

}  // namespace

// Prints "tag: text". `format` holds one wide "%s". Called on any thread; a line is written whole,
// so that lines of several threads do not mix.
extern "C" void suTrace(const char* tag, const wchar_t* format, const wchar_t* text) {
  if (!tag || !format || !text) {
    return;
  }
  try {
    const std::string line = std::string(tag) + ": " + ToUtf8(Format(format, text)) + "\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), line.data(), static_cast<DWORD>(line.size()),
              &written, nullptr);
  } catch (...) {
    // A trace line that cannot be built is dropped: the caller is not prepared for an exception.
  }
}
