// The circumstances of a context menu, as a test sets them.
#pragma once

#include <vector>

#include "include/cef_context_menu_handler.h"

namespace recording_cef {

// What a context menu is opened over, for tests.
class FakeContextMenuParams final : public CefContextMenuParams {
 public:
  int x = 0;
  int y = 0;
  // CEF's type flags.
  int type_flags = CM_TYPEFLAG_NONE;

  int GetXCoord() override { return x; }
  int GetYCoord() override { return y; }
  TypeFlags GetTypeFlags() override { return static_cast<TypeFlags>(type_flags); }
  CefString GetLinkUrl() override { return {}; }
  CefString GetUnfilteredLinkUrl() override { return {}; }
  CefString GetSourceUrl() override { return {}; }
  bool HasImageContents() override { return false; }
  CefString GetTitleText() override { return {}; }
  CefString GetPageUrl() override { return {}; }
  CefString GetFrameUrl() override { return {}; }
  CefString GetFrameCharset() override { return {}; }
  MediaType GetMediaType() override { return CM_MEDIATYPE_NONE; }
  MediaStateFlags GetMediaStateFlags() override { return CM_MEDIAFLAG_NONE; }
  CefString GetSelectionText() override { return {}; }
  CefString GetMisspelledWord() override { return {}; }
  bool GetDictionarySuggestions(std::vector<CefString>&) override { return false; }
  bool IsEditable() override { return false; }
  bool IsSpellCheckEnabled() override { return false; }
  EditStateFlags GetEditStateFlags() override { return CM_EDITFLAG_NONE; }
  bool IsCustomMenu() override { return false; }

  IMPLEMENT_REFCOUNTING(FakeContextMenuParams);
};

}  // namespace recording_cef
