// What a shown chooser's list holds.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <string>
#include <vector>

namespace kzcef::testing {

class ShownList {
 public:
  explicit ShownList(HWND dialog) : list_(GetDlgItem(dialog, 3000)) {}

  HWND handle() const { return list_; }
  int count() const { return static_cast<int>(SendMessageW(list_, LVM_GETITEMCOUNT, 0, 0)); }

  std::wstring TextAt(int row, int column) const {
    std::array<wchar_t, 600> text = {};
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(list_, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&item));
    return text.data();
  }
  std::vector<std::wstring> Row(int row) const {
    return {TextAt(row, 0), TextAt(row, 1), TextAt(row, 2), TextAt(row, 3)};
  }
  LPARAM DataAt(int row) const {
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    EXPECT_TRUE(SendMessageW(list_, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    return item.lParam;
  }

  int column_count() const {
    const auto header = reinterpret_cast<HWND>(SendMessageW(list_, LVM_GETHEADER, 0, 0));
    return static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
  }
  // The text is kept in `title`.
  LVCOLUMNW ColumnAt(int index, std::array<wchar_t, 100>& title) const {
    LVCOLUMNW column = {};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT;
    column.pszText = title.data();
    column.cchTextMax = static_cast<int>(title.size());
    EXPECT_TRUE(SendMessageW(list_, LVM_GETCOLUMNW, static_cast<WPARAM>(index),
                             reinterpret_cast<LPARAM>(&column)));
    return column;
  }

  std::vector<int> Selected() const {
    std::vector<int> rows;
    for (int row = 0; row < count(); ++row) {
      if (ListView_GetItemState(list_, row, LVIS_SELECTED) != 0) {
        rows.push_back(row);
      }
    }
    return rows;
  }
  // Leaves nothing but `row` selected; nothing at all for -1.
  void Select(int row) const {
    ListView_SetItemState(list_, -1, 0, LVIS_SELECTED);
    if (row >= 0) {
      ListView_SetItemState(list_, row, LVIS_SELECTED, LVIS_SELECTED);
    }
  }

 private:
  HWND list_;
};

}  // namespace kzcef::testing
