// The frames of COM members: the module state inside, and what becomes of exceptions.

#include "com/member.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace kzcef {
namespace {

TEST(ComMember, AnswersWhatTheBodyAnswers) {
  EXPECT_EQ(ComMember([] { return S_OK; }), S_OK);
  EXPECT_EQ(ComMember([] { return S_FALSE; }), S_FALSE);
  EXPECT_EQ(ComMember([] { return E_NOTIMPL; }), E_NOTIMPL);
}

TEST(ComMember, RunsTheBodyInTheLibrarysState) {
  HINSTANCE inside = nullptr;
  ComMember([&] {
    inside = ModuleStateScope::ResourceModule();
    return S_OK;
  });
  EXPECT_EQ(inside, ModuleInstance());
  EXPECT_EQ(ModuleStateScope::ResourceModule(), nullptr);
}

TEST(ComMember, TurnsMissingMemoryIntoItsCode) {
  EXPECT_EQ(ComMember([]() -> HRESULT { throw std::bad_alloc(); }), E_OUTOFMEMORY);
}

TEST(ComMember, KeepsTheCodeOfAComError) {
  EXPECT_EQ(ComMember([]() -> HRESULT { throw _com_error(DISP_E_OVERFLOW); }), DISP_E_OVERFLOW);
}

TEST(ComMember, LetsNoOtherExceptionOut) {
  EXPECT_EQ(ComMember([]() -> HRESULT { throw std::runtime_error("any"); }), E_UNEXPECTED);
  EXPECT_EQ(ComMember([]() -> HRESULT { throw 7; }), E_UNEXPECTED);
}

TEST(ComMember, ThatNeverFailsDropsEveryException) {
  EXPECT_EQ(UnfailingComMember([] { throw std::bad_alloc(); }), S_OK);
  EXPECT_EQ(UnfailingComLeafMember([] { throw 7; }), S_OK);
  EXPECT_EQ(ModuleStateScope::ResourceModule(), nullptr);
}

TEST(ComMember, RestoresTheStateAfterAnException) {
  ComMember([]() -> HRESULT { throw 7; });
  EXPECT_EQ(ModuleStateScope::ResourceModule(), nullptr);
}

}  // namespace
}  // namespace kzcef
