// The switch that gives pages a context menu.
#pragma once

namespace kzcef {

// Returns whether the environment variable "EnablePlatformRMB" existed, with any value or an empty
// one, at the first call in this process; later changes have no effect. Any thread.
bool IsPageMenuOn();

}  // namespace kzcef
