#include "devtools/save_dialog.h"

#include <commdlg.h>
#include <objbase.h>

#include <filesystem>
#include <utility>

namespace cefedition {
namespace {

// Room for any path that the dialog may give back.
constexpr size_t kMaxPath = 32768;

// A prompt of the dialog's that opens just when it is cancelled has to be cancelled again.
constexpr std::chrono::milliseconds kCancelAgain{100};

}  // namespace

SaveDialog::SaveDialog(HWND owner,
                       std::wstring initial,
                       std::function<void(const std::wstring& path)> done)
    : thread_([this, owner, initial = std::move(initial), done = std::move(done)] {
        const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        done(Show(owner, initial));
        if (SUCCEEDED(com)) {
          CoUninitialize();
        }
        ended_.Set();
      }) {}

SaveDialog::~SaveDialog() {
  // The owner's thread may be the caller, to which the dialog sends messages while it goes.
  do {
    Cancel();
  } while (!ended_.Wait(kCancelAgain));
  thread_.join();
}

void SaveDialog::Cancel() {
  std::lock_guard hold(lock_);
  cancelled_ = true;
  if (!dialog_) {
    return;
  }
  if (const HWND prompt = GetWindow(dialog_, GW_ENABLEDPOPUP); prompt && prompt != dialog_) {
    PostMessageW(prompt, WM_COMMAND, IDNO, 0);
  }
  PostMessageW(dialog_, WM_COMMAND, IDCANCEL, 0);
}

void SaveDialog::OnShown(HWND dialog) {
  std::lock_guard hold(lock_);
  dialog_ = dialog;
  if (cancelled_) {
    PostMessageW(dialog_, WM_COMMAND, IDCANCEL, 0);
  }
}

UINT_PTR CALLBACK SaveDialog::Hook(HWND child, UINT message, WPARAM, LPARAM lparam) {
  // The hook's own window is a child of the dialog.
  if (message == WM_INITDIALOG) {
    const auto* const settings = reinterpret_cast<const OPENFILENAMEW*>(lparam);
    reinterpret_cast<SaveDialog*>(settings->lCustData)->OnShown(GetParent(child));
  }
  return 0;
}

std::wstring SaveDialog::Show(HWND owner, const std::wstring& initial) {
  const std::filesystem::path path(initial);
  const std::wstring folder = path.parent_path().wstring();
  std::wstring file = path.filename().wstring();
  file.resize(kMaxPath);
  OPENFILENAMEW settings = {};
  settings.lStructSize = sizeof(settings);
  settings.hwndOwner = IsWindow(owner) ? owner : nullptr;
  settings.lpstrFilter = L"*.*\0*.*\0";
  settings.lpstrFile = file.data();
  settings.nMaxFile = static_cast<DWORD>(file.size());
  settings.lpstrInitialDir = folder.c_str();
  settings.lCustData = reinterpret_cast<LPARAM>(this);
  settings.lpfnHook = &SaveDialog::Hook;
  settings.Flags = OFN_EXPLORER | OFN_ENABLEHOOK | OFN_ENABLESIZING | OFN_OVERWRITEPROMPT |
                   OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  const bool chosen = GetSaveFileNameW(&settings);
  std::lock_guard hold(lock_);
  dialog_ = nullptr;
  return chosen && !cancelled_ ? file.substr(0, file.find(L'\0')) : std::wstring();
}

}  // namespace cefedition
