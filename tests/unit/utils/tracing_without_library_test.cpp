// Tracing while the host's library is missing. The program runs in a folder of its own, in which
// there is no trace library until a test puts one there.
#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "trace_lines.h"
#include "utils/kzcefwrapperutils.h"
#include "utils/tracing.h"

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// One test only: it changes the folder of the program.
TEST(TracingWithoutLibrary, DropsLinesAndLooksForTheLibraryAgainAtEachOne) {
  const std::wstring library = GetExecutableFolder() + L"\\pelkor.dll";
  DeleteFileW(library.c_str());
  ASSERT_TRUE(SetEnvironmentVariableW(L"CefLogEnabled", L"1"));
  EXPECT_TRUE(IsTraceEnabled());
  Trace(L"dropped");
  Trace(L"dropped too");
  EXPECT_THAT(TraceLines(), IsEmpty());

  ASSERT_TRUE(
      CopyFileW((GetExecutableFolder() + L"\\..\\pelkor.dll").c_str(), library.c_str(), TRUE));
  Trace(L"arrives");
  EXPECT_THAT(TraceTexts(), ElementsAre(L"KZCEF Trace: arrives"));

  FreeLibrary(GetModuleHandleW(L"pelkor.dll"));
  DeleteFileW(library.c_str());
}

}  // namespace
}  // namespace kzcef
