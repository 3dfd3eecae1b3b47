// What the page text box of the print window shows.
#pragma once

#include <cstdint>
#include <string>

#include "text/conversions.h"

namespace td {

// While a run reads its data.
inline constexpr const char* kReadingText = "请稍候，正在读入打印数据...";

// "第3页   共12页".
[[nodiscard]] inline std::string PageText(std::int16_t page, std::int16_t count) {
  return "第" + ToText(page) + "页   共" + ToText(count) + "页";
}

}  // namespace td
