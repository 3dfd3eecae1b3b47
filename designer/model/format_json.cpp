#include "designer/model/format_json.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "text_encoding/base64.h"

namespace td::designer {
namespace {

Bytes BytesOf(const std::string& base64, const std::string& where) {
  if (base64.size() % 4 != 0) throw WrongFile(where, "base64 的长度不是 4 的倍数");
  auto bytes = DecodeBase64(base64);
  if (!bytes) throw WrongFile(where, "不是 base64");
  return *std::move(bytes);
}

struct Writer {
  Json operator()(Null) const { return nullptr; }
  Json operator()(Date date) const { return Json::object({{"date", date.serial}}); }
  Json operator()(const Bytes& bytes) const {
    return Json::object({{"base64", EncodeBase64(bytes)}});
  }
  template <typename Plain>
  Json operator()(const Plain& plain) const {
    return plain;
  }
};

}  // namespace

std::string PlaceOf(const std::string& where, std::string_view member) {
  return where + "." + std::string(member);
}

Failure WrongFile(const std::string& where, std::string_view what) {
  return {kInvalidCall, where + "：" + std::string(what)};
}

Json ToJson(const Value& value) {
  return std::visit(Writer{}, value);
}

Value ToValue(const Json& json, const std::string& where) {
  switch (json.type()) {
    case Json::value_t::null:
      return Null{};
    case Json::value_t::boolean:
      return json.get<bool>();
    case Json::value_t::number_integer:
      return json.get<std::int64_t>();
    case Json::value_t::number_unsigned:
      if (json.get<std::uint64_t>() > static_cast<std::uint64_t>(INT64_MAX)) break;
      return json.get<std::int64_t>();
    case Json::value_t::number_float:
      return json.get<double>();
    case Json::value_t::string:
      return json.get<std::string>();
    case Json::value_t::object:
      if (json.size() != 1) break;
      if (json.contains("date") && json["date"].is_number()) {
        return Date{json["date"].get<double>()};
      }
      if (json.contains("base64") && json["base64"].is_string()) {
        return BytesOf(json["base64"].get<std::string>(), where);
      }
      break;
    default:
      break;
  }
  throw WrongFile(where, "不是值（null、数字、文字、true、false）");
}

Json ToJson(const Row& row) {
  Json json = Json::object();
  for (std::size_t i = 0; i < row.Size(); ++i) json[row.Names().Name(i)] = ToJson(row.At(i));
  return json;
}

Row ToRow(const Json& json, const std::string& where) {
  if (!json.is_object()) throw WrongFile(where, "应该是对象 {…}");
  std::vector<std::string> names;
  std::vector<Value> values;
  for (const auto& [name, value] : json.items()) {
    names.push_back(name);
    values.push_back(ToValue(value, PlaceOf(where, name)));
  }
  return {std::make_shared<const ColumnNames>(std::move(names)), std::move(values)};
}

const Json& Member(const Json& json, const char* name, const std::string& where) {
  if (!json.is_object()) throw WrongFile(where, "应该是对象 {…}");
  const auto found = json.find(name);
  if (found == json.end()) throw WrongFile(where, std::string("缺少 ") + name);
  return *found;
}

const Json& ArrayMember(const Json& json, const char* name, const std::string& where) {
  const Json& member = Member(json, name, where);
  if (!member.is_array()) throw WrongFile(PlaceOf(where, name), "应该是数组 […]");
  return member;
}

std::string TextMember(const Json& json, const char* name, const std::string& where) {
  const Json& member = Member(json, name, where);
  if (!member.is_string()) throw WrongFile(PlaceOf(where, name), "应该是文字");
  return member.get<std::string>();
}

Json ParseMarked(std::string_view text, const char* mark, int version, std::string_view kind) {
  Json json;
  try {
    json = Json::parse(text);
  } catch (const Json::parse_error& error) {
    throw Failure(kInvalidCall, "不是 JSON 文件（第 " + std::to_string(error.byte) + " 字节）");
  }
  if (!json.is_object() || !json.contains(mark)) {
    throw Failure(kInvalidCall, "不是" + std::string(kind));
  }
  if (json[mark] != version) {
    throw Failure(kInvalidCall, "文件的版本是 " + json[mark].dump() + "，这里只能读版本 " +
                                    std::to_string(version));
  }
  return json;
}

}  // namespace td::designer
