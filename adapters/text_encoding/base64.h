// Bytes as text, four characters for three of them.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace td {

// Filled up with '=' to a multiple of four characters.
[[nodiscard]] std::string EncodeBase64(std::span<const std::byte> bytes);

// Nothing for a text that is no base64: of another length, or with other characters.
[[nodiscard]] std::optional<std::vector<std::byte>> DecodeBase64(std::string_view text);

}  // namespace td
