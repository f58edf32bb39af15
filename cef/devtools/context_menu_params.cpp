#include "devtools/context_menu_params.h"

#include "devtools/json_fields.h"
#include "devtools/own_world_script.h"

namespace cefedition {
namespace {

constexpr char kWorld[] = "cefeditionMenu";
constexpr char kBinding[] = "cefeditionMenuReport";

// The report waits until all of the page's listeners have run, for each of them may refuse.
constexpr char kScript[] = R"((() => {
  if (typeof cefeditionMenuReport !== 'function') return;
  const textTypes = ['text', 'search', 'url', 'tel', 'email', 'password', 'number'];
  const isTextField = node => node instanceof HTMLTextAreaElement ||
      node instanceof HTMLInputElement && textTypes.includes(node.type);
  const isWritable = node => isTextField(node) ? !node.matches(':disabled') && !node.readOnly :
                                                 node.isContentEditable === true;
  const linkOf = node => {
    if (node instanceof SVGAElement) return new URL(node.href.baseVal, node.baseURI).href;
    return node instanceof HTMLAnchorElement || node instanceof HTMLAreaElement ? node.href : '';
  };
  const mediaOf = node => {
    if (node instanceof HTMLImageElement) {
      return {type: 'image', source: node.currentSrc || node.src,
              pixels: node.complete && node.naturalWidth > 0};
    }
    if (node instanceof HTMLCanvasElement) return {type: 'canvas', pixels: true};
    if (!(node instanceof HTMLMediaElement)) return {};
    const states = ['paused', 'muted', 'loop', 'controls'].filter(name => node[name]);
    if (node.error) states.push('error');
    return {type: node instanceof HTMLVideoElement ? 'video' : 'audio', source: node.currentSrc,
            states};
  };
  const selectionOf = node => {
    if (!isTextField(node)) return getSelection().toString();
    if (node.type === 'password' || node.selectionStart === null) return '';
    return node.value.slice(node.selectionStart, node.selectionEnd);
  };
  const report = (event, path) => {
    const node = path[0] || document.documentElement;
    const editable = isWritable(node);
    const selection = selectionOf(node);
    const can = [];
    if (editable && document.queryCommandEnabled('undo')) can.push('undo');
    if (editable && document.queryCommandEnabled('redo')) can.push('redo');
    if (selection) can.push('copy');
    if (selection && editable) can.push('cut', 'delete');
    if (editable) can.push('paste');
    let link = '';
    for (const step of path) if (!link) link = linkOf(step);
    cefeditionMenuReport(JSON.stringify({
      x: event.screenX, y: event.screenY, charset: document.characterSet, link,
      media: mediaOf(node), title: node.title || node.alt || '', selection, editable, can,
      rich: editable && !isTextField(node)}));
  };
  window.addEventListener('contextmenu', event => {
    if (!event.isTrusted) return;
    const path = event.composedPath().filter(step => step instanceof Element);
    setTimeout(() => { if (!event.defaultPrevented) report(event, path); }, 0);
  }, true);
})();)";

template <typename Flag>
struct NamedFlag {
  const char* name;
  Flag flag;
};

constexpr NamedFlag<cef_context_menu_edit_state_flags_t> kEditFlags[] = {
    {"undo", CM_EDITFLAG_CAN_UNDO},   {"redo", CM_EDITFLAG_CAN_REDO},
    {"cut", CM_EDITFLAG_CAN_CUT},     {"copy", CM_EDITFLAG_CAN_COPY},
    {"paste", CM_EDITFLAG_CAN_PASTE}, {"delete", CM_EDITFLAG_CAN_DELETE},
};

constexpr NamedFlag<cef_context_menu_media_state_flags_t> kMediaFlags[] = {
    {"paused", CM_MEDIAFLAG_PAUSED},
    {"muted", CM_MEDIAFLAG_MUTED},
    {"loop", CM_MEDIAFLAG_LOOP},
    {"controls", CM_MEDIAFLAG_CONTROLS},
    {"error", CM_MEDIAFLAG_IN_ERROR}};

constexpr NamedFlag<cef_context_menu_media_type_t> kMediaTypes[] = {
    {"image", CM_MEDIATYPE_IMAGE},
    {"video", CM_MEDIATYPE_VIDEO},
    {"audio", CM_MEDIATYPE_AUDIO},
    {"canvas", CM_MEDIATYPE_CANVAS}};

/// The flags that a list of names in a report stands for.
template <typename Flag, size_t kCount>
int FlagsOf(const Json& names, const NamedFlag<Flag> (&flags)[kCount]) {
  int found = 0;
  for (const Json& name : names) {
    for (const NamedFlag<Flag>& flag : flags) {
      found |= name == flag.name ? flag.flag : 0;
    }
  }
  return found;
}

class ContextMenuParams : public CefContextMenuParams {
 public:
  ContextMenuParams(const Json& details,
                    int x,
                    int y,
                    const std::string& page_url,
                    const std::string& frame_url)
      : details_(details), x_(x), y_(y), page_url_(page_url), frame_url_(frame_url) {}

  int GetXCoord() override { return x_; }
  int GetYCoord() override { return y_; }
  TypeFlags GetTypeFlags() override {
    const auto flag = [](bool set, TypeFlags value) { return set ? static_cast<int>(value) : 0; };
    return static_cast<TypeFlags>(flag(!page_url_.empty(), CM_TYPEFLAG_PAGE) |
                                  flag(!frame_url_.empty(), CM_TYPEFLAG_FRAME) |
                                  flag(!GetLinkUrl().empty(), CM_TYPEFLAG_LINK) |
                                  flag(GetMediaType() != CM_MEDIATYPE_NONE, CM_TYPEFLAG_MEDIA) |
                                  flag(!GetSelectionText().empty(), CM_TYPEFLAG_SELECTION) |
                                  flag(IsEditable(), CM_TYPEFLAG_EDITABLE));
  }
  CefString GetLinkUrl() override { return TextField(details_, "link"); }
  CefString GetUnfilteredLinkUrl() override { return TextField(details_, "link"); }
  CefString GetSourceUrl() override { return TextField(Field(details_, "media"), "source"); }
  bool HasImageContents() override { return BoolField(Field(details_, "media"), "pixels"); }
  CefString GetTitleText() override { return TextField(details_, "title"); }
  CefString GetPageUrl() override { return page_url_; }
  CefString GetFrameUrl() override { return frame_url_; }
  CefString GetFrameCharset() override { return TextField(details_, "charset"); }
  MediaType GetMediaType() override {
    const std::string type = TextField(Field(details_, "media"), "type");
    for (const auto& known : kMediaTypes) {
      if (type == known.name) {
        return known.flag;
      }
    }
    return CM_MEDIATYPE_NONE;
  }
  MediaStateFlags GetMediaStateFlags() override {
    return static_cast<MediaStateFlags>(
        FlagsOf(Field(Field(details_, "media"), "states"), kMediaFlags));
  }
  CefString GetSelectionText() override { return TextField(details_, "selection"); }
  CefString GetMisspelledWord() override { return {}; }
  bool GetDictionarySuggestions(std::vector<CefString>& suggestions) override {
    suggestions.clear();
    return false;
  }
  bool IsEditable() override { return BoolField(details_, "editable"); }
  bool IsSpellCheckEnabled() override { return false; }
  EditStateFlags GetEditStateFlags() override {
    return static_cast<EditStateFlags>(
        FlagsOf(Field(details_, "can"), kEditFlags) | CM_EDITFLAG_CAN_SELECT_ALL |
        (BoolField(details_, "rich") ? CM_EDITFLAG_CAN_EDIT_RICHLY : CM_EDITFLAG_NONE));
  }
  bool IsCustomMenu() override { return false; }

 private:
  const Json details_;
  const int x_;
  const int y_;
  const std::string page_url_;
  const std::string frame_url_;

  IMPLEMENT_REFCOUNTING(ContextMenuParams);
};

}  // namespace

std::vector<std::pair<std::string, Json>> ContextMenuReportCommands() {
  return OwnWorldScript(kWorld, kBinding, kScript, InOpenDocuments::kAtOnce);
}

bool ParseContextMenuReport(const Json& params, ContextMenuReport& report) {
  if (TextField(params, "name") != kBinding) {
    return false;
  }
  report.context = IntField(params, "executionContextId");
  report.details = Json::parse(TextField(params, "payload"), nullptr, /*allow_exceptions=*/false);
  const Json& x = Field(report.details, "x");
  const Json& y = Field(report.details, "y");
  if (!x.is_number() || !y.is_number()) {
    return false;
  }
  report.x = x.get<double>();
  report.y = y.get<double>();
  return true;
}

CefRefPtr<CefContextMenuParams> MakeContextMenuParams(const ContextMenuReport& report,
                                                      int view_x,
                                                      int view_y,
                                                      const std::string& page_url,
                                                      const std::string& frame_url) {
  return new ContextMenuParams(report.details, view_x, view_y, page_url, frame_url);
}

void FillDefaultMenu(CefMenuModel& model,
                     CefContextMenuParams& params,
                     bool can_go_back,
                     bool can_go_forward) {
  const auto add = [&model](int id, const char* label, bool enabled) {
    model.AddItem(id, label);
    model.SetEnabled(id, enabled);
  };
  const int can = params.GetEditStateFlags();
  if (params.IsEditable()) {
    add(MENU_ID_UNDO, "&Undo", (can & CM_EDITFLAG_CAN_UNDO) != 0);
    add(MENU_ID_REDO, "&Redo", (can & CM_EDITFLAG_CAN_REDO) != 0);
    model.AddSeparator();
    add(MENU_ID_CUT, "Cu&t", (can & CM_EDITFLAG_CAN_CUT) != 0);
    add(MENU_ID_COPY, "&Copy", (can & CM_EDITFLAG_CAN_COPY) != 0);
    add(MENU_ID_PASTE, "&Paste", (can & CM_EDITFLAG_CAN_PASTE) != 0);
    add(MENU_ID_DELETE, "&Delete", (can & CM_EDITFLAG_CAN_DELETE) != 0);
    model.AddSeparator();
    add(MENU_ID_SELECT_ALL, "Select &all", (can & CM_EDITFLAG_CAN_SELECT_ALL) != 0);
  } else if (!params.GetSelectionText().empty()) {
    add(MENU_ID_COPY, "&Copy", (can & CM_EDITFLAG_CAN_COPY) != 0);
  } else {
    add(MENU_ID_BACK, "&Back", can_go_back);
    add(MENU_ID_FORWARD, "&Forward", can_go_forward);
    model.AddSeparator();
    add(MENU_ID_PRINT, "&Print...", true);
    add(MENU_ID_VIEW_SOURCE, "&View page source", true);
  }
}

}  // namespace cefedition
