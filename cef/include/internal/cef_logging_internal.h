// include/internal/cef_logging_internal.h of CEF 123, as far as it is used
// here: the functions behind the logging macros.
#pragma once

#include <stddef.h>

#include "include/internal/cef_export.h"

extern "C" {

// Lines below this severity (-1 verbose, 0 info, 1 warning, 2 error, 3 fatal) are not written.
CEF_EXPORT int cef_get_min_log_level(void);

// Returns the level up to which VLOG writes in the given file, whose name has |N| characters.
CEF_EXPORT int cef_get_vlog_level(const char* file_start, size_t N);

// Writes one line. A fatal one ends the process.
CEF_EXPORT void cef_log(const char* file, int line, int severity, const char* message);

}  // extern "C"
