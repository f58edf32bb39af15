// The layer's DLL as the engine's modules meet it, with a stand-in under their names.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

class LayerTest : public testing::Test {
 protected:
  static void LoadLayer() { layer_ = Load(KZ_LAYER_PATH); }

  static HMODULE Load(const char* path) {
    const HMODULE module = LoadLibraryA(path);
    EXPECT_NE(module, nullptr) << path << ": error " << GetLastError();
    return module;
  }

  template <typename Function>
  static Function* Export(HMODULE module, const char* name) {
    return reinterpret_cast<Function*>(GetProcAddress(module, name));
  }

  static bool IsSupplied(HMODULE engine) {
    ULONG64 cycles = 0;
    return Export<BOOL(ULONG64*)>(engine, "ImportedCycleTime")(&cycles);
  }

  static inline HMODULE layer_ = nullptr;
};

TEST_F(LayerTest, ReachesAnEngineThatIsLoadedAlready) {
  const HMODULE engine = Load(KZ_STAND_IN_PATH "/libcef.dll");
  ASSERT_FALSE(IsSupplied(engine));
  LoadLayer();
  EXPECT_TRUE(IsSupplied(engine));
}

TEST_F(LayerTest, ReachesAnEngineThatIsLoadedLater) {
  LoadLayer();
  EXPECT_TRUE(IsSupplied(Load(KZ_STAND_IN_PATH "/libcef.dll")));
  EXPECT_TRUE(IsSupplied(Load(KZ_STAND_IN_PATH "/CHROME_ELF.DLL")));
}

TEST_F(LayerTest, ReachesAnEngineThatIsLoadedOnceMore) {
  LoadLayer();
  const HMODULE first = Load(KZ_STAND_IN_PATH "/libcef.dll");
  ASSERT_TRUE(FreeLibrary(first));
  EXPECT_TRUE(IsSupplied(Load(KZ_STAND_IN_PATH "/libcef.dll")));
}

TEST_F(LayerTest, LeavesOtherModulesToWine) {
  LoadLayer();
  EXPECT_FALSE(IsSupplied(Load(KZ_STAND_IN_PATH "/other.dll")));
}

TEST_F(LayerTest, StaysForAsLongAsTheProcess) {
  LoadLayer();
  FreeLibrary(layer_);
  EXPECT_EQ(GetModuleHandleA("bcryptprimitives.dll"), layer_);
}

TEST_F(LayerTest, TheEngineSeesTheSwitchAndTheHostDoesNot) {
  LoadLayer();
  const auto command_line =
      Export<const wchar_t*()>(Load(KZ_STAND_IN_PATH "/libcef.dll"), "ImportedCommandLine");
  EXPECT_NE(std::wstring(command_line()).find(L" --disable-gpu"), std::wstring::npos);
  EXPECT_EQ(std::wstring(GetCommandLineW()).find(L"--disable-gpu"), std::wstring::npos);
}

TEST_F(LayerTest, TheEngineIsToldThatAFunctionIsAbsent) {
  LoadLayer();
  const auto get_proc_address = Export<FARPROC(const char*, const char*)>(
      Load(KZ_STAND_IN_PATH "/libcef.dll"), "ImportedGetProcAddress");
  EXPECT_EQ(get_proc_address("kernelbase.dll", "VirtualAlloc2"), nullptr);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
}

using Prng = BOOL WINAPI(BYTE*, SIZE_T);

TEST_F(LayerTest, ProcessPrngFillsAllOfABuffer) {
  LoadLayer();
  auto* const prng = Export<Prng>(layer_, "ProcessPrng");
  ASSERT_NE(prng, nullptr);
  std::vector<BYTE> data(1 << 20, 0);
  ASSERT_TRUE(prng(data.data(), data.size() - 1));
  EXPECT_EQ(data.back(), 0) << "written behind the end";
  // A million random bytes have each value some 4096 times, give or take a few hundred.
  for (int value = 0; value < 256; ++value) {
    ASSERT_NEAR(std::count(data.begin(), data.end(), value), 4096, 500) << value;
  }
}

TEST_F(LayerTest, ProcessPrngFillsNothingOfAnEmptyBuffer) {
  LoadLayer();
  auto* const prng = Export<Prng>(layer_, "ProcessPrng");
  BYTE byte = 7;
  EXPECT_TRUE(prng(&byte, 0));
  EXPECT_EQ(byte, 7);
}

}  // namespace
