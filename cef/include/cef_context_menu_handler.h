// include/cef_context_menu_handler.h of CEF 123, as far as it is
// used here: callbacks about context menus.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_frame.h"
#include "include/cef_menu_model.h"

class CefContextMenuParams;

// Ends a context menu that the client shows itself.
class CefRunContextMenuCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(int command_id, cef_event_flags_t event_flags) = 0;
  virtual void Cancel() = 0;
};

// Context-menu events, on the UI thread.
class CefContextMenuHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_event_flags_t EventFlags;

  virtual void OnBeforeContextMenu(CefRefPtr<CefBrowser> /*browser*/,
                                   CefRefPtr<CefFrame> /*frame*/,
                                   CefRefPtr<CefContextMenuParams> /*params*/,
                                   CefRefPtr<CefMenuModel> /*model*/) {}
  virtual bool RunContextMenu(CefRefPtr<CefBrowser> /*browser*/,
                              CefRefPtr<CefFrame> /*frame*/,
                              CefRefPtr<CefContextMenuParams> /*params*/,
                              CefRefPtr<CefMenuModel> /*model*/,
                              CefRefPtr<CefRunContextMenuCallback> /*callback*/) {
    return false;
  }
  virtual bool OnContextMenuCommand(CefRefPtr<CefBrowser> /*browser*/,
                                    CefRefPtr<CefFrame> /*frame*/,
                                    CefRefPtr<CefContextMenuParams> /*params*/,
                                    int /*command_id*/,
                                    EventFlags /*event_flags*/) {
    return false;
  }
  virtual void OnContextMenuDismissed(CefRefPtr<CefBrowser> /*browser*/,
                                      CefRefPtr<CefFrame> /*frame*/) {}
};

// What lies under the pointer when a context menu is asked for.
class CefContextMenuParams : public virtual CefBaseRefCounted {
 public:
  typedef cef_context_menu_type_flags_t TypeFlags;
  typedef cef_context_menu_media_type_t MediaType;
  typedef cef_context_menu_media_state_flags_t MediaStateFlags;
  typedef cef_context_menu_edit_state_flags_t EditStateFlags;

  virtual int GetXCoord() = 0;
  virtual int GetYCoord() = 0;
  virtual TypeFlags GetTypeFlags() = 0;
  virtual CefString GetLinkUrl() = 0;
  virtual CefString GetUnfilteredLinkUrl() = 0;
  virtual CefString GetSourceUrl() = 0;
  virtual bool HasImageContents() = 0;
  virtual CefString GetTitleText() = 0;
  virtual CefString GetPageUrl() = 0;
  virtual CefString GetFrameUrl() = 0;
  virtual CefString GetFrameCharset() = 0;
  virtual MediaType GetMediaType() = 0;
  virtual MediaStateFlags GetMediaStateFlags() = 0;
  virtual CefString GetSelectionText() = 0;
  virtual CefString GetMisspelledWord() = 0;
  virtual bool GetDictionarySuggestions(std::vector<CefString>& suggestions) = 0;
  virtual bool IsEditable() = 0;
  virtual bool IsSpellCheckEnabled() = 0;
  virtual EditStateFlags GetEditStateFlags() = 0;
  virtual bool IsCustomMenu() = 0;
};
