// The switches that give Chrome's bootstrap the behaviour of CEF 123's own, and keep it from
// contacting anybody by itself.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "include/cef_command_line.h"

namespace cefbinding {

// Appends all of them. Features come after those that the command line disables already.
void AppendAlloySwitches(CefCommandLine& command_line, bool logs);

// The names of either list, separated by commas, each once, those of `first` first.
std::string UnionOfFeatures(std::string_view first, std::string_view second);

// The lists of features of a command line. Whoever sets such a switch replaces the list that is
// there, which only the engine and the binding know; this puts the former one back beside it.
class FeatureSwitches {
 public:
  explicit FeatureSwitches(CefCommandLine& command_line);

  // Completes the lists that have changed since.
  void PutTogetherWith(CefCommandLine& command_line) const;

 private:
  std::array<std::string, 2> lists_;
};

}  // namespace cefbinding
