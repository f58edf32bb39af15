// The view beside a host's window on another thread.

#include <gtest/gtest.h>

#include <future>
#include <thread>

#include "view_window_fixture.h"

namespace cefedition {
namespace {

// A host's window on a thread of its own, which can be kept from taking messages.
class HostThread {
 public:
  HostThread()
      : thread_([this] {
          HostWindow host;
          made_.set_value(host.hwnd());
          MSG message;
          while (GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
          busy_.set_value();
          released_.get_future().wait();
        }) {
    parent_ = made_.get_future().get();
  }
  ~HostThread() {
    released_.set_value();
    thread_.join();
  }
  HostThread(const HostThread&) = delete;
  HostThread& operator=(const HostThread&) = delete;

  HWND parent() const { return parent_; }
  void MakeBusy() {
    PostMessageW(parent_, WM_QUIT, 0, 0);
    busy_.get_future().wait();
  }

 private:
  std::promise<HWND> made_;
  std::promise<void> busy_;
  std::promise<void> released_;
  HWND parent_ = nullptr;
  std::thread thread_;
};

// A host's thread may wait for the engine's while a view is made or deleted.
TEST(ViewWindowThreads, IsMadeUsedAndDeletedBesideABusyParent) {
  HostThread host;
  host.MakeBusy();
  Recorder recorder;
  auto view = ViewWindow::Create(host.parent(), WS_CHILD | WS_VISIBLE, kViewRect, &recorder);
  ASSERT_TRUE(view);
  view->SetFrame(FlatFrame(120, 90, kRed));
  UpdateWindow(view->hwnd());
  SendMessageW(view->hwnd(), WM_MOUSEMOVE, 0, MAKELPARAM(1, 1));
  EXPECT_EQ(recorder.inputs.size(), 1U);
  view.reset();
}

TEST(ViewWindowThreads, IsDeletedWithTheFocusBesideABusyParent) {
  HostThread host;
  Recorder recorder;
  auto view = ViewWindow::Create(host.parent(), WS_CHILD | WS_VISIBLE, kViewRect, &recorder);
  ASSERT_TRUE(view);
  SetFocus(view->hwnd());
  ASSERT_EQ(GetFocus(), view->hwnd());
  host.MakeBusy();
  view.reset();
  EXPECT_EQ(recorder.destroyed, 0);
}

TEST(ViewWindowThreads, DiesWithAParentOfAnotherThread) {
  std::promise<HWND> made;
  std::promise<void> destroy;
  std::thread host_thread([&] {
    const HostWindow host;
    made.set_value(host.hwnd());
    destroy.get_future().wait();
  });
  Recorder recorder;
  const auto view =
      ViewWindow::Create(made.get_future().get(), WS_CHILD | WS_VISIBLE, kViewRect, &recorder);
  ASSERT_TRUE(view);
  recorder.action = [&] {
    if (recorder.destroyed != 0)
      PostQuitMessage(0);
  };
  destroy.set_value();
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0)
    DispatchMessageW(&message);
  EXPECT_EQ(recorder.destroyed, 1);
  EXPECT_EQ(view->hwnd(), nullptr);
  host_thread.join();
}

}  // namespace
}  // namespace cefedition
