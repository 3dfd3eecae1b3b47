// Formats as JSON: what their files have in common.
#pragma once

#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>

#include "designer/model/known_columns.h"
#include "designer/model/row.h"
#include "platform/failure.h"

namespace td::designer {

// Keeps the keys in the order in which they were written.
using Json = nlohmann::ordered_json;

// A place in a file, "items[3].FLeft", and the failure of a file at the place that is wrong.
[[nodiscard]] std::string PlaceOf(const std::string& where, std::string_view member);
[[nodiscard]] Failure WrongFile(const std::string& where, std::string_view what);

// Null, true and false, numbers and texts as such; a real has a point or an exponent; dates are
// {"date": days since 30 December 1899}, bytes are {"base64": "…"}. Each comes back as it was.
[[nodiscard]] Json ToJson(const Value& value);
[[nodiscard]] Value ToValue(const Json& json, const std::string& where);

// An object with a member for each column.
[[nodiscard]] Json ToJson(const Row& row);
[[nodiscard]] Row ToRow(const Json& json, const std::string& where);

// The members of an object; each fails when it is not there or of another kind.
[[nodiscard]] const Json& Member(const Json& json, const char* name, const std::string& where);
[[nodiscard]] const Json& ArrayMember(const Json& json, const char* name, const std::string& where);
[[nodiscard]] std::string TextMember(const Json& json, const char* name, const std::string& where);

// The object of a text, whose member `mark` must be the version. `kind` says in Chinese what file
// it ought to be.
[[nodiscard]] Json ParseMarked(std::string_view text, const char* mark, int version,
                               std::string_view kind);

}  // namespace td::designer
