// Starts the server, opens browsers, handles messages and shuts everything
// down again in the order that the server wants.

#include "host.h"

#include <algorithm>
#include <utility>

#include "KZCEFComWrapper.h"
#include "wide_text.h"

namespace kzhost {
namespace {

using Microsoft::WRL::ComPtr;
using std::chrono::milliseconds;

constexpr wchar_t kProductKey[] = L"KzxMeadow";
constexpr milliseconds kNotificationTimeout{10'000};
constexpr std::string_view kHandlerPrefix = "handler:";

}  // namespace

Host::Host(const Options& options, std::shared_ptr<NotificationLog> log)
    : options_(options),
      log_(std::move(log)),
      server_(ToWide(options.server_path)),
      calls_(options.late_bound ? MakeLateCalls() : MakeEarlyCalls()),
      mailbox_(std::make_shared<Mailbox>([this] { ShowNews(); })) {
  log_->SetListener([mailbox = std::weak_ptr(mailbox_)](const Notification&) {
    if (const auto open = mailbox.lock()) {
      open->Post();
    }
  });
}

Host::~Host() {
  ShutDown();
}

HRESULT Host::Activate() {
  HRESULT result = server_.CreateApplication(application_);
  if (SUCCEEDED(result)) {
    result = calls_->GetToken(application_.Get(), kProductKey);
  }
  if (SUCCEEDED(result)) {
    result = calls_->GetSettings(application_.Get(), &settings_);
  }
  // The engine runs its own threads; this program has a message loop of its own already.
  if (SUCCEEDED(result)) {
    result = calls_->PutMultiThreadedMessageLoop(settings_.Get(), true);
  }
  if (SUCCEEDED(result) && !options_.cache_directory.empty()) {
    result = calls_->PutCachePath(settings_.Get(), ToWide(options_.cache_directory));
  }
  return result;
}

HRESULT Host::StartEngine() {
  return calls_->InitCef(application_.Get(), settings_.Get());
}

HRESULT Host::OpenBrowser(const std::string& name,
                          const std::wstring& url,
                          BrowserSession*& session) {
  session = nullptr;
  ComPtr<ITypeInfo> information;
  HRESULT result = server_.GetTypeInfo(__uuidof(IKZCEFComBrowserHandler3), information);
  if (FAILED(result)) {
    return result;
  }
  auto opened = std::make_unique<BrowserSession>(name, *calls_, application_.Get(), log_,
                                                 std::move(information));
  result = opened->Open(options_.view_width, options_.view_height, !opened_any_, url);
  if (FAILED(result)) {
    opened->Close();
    return result;
  }
  opened_any_ = true;
  session = opened.get();
  sessions_.push_back(std::move(opened));
  return result;
}

BrowserSession* Host::FindBrowser(const std::string& name) const {
  const auto found = std::ranges::find(sessions_, name, [](const auto& s) { return s->name(); });
  return found == sessions_.end() ? nullptr : found->get();
}

IDispatch* Host::FindObject(const std::string& name) const {
  if (name == "app") {
    return application_.Get();
  }
  if (name == "settings") {
    return settings_.Get();
  }
  if (name.starts_with(kHandlerPrefix)) {
    const BrowserSession* session = FindBrowser(name.substr(kHandlerPrefix.size()));
    return session ? session->handler() : nullptr;
  }
  if (const BrowserSession* session = FindBrowser(name)) {
    return session->browser();
  }
  const auto kept = kept_objects_.find(name);
  return kept == kept_objects_.end() ? nullptr : kept->second.Get();
}

void Host::KeepObject(const std::string& name, ComPtr<IDispatch> object) {
  kept_objects_[name] = std::move(object);
}

bool Host::WaitUntil(const std::function<bool()>& done, milliseconds timeout) {
  return PumpUntil(
      [this, &done] {
        CloseRequested();
        return done();
      },
      timeout);
}

void Host::RunUntilClosed() {
  WaitUntil([this] { return sessions_.empty(); }, kForever);
}

void Host::ShutDown() {
  if (!application_) {
    return;
  }
  calls_->HostClosing(application_.Get());
  PumpUntil(
      [this] {
        bool processing = false;
        calls_->IsProcessingNotifications(application_.Get(), processing);
        return !processing;
      },
      kNotificationTimeout);
  kept_objects_.clear();
  for (const auto& session : sessions_) {
    session->Close();
  }
  sessions_.clear();
  settings_.Reset();
  calls_->ExitCef(application_.Get());
  application_.Reset();
}

void Host::CloseRequested() {
  // Taken out first: closing handles messages, which may come back here.
  for (auto session = sessions_.begin(); session != sessions_.end();) {
    if (!(*session)->close_requested()) {
      ++session;
      continue;
    }
    const std::unique_ptr<BrowserSession> closing = std::move(*session);
    sessions_.erase(session);
    closing->Close();
    session = sessions_.begin();
  }
}

void Host::ShowNews() {
  for (const auto& session : sessions_) {
    session->ShowNews();
  }
}

}  // namespace kzhost
