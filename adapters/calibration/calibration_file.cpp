#include "calibration/calibration_file.h"

#include <array>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>

#include "files/file_error.h"
#include "files/output_file.h"
#include "files/path_text.h"
#include "files/user_files.h"

namespace td {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kVersion = 1;
constexpr std::size_t kLargestFile = 1 << 20;

[[noreturn]] void FailAt(const std::string& path, const std::string& why) {
  throw Failure(kDeviceIo, path + "：" + why);
}

// Two distances of a calibration and what a file calls them.
struct NamedDistances {
  const char* name;
  Distances Calibration::*distances;
  const char* across;
  const char* along;
};

constexpr std::array kDistances = {
    NamedDistances{"sheet", &Calibration::sheet, "width", "height"},
    NamedDistances{"crosses", &Calibration::asked, "fromSides", "fromEnds"},
    NamedDistances{"topLeft", &Calibration::topLeft, "fromLeft", "fromTop"},
    NamedDistances{"topRight", &Calibration::topRight, "fromRight", "fromTop"},
    NamedDistances{"bottomLeft", &Calibration::bottomLeft, "fromLeft", "fromBottom"},
};

Json JsonOf(const Calibration& calibration) {
  Json json = {{"printer", calibration.printer}};
  for (const NamedDistances& named : kDistances) {
    const Distances& distances = calibration.*named.distances;
    json[named.name] = {{named.across, distances.across}, {named.along, distances.along}};
  }
  return json;
}

// Members that it doesn't know would be lost when the file is written again: with one of them, as
// without one of its own, an object is not in order.
Calibration CalibrationFrom(const Json& json) {
  Calibration calibration;
  calibration.printer = json.at("printer").get<std::string>();
  bool hasOnlyKnown = json.size() == kDistances.size() + 1;
  for (const NamedDistances& named : kDistances) {
    const Json& distances = json.at(named.name);
    calibration.*named.distances = {distances.at(named.across).get<double>(),
                                    distances.at(named.along).get<double>()};
    hasOnlyKnown = hasOnlyKnown && distances.size() == 2;
  }
  if (!hasOnlyKnown) throw Failure(kDeviceIo, "有不认识的内容");
  if (!PlausibleMap(calibration)) throw Failure(kDeviceIo, "距离不合理");
  return calibration;
}

std::vector<Calibration> CalibrationsFrom(const Json& json) {
  if (const int version = json.at("version").get<int>(); version != kVersion) {
    throw Failure(kDeviceIo, "不认识版本 " + std::to_string(version));
  }
  const Json& list = json.at("calibrations");
  if (!list.is_array() || json.size() != 2) throw Failure(kDeviceIo, "有不认识的内容");
  std::vector<Calibration> calibrations;
  for (const Json& one : list) {
    try {
      calibrations.push_back(CalibrationFrom(one));
    } catch (const std::exception& failure) {
      throw Failure(kDeviceIo, "第 " + std::to_string(calibrations.size() + 1) + " 项不正确：" +
                                   failure.what());
    }
  }
  return calibrations;
}

}  // namespace

std::vector<Calibration> ReadCalibrations(const std::string& path) {
  try {
    const std::optional<std::string> content = ReadUserFile(PathOf(path), kLargestFile);
    return content ? CalibrationsFrom(Json::parse(*content)) : std::vector<Calibration>();
  } catch (const Json::parse_error& error) {
    FailAt(path, "第 " + std::to_string(error.byte) + " 个字节处不是 JSON");
  } catch (const std::exception& failure) {
    FailAt(path, failure.what());
  }
}

void WriteCalibrations(const std::string& path, const std::vector<Calibration>& calibrations) {
  Json list = Json::array();
  for (const Calibration& calibration : calibrations) list.push_back(JsonOf(calibration));
  const Json json = {{"version", kVersion}, {"calibrations", std::move(list)}};
  std::error_code error;
  std::filesystem::create_directories(PathOf(path).parent_path(), error);
  if (error) FailAt(path, ReasonOf(error.default_error_condition().value()));
  try {
    WriteOutput(path, WriterOf(json.dump(2) + "\n"));
  } catch (const FileError& failure) {
    FailAt(path, failure.what());
  }
}

}  // namespace td
