#include "devtools/edition_browser.h"

#include "devtools/browser_core.h"
#include "devtools/edition_host.h"

namespace cefedition {

EditionBrowser::EditionBrowser(std::shared_ptr<BrowserCore> core) : core_(std::move(core)) {}

EditionBrowser::~EditionBrowser() = default;

bool EditionBrowser::IsValid() {
  return core_->state().valid;
}

CefRefPtr<CefBrowserHost> EditionBrowser::GetHost() {
  // A closed browser still has a host, for the identity of both outlives the page.
  const CefRefPtr<CefBrowserHost> host = core_->host();
  return host ? host : new EditionHost(core_);
}

bool EditionBrowser::CanGoBack() {
  return core_->state().can_go_back;
}

void EditionBrowser::GoBack() {
  core_->GoInHistory(-1);
}

bool EditionBrowser::CanGoForward() {
  return core_->state().can_go_forward;
}

void EditionBrowser::GoForward() {
  core_->GoInHistory(1);
}

bool EditionBrowser::IsLoading() {
  return core_->state().loading;
}

void EditionBrowser::Reload() {
  core_->Reload(/*ignore_cache=*/false);
}

void EditionBrowser::ReloadIgnoreCache() {
  core_->Reload(/*ignore_cache=*/true);
}

void EditionBrowser::StopLoad() {
  core_->StopLoad();
}

int EditionBrowser::GetIdentifier() {
  return core_->id();
}

bool EditionBrowser::IsSame(CefRefPtr<CefBrowser> that) {
  return that && that->GetIdentifier() == GetIdentifier();
}

bool EditionBrowser::IsPopup() {
  return core_->is_popup();
}

bool EditionBrowser::HasDocument() {
  return core_->state().has_document;
}

CefRefPtr<CefFrame> EditionBrowser::GetMainFrame() {
  return core_->frames().main();
}

CefRefPtr<CefFrame> EditionBrowser::GetFocusedFrame() {
  return core_->state().focused ? GetMainFrame() : nullptr;
}

CefRefPtr<CefFrame> EditionBrowser::GetFrameByIdentifier(const CefString& identifier) {
  return core_->frames().Find(identifier.ToString());
}

CefRefPtr<CefFrame> EditionBrowser::GetFrameByName(const CefString& name) {
  return core_->frames().FindByName(name.ToString());
}

size_t EditionBrowser::GetFrameCount() {
  return core_->frames().All().size();
}

void EditionBrowser::GetFrameIdentifiers(std::vector<CefString>& identifiers) {
  identifiers.clear();
  for (const auto& frame : core_->frames().All()) {
    identifiers.push_back(frame->id());
  }
}

void EditionBrowser::GetFrameNames(std::vector<CefString>& names) {
  names.clear();
  for (const auto& frame : core_->frames().All()) {
    names.push_back(frame->name());
  }
}

}  // namespace cefedition
