// What a value prints as under an item's picture string.
#pragma once

#include <optional>
#include <string>

#include "designer/model/format.h"
#include "memory_rows/memory_rows.h"

namespace td::designer {

enum class PictureUse {
  kUsed,
  kFixedText,   // no value, so no picture
  kNotInHead,   // the head prints values as they come
  kNotANumber,  // this value prints as it comes
  kNoPicture,   // page and row numbers, quantities in two units
  kIsNull,      // a sum whose picture is Null isn't printed
};

struct FormatExample {
  PictureUse use = PictureUse::kUsed;
  bool isFromData = false;  // the first row of the data, else a made-up number
  std::string value = {};
  std::string text = {};  // what is printed for it, without the label
};

// As the plain print window draws the item. `data` may be null.
[[nodiscard]] FormatExample ExampleOf(const Format& format, const Item& item,
                                      const MemoryRows* data);

// The value of a column in the first row, or nothing.
[[nodiscard]] std::optional<Value> FirstValue(const MemoryRows* data, const std::string& column);

}  // namespace td::designer
