// Which of a process's windows counts as the host's main window.

#include "runtime/main_window.h"

#include <gtest/gtest.h>

#include <thread>

#include "unit/dialogs/owner_window.h"

namespace kzcef {
namespace {

using testing::OwnerWindow;

constexpr DWORD kVisible = WS_OVERLAPPEDWINDOW | WS_VISIBLE;
constexpr DWORD kHidden = WS_OVERLAPPEDWINDOW;

void Mark(HWND window) {
  EXPECT_TRUE(SetPropW(window, L"KZCEFComWrapper.MainWindow", reinterpret_cast<HANDLE>(1)));
}

// On its own thread, which has ended with its windows when the call returns.
template <typename Body>
void OnAnotherThread(Body body) {
  std::jthread(std::move(body)).join();
}

TEST(MainWindow, IsNoneOfAThreadNotKnownAsTheHosts) {
  const OwnerWindow window(kVisible);
  EXPECT_EQ(FindMainWindow(), nullptr);
}

TEST(MainWindow, IsTheVisibleWindowOfTheHostsThread) {
  UseThisThreadAsTheHosts();
  EXPECT_EQ(FindMainWindow(), nullptr);
  const OwnerWindow hidden(kHidden);
  EXPECT_EQ(FindMainWindow(), nullptr);
  const OwnerWindow window(kVisible);
  EXPECT_EQ(FindMainWindow(), window.handle());
}

TEST(MainWindow, IsFoundFromEveryThread) {
  UseThisThreadAsTheHosts();
  const OwnerWindow window(kVisible);
  HWND found = nullptr;
  OnAnotherThread([&] { found = FindMainWindow(); });
  EXPECT_EQ(found, window.handle());
}

TEST(MainWindow, IsNoWindowOfAnotherThread) {
  UseThisThreadAsTheHosts();
  OnAnotherThread([] {
    const OwnerWindow window(kVisible);
    EXPECT_EQ(FindMainWindow(), nullptr);
  });
}

TEST(MainWindow, HasNoOwner) {
  UseThisThreadAsTheHosts();
  const OwnerWindow window(kVisible);
  const OwnerWindow owned(WS_POPUP | WS_VISIBLE, window.handle());
  ASSERT_EQ(GetWindow(owned.handle(), GW_OWNER), window.handle());
  EXPECT_EQ(FindMainWindow(), window.handle());
}

TEST(MainWindow, IsNoMessageOnlyWindow) {
  UseThisThreadAsTheHosts();
  const OwnerWindow message_only(WS_POPUP | WS_VISIBLE, HWND_MESSAGE);
  EXPECT_EQ(FindMainWindow(), nullptr);
}

TEST(MainWindow, IsTheTopmostOfSeveral) {
  UseThisThreadAsTheHosts();
  const OwnerWindow first(kVisible);
  const OwnerWindow second(kVisible);
  SetWindowPos(first.handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  EXPECT_EQ(FindMainWindow(), first.handle());
  SetWindowPos(second.handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  EXPECT_EQ(FindMainWindow(), second.handle());
}

TEST(MainWindow, IsTheMarkedOneFirst) {
  UseThisThreadAsTheHosts();
  const OwnerWindow marked(kHidden);
  const OwnerWindow window(kVisible);
  Mark(marked.handle());
  EXPECT_EQ(FindMainWindow(), marked.handle());
  RemovePropW(marked.handle(), kMainWindowProperty);
  EXPECT_EQ(FindMainWindow(), window.handle());
}

TEST(MainWindow, IsAMarkedOneOfWhateverThread) {
  OnAnotherThread([] {
    const OwnerWindow window(kHidden);
    Mark(window.handle());
    EXPECT_EQ(FindMainWindow(), window.handle());
  });
}

TEST(MainWindow, IsForgottenWhenItIsDestroyed) {
  UseThisThreadAsTheHosts();
  OwnerWindow marked(kVisible);
  Mark(marked.handle());
  ASSERT_EQ(FindMainWindow(), marked.handle());
  marked.Destroy();
  EXPECT_EQ(FindMainWindow(), nullptr);
}

}  // namespace
}  // namespace kzcef
