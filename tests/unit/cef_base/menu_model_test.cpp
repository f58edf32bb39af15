#include "base/menu_model.h"

#include <gtest/gtest.h>

namespace {

CefRefPtr<CefMenuModel> MakeMenu() {
  CefRefPtr<CefMenuModel> menu = cefedition::MakeMenuModel();
  menu->AddItem(MENU_ID_BACK, "&Back");
  menu->AddSeparator();
  menu->AddCheckItem(1000, "Check");
  menu->AddRadioItem(1001, "One", 7);
  menu->AddRadioItem(1002, "Two", 7);
  return menu;
}

TEST(MenuModelTest, AddsItemsInOrder) {
  CefRefPtr<CefMenuModel> menu = MakeMenu();
  EXPECT_EQ(menu->GetCount(), 5u);
  EXPECT_EQ(menu->GetTypeAt(1), MENUITEMTYPE_SEPARATOR);
  EXPECT_EQ(menu->GetCommandIdAt(2), 1000);
  EXPECT_EQ(menu->GetLabel(MENU_ID_BACK).ToString(), "&Back");
  EXPECT_EQ(menu->GetIndexOf(1002), 4);
  EXPECT_EQ(menu->GetGroupId(1001), 7);
  EXPECT_FALSE(menu->IsSubMenu());
}

TEST(MenuModelTest, InsertsRemovesAndClears) {
  CefRefPtr<CefMenuModel> menu = MakeMenu();
  EXPECT_TRUE(menu->InsertItemAt(1, 5, "New"));
  EXPECT_EQ(menu->GetIndexOf(5), 1);
  EXPECT_FALSE(menu->InsertItemAt(99, 6, "Too far"));
  EXPECT_FALSE(menu->AddItem(6, ""));
  EXPECT_TRUE(menu->Remove(5));
  EXPECT_FALSE(menu->Remove(5));
  EXPECT_TRUE(menu->RemoveAt(0));
  EXPECT_EQ(menu->GetCount(), 4u);
  EXPECT_TRUE(menu->Clear());
  EXPECT_EQ(menu->GetCount(), 0u);
}

TEST(MenuModelTest, AnswersForItemsThatDoNotExist) {
  CefRefPtr<CefMenuModel> menu = MakeMenu();
  EXPECT_EQ(menu->GetIndexOf(1), -1);
  EXPECT_EQ(menu->GetCommandIdAt(99), -1);
  EXPECT_EQ(menu->GetLabel(1), CefString());
  EXPECT_EQ(menu->GetType(1), MENUITEMTYPE_NONE);
  EXPECT_FALSE(menu->SetEnabled(1, true));
  EXPECT_FALSE(menu->IsVisibleAt(99));
  EXPECT_FALSE(menu->GetSubMenu(1));
  // A separator has no id, not even the one that stands for none.
  EXPECT_EQ(menu->GetIndexOf(-1), -1);
}

TEST(MenuModelTest, CheckingARadioItemUnchecksItsGroup) {
  CefRefPtr<CefMenuModel> menu = MakeMenu();
  EXPECT_TRUE(menu->SetChecked(1000, true));
  EXPECT_TRUE(menu->SetChecked(1001, true));
  EXPECT_TRUE(menu->SetChecked(1002, true));
  EXPECT_FALSE(menu->IsChecked(1001));
  EXPECT_TRUE(menu->IsChecked(1002));
  EXPECT_TRUE(menu->IsChecked(1000));
}

TEST(MenuModelTest, SubMenusAreMenus) {
  CefRefPtr<CefMenuModel> menu = MakeMenu();
  CefRefPtr<CefMenuModel> sub_menu = menu->AddSubMenu(2000, "More");
  ASSERT_TRUE(sub_menu);
  EXPECT_TRUE(sub_menu->IsSubMenu());
  EXPECT_TRUE(sub_menu->AddItem(2001, "Inner"));
  EXPECT_EQ(menu->GetSubMenu(2000)->GetCount(), 1u);
  EXPECT_EQ(menu->GetType(2000), MENUITEMTYPE_SUBMENU);
}

TEST(MenuModelTest, KeepsStateAcceleratorsAndColors) {
  CefRefPtr<CefMenuModel> menu = MakeMenu();
  EXPECT_TRUE(menu->IsEnabled(1000));
  EXPECT_TRUE(menu->SetEnabled(1000, false));
  EXPECT_FALSE(menu->IsEnabled(1000));
  EXPECT_TRUE(menu->SetVisible(1000, false));
  EXPECT_FALSE(menu->IsVisible(1000));
  EXPECT_FALSE(menu->HasAccelerator(1000));
  EXPECT_TRUE(menu->SetAccelerator(1000, 'K', true, false, true));
  int key = 0;
  bool shift = false;
  bool ctrl = true;
  bool alt = false;
  EXPECT_TRUE(menu->GetAccelerator(1000, key, shift, ctrl, alt));
  EXPECT_EQ(key, 'K');
  EXPECT_TRUE(shift && !ctrl && alt);
  EXPECT_TRUE(menu->RemoveAccelerator(1000));
  EXPECT_FALSE(menu->RemoveAccelerator(1000));
  cef_color_t color = 0;
  EXPECT_TRUE(menu->SetColorAt(-1, CEF_MENU_COLOR_TEXT, 0xFF112233));
  EXPECT_TRUE(menu->GetColorAt(-1, CEF_MENU_COLOR_TEXT, color));
  EXPECT_EQ(color, 0xFF112233u);
  EXPECT_FALSE(menu->SetColorAt(-2, CEF_MENU_COLOR_TEXT, 0));
  EXPECT_FALSE(menu->SetColorAt(0, CEF_MENU_COLOR_COUNT, 0));
  EXPECT_TRUE(menu->SetColor(1000, CEF_MENU_COLOR_TEXT, 5));
}

TEST(MenuModelTest, AMenuOfTheClientsOwnNeedsADelegate) {
  EXPECT_FALSE(CefMenuModel::CreateMenuModel(nullptr));
}

}  // namespace
