// The command line of kzhost.
#pragma once

#include <chrono>
#include <string>
#include <variant>
#include <vector>

namespace kzhost {

// Texts and paths are UTF-8; an empty one was not given.
struct Options {
  std::string url;
  std::string events_file;
  std::string steps_file;
  std::string screenshot_file;
  std::string server_path;
  std::string cache_directory;
  bool late_bound = false;
  bool console = false;
  bool quit = false;
  bool help = false;
  int view_width = 800;
  int view_height = 600;
  std::chrono::seconds timeout{60};
};

// Reads the arguments that follow the program's name. Returns the options, or what is wrong with
// them.
std::variant<Options, std::string> ParseOptions(const std::vector<std::string>& arguments);

std::string HelpText();

}  // namespace kzhost
