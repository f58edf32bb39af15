// Reads the switches of the command line by a table, and holds the help text.

#include "portable/options.h"

#include <charconv>
#include <functional>
#include <map>
#include <optional>
#include <string_view>

namespace kzhost {
namespace {

constexpr int kSmallestView = 16;
constexpr int kLargestView = 8192;
constexpr int kLongestTimeout = 3600;

std::optional<int> ReadNumber(std::string_view text, int least, int most) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number < least || number > most) {
    return std::nullopt;
  }
  return number;
}

bool ReadSize(std::string_view text, Options& options) {
  const size_t cross = text.find('x');
  if (cross == std::string_view::npos) {
    return false;
  }
  const auto width = ReadNumber(text.substr(0, cross), kSmallestView, kLargestView);
  const auto height = ReadNumber(text.substr(cross + 1), kSmallestView, kLargestView);
  if (!width || !height) {
    return false;
  }
  options.view_width = *width;
  options.view_height = *height;
  return true;
}

bool ReadTimeout(std::string_view text, Options& options) {
  const auto seconds = ReadNumber(text, 1, kLongestTimeout);
  if (!seconds) {
    return false;
  }
  options.timeout = std::chrono::seconds(*seconds);
  return true;
}

bool Keep(std::string& place, const std::string& value) {
  place = value;
  return !value.empty();
}

// What each switch does with its value; returns false for a value that will not do.
using TakeValue = std::function<bool(Options&, const std::string&)>;

const std::map<std::string_view, TakeValue>& SwitchesWithValue() {
  static const std::map<std::string_view, TakeValue> switches = {
      {"--cache", [](Options& o, const std::string& v) { return Keep(o.cache_directory, v); }},
      {"--events", [](Options& o, const std::string& v) { return Keep(o.events_file, v); }},
      {"--run", [](Options& o, const std::string& v) { return Keep(o.steps_file, v); }},
      {"--screenshot", [](Options& o, const std::string& v) { return Keep(o.screenshot_file, v); }},
      {"--server", [](Options& o, const std::string& v) { return Keep(o.server_path, v); }},
      {"--size", [](Options& o, const std::string& v) { return ReadSize(v, o); }},
      {"--timeout", [](Options& o, const std::string& v) { return ReadTimeout(v, o); }},
  };
  return switches;
}

const std::map<std::string_view, bool Options::*>& Flags() {
  static const std::map<std::string_view, bool Options::*> flags = {
      {"--console", &Options::console},
      {"--help", &Options::help},
      {"--late-bound", &Options::late_bound},
      {"--quit", &Options::quit},
  };
  return flags;
}

}  // namespace

std::variant<Options, std::string> ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (const auto flag = Flags().find(argument); flag != Flags().end()) {
      options.*(flag->second) = true;
    } else if (const auto take = SwitchesWithValue().find(argument);
               take != SwitchesWithValue().end()) {
      if (i + 1 == arguments.size()) {
        return argument + " needs a value";
      }
      const std::string& value = arguments[++i];
      if (!take->second(options, value)) {
        return std::string(argument).append(" cannot be \"").append(value).append("\"");
      }
    } else if (argument.starts_with("-")) {
      return "unknown switch " + argument;
    } else if (!options.url.empty()) {
      return "more than one URL: " + options.url + " and " + argument;
    } else {
      options.url = argument;
    }
  }
  if (!options.steps_file.empty() && options.quit) {
    return "--quit and --run exclude each other: a steps file ends the program itself";
  }
  return options;
}

std::string HelpText() {
  return R"(kzhost: a sample host of KZCEFComWrapper.

kzhost [switches] [URL]

Opens a window with an address bar and a browser view, loads URL (about:blank when
there is none) and lists the notifications of the browser as they arrive.

  --run FILE         carry out the steps in FILE (one JSON object a line; "#" starts
                     a comment line) and end; a step that is wrong or fails is named
                     on the error output as FILE:LINE: message
  --events FILE      write every notification with its arguments to FILE, one JSON
                     object a line
  --console          print every notification to the standard output
  --screenshot FILE  save a picture of the window (PNG) when the page is loaded and
                     painted, or with --run at the end of the steps
  --quit             end by itself when the page is loaded (and the picture taken)
  --timeout SECONDS  how long --quit waits for the page; 60 without it, at most 3600
  --late-bound       make every call on the server through IDispatch::Invoke
  --server PATH      take the server from the DLL at PATH instead of the registered one
  --cache DIR        the engine's cache directory; without it the server chooses one
  --size WxH         size of the view in pixels at the start; 800x600 without it
  --help             print this text and end

Exit status: 0 when all went well; 1 when a step was wrong or failed, when the server
or its engine could not be started or when --quit waited in vain; 2 for a wrong
command line.

Environment: CefLogEnabled=1 makes the server trace what it does to the standard output
(through pelkor.dll beside this program); KZCefConsoleLog=1 makes it append the pages'
console messages to console.log in the current directory.

docs/kzhost.md describes the steps and the events file.
)";
}

}  // namespace kzhost
