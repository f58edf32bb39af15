// The settings of a start, so that the engine survives them as CEF 123 did.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "include/internal/cef_types_wrappers.h"

namespace cefbinding {

// What a start is given in the host's stead where that would end the process, or leave behind what
// CEF 123 kept in memory.
struct StartSettings {
  CefSettings settings;
  // Of this run alone, to be deleted after the engine's end; empty when there is none.
  std::filesystem::path temporary_root;
  // One sentence for the log about each setting that was left out.
  std::vector<std::string> remarks;
};

// Checks directories, and makes those that the engine writes into. Any thread.
StartSettings CheckedForStart(const CefSettings& settings);

}  // namespace cefbinding
