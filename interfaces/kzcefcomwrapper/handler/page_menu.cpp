#include "handler/page_menu.h"

#include <windows.h>

namespace kzcef {

bool IsPageMenuOn() {
  // Asked without room for the value, the system answers the room that it needs: 1 for an empty
  // value, 0 only where there is none.
  static const bool on = GetEnvironmentVariableW(L"EnablePlatformRMB", nullptr, 0) != 0;
  return on;
}

}  // namespace kzcef
