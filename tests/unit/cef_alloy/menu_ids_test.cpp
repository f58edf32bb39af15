#include "menu_ids.h"

#include <gtest/gtest.h>

#include <vector>

#include "engine_double.h"
#include "include/cef_context_menu_handler.h"

namespace cefbinding {
namespace {

TEST(MenuIdsTest, TranslatesTheCommandsThatHaveMoved) {
  EXPECT_EQ(EngineCommand(MENU_ID_DELETE), 116);
  EXPECT_EQ(EngineCommand(MENU_ID_SELECT_ALL), 117);
  EXPECT_EQ(KnownCommand(116), MENU_ID_DELETE);
  EXPECT_EQ(KnownCommand(117), MENU_ID_SELECT_ALL);
}

TEST(MenuIdsTest, LeavesTheOthersAsTheyAre) {
  for (const int id : {-1, 0, 100, 114, 118, 130, static_cast<int>(MENU_ID_USER_FIRST)}) {
    EXPECT_EQ(EngineCommand(id), id);
    EXPECT_EQ(KnownCommand(id), id);
  }
}

TEST(MenuIdsTest, EveryCommandComesBackAsItWent) {
  for (int id = 90; id < 140; ++id) {
    EXPECT_EQ(KnownCommand(EngineCommand(id)), id);
    EXPECT_EQ(EngineCommand(KnownCommand(id)), id);
  }
}

class MenuHandler final : public CefContextMenuHandler {
 public:
  std::vector<int> commands;

  void OnBeforeContextMenu(CefRefPtr<CefBrowser>,
                           CefRefPtr<CefFrame>,
                           CefRefPtr<CefContextMenuParams>,
                           CefRefPtr<CefMenuModel> model) override {
    commands.push_back(model->GetCommandIdAt(0));
    model->Remove(MENU_ID_DELETE);
  }
  bool OnContextMenuCommand(CefRefPtr<CefBrowser>,
                            CefRefPtr<CefFrame>,
                            CefRefPtr<CefContextMenuParams>,
                            int command_id,
                            EventFlags) override {
    commands.push_back(command_id);
    return true;
  }

  IMPLEMENT_REFCOUNTING(MenuHandler);
};

TEST(MenuIdsTest, TheClientSeesItsOwnNumbersAndNoNewCommand) {
  static std::vector<int> removed;
  removed.clear();
  engine_double::Counted<capi::cef_menu_model_t> model;
  model.get_command_id_at = [](auto*, uint64_t) { return 117; };
  model.remove = [](auto*, int command_id) {
    removed.push_back(command_id);
    return 1;
  };
  const CefRefPtr<MenuHandler> client = new MenuHandler;
  const engine_double::Held<CefContextMenuHandler> handler(client);
  handler->on_before_context_menu(handler.get(), nullptr, nullptr, nullptr, model.Given());
  EXPECT_EQ(removed, (std::vector{kPasteAsPlainText, 116}));
  EXPECT_EQ(handler->on_context_menu_command(handler.get(), nullptr, nullptr, nullptr, 116, 0), 1);
  EXPECT_EQ(client->commands, (std::vector<int>{MENU_ID_SELECT_ALL, MENU_ID_DELETE}));
}

}  // namespace
}  // namespace cefbinding
