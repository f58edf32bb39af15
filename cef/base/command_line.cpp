#include "include/cef_command_line.h"

#include <windows.h>

#include <algorithm>
#include <mutex>

#include "portable/command_line_text.h"

namespace cefedition {
namespace {

constexpr std::u16string_view kTerminator = u"--";

// ASCII only: switch names have no other letters.
std::u16string ToLower(std::u16string name) {
  std::transform(name.begin(), name.end(), name.begin(), [](char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
  });
  return name;
}

std::u16string Name(const CefString& name) {
  return ToLower(name.ToString16());
}

size_t PrefixLength(std::u16string_view word) {
  // "--" is tried before "-", which it starts with.
  for (const std::u16string_view prefix : {u"--", u"-", u"/"}) {
    if (word.starts_with(prefix)) {
      return prefix.size();
    }
  }
  return 0;
}

bool IsSwitch(std::u16string_view word) {
  const size_t prefix = PrefixLength(word);
  return prefix > 0 && prefix < word.size();
}

std::u16string Trimmed(const std::u16string& text) {
  constexpr std::u16string_view kBlanks = u" \t\n\v\f\r";
  const size_t first = text.find_first_not_of(kBlanks);
  return first == std::u16string::npos
             ? std::u16string()
             : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

class CommandLine final : public CefCommandLine {
 public:
  explicit CommandLine(bool read_only) : read_only_(read_only) {}

  bool IsValid() override { return true; }
  bool IsReadOnly() override { return read_only_; }

  CefRefPtr<CefCommandLine> Copy() override {
    const std::lock_guard lock(lock_);
    CefRefPtr<CommandLine> copy = new CommandLine(false);
    copy->words_ = words_;
    copy->switches_ = switches_;
    copy->switch_end_ = switch_end_;
    return copy;
  }

  // Not for Windows, where a command line is one text.
  void InitFromArgv(int, const char* const*) override {}

  void InitFromString(const CefString& command_line) override {
    if (!read_only_ && !command_line.empty()) {
      Parse(command_line);
    }
  }

  void Parse(const CefString& command_line) {
    const std::lock_guard lock(lock_);
    const std::vector<std::u16string> words = SplitCommandLine(command_line.ToString16());
    SetWords(words.empty() ? std::u16string() : Trimmed(words[0]));
    bool switches_allowed = true;
    for (size_t i = 1; i < words.size(); ++i) {
      const std::u16string word = Trimmed(words[i]);
      switches_allowed = switches_allowed && word != kTerminator;
      if (switches_allowed && IsSwitch(word)) {
        const size_t equals = word.find(u'=');
        AddSwitch(word.substr(0, equals),
                  equals == std::u16string::npos ? std::u16string() : word.substr(equals + 1));
      } else {
        words_.push_back(word);
      }
    }
  }

  void Reset() override {
    if (!read_only_) {
      const std::lock_guard lock(lock_);
      SetWords(words_[0]);
    }
  }

  void GetArgv(std::vector<CefString>& argv) override {
    const std::lock_guard lock(lock_);
    argv.assign(words_.begin(), words_.end());
  }

  CefString GetCommandLineString() override {
    const std::lock_guard lock(lock_);
    std::u16string text = QuoteProgram(words_[0]);
    bool switches_allowed = true;
    for (size_t i = 1; i < words_.size(); ++i) {
      const std::u16string& word = words_[i];
      switches_allowed = switches_allowed && word != kTerminator;
      const size_t equals =
          switches_allowed && IsSwitch(word) ? word.find(u'=') : std::u16string::npos;
      text += u" ";
      if (equals != std::u16string::npos) {
        text += word.substr(0, equals + 1) + QuoteWord(word.substr(equals + 1));
      } else {
        text += QuoteWord(word);
      }
    }
    return text;
  }

  CefString GetProgram() override {
    const std::lock_guard lock(lock_);
    return words_[0];
  }
  void SetProgram(const CefString& program) override {
    if (!read_only_ && !program.empty()) {
      const std::lock_guard lock(lock_);
      words_[0] = Trimmed(program.ToString16());
    }
  }

  bool HasSwitches() override {
    const std::lock_guard lock(lock_);
    return !switches_.empty();
  }
  bool HasSwitch(const CefString& name) override {
    const std::lock_guard lock(lock_);
    return switches_.contains(Name(name));
  }
  CefString GetSwitchValue(const CefString& name) override {
    const std::lock_guard lock(lock_);
    const auto found = switches_.find(Name(name));
    return found == switches_.end() ? CefString() : CefString(found->second);
  }
  void GetSwitches(SwitchMap& switches) override {
    const std::lock_guard lock(lock_);
    switches.clear();
    for (const auto& [name, value] : switches_) {
      switches.emplace(name, value);
    }
  }
  void AppendSwitch(const CefString& name) override {
    if (!read_only_ && !name.empty()) {
      const std::lock_guard lock(lock_);
      AddSwitch(name.ToString16(), std::u16string());
    }
  }
  // An empty value appends nothing at all: AppendSwitch is for switches without one.
  void AppendSwitchWithValue(const CefString& name, const CefString& value) override {
    if (!read_only_ && !name.empty() && !value.empty()) {
      const std::lock_guard lock(lock_);
      AddSwitch(name.ToString16(), value.ToString16());
    }
  }

  bool HasArguments() override {
    const std::lock_guard lock(lock_);
    return !Arguments().empty();
  }
  void GetArguments(ArgumentList& arguments) override {
    const std::lock_guard lock(lock_);
    const std::vector<std::u16string> found = Arguments();
    arguments.assign(found.begin(), found.end());
  }
  void AppendArgument(const CefString& argument) override {
    if (!read_only_ && !argument.empty()) {
      const std::lock_guard lock(lock_);
      words_.push_back(argument.ToString16());
    }
  }

  void PrependWrapper(const CefString& wrapper) override {
    if (!read_only_ && !wrapper.empty()) {
      const std::lock_guard lock(lock_);
      const std::vector<std::u16string> words = SplitCommandLine(wrapper.ToString16());
      words_.insert(words_.begin(), words.begin(), words.end());
      switch_end_ += words.size();
    }
  }

 private:
  void SetWords(std::u16string program) {
    words_ = {std::move(program)};
    switch_end_ = 1;
    switches_.clear();
  }

  // |name| may have a prefix, which it keeps on the command line. A repeated switch has its last
  // value, but all its words stay there.
  void AddSwitch(std::u16string name, const std::u16string& value) {
    name = ToLower(std::move(name));
    const size_t prefix = PrefixLength(name);
    switches_[name.substr(prefix)] = value;
    std::u16string word = prefix == 0 ? u"--" + name : std::move(name);
    if (!value.empty()) {
      word += u"=" + value;
    }
    words_.insert(words_.begin() + static_cast<ptrdiff_t>(switch_end_++), std::move(word));
  }

  // What is neither program nor switch, without the first terminator.
  std::vector<std::u16string> Arguments() const {
    std::vector<std::u16string> arguments(words_.begin() + static_cast<ptrdiff_t>(switch_end_),
                                          words_.end());
    const auto terminator = std::find(arguments.begin(), arguments.end(), kTerminator);
    if (terminator != arguments.end()) {
      arguments.erase(terminator);
    }
    return arguments;
  }

  const bool read_only_;
  std::mutex lock_;
  // Wrapper and program, then the switches, from |switch_end_| on the arguments.
  std::vector<std::u16string> words_ = {std::u16string()};
  size_t switch_end_ = 1;
  std::map<std::u16string, std::u16string> switches_;

  IMPLEMENT_REFCOUNTING(CommandLine);
};

CefRefPtr<CefCommandLine> ProcessCommandLine() {
  CefRefPtr<CommandLine> line = new CommandLine(true);
  line->Parse(GetCommandLineW());
  return line;
}

}  // namespace
}  // namespace cefedition

CefRefPtr<CefCommandLine> CefCommandLine::CreateCommandLine() {
  return new cefedition::CommandLine(false);
}

CefRefPtr<CefCommandLine> CefCommandLine::GetGlobalCommandLine() {
  static const CefRefPtr<CefCommandLine> line = cefedition::ProcessCommandLine();
  return line;
}
