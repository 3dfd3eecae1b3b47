#include "text_encoding/base64.h"

namespace td {
namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string EncodeBase64(std::span<const std::byte> bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    unsigned group = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      const bool isThere = i + k < bytes.size();
      group = group << 8U | (isThere ? std::to_integer<unsigned>(bytes[i + k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      const bool isPadding = i + k > bytes.size();
      text += isPadding ? '=' : kDigits[group >> (6 * (3 - k)) & 0x3FU];
    }
  }
  return text;
}

std::optional<std::vector<std::byte>> DecodeBase64(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  std::size_t length = text.size();
  while (length > 0 && text.size() - length < 2 && text[length - 1] == '=') --length;
  std::vector<std::byte> bytes;
  bytes.reserve(length * 3 / 4);
  unsigned buffer = 0;
  unsigned bits = 0;
  for (const char c : text.substr(0, length)) {
    const std::size_t digit = kDigits.find(c);
    if (digit == std::string_view::npos) return std::nullopt;
    buffer = (buffer << 6U | static_cast<unsigned>(digit)) & 0xFFFFU;
    bits += 6;
    if (bits >= 8) {
      bits -= 8;
      bytes.push_back(static_cast<std::byte>(buffer >> bits & 0xFFU));
    }
  }
  return bytes;
}

}  // namespace td
