#include "json_text.h"

#include <algorithm>

#include "utf.h"

namespace cefedition {
namespace {

// Blanks out each comma that only blanks separate from a closing bracket, if a value precedes it.
std::string WithoutTrailingCommas(std::string_view text) {
  std::string result(text);
  size_t comma = std::string::npos;
  bool in_string = false;
  char previous = '[';
  for (size_t i = 0; i < result.size(); ++i) {
    const char c = result[i];
    if (in_string) {
      if (c == '\\') {
        ++i;
      } else if (c == '"') {
        in_string = false;
      }
      continue;
    }
    if (c == ' ' || c == '\t' || c == '\n' || c == '\r') {
      continue;
    }
    if ((c == ']' || c == '}') && comma != std::string::npos) {
      result[comma] = ' ';
    }
    const bool after_value =
        previous != '[' && previous != '{' && previous != ',' && previous != ':';
    comma = c == ',' && after_value ? i : std::string::npos;
    in_string = c == '"';
    previous = c;
  }
  return result;
}

std::string Position(std::string_view text, size_t offset) {
  const std::string_view before = text.substr(0, std::min(offset, text.size()));
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const size_t line_start =
      before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
  return "Line: " + std::to_string(line) +
         ", column: " + std::to_string(before.size() - line_start + 1) + ", ";
}

// Builds the value, and stops at the first thing that is wrong with it.
class Builder : public nlohmann::json_sax<nlohmann::json> {
 public:
  nlohmann::json result;
  std::string problem;
  size_t problem_offset = 0;

  Builder() noexcept(false) = default;
  Builder(const Builder&) = delete;
  Builder& operator=(const Builder&) = delete;

  bool null() override { return Add(nullptr); }
  bool boolean(bool value) override { return Add(value); }
  bool number_integer(number_integer_t value) override { return Add(value); }
  bool number_unsigned(number_unsigned_t value) override { return Add(value); }
  bool number_float(number_float_t value, const string_t&) override { return Add(value); }
  bool string(string_t& value) override { return Add(std::move(value)); }
  bool binary(binary_t&) override { return false; }
  bool start_object(std::size_t) override { return Open(nlohmann::json::object()); }
  bool start_array(std::size_t) override { return Open(nlohmann::json::array()); }
  bool key(string_t& value) override {
    key_ = std::move(value);
    return true;
  }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }
  bool parse_error(std::size_t position,
                   const std::string&,
                   const nlohmann::detail::exception& exception) override {
    // 406: a number that no double holds.
    problem = exception.id == 406 ? "Number cannot be represented." : "Syntax error.";
    problem_offset = position > 0 ? position - 1 : 0;
    return false;
  }

 private:
  nlohmann::json* Add(nlohmann::json value, nlohmann::json** added) {
    if (open_.empty()) {
      result = std::move(value);
      *added = &result;
    } else if (open_.back()->is_array()) {
      open_.back()->push_back(std::move(value));
      *added = &open_.back()->back();
    } else {
      nlohmann::json& member = (*open_.back())[key_];
      member = std::move(value);
      *added = &member;
    }
    return *added;
  }
  bool Add(nlohmann::json value) {
    nlohmann::json* added = nullptr;
    return Add(std::move(value), &added) != nullptr;
  }
  bool Open(nlohmann::json container) {
    if (open_.size() >= static_cast<size_t>(kMaxJsonDepth)) {
      problem = "Too much nesting.";
      return false;
    }
    nlohmann::json* added = nullptr;
    Add(std::move(container), &added);
    open_.push_back(added);
    return true;
  }
  bool Close() {
    open_.pop_back();
    return true;
  }

  std::vector<nlohmann::json*> open_;
  std::string key_;
};

}  // namespace

std::optional<nlohmann::json> ParseJson(std::string_view text,
                                        bool allow_trailing_commas,
                                        std::string* error) {
  const std::string input = allow_trailing_commas ? WithoutTrailingCommas(text) : std::string(text);
  Builder builder;
  if (nlohmann::json::sax_parse(input, &builder)) {
    return std::move(builder.result);
  }
  if (error) {
    *error = Position(input, builder.problem_offset) + builder.problem;
  }
  return std::nullopt;
}

std::string QuoteJson(std::string_view text) {
  // Valid beforehand: the library would stop at an invalid byte.
  const std::string valid = Utf16ToUtf8(Utf8ToUtf16(text));
  std::string quoted = nlohmann::json(valid).dump();
  const auto replace = [&](std::string_view what, std::string_view with) {
    for (size_t pos = 0; (pos = quoted.find(what, pos)) != std::string::npos; pos += with.size()) {
      quoted.replace(pos, what.size(), with);
    }
  };
  replace("<", "\\u003C");
  replace("\xE2\x80\xA8", "\\u2028");
  replace("\xE2\x80\xA9", "\\u2029");
  return quoted;
}

}  // namespace cefedition
