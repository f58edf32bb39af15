// The switch of the pages' own context menus.
#pragma once

namespace kzcef {

// Whether the environment variable "EnablePlatformRMB" was there, with any value or an empty one,
// at the first call in this process; later changes of it have no effect. Any thread.
bool IsPageMenuOn();

}  // namespace kzcef
