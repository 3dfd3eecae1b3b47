#include "windows/render/character_kinds.h"

#include <algorithm>
#include <array>
#include <span>

namespace td {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

bool IsIn(std::span<const Range> ranges, char32_t character) {
  const auto range = std::ranges::upper_bound(ranges, character, {}, &Range::first);
  return range != ranges.begin() && character <= std::prev(range)->last;
}

constexpr std::array<Range, 22> kInvisible = {{
    {0x0000, 0x001F},   {0x007F, 0x009F},   {0x00AD, 0x00AD},   {0x0600, 0x0605},
    {0x061C, 0x061C},   {0x06DD, 0x06DD},   {0x070F, 0x070F},   {0x0890, 0x0891},
    {0x08E2, 0x08E2},   {0x180E, 0x180E},   {0x200B, 0x200F},   {0x202A, 0x202E},
    {0x2060, 0x2064},   {0x2066, 0x206F},   {0xFEFF, 0xFEFF},   {0xFFF9, 0xFFFB},
    {0x110BD, 0x110BD}, {0x110CD, 0x110CD}, {0x1BCA0, 0x1BCA3}, {0x1D173, 0x1D17A},
    {0xE0001, 0xE0001}, {0xE0020, 0xE007F},
}};

constexpr std::array<Range, 10> kBlanks = {{
    {0x0009, 0x000D},
    {0x0020, 0x0020},
    {0x0085, 0x0085},
    {0x00A0, 0x00A0},
    {0x1680, 0x1680},
    {0x2000, 0x200A},
    {0x2028, 0x2029},
    {0x202F, 0x202F},
    {0x205F, 0x205F},
    {0x3000, 0x3000},
}};

// Latin, Greek, Cyrillic, the scripts of China, Japan and Korea, and what all scripts share;
// without the marks among them.
constexpr std::array<Range, 22> kStandAlone = {{
    {0x0000, 0x02FF},   {0x0370, 0x0482},    {0x048A, 0x052F}, {0x1D00, 0x1DBF}, {0x1E00, 0x200C},
    {0x200E, 0x20CF},   {0x2100, 0x2CEE},    {0x2CF2, 0x2CFF}, {0x2E00, 0x3029}, {0x3030, 0x3098},
    {0x309B, 0x312F},   {0x3190, 0xA4CF},    {0xA640, 0xA66E}, {0xA720, 0xA7FF}, {0xAB30, 0xAB6F},
    {0xAC00, 0xD7A3},   {0xE000, 0xFB06},    {0xFE10, 0xFE1F}, {0xFE30, 0xFFFD}, {0x1D400, 0x1FAFF},
    {0x20000, 0x3FFFF}, {0xF0000, 0x10FFFF},
}};

}  // namespace

bool IsInvisible(char32_t character) {
  return IsIn(kInvisible, character);
}

bool NeedsShaping(char32_t character) {
  return !IsIn(kStandAlone, character);
}

bool IsBlank(char32_t character) {
  return IsIn(kBlanks, character);
}

bool IsDrawnAsBlank(char32_t character) {
  return character == U'\n' || character == U'\r' || character == U'\t' || character == 0x2028 ||
         character == 0x2029;
}

}  // namespace td
