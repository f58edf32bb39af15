#include "devtools/page_report.h"

#include "devtools/json_fields.h"
#include "devtools/own_world_script.h"

namespace cefedition {
namespace {

constexpr char kWorld[] = "cefedition";
constexpr char kBinding[] = "cefeditionReport";

constexpr char kScript[] = R"((() => {
  if (window !== window.top || typeof cefeditionReport !== 'function') return;
  const report = (kind, value) => cefeditionReport(JSON.stringify({kind, value}));
  let title = null;
  let icons = null;
  const reportTitle = () => {
    if (document.title === title) return;
    title = document.title;
    report('title', title);
  };
  const reportIcons = () => {
    const links = [...document.querySelectorAll('link[rel~="icon" i][href]')];
    let found = links.map(link => link.href);
    if (found.length === 0 && location.protocol.startsWith('http')) {
      found = [new URL('/favicon.ico', location.href).href];
    }
    if (found.length === 0 || JSON.stringify(found) === icons) return;
    icons = JSON.stringify(found);
    report('icons', found);
  };
  let head = null;
  const observer = new MutationObserver(() => changed());
  const watch = () => {
    if (document.head === head) return;
    head = document.head;
    observer.disconnect();
    observer.observe(document.documentElement, {childList: true});
    observer.observe(head, {childList: true, subtree: true, characterData: true,
                            attributes: true, attributeFilter: ['href', 'rel']});
  };
  const changed = () => {
    if (document.head) watch();
    else if (document.documentElement) {
      observer.observe(document.documentElement, {childList: true});
    }
    if (document.readyState !== 'loading' || document.title) reportTitle();
    if (document.readyState === 'complete') reportIcons();
  };
  new MutationObserver(changed).observe(document, {childList: true});
  document.addEventListener('readystatechange', changed);
  window.addEventListener('load', () => { reportTitle(); reportIcons(); }, true);
  document.addEventListener('fullscreenchange',
                            () => report('fullscreen', !!document.fullscreenElement));
  changed();
})();)";

}  // namespace

std::vector<std::pair<std::string, Json>> PageReportCommands() {
  return OwnWorldScript(kWorld, kBinding, kScript, InOpenDocuments::kNever);
}

std::optional<PageReport> ParsePageReport(const Json& params) {
  if (TextField(params, "name") != kBinding) {
    return std::nullopt;
  }
  const Json message =
      Json::parse(TextField(params, "payload"), nullptr, /*allow_exceptions=*/false);
  const std::string kind = TextField(message, "kind");
  PageReport report;
  if (kind == "title") {
    report.kind = PageReport::Kind::kTitle;
    report.title = TextField(message, "value");
  } else if (kind == "icons") {
    report.kind = PageReport::Kind::kIcons;
    for (const Json& icon : Field(message, "value")) {
      if (icon.is_string()) {
        report.icons.push_back(icon.get<std::string>());
      }
    }
  } else if (kind == "fullscreen") {
    report.kind = PageReport::Kind::kFullscreen;
    report.fullscreen = BoolField(message, "value");
  } else {
    return std::nullopt;
  }
  return report;
}

std::string TitleFromUrl(const std::string& url) {
  std::string title = url.starts_with("http://") ? url.substr(7) : url;
  const size_t scheme_end = title.find("://");
  const size_t host = scheme_end == std::string::npos ? 0 : scheme_end + 3;
  if (url.starts_with("http") && title.find('/', host) == title.size() - 1) {
    title.pop_back();
  }
  return title;
}

}  // namespace cefedition
