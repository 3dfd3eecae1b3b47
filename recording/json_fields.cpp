#include "recording/json_fields.h"

#include <utility>

namespace td::recording {

JsonFields::JsonFields(const Json& json, std::string where)
    : json_(json), where_(std::move(where)) {
  if (!json.is_object()) {
    throw ScenarioError(where_ + ": an object is expected");
  }
}

bool JsonFields::Has(const char* key) const {
  return json_.contains(key) && !json_.at(key).is_null();
}

const Json& JsonFields::At(const char* key) const {
  if (!Has(key)) {
    throw ScenarioError(Where(key) + ": is missing");
  }
  return json_.at(key);
}

std::string JsonFields::Text(const char* key) const {
  const Json& value = At(key);
  if (!value.is_string()) {
    throw ScenarioError(Where(key) + ": a text is expected");
  }
  return value.get<std::string>();
}

std::string JsonFields::Text(const char* key, const std::string& fallback) const {
  return Has(key) ? Text(key) : fallback;
}

bool JsonFields::Flag(const char* key, bool fallback) const {
  if (!Has(key)) {
    return fallback;
  }
  const Json& value = At(key);
  if (!value.is_boolean()) {
    throw ScenarioError(Where(key) + ": true or false is expected");
  }
  return value.get<bool>();
}

std::vector<std::string> JsonFields::Texts(const char* key) const {
  std::vector<std::string> texts;
  for (const Json& element : Array(key)) {
    if (!element.is_string()) {
      throw ScenarioError(Where(key) + ": an array of texts is expected");
    }
    texts.push_back(element.get<std::string>());
  }
  return texts;
}

const Json& JsonFields::Array(const char* key) const {
  static const Json kEmpty = Json::array();
  if (!Has(key)) {
    return kEmpty;
  }
  const Json& value = At(key);
  if (!value.is_array()) {
    throw ScenarioError(Where(key) + ": an array is expected");
  }
  return value;
}

std::int64_t JsonFields::NumberIn(const char* key, std::int64_t least, std::int64_t most) const {
  const Json& value = At(key);
  if (!value.is_number_integer()) {
    throw ScenarioError(Where(key) + ": a whole number is expected");
  }
  const bool isHuge = value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX;
  if (isHuge || value.get<std::int64_t>() < least || value.get<std::int64_t>() > most) {
    throw ScenarioError(Where(key) + ": the number is out of range");
  }
  return value.get<std::int64_t>();
}

}  // namespace td::recording
