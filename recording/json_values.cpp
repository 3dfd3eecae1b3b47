#include "recording/json_values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace td::recording {
namespace {

constexpr std::string_view kBase64 =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

Bytes DecodeBase64(std::string_view text, const std::string& where) {
  std::size_t length = text.size();
  while (length > 0 && text.size() - length < 2 && text[length - 1] == '=') {
    --length;
  }
  if (text.size() % 4 != 0) {
    throw ScenarioError(where + ": the length of a base64 text must be a multiple of 4");
  }
  Bytes bytes;
  unsigned buffer = 0;
  unsigned bits = 0;
  for (const char c : text.substr(0, length)) {
    const std::size_t digit = kBase64.find(c);
    if (digit == std::string_view::npos) {
      throw ScenarioError(where + ": no base64 text");
    }
    buffer = (buffer << 6 | static_cast<unsigned>(digit)) & 0xFFFFU;
    bits += 6;
    if (bits >= 8) {
      bits -= 8;
      bytes.push_back(static_cast<std::byte>(buffer >> bits & 0xFFU));
    }
  }
  return bytes;
}

std::string EncodeBase64(const Bytes& bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    unsigned group = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      group = group << 8 | (i + k < bytes.size() ? static_cast<unsigned>(bytes[i + k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      const bool isPadding = i + k > bytes.size();
      text += isPadding ? '=' : kBase64[group >> (6 * (3 - k)) & 0x3FU];
    }
  }
  return text;
}

bool IsWhole(double number) {
  constexpr double kExactUpTo = 9007199254740992.0;
  return std::trunc(number) == number && std::abs(number) <= kExactUpTo;
}

}  // namespace

Json ToJson(double number) {
  if (IsWhole(number)) {
    return static_cast<std::int64_t>(number);
  }
  return number;
}

Json ToJson(float number) {
  if (!std::isfinite(number) || IsWhole(number)) {
    return ToJson(static_cast<double>(number));
  }
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  double nearest = 0;
  std::from_chars(digits.data(), end, nearest);
  return nearest;
}

Json ToJson(const Value& value) {
  struct Visitor {
    Json operator()(Null) const { return nullptr; }
    Json operator()(bool flag) const { return flag; }
    Json operator()(std::int64_t number) const { return number; }
    Json operator()(double number) const { return ToJson(number); }
    Json operator()(const std::string& text) const { return text; }
    Json operator()(Date date) const { return ToJson(date.serial); }
    Json operator()(const Bytes& bytes) const {
      return Json::object({{"base64", EncodeBase64(bytes)}});
    }
  };
  return std::visit(Visitor{}, value);
}

Value ToValue(const Json& json, const std::string& where) {
  switch (json.type()) {
    case Json::value_t::null:
      return Null{};
    case Json::value_t::boolean:
      return std::int64_t{json.get<bool>() ? 1 : 0};
    case Json::value_t::number_integer:
      return json.get<std::int64_t>();
    case Json::value_t::number_unsigned:
      if (json.get<std::uint64_t>() > static_cast<std::uint64_t>(INT64_MAX)) {
        return json.get<double>();
      }
      return json.get<std::int64_t>();
    case Json::value_t::number_float:
      return json.get<double>();
    case Json::value_t::string:
      return json.get<std::string>();
    case Json::value_t::object:
      if (json.contains("base64") && json["base64"].is_string()) {
        return DecodeBase64(json["base64"].get<std::string>(), where);
      }
      break;
    default:
      break;
  }
  throw ScenarioError(where + ": no value (null, number, text, flag or {\"base64\":\"…\"})");
}

}  // namespace td::recording
