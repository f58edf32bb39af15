#include "devtools/navigation_entries.h"

#include "devtools/browser_core.h"
#include "devtools/json_fields.h"
#include "include/cef_navigation_entry.h"

namespace cefedition {
namespace {

cef_transition_type_t TransitionOf(const std::string& word) {
  if (word == "link") {
    return TT_LINK;
  }
  if (word == "form_submit") {
    return TT_FORM_SUBMIT;
  }
  return word == "reload" ? TT_RELOAD : TT_EXPLICIT;
}

class NavigationEntry : public CefNavigationEntry {
 public:
  struct Content {
    std::string url;
    std::string original_url;
    std::string title;
    cef_transition_type_t transition = TT_EXPLICIT;
  };

  explicit NavigationEntry(Content content) : content_(std::move(content)) {}

  bool IsValid() override { return true; }
  CefString GetURL() override { return content_.url; }
  CefString GetDisplayURL() override { return content_.url; }
  CefString GetOriginalURL() override { return content_.original_url; }
  CefString GetTitle() override { return content_.title; }
  TransitionType GetTransitionType() override { return content_.transition; }
  bool HasPostData() override { return false; }
  CefBaseTime GetCompletionTime() override { return CefBaseTime(); }
  int GetHttpStatusCode() override { return 0; }
  CefRefPtr<CefSSLStatus> GetSSLStatus() override { return nullptr; }

 private:
  const Content content_;

  IMPLEMENT_REFCOUNTING(NavigationEntry);
};

}  // namespace

void VisitNavigationEntries(std::shared_ptr<BrowserCore> core,
                            CefRefPtr<CefNavigationEntryVisitor> visitor,
                            bool current_only) {
  core->session().Send(
      "Page.getNavigationHistory", Json::object(), [visitor, current_only](const auto& reply) {
        const Json& entries = Field(reply.value, "entries");
        const int current = IntField(reply.value, "currentIndex", -1);
        const int total = static_cast<int>(entries.size());
        for (int index = 0; index < total; ++index) {
          if (current_only && index != current) {
            continue;
          }
          const Json& entry = entries[static_cast<size_t>(index)];
          NavigationEntry::Content content;
          content.url = TextField(entry, "url");
          content.original_url = TextField(entry, "userTypedURL");
          content.title = TextField(entry, "title");
          content.transition = TransitionOf(TextField(entry, "transitionType"));
          if (!visitor->Visit(new NavigationEntry(content), index == current, index, total)) {
            return;
          }
        }
      });
}

CefRefPtr<CefNavigationEntry> VisibleNavigationEntry(BrowserCore& core) {
  const std::string url = core.frames().main()->url();
  if (url.empty()) {
    return nullptr;
  }
  NavigationEntry::Content content;
  content.url = url;
  content.original_url = url;
  content.title = core.title();
  return new NavigationEntry(content);
}

}  // namespace cefedition
