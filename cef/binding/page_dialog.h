// A dialog window for JavaScript's alert, confirm and prompt, and for the question whether a page
// may be left.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace cefbinding {

struct PageDialogTexts {
  std::wstring title;
  std::wstring message;
  // What stands in the input field at first.
  std::wstring input;
  // On the button that agrees.
  std::wstring agreement = L"OK";
};

enum class PageDialogKind { kAlert, kConfirm, kPrompt };

// One dialog, owned by another window and on a thread of its own: neither the engine's thread nor
// the host's waits for it, and the host's window stays usable. Any thread.
class PageDialog {
 public:
  // Called on the dialog's thread, once, unless the dialog is dismissed before: whether OK was
  // pressed, and what the input field held.
  using Answer = std::function<void(bool accepted, const std::wstring& input)>;

  // Throws std::system_error when there can be no thread for it.
  static std::shared_ptr<PageDialog> Show(HWND owner,
                                          PageDialogKind kind,
                                          PageDialogTexts texts,
                                          Answer answer);

  PageDialog(const PageDialog&) = delete;
  PageDialog& operator=(const PageDialog&) = delete;

  // Takes the dialog down without an answer. Does not wait for it.
  void Dismiss();

 private:
  PageDialog(HWND owner, PageDialogKind kind, PageDialogTexts texts, Answer answer);

  bool IsDismissed();
  void Run();
  void HandleMessages(HWND window);
  void Arrange(HWND window);
  INT_PTR Handle(HWND window, UINT message, WPARAM wparam);
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  const HWND owner_;
  const PageDialogKind kind_;
  const PageDialogTexts texts_;
  const Answer answer_;

  std::mutex mutex_;
  HWND window_ = nullptr;
  bool is_dismissed_ = false;

  // Of the dialog's thread alone.
  bool is_done_ = false;
  bool is_accepted_ = false;
  std::wstring input_;
};

}  // namespace cefbinding
