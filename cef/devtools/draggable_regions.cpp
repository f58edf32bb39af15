#include "devtools/draggable_regions.h"

#include "devtools/browser_core.h"
#include "devtools/json_fields.h"
#include "devtools/own_world_script.h"

namespace cefedition {
namespace {

constexpr char kWorld[] = "cefeditionRegions";
constexpr char kBinding[] = "cefeditionRegionsReport";

// Looks only at the nodes that a rule or a style attribute speaks of, and not at all in a page
// without such rules.
constexpr char kScript[] = R"((() => {
  if (window !== window.top || typeof cefeditionRegionsReport !== 'function') return;
  let last = '[]';
  let due = false;
  const selectorsOf = rules => [...rules].flatMap(rule => [
    ...(rule.style && rule.style.getPropertyValue('app-region') ? [rule.selectorText] : []),
    ...(rule.cssRules ? selectorsOf(rule.cssRules) : [])]);
  const selectorsOfSheet = sheet => {
    try { return selectorsOf(sheet.cssRules); } catch (refused) { return []; }
  };
  const find = () => {
    due = false;
    const selectors = [...document.styleSheets].flatMap(selectorsOfSheet);
    selectors.push('[style*="app-region"]');
    const regions = [];
    for (const node of document.querySelectorAll(selectors.join(','))) {
      const region = getComputedStyle(node).getPropertyValue('app-region');
      const box = node.getBoundingClientRect();
      if ((region === 'drag' || region === 'no-drag') && box.width > 0 && box.height > 0) {
        regions.push([box.x, box.y, box.width, box.height, region === 'drag']);
      }
    }
    const text = JSON.stringify(regions);
    if (text === last) return;
    last = text;
    cefeditionRegionsReport(text);
  };
  const changed = () => {
    if (due) return;
    due = true;
    setTimeout(find, 50);
  };
  new MutationObserver(changed).observe(document, {
      subtree: true, childList: true, attributes: true,
      attributeFilter: ['class', 'style', 'id', 'hidden', 'href', 'media']});
  for (const name of ['load', 'resize', 'scroll']) window.addEventListener(name, changed, true);
  changed();
})();)";

}  // namespace

std::vector<std::pair<std::string, Json>> DraggableRegionsCommands() {
  return OwnWorldScript(kWorld, kBinding, kScript, InOpenDocuments::kNever);
}

void OnDraggableRegions(BrowserCore& core, const Json& params) {
  const auto handler = core.client() ? core.client()->GetDragHandler() : nullptr;
  const CefRefPtr<CefBrowser> browser = core.browser();
  if (TextField(params, "name") != kBinding || !handler || !browser) {
    return;
  }
  std::vector<CefDraggableRegion> regions;
  for (const Json& box :
       Json::parse(TextField(params, "payload"), nullptr, /*allow_exceptions=*/false)) {
    if (box.size() != 5 || !box[0].is_number() || !box[1].is_number() || !box[2].is_number() ||
        !box[3].is_number() || !box[4].is_boolean()) {
      return;
    }
    const POINT from = core.view().ToView(box[0].get<double>(), box[1].get<double>());
    const POINT size = core.view().ToView(box[2].get<double>(), box[3].get<double>());
    regions.emplace_back(CefRect(from.x, from.y, size.x, size.y), box[4].get<bool>());
  }
  handler->OnDraggableRegionsChanged(browser, core.frames().main(), regions);
}

}  // namespace cefedition
