// The dialog itself, shown on the screen.
#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "com/module.h"
#include "dialogs/kz_cef_cert_chooser_dlg.h"
#include "unit/dialogs/owner_window.h"
#include "unit/dialogs/shown_list.h"

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::OwnerWindow;
using testing::Press;
using testing::ShownList;

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)), L'\0');
  GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

// Makes the lists of dialogs that wide, just before the dialogs fill them.
class ListWidth {
 public:
  explicit ListWidth(int width) {
    width_ = width;
    hook_ = SetWindowsHookExW(WH_CALLWNDPROC, &ListWidth::Watch, nullptr, GetCurrentThreadId());
    EXPECT_TRUE(hook_);
  }
  ~ListWidth() { UnhookWindowsHookEx(hook_); }
  ListWidth(const ListWidth&) = delete;
  ListWidth& operator=(const ListWidth&) = delete;

 private:
  static LRESULT CALLBACK Watch(int code, WPARAM wparam, LPARAM lparam) {
    const auto& call = *reinterpret_cast<const CWPSTRUCT*>(lparam);
    if (code == HC_ACTION && call.message == WM_INITDIALOG) {
      SetWindowPos(ShownList(call.hwnd).handle(), nullptr, 0, 0, width_, 100, SWP_NOMOVE);
    }
    return CallNextHookEx(nullptr, code, wparam, lparam);
  }

  static inline int width_ = 0;
  HHOOK hook_ = nullptr;
};

class ChooserDialogTest : public ::testing::Test {
 protected:
  ChooserDialogTest() { SetThreadLocale(MAKELCID(1033, SORT_DEFAULT)); }

  // Three certificates for intranet.test.
  void FillWithThree() {
    const CefString site("intranet.test");
    dialog_.SetCertificateTexts(&site, {"Ada", "Bob", "Cy"}, {"Root A", "", "Root C"},
                                {"01AB", "02", ""}, {"02/03/31", "Invalid", "12/31/99"});
  }
  // Shows the dialog until `act` ends it.
  INT_PTR Show(std::function<void(HWND dialog)> act) {
    owner_.on_dialog = std::move(act);
    const INT_PTR result = dialog_.DoModal();
    EXPECT_EQ(owner_.dialogs, 1);
    return result;
  }

  const ModuleStateScope module_state_;
  OwnerWindow owner_;
  kzCefCertChooserDlg dialog_{owner_.handle()};
};

TEST_F(ChooserDialogTest, HasChosenNothingAtFirst) {
  EXPECT_EQ(dialog_.chosen_index(), -1);
}

TEST_F(ChooserDialogTest, ShowsOneRowACertificate) {
  FillWithThree();
  Show([](HWND dialog) {
    const ShownList list(dialog);
    EXPECT_EQ(list.count(), 3);
    EXPECT_THAT(list.Row(0), ElementsAre(L"Ada", L"Root A", L"01AB", L"02/03/31"));
    EXPECT_THAT(list.Row(1), ElementsAre(L"Bob", L"", L"02", L"Invalid"));
    EXPECT_THAT(list.Row(2), ElementsAre(L"Cy", L"Root C", L"", L"12/31/99"));
    for (int row = 0; row < 3; ++row) {
      EXPECT_EQ(list.DataAt(row), row);
    }
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChooserDialogTest, HasFourColumnsOfAQuarterEach) {
  FillWithThree();
  Show([](HWND dialog) {
    const ShownList list(dialog);
    RECT rectangle = {};
    GetWindowRect(list.handle(), &rectangle);
    const std::vector<std::wstring> titles = {L"Subject", L"Issuer", L"Serial number",
                                              L"Expiration date"};
    ASSERT_EQ(list.column_count(), 4);
    for (int i = 0; i < 4; ++i) {
      std::array<wchar_t, 100> title = {};
      const LVCOLUMNW column = list.ColumnAt(i, title);
      EXPECT_EQ(column.cx, (rectangle.right - rectangle.left) / 4);
      EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT);
      EXPECT_EQ(title.data(), titles[static_cast<size_t>(i)]);
    }
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChooserDialogTest, RoundsTheWidthOfTheColumnsDown) {
  FillWithThree();
  for (const int width : {404, 407}) {
    const ListWidth list_width(width);
    owner_.on_dialog = [](HWND dialog) {
      std::array<wchar_t, 100> title = {};
      for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(ShownList(dialog).ColumnAt(i, title).cx, 101);
      }
      Press(dialog, IDCANCEL);
    };
    kzCefCertChooserDlg(owner_.handle()).DoModal();
  }
  EXPECT_EQ(owner_.dialogs, 2);
}

TEST_F(ChooserDialogTest, SelectsWholeRows) {
  FillWithThree();
  Show([](HWND dialog) {
    const DWORD style = ListView_GetExtendedListViewStyle(ShownList(dialog).handle());
    EXPECT_NE(style & LVS_EX_FULLROWSELECT, 0u);
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChooserDialogTest, StartsOnTheFirstRow) {
  FillWithThree();
  Show([](HWND dialog) {
    const ShownList list(dialog);
    EXPECT_THAT(list.Selected(), ElementsAre(0));
    EXPECT_EQ(GetFocus(), list.handle());
    Press(dialog, IDOK);
  });
  EXPECT_EQ(dialog_.chosen_index(), 0);
}

TEST_F(ChooserDialogTest, NamesTheSiteInItsPrompt) {
  FillWithThree();
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(GetDlgItem(dialog, -1)),
              L"Select a certificate to authenticate yourself to intranet.test");
    EXPECT_EQ(TextOf(dialog), L"Select a certificate");
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChooserDialogTest, NamesNoSiteThatItWasNotTold) {
  dialog_.SetCertificateTexts(nullptr, {}, {}, {}, {});
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(GetDlgItem(dialog, -1)),
              L"Select a certificate to authenticate yourself to (null)");
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChooserDialogTest, TakesTextsForNothingButTexts) {
  const CefString site("%s%n%d.test");
  dialog_.SetCertificateTexts(&site, {"%s%n"}, {"&x\t"}, {"%x"}, {"%"});
  Show([](HWND dialog) {
    EXPECT_THAT(ShownList(dialog).Row(0), ElementsAre(L"%s%n", L"&x\t", L"%x", L"%"));
    EXPECT_EQ(TextOf(GetDlgItem(dialog, -1)),
              L"Select a certificate to authenticate yourself to %s%n%d.test");
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChooserDialogTest, NeverShowsTheInfoButton) {
  FillWithThree();
  Show([](HWND dialog) {
    const HWND info = GetDlgItem(dialog, 3001);
    EXPECT_TRUE(info);
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_FALSE(IsWindowVisible(info));
    ShownList(dialog).Select(2);
    // It has no meaning, even if it were pressed.
    Press(dialog, 3001);
    EXPECT_FALSE(IsWindowVisible(info));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChooserDialogTest, ChoosesTheSelectedRow) {
  FillWithThree();
  EXPECT_EQ(Show([](HWND dialog) {
              ShownList(dialog).Select(1);
              Press(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(dialog_.chosen_index(), 1);
}

// Kept: the last row stands in for a missing selection.
TEST_F(ChooserDialogTest, ChoosesTheLastRowWithoutASelection) {
  FillWithThree();
  EXPECT_EQ(Show([](HWND dialog) {
              ShownList(dialog).Select(-1);
              Press(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(dialog_.chosen_index(), 2);
}

TEST_F(ChooserDialogTest, AnswersTheDataOfARowAndNotItsPlace) {
  FillWithThree();
  Show([](HWND dialog) {
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = 1;
    item.lParam = 2;
    SendMessageW(ShownList(dialog).handle(), LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    ShownList(dialog).Select(1);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(dialog_.chosen_index(), 2);
}

TEST_F(ChooserDialogTest, ChoosesNothingAmongNoCertificates) {
  dialog_.SetCertificateTexts(nullptr, {}, {}, {}, {});
  EXPECT_EQ(Show([](HWND dialog) {
              EXPECT_EQ(ShownList(dialog).count(), 0);
              EXPECT_EQ(ShownList(dialog).column_count(), 4);
              Press(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(dialog_.chosen_index(), -1);
}

TEST_F(ChooserDialogTest, ChoosesNothingWhenItIsCancelled) {
  FillWithThree();
  EXPECT_EQ(Show([](HWND dialog) { Press(dialog, IDCANCEL); }), IDCANCEL);
  EXPECT_EQ(dialog_.chosen_index(), -1);
}

TEST_F(ChooserDialogTest, TakesItsClosingForCancel) {
  FillWithThree();
  EXPECT_EQ(Show([](HWND dialog) { PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0); }), IDCANCEL);
  EXPECT_EQ(dialog_.chosen_index(), -1);
}

TEST_F(ChooserDialogTest, TakesTheEscapeKeyForCancel) {
  FillWithThree();
  EXPECT_EQ(Show([](HWND) { PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1); }), IDCANCEL);
}

TEST_F(ChooserDialogTest, TakesTheEnterKeyForOk) {
  FillWithThree();
  EXPECT_EQ(Show([](HWND) {
              PostMessageW(GetFocus(), WM_KEYDOWN, VK_DOWN, 1);
              PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
            }),
            IDOK);
}

TEST_F(ChooserDialogTest, EndsWithItsOwner) {
  FillWithThree();
  EXPECT_NE(Show([&](HWND) { owner_.Destroy(); }), IDOK);
  EXPECT_EQ(dialog_.chosen_index(), -1);
}

TEST_F(ChooserDialogTest, DisablesItsOwnerMeanwhile) {
  FillWithThree();
  Show([&](HWND dialog) {
    EXPECT_FALSE(IsWindowEnabled(owner_.handle()));
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner_.handle());
    Press(dialog, IDCANCEL);
  });
  EXPECT_TRUE(IsWindowEnabled(owner_.handle()));
}

TEST_F(ChooserDialogTest, HoldsAThousandCertificates) {
  std::vector<CefString> texts;
  for (int i = 0; i < 1000; ++i) {
    texts.emplace_back(std::to_string(i));
  }
  dialog_.SetCertificateTexts(nullptr, texts, texts, texts, texts);
  Show([](HWND dialog) {
    const ShownList list(dialog);
    EXPECT_EQ(list.count(), 1000);
    EXPECT_EQ(list.TextAt(999, 3), L"999");
    list.Select(998);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(dialog_.chosen_index(), 998);
}

TEST_F(ChooserDialogTest, LetsAnErrorOutOfItsFilling) {
  dialog_.SetCertificateTexts(nullptr, {"one", "two"}, {"one"}, {"one"}, {"one"});
  EXPECT_THROW(dialog_.DoModal(), std::out_of_range);
  EXPECT_TRUE(IsWindowEnabled(owner_.handle()));
}

TEST_F(ChooserDialogTest, SpeaksTheLanguageOfTheThread) {
  SetThreadLocale(MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT));
  SetThreadUILanguage(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN));
  FillWithThree();
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog), L"Zertifikat ausw\u00E4hlen");
    EXPECT_EQ(TextOf(GetDlgItem(dialog, -1)),
              L"W\u00E4hlen Sie ein Zertifikat aus, um sich bei intranet.test zu authentifizieren");
    std::array<wchar_t, 100> title = {};
    ShownList(dialog).ColumnAt(3, title);
    EXPECT_STREQ(title.data(), L"Ablaufdatum");
    Press(dialog, IDCANCEL);
  });
}

TEST_F(ChooserDialogTest, HasRoomForItsTextsInEveryLanguage) {
  for (const WORD language :
       {1028, 1029, 1031, 1033, 1036, 1040, 1041, 1042, 1045, 1046, 1049, 1055, 2052, 3082}) {
    SCOPED_TRACE(language);
    SetThreadLocale(MAKELCID(language, SORT_DEFAULT));
    SetThreadUILanguage(language);
    owner_.on_dialog = [](HWND dialog) {
      const HDC device = GetDC(dialog);
      SelectObject(device, reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)));
      const auto width_of = [&](const std::wstring& text) {
        SIZE size = {};
        GetTextExtentPoint32W(device, text.data(), static_cast<int>(text.size()), &size);
        return size.cx;
      };
      for (const int control : {-1, IDOK, IDCANCEL}) {
        RECT client = {};
        GetClientRect(GetDlgItem(dialog, control), &client);
        EXPECT_LT(width_of(TextOf(GetDlgItem(dialog, control))), client.right) << control;
      }
      for (int i = 0; i < 4; ++i) {
        std::array<wchar_t, 100> title = {};
        const LVCOLUMNW column = ShownList(dialog).ColumnAt(i, title);
        constexpr int kMargins = 12;
        EXPECT_LT(width_of(title.data()) + kMargins, column.cx) << i;
      }
      ReleaseDC(dialog, device);
      Press(dialog, IDCANCEL);
    };
    kzCefCertChooserDlg dialog(owner_.handle());
    const CefString site("intranet.example.test:443");
    dialog.SetCertificateTexts(&site, {}, {}, {}, {});
    dialog.DoModal();
  }
  EXPECT_EQ(owner_.dialogs, 14);
}

}  // namespace
}  // namespace kzcef
