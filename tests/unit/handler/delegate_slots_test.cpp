// The owner interface is a binary contract: the order of its operations.
#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

#include "handler/kz_cef_client_handler.h"
#include "unit/handler/virtual_slot.h"

namespace kzcef {
namespace {

using testing::VirtualSlot;
using Delegate = kzCefClientHandler::Delegate;

TEST(DelegateSlotsTest, StandInOrder) {
  EXPECT_EQ(VirtualSlot(&Delegate::OnBrowserCreated), 0);
  EXPECT_EQ(VirtualSlot(&Delegate::OnBrowserClosing), 1);
  EXPECT_EQ(VirtualSlot(&Delegate::OnBrowserClosed), 2);
  EXPECT_EQ(VirtualSlot(&Delegate::OnSetAddress), 3);
  EXPECT_EQ(VirtualSlot(&Delegate::OnSetTitle), 4);
  EXPECT_EQ(VirtualSlot(&Delegate::OnSetFavicon), 5);
  EXPECT_EQ(VirtualSlot(&Delegate::OnSetFullscreen), 6);
  EXPECT_EQ(VirtualSlot(&Delegate::OnAutoResize), 7);
  EXPECT_EQ(VirtualSlot(&Delegate::OnSetLoadingState), 8);
  EXPECT_EQ(VirtualSlot(&Delegate::OnSetDraggableRegions), 9);
  EXPECT_EQ(VirtualSlot(&Delegate::OnTakeFocus), 10);
  EXPECT_EQ(VirtualSlot(&Delegate::OnBeforeContextMenu), 11);
}

// The least that an owner has to implement.
class LeastDelegate : public Delegate {
 public:
  explicit LeastDelegate(int* destroyed) : destroyed_(destroyed) {}
  ~LeastDelegate() override { ++*destroyed_; }

  void OnBrowserCreated(CefRefPtr<CefBrowser>) override {}
  void OnBrowserClosing(CefRefPtr<CefBrowser>) override {}
  void OnBrowserClosed(CefRefPtr<CefBrowser>) override {}
  void OnSetAddress(const std::string&) override {}
  void OnSetTitle(const std::string&) override {}
  void OnSetFullscreen(bool) override {}
  void OnAutoResize(const CefSize&) override {}
  void OnSetLoadingState(bool, bool, bool) override {}
  void OnSetDraggableRegions(const std::vector<CefDraggableRegion>&) override {}

 private:
  int* const destroyed_;
};

TEST(DelegateSlotsTest, TheDestructorComesLast) {
  int destroyed = 0;
  alignas(LeastDelegate) std::byte storage[sizeof(LeastDelegate)];
  Delegate* const delegate = new (storage) LeastDelegate(&destroyed);
  void (*const* const table)(void*) = *reinterpret_cast<void (*const**)(void*)>(delegate);
  table[12](delegate);
  EXPECT_EQ(destroyed, 1);
}

TEST(DelegateSlotsTest, FaviconFocusAndMenuNeedNotBeImplemented) {
  int destroyed = 0;
  LeastDelegate least(&destroyed);
  Delegate& delegate = least;
  delegate.OnSetFavicon(nullptr);
  delegate.OnTakeFocus(true);
  delegate.OnBeforeContextMenu(nullptr);
  EXPECT_TRUE((std::is_abstract_v<Delegate>));
}

}  // namespace
}  // namespace kzcef
