// The module's own state, its lock count and its path.

#include "com/module.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <thread>
#include <vector>

namespace kzcef {
namespace {

// The current activation context, without a reference of the caller's own.
HANDLE ActiveContext() {
  HANDLE context = nullptr;
  GetCurrentActCtx(&context);
  if (context) {
    ReleaseActCtx(context);
  }
  return context;
}

TEST(ModuleStateScope, MakesTheLibraryTheSourceOfResources) {
  EXPECT_EQ(ModuleStateScope::ResourceModule(), nullptr);
  {
    const ModuleStateScope scope;
    EXPECT_EQ(ModuleStateScope::ResourceModule(), ModuleInstance());
  }
  EXPECT_EQ(ModuleStateScope::ResourceModule(), nullptr);
}

TEST(ModuleStateScope, ActivatesTheLibrarysManifest) {
  const HANDLE before = ActiveContext();
  {
    const ModuleStateScope scope;
    EXPECT_NE(ActiveContext(), before);
  }
  EXPECT_EQ(ActiveContext(), before);
}

TEST(ModuleStateScope, RestoresWhenAnExceptionLeaves) {
  const HANDLE before = ActiveContext();
  try {
    const ModuleStateScope scope;
    throw std::runtime_error("leaves");
  } catch (const std::runtime_error&) {
  }
  EXPECT_EQ(ModuleStateScope::ResourceModule(), nullptr);
  EXPECT_EQ(ActiveContext(), before);
}

TEST(ModuleStateScope, Nests) {
  const HANDLE before = ActiveContext();
  {
    const ModuleStateScope outer;
    const HANDLE inside = ActiveContext();
    {
      const ModuleStateScope inner;
      EXPECT_EQ(ActiveContext(), inside);
      EXPECT_EQ(ModuleStateScope::ResourceModule(), ModuleInstance());
    }
    EXPECT_EQ(ActiveContext(), inside);
    EXPECT_EQ(ModuleStateScope::ResourceModule(), ModuleInstance());
  }
  EXPECT_EQ(ActiveContext(), before);
  EXPECT_EQ(ModuleStateScope::ResourceModule(), nullptr);
}

TEST(ModuleStateScope, BelongsToItsThread) {
  const ModuleStateScope scope;
  std::jthread([] { EXPECT_EQ(ModuleStateScope::ResourceModule(), nullptr); });
}

TEST(ModuleLock, CountsFromManyThreads) {
  constexpr int kRounds = 10000;
  ModuleLock::Add();
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([] {
        for (int round = 0; round < kRounds; ++round) {
          ModuleLock::Add();
          ModuleLock::Release();
        }
      });
    }
  }
  EXPECT_EQ(ModuleLock::Count(), 1);
  ModuleLock::Release();
  EXPECT_EQ(ModuleLock::Count(), 0);
}

TEST(ModulePath, IsTheFullPathOfTheModule) {
  std::array<wchar_t, 4096> path{};
  ASSERT_NE(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())), 0U);
  EXPECT_EQ(ModulePath(), path.data());
  EXPECT_EQ(ModuleInstance(), GetModuleHandleW(nullptr));
}

}  // namespace
}  // namespace kzcef
