// The commands of menus that the engine numbers otherwise than CEF 123: it has put "Paste as plain
// text" in front of "Delete", and moved that and "Select all" by one.
//
// Both directions are one to one, so that an item to which a host gives one of the three numbers
// for purposes of its own keeps it.
#pragma once

namespace cefbinding {

// The engine's "Paste as plain text", which CEF 123 did not have.
inline constexpr int kPasteAsPlainText = 115;

// A command of CEF 123's with the engine's number.
constexpr int EngineCommand(int command_id) {
  switch (command_id) {
    case 115:  // MENU_ID_DELETE
      return 116;
    case 116:  // MENU_ID_SELECT_ALL
      return 117;
    case 117:  // unused
      return kPasteAsPlainText;
    default:
      return command_id;
  }
}

// A command of the engine's with CEF 123's number.
constexpr int KnownCommand(int engine_command_id) {
  switch (engine_command_id) {
    case kPasteAsPlainText:
      return 117;
    case 116:
      return 115;
    case 117:
      return 116;
    default:
      return engine_command_id;
  }
}

}  // namespace cefbinding
