// Turns the host's settings into the engine's.
#pragma once

#include "KZCEFComWrapper.h"
#include "include/internal/cef_types_wrappers.h"

namespace kzcef {

// Reads every property once, in a fixed order, and copies it to the field of `target` or to the
// process-wide value that it stands for. A text that the object does not yield leaves its field
// alone; an empty one clears it. Called by start-up on the host's thread.
void CopySettings(IKZCEFComSettings& source, CefSettings& target);

}  // namespace kzcef
