#include "designer/model/recovery_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <utility>

#include "designer/model/format_json.h"
#include "files/file_error.h"
#include "files/private_folder.h"
#include "files/read_file.h"
#include "files/whole_file.h"

namespace td::designer {
namespace {

constexpr const char* kMark = "qbtdprinter-recovery";
constexpr int kVersion = 1;
constexpr std::size_t kLargest = std::size_t{256} << 20U;

// The same on every machine and in every run, unlike the standard library's.
std::uint64_t HashOf(std::string_view text) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : text) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  }
  return hash;
}

std::string FileNameFor(const std::string& connection, int billType, const std::string& name) {
  const std::string text = connection + '\0' + std::to_string(billType) + '\0' + name;
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), HashOf(text), 16);
  return "design-" + std::string(digits.data(), end.ptr) + ".json";
}

Json WriteFormat(const Format& format) {
  Json json = Json::object();
  json["id"] = ToJson(format.id);
  json["row"] = ToJson(format.row);
  json["others"] = ToJson(format.others);
  json["itemColumns"] = Json::array();
  for (std::size_t i = 0; i < format.itemColumns->Size(); ++i) {
    json["itemColumns"].push_back(format.itemColumns->Name(i));
  }
  json["lastItemId"] = format.lastItemId;
  json["items"] = Json::array();
  for (const Item& item : format.items) {
    json["items"].push_back(
        {{"id", item.id}, {"row", ToJson(item.row)}, {"others", ToJson(item.others)}});
  }
  json["variables"] = Json::array();
  for (const Variable& variable : format.variables) {
    json["variables"].push_back(
        {{"row", ToJson(variable.row)}, {"others", ToJson(variable.others)}});
  }
  return json;
}

Format ReadFormat(const Json& json, const std::string& where) {
  Format format;
  format.id = ToValue(Member(json, "id", where), where);
  format.row = ToRow(Member(json, "row", where), where);
  format.others = ToRow(Member(json, "others", where), where);
  format.itemColumns = std::make_shared<const ColumnNames>(
      ArrayMember(json, "itemColumns", where).get<std::vector<std::string>>());
  format.lastItemId = Member(json, "lastItemId", where).get<ItemId>();
  for (const Json& item : ArrayMember(json, "items", where)) {
    format.items.Append({.id = Member(item, "id", where).get<ItemId>(),
                         .row = ToRow(Member(item, "row", where), where),
                         .others = ToRow(Member(item, "others", where), where)});
  }
  for (const Json& variable : ArrayMember(json, "variables", where)) {
    format.variables.push_back({.row = ToRow(Member(variable, "row", where), where),
                                .others = ToRow(Member(variable, "others", where), where)});
  }
  return format;
}

}  // namespace

RecoveryFile::RecoveryFile(std::string folder, const std::string& connection, int billType,
                           const std::string& name)
    : folder_(std::move(folder)),
      fileName_(FileNameFor(connection, billType, name)),
      path_(folder_ + "/" + fileName_) {}

bool RecoveryFile::Keep(const Format& base, const Format& current,
                        std::chrono::steady_clock::time_point now) {
  if (lastTry_ && now - *lastTry_ < kInterval) return false;
  lastTry_ = now;
  Json json = Json::object();
  json[kMark] = kVersion;
  json["written"] = std::chrono::duration_cast<std::chrono::seconds>(
                        std::chrono::system_clock::now().time_since_epoch())
                        .count();
  json["base"] = WriteFormat(base);
  json["current"] = WriteFormat(current);
  const std::string text = json.dump(-1, ' ', false, Json::error_handler_t::replace);
  const auto failure = [&](int reason) {
    return Failure(kDeviceIo, "无法保存文件“" + path_ + "”：" + ReasonOf(reason) + "。");
  };
  if (!MakePrivateFolder(folder_).empty()) throw failure(errno);
  const Descriptor folder(open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!folder.IsOpen()) throw failure(errno);
  try {
    ReplaceFile(folder, fileName_, {.mode = S_IRUSR | S_IWUSR}, WriterOf(text));
  } catch (const FileError& error) {
    throw failure(error.Number());
  }
  return true;
}

std::optional<Recovered> RecoveryFile::Find() const {
  const Descriptor file(open(path_.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
  if (!file.IsOpen()) return std::nullopt;
  try {
    const Json json = ParseMarked(ReadRegularFile(file, kLargest), kMark, kVersion, "恢复文件");
    const std::chrono::seconds written(Member(json, "written", "").get<std::int64_t>());
    return Recovered{.base = ReadFormat(Member(json, "base", ""), "base"),
                     .current = ReadFormat(Member(json, "current", ""), "current"),
                     .written = std::chrono::system_clock::time_point(written)};
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

void RecoveryFile::Remove() {
  unlink(path_.c_str());
  lastTry_.reset();
}

}  // namespace td::designer
