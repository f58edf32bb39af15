#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "devtools/view/decoded_image.h"
#include "devtools/view/key_press.h"

namespace cefedition {

/// The window in which a page is seen: it paints the frames it is given and turns what the user
/// does in it into `Input.*` commands of the DevTools protocol.
///
/// Everything here runs on one thread, the one that created the window; that thread must run a
/// message loop. The parent window may belong to another thread.
class ViewWindow {
 public:
  /// Hears what happens to the window, on the window's thread. Each of these may delete the
  /// `ViewWindow` that calls it.
  class Delegate {
   public:
    /// The client area changed: its size in physical pixels (0 when minimised or empty), and how
    /// many physical pixels make one CSS pixel (1.0 at 96 DPI). Also called when only the scale
    /// changed. The first size is not announced; ask `GetSize`.
    virtual void OnViewResized(int width_px, int height_px, double scale) = 0;
    /// A command ready to be sent to the page, for example `Input.dispatchMouseEvent`; coordinates
    /// are in CSS pixels.
    virtual void OnViewInput(const InputCommand& command) = 0;
    /// A key, with the command that tells the page of it.
    virtual void OnViewKey(const KeyPress& key) = 0;
    /// Somebody asked the window to close (WM_CLOSE). The window stays until it is destroyed.
    virtual void OnViewCloseRequested() = 0;
    /// The window is gone although its owner did not delete it, for example with its parent.
    /// `hwnd()` is null from here on. Never called from inside the destructor.
    virtual void OnViewDestroyed() = 0;
    /// The window got or lost the keyboard.
    virtual void OnViewFocus(bool focused) = 0;

   protected:
    ~Delegate() = default;
  };

  struct Size {
    int width_px = 0;
    int height_px = 0;
    double scale = 1.0;
  };

  /// Creates the window. With `parent` it has the style given plus WS_CHILD, and `rect` is in the
  /// parent's client coordinates; without one it is a top-level window and `rect` is the outer
  /// rectangle on the screen, where a left edge of CW_USEDEFAULT leaves the position, and a right
  /// edge of CW_USEDEFAULT the size, to the system. It is shown only if `style` holds WS_VISIBLE.
  /// `delegate` must outlive the object and hears nothing before this returns. Null when the
  /// window cannot be created, for example because `parent` is no window.
  static std::unique_ptr<ViewWindow> Create(HWND parent,
                                            DWORD style,
                                            const RECT& rect,
                                            Delegate* delegate);

  /// Destroys the window if it still exists, without a call to the delegate.
  virtual ~ViewWindow() = default;
  ViewWindow(const ViewWindow&) = delete;
  ViewWindow& operator=(const ViewWindow&) = delete;

  /// Null once the window has been destroyed.
  virtual HWND hwnd() const = 0;

  /// The client area's present size; all zero, with scale 1.0, once the window is gone.
  virtual Size GetSize() const = 0;

  /// Replaces the picture and has the window painted soon. A picture of another size than the
  /// client area is shown unscaled from the top left corner, with white around it. A picture whose
  /// size and bytes disagree is ignored.
  virtual void SetFrame(DecodedImage frame) = 0;

  /// The caption of a top-level window.
  virtual void SetTitle(const std::wstring& title) = 0;

 protected:
  ViewWindow() = default;
};

}  // namespace cefedition
