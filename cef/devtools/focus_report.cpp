#include "devtools/focus_report.h"

#include "devtools/browser_core.h"
#include "devtools/json_fields.h"
#include "devtools/own_world_script.h"
#include "devtools/renderer_message.h"

namespace cefedition {
namespace {

constexpr char kMessage[] = "ClientRenderer.FocusedNodeChanged";
constexpr char kWorld[] = "cefeditionFocus";
constexpr char kBinding[] = "cefeditionFocusReport";

// A node counts as one to write in as in Chromium: by being editable, as a text field that is
// neither disabled nor read-only, or by its role.
constexpr char kScript[] = R"((() => {
  if (typeof cefeditionFocusReport !== 'function') return;
  const textTypes = ['text', 'search', 'url', 'tel', 'email', 'password', 'number'];
  const isTextField = node => node instanceof HTMLTextAreaElement ||
      node instanceof HTMLInputElement && textTypes.includes(node.type);
  const isEditable = node => node.isContentEditable === true ||
      isTextField(node) && !node.matches(':disabled') && !node.readOnly ||
      (node.getAttribute('role') || '').toLowerCase() === 'textbox';
  let current = null;
  const report = node => {
    if (node === current) return;
    current = node;
    cefeditionFocusReport(node && isEditable(node) ? 'editable' : '');
  };
  const focused = () => {
    let node = document.activeElement;
    while (node && node.shadowRoot && node.shadowRoot.activeElement) {
      node = node.shadowRoot.activeElement;
    }
    return node === document.body || node === document.documentElement ? null : node;
  };
  globalThis.cefeditionFocus = () => {
    if (!document.hasFocus()) return '';
    const node = focused();
    return node && isEditable(node) ? 'editable' : 'focused';
  };
  window.addEventListener('focusin', event => {
    const node = event.composedPath()[0];
    if (node instanceof Element) report(node);
  }, true);
  // A node hears it also when it is removed from the document, or when the window loses the focus,
  // where the node keeps its place. Where another node takes over, that one is reported.
  window.addEventListener('focusout', event => {
    if (!event.relatedTarget && focused() !== current) report(focused());
  }, true);
})();)";

}  // namespace

std::vector<std::pair<std::string, Json>> FocusReportCommands() {
  return OwnWorldScript(kWorld, kBinding, kScript, InOpenDocuments::kAtOnce);
}

void OnFocusReport(BrowserCore& core, const Json& params) {
  const ScriptContexts::Context* context =
      core.script_contexts().Find(IntField(params, "executionContextId"));
  if (TextField(params, "name") != kBinding || !context) {
    return;
  }
  if (const CefRefPtr<EditionFrame> frame = core.frames().Find(context->frame_id)) {
    CefRefPtr<CefListValue> arguments = CefListValue::Create();
    arguments->SetBool(0, TextField(params, "payload") == "editable");
    DeliverFromRenderer(core, frame, kMessage, arguments);
  }
}

void AskForFocus(BrowserCore& core, std::function<void(PageFocus focus)> done) {
  const std::vector<ScriptContexts::Context> contexts = core.script_contexts().InWorld(kWorld);
  if (contexts.empty()) {
    done(PageFocus::kElsewhere);
    return;
  }
  struct Answers {
    size_t missing = 0;
    PageFocus focus = PageFocus::kNone;
    std::function<void(PageFocus)> done;
  };
  const auto answers = std::make_shared<Answers>();
  answers->missing = contexts.size();
  answers->done = std::move(done);
  for (const ScriptContexts::Context& context : contexts) {
    // A frame that contains the one with the focus has it, too.
    core.session().Send(
        "Runtime.evaluate",
        {{"expression", "cefeditionFocus()"}, {"uniqueContextId", context.unique_id}},
        [answers](const ProtocolReply& reply) {
          const Json& result = Field(reply.value, "result");
          const std::string text = TextField(result, "value");
          // A frame that cannot answer, because it has just got another document, has not lost it.
          const bool here = !text.empty() || TextField(result, "type") != "string";
          if (text == "editable") {
            answers->focus = PageFocus::kEditable;
          } else if (here && answers->focus == PageFocus::kNone) {
            answers->focus = PageFocus::kElsewhere;
          }
          if (--answers->missing == 0) {
            answers->done(answers->focus);
          }
        });
  }
}

}  // namespace cefedition
