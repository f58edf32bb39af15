#include "devtools/page_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "devtools/base64_bytes.h"
#include "devtools/engine_threads.h"
#include "devtools/json_fields.h"
#include "devtools/text.h"
#include "devtools/view/image_codec.h"

namespace cefedition {

namespace {

// How often, and after what pause, a frame of a new size is asked for while the page still has the
// old one: five seconds in all.
constexpr int kRepaintsPerSize = 100;
constexpr std::chrono::milliseconds kRepaintPause{50};
// Longer than half a text cursor's period: while one blinks, each frame makes up for a lost one.
constexpr std::chrono::milliseconds kRest{600};

}  // namespace

PageView::PageView(PageSession& session, Delegate* delegate)
    : session_(session), delegate_(delegate), self_(std::make_shared<PageView*>(this)) {}

PageView::~PageView() = default;

bool PageView::Create(const CefWindowInfo& info) {
  RECT rect = {info.bounds.x, info.bounds.y, info.bounds.width, info.bounds.height};
  if (info.bounds.width != CW_USEDEFAULT) {
    rect.right = info.bounds.x + info.bounds.width;
    rect.bottom = info.bounds.y + info.bounds.height;
  }
  const bool child = (info.style & WS_CHILD) != 0;
  window_ = ViewWindow::Create(child ? info.parent_window : nullptr, info.style, rect, this);
  if (window_ && info.window_name.length > 0) {
    window_->SetTitle(CefString(&info.window_name).ToWString());
  }
  return window_ != nullptr;
}

void PageView::Destroy() {
  *self_ = nullptr;
  window_.reset();
}

HWND PageView::hwnd() const {
  return window_ ? window_->hwnd() : nullptr;
}

SIZE PageView::CssSize() const {
  const ViewWindow::Size size = window_ ? window_->GetSize() : ViewWindow::Size();
  const double scale = (size.scale > 0 ? size.scale : 1.0) * zoom_;
  return {std::max(1L, static_cast<LONG>(size.width_px / scale)),
          std::max(1L, static_cast<LONG>(size.height_px / scale))};
}

void PageView::StartPainting() {
  painting_ = true;
  SendSize();
  session_.Send("Emulation.setFocusEmulationEnabled", {{"enabled", true}});
  StartFrames();
}

void PageView::StartFrames() {
  session_.Send("Page.startScreencast", {{"format", "png"}});
}

void PageView::SendSize() {
  const ViewWindow::Size size = window_ ? window_->GetSize() : ViewWindow::Size();
  if (!painting_ || size.width_px <= 0 || size.height_px <= 0) {
    return;
  }
  const SIZE css = CssSize();
  session_.Send("Emulation.setDeviceMetricsOverride",
                {{"width", css.cx},
                 {"height", css.cy},
                 {"deviceScaleFactor", size.scale * zoom_},
                 {"mobile", false}},
                [self = self_](const ProtocolReply&) {
                  // The browser need not send a frame on its own.
                  if (PageView* view = *self) {
                    view->repaints_left_ = kRepaintsPerSize;
                    view->Repaint();
                  }
                });
}

void PageView::OnFrame(const Json& params) {
  // Decoded beside the UI thread; the acknowledgement, which asks for the next frame, waits for
  // that, so that a busy page cannot pile frames up.
  PostToBackground([self = self_, data = TextField(params, "data"),
                    frame_session = IntField(params, "sessionId"), number = rest_.CountFrame()] {
    std::optional<DecodedImage> image = DecodePngOrJpeg(DecodeBase64(data));
    auto shared = std::make_shared<std::optional<DecodedImage>>(std::move(image));
    PostToUi([self, shared, frame_session, number] {
      PageView* view = *self;
      if (!view || !view->window_) {
        return;
      }
      view->session_.Send("Page.screencastFrameAck", {{"sessionId", frame_session}});
      view->ShowFrame(std::move(*shared));
      view->WatchRest(number);
    });
  });
}

void PageView::OnPageLoaded() {
  WatchRest(rest_.ExpectFrame());
}

void PageView::AskAfterRest(int frame) {
  if (painting_ && !hidden_ && rest_.AskAfterRest(frame)) {
    Repaint();
    WatchRest(frame);
  }
}

void PageView::WatchRest(int frame) {
  RunLater(kRest, [frame](PageView& later) { later.AskAfterRest(frame); });
}

void PageView::RunLater(std::chrono::milliseconds delay, std::function<void(PageView&)> task) {
  if (const std::shared_ptr<TaskThread> ui = FindEngineThread(TID_UI)) {
    ui->PostDelayed(
        [self = self_, task = std::move(task)] {
          if (PageView* view = *self) {
            task(*view);
          }
        },
        delay);
  }
}

void PageView::ShowFrame(std::optional<DecodedImage> image) {
  if (!image) {
    return;
  }
  const ViewWindow::Size size = window_->GetSize();
  const bool fits = image->width == size.width_px && image->height == size.height_px;
  window_->SetFrame(std::move(*image));
  // The first frames after a change of size may still be of the old size.
  if (fits) {
    repaints_left_ = 0;
  } else if (repaints_left_ > 0) {
    --repaints_left_;
    RunLater(kRepaintPause, [](PageView& later) {
      if (later.repaints_left_ > 0) {
        later.Repaint();
      }
    });
  }
}

void PageView::SetTitle(const std::string& title) {
  // A child window's text is the host's affair.
  if (hwnd() && (GetWindowLongPtrW(hwnd(), GWL_STYLE) & WS_CHILD) == 0) {
    window_->SetTitle(Utf8ToWide(title));
  }
}

void PageView::SetFocus(bool focus) {
  if (focus && hwnd()) {
    ::SetFocus(hwnd());
  }
}

void PageView::BringToFront() {
  if (const HWND root = hwnd() ? GetAncestor(hwnd(), GA_ROOT) : nullptr) {
    if (IsIconic(root)) {
      ShowWindow(root, SW_RESTORE);
    }
    SetForegroundWindow(root);
  }
}

POINT PageView::ToView(double x, double y) const {
  return {std::lround(x * zoom_), std::lround(y * zoom_)};
}

POINT PageView::ToPage(int x, int y) const {
  return {std::lround(x / zoom_), std::lround(y / zoom_)};
}

POINT PageView::ToScreen(double x, double y) const {
  const double scale = window_ ? window_->GetSize().scale * zoom_ : 1.0;
  POINT point = {std::lround(x * scale), std::lround(y * scale)};
  ClientToScreen(hwnd(), &point);
  return point;
}

void PageView::SetHidden(bool hidden) {
  if (hidden_ == hidden) {
    return;
  }
  hidden_ = hidden;
  if (painting_) {
    if (hidden) {
      session_.Send("Page.stopScreencast");
    } else {
      StartFrames();
    }
  }
}

void PageView::Repaint() {
  if (painting_ && !hidden_) {
    // The browser sends a frame at once when frames are started, and refuses to start them twice.
    session_.Send("Page.stopScreencast");
    StartFrames();
  }
}

void PageView::SetZoom(double factor) {
  zoom_ = factor;
  SendSize();
}

void PageView::OnViewResized(int, int, double) {
  SendSize();
}

void PageView::OnViewInput(const InputCommand& command) {
  InputCommand scaled = command;
  for (const char* position : {"x", "y"}) {
    if (Field(scaled.params, position).is_number()) {
      scaled.params[position] = scaled.params[position].get<double>() / zoom_;
    }
  }
  delegate_->OnViewInput(scaled);
}

void PageView::OnViewKey(const KeyPress& key) {
  delegate_->OnViewKey(key);
}

void PageView::OnViewCloseRequested() {
  delegate_->OnViewCloseRequested();
}

void PageView::OnViewDestroyed() {
  *self_ = nullptr;
  delegate_->OnViewDestroyed();
}

void PageView::OnViewFocus(bool focused) {
  delegate_->OnViewFocus(focused);
}

}  // namespace cefedition
