#pragma once

#include <string>

#include "include/internal/cef_types_wrappers.h"

namespace cefedition {

/// The folder in which the browser keeps its profile: `cache_path`, which is created, or without
/// one a new folder under the temporary folder. False with `error` when it cannot be created.
bool PrepareProfileFolder(const CefSettings& settings,
                          std::wstring& path,
                          bool& is_temporary,
                          std::string& error);

/// Removes a temporary folder with all that is in it, as far as it can be removed.
void RemoveProfileFolder(const std::wstring& path);

}  // namespace cefedition
