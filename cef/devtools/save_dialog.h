#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "devtools/wait_signal.h"

namespace cefedition {

/// The system's "Save As" dialog, on a thread of its own: other windows go on living, only the
/// owner's is disabled meanwhile.
class SaveDialog {
 public:
  /// `done` gets the path that was chosen, empty when the dialog was cancelled or could not be
  /// shown. It runs once, on the dialog's thread, before which nothing of the dialog is left.
  /// `initial` is a full path, `owner` may be null or gone.
  SaveDialog(HWND owner, std::wstring initial, std::function<void(const std::wstring& path)> done);
  /// Cancels the dialog and waits for its end. Not on the dialog's thread.
  ~SaveDialog();
  SaveDialog(const SaveDialog&) = delete;
  SaveDialog& operator=(const SaveDialog&) = delete;

  /// Any thread.
  void Cancel();

 private:
  static UINT_PTR CALLBACK Hook(HWND child, UINT message, WPARAM wparam, LPARAM lparam);
  std::wstring Show(HWND owner, const std::wstring& initial);
  void OnShown(HWND dialog);

  std::mutex lock_;
  HWND dialog_ = nullptr;
  bool cancelled_ = false;
  Signal ended_;
  std::thread thread_;
};

}  // namespace cefedition
