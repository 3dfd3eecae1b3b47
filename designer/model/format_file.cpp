#include "designer/model/format_file.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "designer/model/format_json.h"
#include "designer/model/known_columns.h"

namespace td::designer {
namespace {

constexpr const char* kMark = "qbtdprinter-format";
constexpr std::array kMembers = {kMark, "format", "items", "variables", "pictures"};

// The variables that items name, in the order in which they do so first.
std::vector<const Variable*> NamedVariables(const Format& format) {
  std::vector<const Variable*> named;
  for (const Item* item : ByBand(format.items)) {
    const Variable* variable = VariableOf(format, *item);
    if (variable != nullptr && std::ranges::find(named, variable) == named.end()) {
      named.push_back(variable);
    }
  }
  return named;
}

Json Pictures(const Format& format, const ReadPicture& readPicture) {
  Json pictures = Json::array();
  std::set<std::string> seen;
  for (const Item& item : format.items) {
    const std::string path = item.row.Text("FPicturePath");
    if (item.Kind() != ItemKind::kPicture || path.empty() || !seen.insert(path).second) continue;
    const auto bytes = readPicture(path);
    if (!bytes) continue;
    Json picture = ToJson(Value(*bytes));
    pictures.push_back(Json::object({{"path", path}, {"base64", picture["base64"]}}));
  }
  return pictures;
}

// A row of a file, in the columns that a designer knows; what the file doesn't say is as in a new
// row.
Row KnownRow(const Json& json, const std::string& where, std::span<const KnownColumn> columns,
             std::span<const std::string_view> required) {
  const Row given = ToRow(json, where);
  for (std::size_t i = 0; i < given.Size(); ++i) {
    const std::string& name = given.Names().Name(i);
    if (FindColumn(columns, name) == nullptr) throw WrongFile(PlaceOf(where, name), "没有这个列");
  }
  for (const std::string_view name : required) {
    if (!given.Has(name)) throw WrongFile(where, "缺少列 " + std::string(name));
  }
  Row row = NewRow(columns);
  for (std::size_t i = 0; i < given.Size(); ++i) row.Set(given.Names().Name(i), given.At(i));
  return row;
}

void CheckMembers(const Json& json) {
  for (const auto& [name, value] : json.items()) {
    if (std::ranges::find(kMembers, name) == kMembers.end()) throw WrongFile(name, "不认识");
  }
}

std::string Element(const char* array, std::size_t index) {
  return array + ("[" + std::to_string(index) + "]");
}

void ReadItems(const Json& json, Format& format) {
  constexpr std::array<std::string_view, 5> kRequired = {"FSite", "FLeft", "FTop", "FWidth",
                                                         "FHeight"};
  std::size_t index = 0;
  for (const Json& item : ArrayMember(json, "items", "")) {
    Row row = KnownRow(item, Element("items", index++), ItemColumns(), kRequired);
    format.items.Append({.id = format.NewItemId(), .row = std::move(row), .others = {}});
  }
}

void ReadVariables(const Json& json, Format& format) {
  constexpr std::array<std::string_view, 2> kRequired = {"FVarCaption", "FVarName"};
  std::size_t index = 0;
  for (const Json& variable : ArrayMember(json, "variables", "")) {
    const std::string where = Element("variables", index++);
    Row row = KnownRow(variable, where, VariableColumns(), kRequired);
    const std::string caption = row.Text("FVarCaption");
    if (FindVariable(format.variables, caption) != nullptr) {
      throw WrongFile(where, "变量“" + caption + "”出现了两次");
    }
    format.variables.push_back({.row = std::move(row), .others = {}});
  }
}

std::vector<FilePicture> ReadPictures(const Json& json) {
  std::vector<FilePicture> pictures;
  if (!json.contains("pictures")) return pictures;
  std::size_t index = 0;
  for (const Json& picture : ArrayMember(json, "pictures", "")) {
    const std::string where = Element("pictures", index++);
    Json bytes = Json::object({{"base64", TextMember(picture, "base64", where)}});
    pictures.push_back({TextMember(picture, "path", where),
                        std::get<Bytes>(ToValue(bytes, PlaceOf(where, "base64")))});
  }
  return pictures;
}

}  // namespace

std::string WriteFormatFile(const Format& format, const ReadPicture& readPicture) {
  Json json = Json::object();
  json[kMark] = kFormatFileVersion;
  json["format"] = ToJson(format.row);
  json["items"] = Json::array();
  for (const Item* item : ByBand(format.items)) json["items"].push_back(ToJson(item->row));
  json["variables"] = Json::array();
  for (const Variable* variable : NamedVariables(format)) {
    json["variables"].push_back(ToJson(variable->row));
  }
  if (readPicture) json["pictures"] = Pictures(format, readPicture);
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

FormatFile ReadFormatFile(std::string_view text) {
  const Json json = ParseMarked(text, kMark, kFormatFileVersion, "套打格式文件");
  CheckMembers(json);
  constexpr std::array<std::string_view, 2> kRequired = {"FTranType", "FTDBillName"};
  FormatFile file;
  file.format.row = KnownRow(Member(json, "format", ""), "format", FormatColumns(), kRequired);
  file.format.itemColumns = NamesOf(ItemColumns());
  if (file.format.Name().empty()) throw WrongFile("format.FTDBillName", "名称是空的");
  ReadItems(json, file.format);
  ReadVariables(json, file.format);
  file.pictures = ReadPictures(json);
  return file;
}

}  // namespace td::designer
