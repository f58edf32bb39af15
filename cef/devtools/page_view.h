#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "devtools/page_session.h"
#include "devtools/painting_rest.h"
#include "devtools/view/view_window.h"
#include "include/internal/cef_win.h"

namespace cefedition {

/// Keeps a page and the window that shows it alike: the page's frames go into the window, the
/// window's size and input to the page. UI thread.
class PageView : private ViewWindow::Delegate {
 public:
  class Delegate {
   public:
    virtual void OnViewCloseRequested() = 0;
    /// The window is gone without `Destroy`.
    virtual void OnViewDestroyed() = 0;
    virtual void OnViewFocus(bool focused) = 0;
    /// The user did something; the page is to be told.
    virtual void OnViewInput(const InputCommand& command) = 0;
    virtual void OnViewKey(const KeyPress& key) = 0;

   protected:
    ~Delegate() = default;
  };

  PageView(PageSession& session, Delegate* delegate);
  ~PageView();
  PageView(const PageView&) = delete;
  PageView& operator=(const PageView&) = delete;

  /// Creates the window. False when that fails.
  bool Create(const CefWindowInfo& info);
  void Destroy();

  HWND hwnd() const;
  /// The window's client area in CSS pixels, at least 1 by 1.
  SIZE CssSize() const;

  /// Sends the size and asks for frames. Once the page's session exists.
  void StartPainting();
  /// `Page.screencastFrame`.
  void OnFrame(const Json& params);

  void SetTitle(const std::string& title);
  void SetFocus(bool focus);
  void BringToFront();
  /// Where a point of the page, in its CSS pixels, is on the screen and in the view's.
  POINT ToScreen(double x, double y) const;
  POINT ToView(double x, double y) const;
  /// The way back.
  POINT ToPage(int x, int y) const;
  /// A hidden page is not painted.
  void SetHidden(bool hidden);
  /// Has the page painted anew.
  void Repaint();
  /// The page has finished loading: its picture is made sure of.
  void OnPageLoaded();
  /// Shows the page's content larger by this factor, as a browser's zoom does.
  void SetZoom(double factor);

 private:
  void SendSize();
  void StartFrames();
  void ShowFrame(std::optional<DecodedImage> image);
  /// A while from now, asks for the page's picture if `rest_` says so about the frame of this
  /// number.
  void WatchRest(int frame);
  void AskAfterRest(int frame);
  /// Runs a task on the UI thread if the view still has its window then.
  void RunLater(std::chrono::milliseconds delay, std::function<void(PageView&)> task);

  // ViewWindow::Delegate.
  void OnViewResized(int width_px, int height_px, double scale) override;
  void OnViewInput(const InputCommand& command) override;
  void OnViewKey(const KeyPress& key) override;
  void OnViewCloseRequested() override;
  void OnViewDestroyed() override;
  void OnViewFocus(bool focused) override;

  PageSession& session_;
  Delegate* const delegate_;
  std::unique_ptr<ViewWindow> window_;
  bool painting_ = false;
  bool hidden_ = false;
  double zoom_ = 1.0;
  /// How often a frame of the right size may still be asked for.
  int repaints_left_ = 0;
  PaintingRest rest_;
  /// Tells a picture that comes back from decoding whether the view is still the same.
  std::shared_ptr<PageView*> self_;
};

}  // namespace cefedition
