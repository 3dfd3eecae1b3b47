// Column values and numbers as JSON.
#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "platform/value.h"

namespace td::recording {

// Keeps the keys in the order in which they were written.
using Json = nlohmann::ordered_json;

// A scenario that can't be read; the description is one line that says what is wrong where.
class ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Whole numbers have no decimals, others the fewest digits that give the same number back.
[[nodiscard]] Json ToJson(double number);
[[nodiscard]] Json ToJson(float number);
[[nodiscard]] Json ToJson(const Value& value);  // bytes as {"base64":"…"}

// null, a number, text, a flag (which becomes 1 or 0) or {"base64":"…"}. Fails with ScenarioError,
// whose description begins with `where`.
[[nodiscard]] Value ToValue(const Json& json, const std::string& where);

}  // namespace td::recording
