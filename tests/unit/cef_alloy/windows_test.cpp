#include <gtest/gtest.h>

#include "engine_double.h"
#include "include/cef_life_span_handler.h"
#include "settings.h"

namespace cefbinding {
namespace {

class LifeSpanHandler final : public CefLifeSpanHandler {
  IMPLEMENT_REFCOUNTING(LifeSpanHandler);
};

TEST(WindowsTest, BrowsersAreInAlloyStyleAndDevToolsInTheEngines) {
  CefWindowInfo info;
  CefString(&info.window_name) = "name";
  Outgoing<CefWindowInfo> browser(info);
  EXPECT_EQ(browser.To<capi::cef_window_info_t*>()->runtime_style, 2u);
  Outgoing<DevToolsWindow> tools(DevToolsWindow{info});
  EXPECT_EQ(tools.To<capi::cef_window_info_t*>()->runtime_style, 0u);
  EXPECT_EQ(tools.To<capi::cef_window_info_t*>()->window_name.length, 4u);
}

TEST(WindowsTest, ClientsAreNotAskedAboutWindowsOfDevTools) {
  const engine_double::Held<CefLifeSpanHandler> handler(new LifeSpanHandler);
  EXPECT_FALSE(handler->on_before_dev_tools_popup);
  EXPECT_TRUE(handler->on_before_popup);
}

}  // namespace
}  // namespace cefbinding
