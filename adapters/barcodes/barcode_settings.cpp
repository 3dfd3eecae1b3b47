#include "barcodes/barcode_settings.h"

#include <sstream>
#include <string_view>

#include "barcodes/code_symbol.h"
#include "files/file_error.h"
#include "files/path_text.h"
#include "files/user_files.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::size_t kLargestFile = 65536;

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<std::uint32_t> ColourOf(std::string_view text) {
  const bool isColour = text.size() == 7 && text.front() == '#' &&
                        text.find_first_not_of("0123456789abcdefABCDEF", 1) == text.npos;
  if (!isColour) return std::nullopt;
  return static_cast<std::uint32_t>(std::stoul(std::string(text.substr(1)), nullptr, 16));
}

// False when the name is unknown or the value isn't one of it.
bool Apply(std::string_view name, std::string_view value, BarcodeSettings& settings) {
  if (name == "symbology" && IsSymbology(value)) {
    settings.symbology = value;
    return true;
  }
  if (name == "text" && (value == "yes" || value == "no")) {
    settings.showText = value == "yes";
    return true;
  }
  if (name == "background" && value == "none") {
    settings.background.reset();
    return true;
  }
  const std::optional<std::uint32_t> colour = ColourOf(value);
  if (name == "bars" && colour) {
    settings.barColour = *colour;
    return true;
  }
  if (name == "background" && colour) {
    settings.background = colour;
    return true;
  }
  return false;
}

bool ApplyLine(std::string_view line, BarcodeSettings& settings) {
  const std::string_view content = Trimmed(line);
  if (content.empty() || content.front() == '#') return true;
  const std::size_t sign = content.find('=');
  return sign != content.npos &&
         Apply(Trimmed(content.substr(0, sign)), Trimmed(content.substr(sign + 1)), settings);
}

// Empty where there is no file, or none that could be seen.
std::string ContentOf(const std::filesystem::path& file) {
  try {
    return ReadUserFile(file, kLargestFile).value_or("");
  } catch (const FileError& error) {
    throw Failure(kInvalidCall, WithoutLockCharacter("无法读取条码设置文件“" + TextOf(file) +
                                                     "”：" + error.what() + "。"));
  }
}

}  // namespace

std::filesystem::path BarcodeSettingsFile() {
  const std::filesystem::path folder = UserConfigFolder();
  return folder.empty() ? folder : folder / "qbtdprinter" / "barcode.conf";
}

BarcodeSettings ReadBarcodeSettings(const std::filesystem::path& file) {
  BarcodeSettings settings;
  std::istringstream lines(ContentOf(file));
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    if (!ApplyLine(line, settings)) {
      throw Failure(kInvalidCall,
                    "条码设置文件 barcode.conf 第 " + std::to_string(number) + " 行有误。");
    }
  }
  return settings;
}

}  // namespace td
