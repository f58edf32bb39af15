#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "include/cef_parser.h"
#include "portable/json_text.h"
#include "values.h"

namespace cefedition {
namespace {

ValueNode::Ptr ToNode(const nlohmann::json& json) {
  switch (json.type()) {
    case nlohmann::json::value_t::boolean:
      return ValueNode::MakeBool(json.get<bool>());
    case nlohmann::json::value_t::number_integer:
    case nlohmann::json::value_t::number_unsigned: {
      const double number = json.get<double>();
      // Integers are 32-bit; larger ones live on as doubles.
      if (number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max()) {
        return ValueNode::MakeInt(json.get<int>());
      }
      return ValueNode::MakeDouble(number);
    }
    case nlohmann::json::value_t::number_float:
      return ValueNode::MakeDouble(json.get<double>());
    case nlohmann::json::value_t::string:
      return ValueNode::MakeString(json.get_ref<const std::string&>());
    case nlohmann::json::value_t::array: {
      ValueNode::Ptr list = ValueNode::Make(VTYPE_LIST);
      for (const nlohmann::json& item : json) {
        list->SetItem(list->items.size(), ToNode(item));
      }
      return list;
    }
    case nlohmann::json::value_t::object: {
      ValueNode::Ptr dictionary = ValueNode::Make(VTYPE_DICTIONARY);
      for (const auto& [key, value] : json.items()) {
        dictionary->SetEntry(key, ToNode(value));
      }
      return dictionary;
    }
    default:
      return ValueNode::Make(VTYPE_NULL);
  }
}

CefRefPtr<CefValue> Parse(std::string_view text,
                          cef_json_parser_options_t options,
                          std::string* error) {
  const auto json = ParseJson(text, (options & JSON_PARSER_ALLOW_TRAILING_COMMAS) != 0, error);
  return json ? OwnValue(ToNode(*json)) : nullptr;
}

class Writer {
 public:
  explicit Writer(int options)
      : omit_binary_((options & JSON_WRITER_OMIT_BINARY_VALUES) != 0),
        doubles_as_integers_((options & JSON_WRITER_OMIT_DOUBLE_TYPE_PRESERVATION) != 0),
        pretty_((options & JSON_WRITER_PRETTY_PRINT) != 0) {}

  // Nothing when there is a value that JSON has no form for.
  std::optional<std::string> Write(const ValueNode& node) {
    if (!Append(node, 0)) {
      return std::nullopt;
    }
    if (pretty_) {
      text_ += kLineEnd;
    }
    return text_;
  }

 private:
  static constexpr std::string_view kLineEnd = "\r\n";

  bool Append(const ValueNode& node, int depth) {
    if (depth > kMaxJsonDepth) {
      return false;
    }
    switch (node.type) {
      case VTYPE_NULL:
        text_ += "null";
        return true;
      case VTYPE_BOOL:
        text_ += node.bool_value ? "true" : "false";
        return true;
      case VTYPE_INT:
        text_ += std::to_string(node.int_value);
        return true;
      case VTYPE_DOUBLE:
        return AppendDouble(node.double_value);
      case VTYPE_STRING:
        text_ += QuoteJson(node.string_value.ToString());
        return true;
      case VTYPE_LIST:
        return AppendList(node, depth);
      case VTYPE_DICTIONARY:
        return AppendDictionary(node, depth);
      default:
        return false;
    }
  }

  bool AppendDouble(double value) {
    if (!std::isfinite(value)) {
      return false;
    }
    constexpr double kLargestExact = 9007199254740992.0;
    if (doubles_as_integers_ && std::fabs(value) <= kLargestExact && std::trunc(value) == value) {
      text_ += std::to_string(static_cast<int64_t>(value));
      return true;
    }
    std::array<char, 64> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    const std::string_view digits(buffer.data(), static_cast<size_t>(end - buffer.data()));
    text_ += digits;
    // So that it is read back as a double.
    if (digits.find_first_of(".e") == std::string_view::npos) {
      text_ += ".0";
    }
    return true;
  }

  bool IsLeftOut(const ValueNode& node) const { return omit_binary_ && node.type == VTYPE_BINARY; }

  bool AppendList(const ValueNode& list, int depth) {
    text_ += pretty_ ? "[ " : "[";
    bool first = true;
    for (const ValueNode::Ptr& item : list.items) {
      if (IsLeftOut(*item)) {
        continue;
      }
      text_ += first ? "" : pretty_ ? ", " : ",";
      first = false;
      if (!Append(*item, depth + 1)) {
        return false;
      }
    }
    text_ += pretty_ ? " ]" : "]";
    return true;
  }

  bool AppendDictionary(const ValueNode& dictionary, int depth) {
    text_ += "{";
    bool first = true;
    for (const auto& [key, value] : dictionary.entries) {
      if (IsLeftOut(*value)) {
        continue;
      }
      text_ += first ? "" : ",";
      first = false;
      StartLine(depth + 1);
      text_ += QuoteJson(key.ToString()) + (pretty_ ? ": " : ":");
      if (!Append(*value, depth + 1)) {
        return false;
      }
    }
    StartLine(depth);
    text_ += "}";
    return true;
  }

  void StartLine(int depth) {
    if (pretty_) {
      text_ += kLineEnd;
      text_.append(static_cast<size_t>(depth) * 3, ' ');
    }
  }

  const bool omit_binary_;
  const bool doubles_as_integers_;
  const bool pretty_;
  std::string text_;
};

}  // namespace
}  // namespace cefedition

CefRefPtr<CefValue> CefParseJSON(const CefString& json_string, cef_json_parser_options_t options) {
  return cefedition::Parse(json_string.ToString(), options, nullptr);
}

CefRefPtr<CefValue> CefParseJSON(const void* json,
                                 size_t json_size,
                                 cef_json_parser_options_t options) {
  if (!json || json_size == 0) {
    return nullptr;
  }
  return cefedition::Parse({static_cast<const char*>(json), json_size}, options, nullptr);
}

CefRefPtr<CefValue> CefParseJSONAndReturnError(const CefString& json_string,
                                               cef_json_parser_options_t options,
                                               CefString& error_msg_out) {
  std::string error;
  CefRefPtr<CefValue> value = cefedition::Parse(json_string.ToString(), options, &error);
  if (!value) {
    error_msg_out = error;
  }
  return value;
}

CefString CefWriteJSON(CefRefPtr<CefValue> node, cef_json_writer_options_t options) {
  const std::lock_guard lock(cefedition::ValueLock());
  const cefedition::ValueNode::Ptr data = cefedition::NodeOf(node.get());
  return data ? cefedition::Writer(options).Write(*data).value_or(std::string()) : std::string();
}
