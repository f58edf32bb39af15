#include "devtools/console_message.h"

#include "devtools/json_fields.h"

namespace cefedition {
namespace {

std::string FirstLine(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

// An array prints its elements as `Array.prototype.join` does.
std::string ArrayText(const Json& object) {
  const Json& preview = Field(object, "preview");
  std::string text;
  bool first = true;
  for (const Json& property : Field(preview, "properties")) {
    text += first ? "" : ",";
    first = false;
    const std::string type = TextField(property, "type");
    if (type != "undefined" && TextField(property, "subtype") != "null") {
      text += type == "object" ? "[object Object]" : TextField(property, "value");
    }
  }
  return text;
}

// A value as the console's one text has it: strings bare, objects as `toString` writes them.
std::string ValueText(const Json& object) {
  const std::string type = TextField(object, "type");
  const std::string subtype = TextField(object, "subtype");
  if (type == "string") {
    return TextField(object, "value");
  }
  if (subtype == "null") {
    return "null";
  }
  if (type == "undefined") {
    return "undefined";
  }
  if (type == "boolean") {
    return BoolField(object, "value") ? "true" : "false";
  }
  std::string description = TextField(object, "description");
  if (type == "object") {
    if (subtype == "error") {
      return FirstLine(description);
    }
    if (subtype == "array") {
      return ArrayText(object);
    }
    if (subtype == "date" || subtype == "regexp") {
      return description;
    }
    const std::string name = TextField(object, "className");
    return "[object " + (name.empty() ? std::string("Object") : name) + "]";
  }
  const Json& value = Field(object, "value");
  return description.empty() && value.is_number() ? value.dump() : description;
}

cef_log_severity_t SeverityOf(const std::string& word) {
  if (word == "error" || word == "assert") {
    return LOGSEVERITY_ERROR;
  }
  if (word == "warning") {
    return LOGSEVERITY_WARNING;
  }
  if (word == "debug" || word == "verbose") {
    return LOGSEVERITY_DEBUG;
  }
  return LOGSEVERITY_INFO;
}

}  // namespace

std::optional<ConsoleMessage> FromConsoleCall(const Json& params) {
  const std::string type = TextField(params, "type");
  const Json& arguments = Field(params, "args");
  if (type == "clear" || type == "endGroup" || type == "profile" || type == "profileEnd") {
    return std::nullopt;
  }
  ConsoleMessage message;
  message.severity = SeverityOf(type);
  bool first = true;
  for (const Json& argument : arguments) {
    message.text += (first ? "" : " ") + ValueText(argument);
    first = false;
  }
  if (first && type == "trace") {
    message.text = "console.trace";
  }
  const Json& frames = Field(Field(params, "stackTrace"), "callFrames");
  if (frames.is_array() && !frames.empty()) {
    message.source = TextField(frames.front(), "url");
    message.line = IntField(frames.front(), "lineNumber") + 1;
  }
  return message;
}

ConsoleMessage FromException(const Json& details) {
  ConsoleMessage message;
  message.severity = LOGSEVERITY_ERROR;
  message.text = TextField(details, "text");
  const Json& exception = Field(details, "exception");
  if (exception.is_object()) {
    message.text += (message.text.empty() ? "" : " ") + ValueText(exception);
  }
  message.source = TextField(details, "url");
  message.line = IntField(details, "lineNumber") + 1;
  const Json& frames = Field(Field(details, "stackTrace"), "callFrames");
  if (message.source.empty() && frames.is_array() && !frames.empty()) {
    message.source = TextField(frames.front(), "url");
  }
  return message;
}

ConsoleMessage FromLogEntry(const Json& entry) {
  ConsoleMessage message;
  message.severity = SeverityOf(TextField(entry, "level"));
  message.text = TextField(entry, "text");
  message.source = TextField(entry, "url");
  const Json& line = Field(entry, "lineNumber");
  message.line = line.is_number() ? line.get<int>() + 1 : 0;
  return message;
}

}  // namespace cefedition
