// include/cef_context_menu_handler.h over the C API.

#include "include/cef_context_menu_handler.h"

#include "binding.h"
#include "menu_ids.h"

namespace cefbinding {
namespace {

class RunContextMenuCallbackObject final : public LibraryObject<CefRunContextMenuCallback> {
 public:
  explicit RunContextMenuCallbackObject(Struct* object) : LibraryObject(object) {}

  void Continue(int command_id, cef_event_flags_t event_flags) override {
    Call(&Struct::cont, EngineCommand(command_id), event_flags);
  }
  void Cancel() override { Call(&Struct::cancel); }
};

class ContextMenuParamsObject final : public LibraryObject<CefContextMenuParams> {
 public:
  explicit ContextMenuParamsObject(Struct* object) : LibraryObject(object) {}

  int GetXCoord() override { return Call(&Struct::get_xcoord); }
  int GetYCoord() override { return Call(&Struct::get_ycoord); }
  TypeFlags GetTypeFlags() override { return Call(&Struct::get_type_flags); }
  CefString GetLinkUrl() override { return Call(&Struct::get_link_url); }
  CefString GetUnfilteredLinkUrl() override { return Call(&Struct::get_unfiltered_link_url); }
  CefString GetSourceUrl() override { return Call(&Struct::get_source_url); }
  bool HasImageContents() override { return Call(&Struct::has_image_contents); }
  CefString GetTitleText() override { return Call(&Struct::get_title_text); }
  CefString GetPageUrl() override { return Call(&Struct::get_page_url); }
  CefString GetFrameUrl() override { return Call(&Struct::get_frame_url); }
  CefString GetFrameCharset() override { return Call(&Struct::get_frame_charset); }
  MediaType GetMediaType() override { return Call(&Struct::get_media_type); }
  MediaStateFlags GetMediaStateFlags() override { return Call(&Struct::get_media_state_flags); }
  CefString GetSelectionText() override { return Call(&Struct::get_selection_text); }
  CefString GetMisspelledWord() override { return Call(&Struct::get_misspelled_word); }
  bool GetDictionarySuggestions(std::vector<CefString>& suggestions) override {
    return Call(&Struct::get_dictionary_suggestions, &suggestions);
  }
  bool IsEditable() override { return Call(&Struct::is_editable); }
  bool IsSpellCheckEnabled() override { return Call(&Struct::is_spell_check_enabled); }
  EditStateFlags GetEditStateFlags() override { return Call(&Struct::get_edit_state_flags); }
  bool IsCustomMenu() override { return Call(&Struct::is_custom_menu); }
};

}  // namespace

template <>
CefRefPtr<CefRunContextMenuCallback> Counterpart<CefRunContextMenuCallback>::LibraryClass::Wrap(
    Struct* object) {
  return new RunContextMenuCallbackObject(object);
}

template <>
void Counterpart<CefContextMenuHandler>::ClientClass::Bind(Struct& functions) {
  functions.on_before_context_menu =
      [](Struct* self, capi::cef_browser_t* browser, capi::cef_frame_t* frame,
         capi::cef_context_menu_params_t* params, capi::cef_menu_model_t* model) {
        // CEF 123's menu of a text field did not have it.
        model->remove(model, kPasteAsPlainText);
        CallEntry<&CefContextMenuHandler::OnBeforeContextMenu, void>(self, browser, frame, params,
                                                                     model);
      };
  cefbinding::Bind<&CefContextMenuHandler::RunContextMenu>(functions.run_context_menu);
  functions.on_context_menu_command =
      [](Struct* self, capi::cef_browser_t* browser, capi::cef_frame_t* frame,
         capi::cef_context_menu_params_t* params, int command_id, auto event_flags) {
        return CallEntry<&CefContextMenuHandler::OnContextMenuCommand, int>(
            self, browser, frame, params, KnownCommand(command_id), event_flags);
      };
  cefbinding::Bind<&CefContextMenuHandler::OnContextMenuDismissed>(
      functions.on_context_menu_dismissed);
}

template <>
CefRefPtr<CefContextMenuParams> Counterpart<CefContextMenuParams>::LibraryClass::Wrap(
    Struct* object) {
  return new ContextMenuParamsObject(object);
}

}  // namespace cefbinding
