#include "devtools/downloads.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "devtools/browser_core.h"
#include "devtools/engine.h"
#include "devtools/engine_threads.h"
#include "devtools/json_fields.h"
#include "devtools/log.h"
#include "devtools/text.h"
#include "devtools/unix_host.h"
#include "file_name.h"

namespace cefedition {
namespace {

// Sizes come as numbers with a fraction, which an int could not hold.
int64_t SizeField(const Json& params, const char* name) {
  const Json& field = Field(params, name);
  const double size = field.is_number() ? field.get<double>() : 0;
  constexpr double kMost = 1LL << 62;
  return size > 0 ? static_cast<int64_t>(std::min(size, kMost)) : 0;
}

}  // namespace

/// Lets a download go on. Let go of without use, it ends it.
class Downloads::BeforeCallback : public CefBeforeDownloadCallback {
 public:
  BeforeCallback(std::weak_ptr<Downloads> owner, std::string guid)
      : owner_(std::move(owner)), guid_(std::move(guid)) {}
  ~BeforeCallback() override {
    if (!answered_) {
      PostToUi([owner = owner_, guid = guid_] {
        if (const auto downloads = owner.lock()) {
          downloads->OnDropped(guid);
        }
      });
    }
  }

  void Continue(const CefString& download_path, bool show_dialog) override {
    if (answered_.exchange(true)) {
      return;
    }
    const auto go_on = [owner = owner_, guid = guid_, path = download_path.ToWString(),
                        show_dialog] {
      if (const auto downloads = owner.lock()) {
        downloads->OnContinue(guid, path, show_dialog);
      }
    };
    if (OnUiThread()) {
      go_on();
    } else {
      PostToUi(go_on);
    }
  }

 private:
  const std::weak_ptr<Downloads> owner_;
  const std::string guid_;
  std::atomic<bool> answered_{false};

  IMPLEMENT_REFCOUNTING(BeforeCallback);
};

/// Cancels a download. The protocol can neither hold a download nor let it go on.
class Downloads::ItemCallback : public CefDownloadItemCallback {
 public:
  ItemCallback(std::weak_ptr<Downloads> owner, std::string guid)
      : owner_(std::move(owner)), guid_(std::move(guid)) {}

  void Cancel() override {
    PostToUi([owner = owner_, guid = guid_] {
      if (const auto downloads = owner.lock()) {
        downloads->Cancel(guid);
      }
    });
  }
  void Pause() override {}
  void Resume() override {}

 private:
  const std::weak_ptr<Downloads> owner_;
  const std::string guid_;

  IMPLEMENT_REFCOUNTING(ItemCallback);
};

Downloads::Downloads(Engine& engine, std::shared_ptr<DownloadFolder> folder)
    : engine_(engine), folder_(std::move(folder)) {}

Downloads::~Downloads() = default;

void Downloads::Begin() {
  engine_.Send({}, "Browser.setDownloadBehavior",
               {{"behavior", "allowAndName"},
                {"downloadPath", ToUnixPath(folder_->path())},
                {"eventsEnabled", true}});
}

CefRefPtr<CefDownloadHandler> Downloads::HandlerOf(const std::shared_ptr<BrowserCore>& core) {
  // A browser that is closed hears nothing more.
  const CefRefPtr<CefClient> client = core && core->browser() ? core->client() : nullptr;
  return client ? client->GetDownloadHandler() : nullptr;
}

void Downloads::OnWillBegin(const Json& params,
                            const std::shared_ptr<BrowserCore>& core,
                            const DownloadSource& source) {
  const std::string guid = TextField(params, "guid");
  if (guid.empty() || entries_.contains(guid)) {
    return;
  }
  const CefRefPtr<CefDownloadHandler> handler = HandlerOf(core);
  if (!handler || !handler->CanDownload(core->browser(), source.url, source.method)) {
    Drop(guid);
    return;
  }
  Download& download = entries_[guid];
  download.core = core;
  download.state.id = ++last_id_;
  download.state.start_time = CefBaseTime::Now();
  download.state.url = source.url;
  download.state.original_url = source.original_url;
  download.state.suggested_name = SafeFileName(TextField(params, "suggestedFilename"));
  download.state.content_disposition = source.content_disposition;
  download.state.mime_type = source.mime_type;
  const CefRefPtr<EditionDownloadItem> item = new EditionDownloadItem(download.state);
  const std::string name = download.state.suggested_name;
  handler->OnBeforeDownload(core->browser(), item, name,
                            new BeforeCallback(weak_from_this(), guid));
  item->Invalidate();
}

void Downloads::OnContinue(const std::string& guid, const std::wstring& path, bool show_dialog) {
  const auto found = entries_.find(guid);
  if (found == entries_.end()) {
    return;
  }
  Download& download = found->second;
  const std::wstring target = DownloadTarget(path, Utf8ToWide(download.state.suggested_name));
  if (!show_dialog) {
    SetTarget(guid, target);
    return;
  }
  download.step = Step::kDialog;
  const std::shared_ptr<BrowserCore> core = download.core.lock();
  download.dialog =
      std::make_unique<SaveDialog>(core ? core->state().window : nullptr, target,
                                   [weak = weak_from_this(), guid](const std::wstring& chosen) {
                                     PostToUi([weak, guid, chosen] {
                                       if (const auto self = weak.lock()) {
                                         self->OnPathChosen(guid, chosen);
                                       }
                                     });
                                   });
}

void Downloads::OnDropped(const std::string& guid) {
  if (entries_.contains(guid)) {
    Drop(guid);
  }
}

void Downloads::OnPathChosen(const std::string& guid, const std::wstring& path) {
  const auto found = entries_.find(guid);
  if (found == entries_.end()) {
    return;
  }
  found->second.dialog.reset();
  if (path.empty()) {
    Cancel(guid);
  } else {
    SetTarget(guid, path);
  }
}

void Downloads::SetTarget(const std::string& guid, const std::wstring& path) {
  Download& download = entries_.at(guid);
  download.step = Step::kAnswered;
  download.state.full_path = path;
  // Not from inside the callback that may have answered just now.
  PostToUi([weak = weak_from_this(), guid] {
    if (const auto self = weak.lock()) {
      self->Update(guid);
    }
  });
  MoveIfReady(guid);
}

void Downloads::OnProgress(const Json& params) {
  const std::string guid = TextField(params, "guid");
  const std::string state = TextField(params, "state");
  if (dropped_.contains(guid)) {
    if (state != "inProgress") {
      dropped_.erase(guid);
      folder_->Remove(guid);
    }
    return;
  }
  const auto found = entries_.find(guid);
  if (found == entries_.end()) {
    return;
  }
  Download& download = found->second;
  const int64_t received = SizeField(params, "receivedBytes");
  const int64_t total = SizeField(params, "totalBytes");
  const bool changed =
      received != download.state.received_bytes || total != download.state.total_bytes;
  download.state.received_bytes = received;
  download.state.total_bytes = total;
  if (state == "completed") {
    OnTransferred(guid);
  } else if (state == "canceled") {
    // The browser has one word for what was cancelled and for what it gave up on.
    const bool cancelled = download.cancel_requested;
    Finish(guid,
           cancelled ? DownloadState::Progress::kCancelled : DownloadState::Progress::kInterrupted,
           cancelled ? CEF_DOWNLOAD_INTERRUPT_REASON_USER_CANCELED
                     : CEF_DOWNLOAD_INTERRUPT_REASON_NETWORK_FAILED);
  } else if (changed) {
    Update(guid);
  }
}

void Downloads::OnTransferred(const std::string& guid) {
  Download& download = entries_.at(guid);
  download.transferred = true;
  download.state.total_bytes = download.state.received_bytes;
  if (download.cancel_requested) {
    // Too late for the browser, but not for us.
    Finish(guid, DownloadState::Progress::kCancelled, CEF_DOWNLOAD_INTERRUPT_REASON_USER_CANCELED);
    return;
  }
  MoveIfReady(guid);
}

void Downloads::MoveIfReady(const std::string& guid) {
  const auto found = entries_.find(guid);
  if (found == entries_.end() || found->second.step != Step::kAnswered ||
      !found->second.transferred) {
    return;
  }
  Download& download = found->second;
  download.step = Step::kMoving;
  // The folder stays as long as something is moved out of it.
  PostToBackground([weak = weak_from_this(), folder = folder_, guid,
                    target = download.state.full_path, stop = download.stop.get_token()] {
    const cef_download_interrupt_reason_t reason =
        MoveIntoPlace(folder->FileOf(guid), target, stop);
    PostToUi([weak, guid, reason] {
      if (const auto self = weak.lock()) {
        self->OnMoved(guid, reason);
      }
    });
  });
}

void Downloads::OnMoved(const std::string& guid, cef_download_interrupt_reason_t reason) {
  if (!entries_.contains(guid)) {
    return;
  }
  DownloadState::Progress progress = DownloadState::Progress::kInterrupted;
  if (reason == CEF_DOWNLOAD_INTERRUPT_REASON_NONE) {
    progress = DownloadState::Progress::kComplete;
  } else if (reason == CEF_DOWNLOAD_INTERRUPT_REASON_USER_CANCELED) {
    progress = DownloadState::Progress::kCancelled;
  } else {
    Log(LOGSEVERITY_ERROR, "A download could not be put in its place: reason " +
                               std::to_string(static_cast<int>(reason)));
  }
  Finish(guid, progress, reason);
}

void Downloads::Cancel(const std::string& guid) {
  const auto found = entries_.find(guid);
  if (found == entries_.end()) {
    return;
  }
  Download& download = found->second;
  download.cancel_requested = true;
  download.stop.request_stop();
  if (!download.transferred) {
    CancelAtBrowser(guid);
  } else if (download.step != Step::kMoving) {
    Finish(guid, DownloadState::Progress::kCancelled, CEF_DOWNLOAD_INTERRUPT_REASON_USER_CANCELED);
  }
}

void Downloads::CancelAtBrowser(const std::string& guid) {
  engine_.Send({}, "Browser.cancelDownload", {{"guid", guid}});
}

void Downloads::Drop(const std::string& guid) {
  const auto found = entries_.find(guid);
  if (found != entries_.end() && found->second.transferred) {
    folder_->Remove(guid);
  } else {
    dropped_.insert(guid);
    CancelAtBrowser(guid);
  }
  entries_.erase(guid);
}

void Downloads::Finish(const std::string& guid,
                       DownloadState::Progress progress,
                       cef_download_interrupt_reason_t reason) {
  Download& download = entries_.at(guid);
  download.state.progress = progress;
  download.state.reason = reason;
  download.state.end_time = CefBaseTime::Now();
  folder_->Remove(guid);
  Update(guid);
  entries_.erase(guid);
}

void Downloads::Update(const std::string& guid) {
  const auto found = entries_.find(guid);
  const std::shared_ptr<BrowserCore> core =
      found != entries_.end() ? found->second.core.lock() : nullptr;
  const CefRefPtr<CefDownloadHandler> handler = HandlerOf(core);
  if (!handler) {
    return;
  }
  const CefRefPtr<EditionDownloadItem> item = new EditionDownloadItem(found->second.state);
  handler->OnDownloadUpdated(core->browser(), item, new ItemCallback(weak_from_this(), guid));
  item->Invalidate();
}

void Downloads::Stop() {
  for (auto& [guid, download] : std::exchange(entries_, {})) {
    download.stop.request_stop();
  }
  dropped_.clear();
}

}  // namespace cefedition
