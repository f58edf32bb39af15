// What the sample host's trace library prints. KZ_PELKOR is its path.

#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>

namespace {

using TraceFunction = void (*)(const char*, const wchar_t*, const wchar_t*);

TraceFunction FindTrace() {
  const char* path = std::getenv("KZ_PELKOR");
  const HMODULE library = path ? LoadLibraryA(path) : nullptr;
  return library ? reinterpret_cast<TraceFunction>(GetProcAddress(library, "suTrace")) : nullptr;
}

// What `trace` prints to the standard output of the process.
template <typename Call>
std::string Printed(Call&& call) {
  HANDLE reader = nullptr;
  HANDLE writer = nullptr;
  if (!CreatePipe(&reader, &writer, nullptr, 0)) {
    return "no pipe";
  }
  const HANDLE before = GetStdHandle(STD_OUTPUT_HANDLE);
  SetStdHandle(STD_OUTPUT_HANDLE, writer);
  call();
  SetStdHandle(STD_OUTPUT_HANDLE, before);
  CloseHandle(writer);
  std::array<char, 4096> text{};
  DWORD length = 0;
  ReadFile(reader, text.data(), static_cast<DWORD>(text.size()), &length, nullptr);
  CloseHandle(reader);
  return std::string(text.data(), length);
}

TEST(Pelkor, PrintsTagAndTextOnALine) {
  const TraceFunction trace = FindTrace();
  ASSERT_TRUE(trace);
  EXPECT_EQ(Printed([&] { trace("KZCEF", L"%s", L"KZCEF Trace: caf\u00E9"); }),
            "KZCEF: KZCEF Trace: caf\xC3\xA9\n");
}

TEST(Pelkor, FormatSurroundsTheText) {
  const TraceFunction trace = FindTrace();
  ASSERT_TRUE(trace);
  EXPECT_EQ(Printed([&] { trace("KZCEF", L"<%s>", L"x"); }), "KZCEF: <x>\n");
}

TEST(Pelkor, NullsPrintNothing) {
  const TraceFunction trace = FindTrace();
  ASSERT_TRUE(trace);
  EXPECT_EQ(Printed([&] {
              trace(nullptr, L"%s", L"x");
              trace("KZCEF", nullptr, L"x");
              trace("KZCEF", L"%s", nullptr);
            }),
            "");
}

}  // namespace
