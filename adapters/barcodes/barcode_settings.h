// What a user can choose about the barcodes, and the file that holds it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace td {

struct BarcodeSettings {
  std::string symbology = "code128";                   // a name that IsSymbology knows
  std::uint32_t barColour = 0x000000;                  // 0xRRGGBB, of the bars and the text
  std::optional<std::uint32_t> background = 0xFFFFFF;  // none: what lies below shows through
  bool showText = true;                                // the line for human readers

  bool operator==(const BarcodeSettings&) const = default;
};

// The file qbtdprinter/barcode.conf in the user's folder of settings (files/user_files.h). Empty
// when there is no such folder.
[[nodiscard]] std::filesystem::path BarcodeSettingsFile();

// Reads lines "name = value" of the names symbology, bars, background (both "#rrggbb"; background
// also "none") and text (yes or no); '#' at the beginning of a line opens a comment. A name that is
// left out keeps its default, and so does everything when the file is missing. Fails with
// kInvalidCall, naming the line, on anything else, and for what can't be read, is no regular file
// or has more than 64 KB.
[[nodiscard]] BarcodeSettings ReadBarcodeSettings(const std::filesystem::path& file);

}  // namespace td
