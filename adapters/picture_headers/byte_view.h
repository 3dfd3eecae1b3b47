// Numbers out of untrusted bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace td {

// Reads beyond the end give 0, so that a reader of a broken file needs no checks of its own.
class ByteView {
 public:
  enum class Order { kBigEndian, kLittleEndian };

  explicit ByteView(std::span<const std::byte> bytes, Order order = Order::kBigEndian)
      : bytes_(bytes), order_(order) {}

  [[nodiscard]] std::size_t Size() const { return bytes_.size(); }
  [[nodiscard]] std::uint8_t U8(std::size_t at) const {
    return at < bytes_.size() ? std::to_integer<std::uint8_t>(bytes_[at]) : std::uint8_t{0};
  }
  [[nodiscard]] std::uint16_t U16(std::size_t at) const {
    return static_cast<std::uint16_t>(Number(at, 2));
  }
  [[nodiscard]] std::uint32_t U32(std::size_t at) const { return Number(at, 4); }
  [[nodiscard]] std::int32_t I32(std::size_t at) const {
    return static_cast<std::int32_t>(Number(at, 4));
  }

  [[nodiscard]] bool Holds(std::size_t at, std::string_view text) const {
    return at <= bytes_.size() && text.size() <= bytes_.size() - at &&
           std::memcmp(bytes_.data() + at, text.data(), text.size()) == 0;
  }
  // The bytes from `at` on, empty beyond the end.
  [[nodiscard]] std::span<const std::byte> From(std::size_t at) const {
    return at < bytes_.size() ? bytes_.subspan(at) : std::span<const std::byte>{};
  }

 private:
  [[nodiscard]] std::uint32_t Number(std::size_t at, std::size_t size) const {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i) {
      const std::size_t place = order_ == Order::kBigEndian ? i : size - 1 - i;
      number = number << 8 | U8(at + place);
    }
    return number;
  }

  std::span<const std::byte> bytes_;
  Order order_;
};

}  // namespace td
