// Construction, references and what CEF gets when it asks for a handler.
#include "handler/kz_cef_client_handler.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <vector>

#include "unit/handler/handler_test.h"

namespace kzcef {
namespace {

using testing::HandlerTest;

TEST_F(HandlerTest, StartsAsConstructed) {
  const CefRefPtr<kzCefClientHandler> handler =
      new kzCefClientHandler(&owner_, true, "http://start.test/\xC3\xA4");
  EXPECT_TRUE(handler->creation_flag());
  EXPECT_EQ(handler->startup_url(), "http://start.test/\xC3\xA4");
  EXPECT_EQ(handler->delegate(), &owner_);
  EXPECT_EQ(handler->browser_count(), 0);
  EXPECT_TRUE(handler->first_console_message());
  EXPECT_FALSE(handler->focus_on_editable_field());
  EXPECT_TRUE(handler->initial_navigation());
  EXPECT_FALSE(handler->message_router());
  EXPECT_TRUE(handler->resource_manager());
}

TEST_F(HandlerTest, KeepsTheCreationFlagItIsGiven) {
  const CefRefPtr<kzCefClientHandler> handler = new kzCefClientHandler(nullptr, false, "");
  EXPECT_FALSE(handler->creation_flag());
  EXPECT_EQ(handler->startup_url(), "");
  EXPECT_EQ(handler->delegate(), nullptr);
}

TEST_F(HandlerTest, ServesTheHandlersThatItIs) {
  EXPECT_EQ(handler_->GetContextMenuHandler().get(), handler_.get());
  EXPECT_EQ(handler_->GetDisplayHandler().get(), handler_.get());
  EXPECT_EQ(handler_->GetDownloadHandler().get(), handler_.get());
  EXPECT_EQ(handler_->GetDragHandler().get(), handler_.get());
  EXPECT_EQ(handler_->GetFocusHandler().get(), handler_.get());
  EXPECT_EQ(handler_->GetKeyboardHandler().get(), handler_.get());
  EXPECT_EQ(handler_->GetLifeSpanHandler().get(), handler_.get());
  EXPECT_EQ(handler_->GetLoadHandler().get(), handler_.get());
  EXPECT_EQ(handler_->GetRequestHandler().get(), handler_.get());
}

TEST_F(HandlerTest, HasItsBasesInOrder) {
  kzCefClientHandler* const handler = handler_.get();
  const std::vector<uintptr_t> bases = {
      reinterpret_cast<uintptr_t>(static_cast<CefClient*>(handler)),
      reinterpret_cast<uintptr_t>(static_cast<CefContextMenuHandler*>(handler)),
      reinterpret_cast<uintptr_t>(static_cast<CefDisplayHandler*>(handler)),
      reinterpret_cast<uintptr_t>(static_cast<CefDownloadHandler*>(handler)),
      reinterpret_cast<uintptr_t>(static_cast<CefDragHandler*>(handler)),
      reinterpret_cast<uintptr_t>(static_cast<CefFocusHandler*>(handler)),
      reinterpret_cast<uintptr_t>(static_cast<CefKeyboardHandler*>(handler)),
      reinterpret_cast<uintptr_t>(static_cast<CefLifeSpanHandler*>(handler)),
      reinterpret_cast<uintptr_t>(static_cast<CefLoadHandler*>(handler)),
      reinterpret_cast<uintptr_t>(static_cast<CefRequestHandler*>(handler)),
      reinterpret_cast<uintptr_t>(static_cast<CefResourceRequestHandler*>(handler))};
  EXPECT_TRUE(std::is_sorted(bases.begin(), bases.end()));
}

TEST_F(HandlerTest, CountsReferencesOnceForAllItsBases) {
  EXPECT_TRUE(handler_->HasOneRef());
  {
    const CefRefPtr<CefLoadHandler> load = handler_->GetLoadHandler();
    EXPECT_FALSE(handler_->HasOneRef());
  }
  EXPECT_TRUE(handler_->HasOneRef());
}

class CountedHandler : public kzCefClientHandler {
 public:
  CountedHandler() : kzCefClientHandler(nullptr, false, "") { ++live; }
  ~CountedHandler() override { --live; }
  static inline int live = 0;
};

TEST_F(HandlerTest, IsFreedWithItsLastReference) {
  CefRefPtr<CefClient> client = new CountedHandler();
  CefRefPtr<CefDisplayHandler> display = client->GetDisplayHandler();
  client = nullptr;
  EXPECT_EQ(CountedHandler::live, 1);
  display = nullptr;
  EXPECT_EQ(CountedHandler::live, 0);
}

TEST_F(HandlerTest, AsksForABrowserWithItself) {
  CefWindowInfo window_info;
  window_info.SetAsChild(window(), CefRect(1, 2, 3, 4));
  CefBrowserSettings settings;
  settings.minimum_font_size = 11;
  EXPECT_TRUE(handler_->CreateBrowser(window_info, settings, "http://page.test/"));

  const auto& requests = cef_.creations;
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_EQ(requests[0].client.get(), handler_.get());
  EXPECT_EQ(requests[0].window_info.parent_window, window());
  EXPECT_EQ(requests[0].url.ToString(), "http://page.test/");
  EXPECT_EQ(requests[0].settings.minimum_font_size, 11);
  EXPECT_FALSE(requests[0].extra_info);
  EXPECT_FALSE(requests[0].request_context);
}

TEST_F(HandlerTest, DetachesOnlyItsOwner) {
  testing::MockDelegate other;
  handler_->DetachDelegate(&other);
  EXPECT_EQ(handler_->delegate(), &owner_);
  handler_->SetDelegate(&other);
  handler_->DetachDelegate(&owner_);
  EXPECT_EQ(handler_->delegate(), &other);
  handler_->DetachDelegate(&other);
  EXPECT_EQ(handler_->delegate(), nullptr);
}

}  // namespace
}  // namespace kzcef
