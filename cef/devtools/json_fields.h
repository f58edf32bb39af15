#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace cefedition {

// Members of protocol messages, read without trusting the message: a member that is missing or of
// another type counts as empty.

inline std::string TextField(const nlohmann::json& object, const char* name) {
  const auto found = object.is_object() ? object.find(name) : object.end();
  return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

inline int IntField(const nlohmann::json& object, const char* name, int otherwise = 0) {
  const auto found = object.is_object() ? object.find(name) : object.end();
  return found != object.end() && found->is_number() ? found->get<int>() : otherwise;
}

inline bool BoolField(const nlohmann::json& object, const char* name) {
  const auto found = object.is_object() ? object.find(name) : object.end();
  return found != object.end() && found->is_boolean() && found->get<bool>();
}

/// The member itself; a null value when there is none.
inline const nlohmann::json& Field(const nlohmann::json& object, const char* name) {
  static const nlohmann::json none;
  const auto found = object.is_object() ? object.find(name) : object.end();
  return found != object.end() ? *found : none;
}

}  // namespace cefedition
