// Reads the switch from the environment, once.

#include "handler/page_menu.h"

#include <windows.h>

namespace kzcef {

bool IsPageMenuOn() {
  // Called without room for the value, the function returns the size that it needs: 1 for an empty
  // value, 0 only where the variable does not exist.
  static const bool on = GetEnvironmentVariableW(L"EnablePlatformRMB", nullptr, 0) != 0;
  return on;
}

}  // namespace kzcef
