#include "windows/render/font_tables.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace td {
namespace {

// The tables hold numbers with their high bytes first. What lies behind the end of a table is 0.
std::uint32_t ReadNumber(std::string_view table, std::size_t at, std::size_t bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < bytes; ++i) {
    const unsigned char byte =
        at + i < table.size() ? static_cast<unsigned char>(table[at + i]) : 0;
    number = (number << 8U) | byte;
  }
  return number;
}

std::uint32_t Read16(std::string_view table, std::size_t at) {
  return ReadNumber(table, at, 2);
}
std::uint32_t Read32(std::string_view table, std::size_t at) {
  return ReadNumber(table, at, 4);
}
int ReadSigned16(std::string_view table, std::size_t at) {
  return static_cast<std::int16_t>(Read16(table, at));
}

std::string TableOf(HDC device, std::string_view name) {
  DWORD tag = 0;  // the system wants the first letter in the lowest byte
  for (std::size_t i = 4; i-- > 0;) tag = (tag << 8U) | static_cast<unsigned char>(name[i]);
  const DWORD size = GetFontData(device, tag, 0, nullptr, 0);
  if (size == GDI_ERROR) return {};
  std::string table(size, '\0');
  if (GetFontData(device, tag, 0, table.data(), size) != size) return {};
  return table;
}

enum SubtableFormat : std::uint32_t { kSegments = 4, kGroups = 12 };

}  // namespace

FontTables::FontTables(HDC device) {
  unitsPerEm_ = std::max(1, static_cast<int>(Read16(TableOf(device, "head"), 18)));
  ReadHeights(device);
  ReadCharacters(device);
  lineThickness_ = ReadSigned16(TableOf(device, "post"), 10);
}

// The heights for horizontal lines, unless the font asks for its typographic ones.
void FontTables::ReadHeights(HDC device) {
  const std::string horizontal = TableOf(device, "hhea");
  ascent_ = ReadSigned16(horizontal, 4);
  descent_ = -ReadSigned16(horizontal, 6);
  leading_ = ReadSigned16(horizontal, 8);
  advanceCount_ = Read16(horizontal, 34);
  advances_ = TableOf(device, "hmtx");

  const std::string style = TableOf(device, "OS/2");
  constexpr std::uint32_t kUsesTypographicHeights = 1U << 7U;
  if ((Read16(style, 62) & kUsesTypographicHeights) != 0 || (ascent_ == 0 && descent_ == 0)) {
    ascent_ = ReadSigned16(style, 68);
    descent_ = -ReadSigned16(style, 70);
    leading_ = ReadSigned16(style, 72);
  }
}

// Of the subtables that map Unicode, the one with the most characters.
void FontTables::ReadCharacters(HDC device) {
  constexpr std::uint32_t kUnicode = 0;
  constexpr std::uint32_t kWindows = 3;
  const std::string table = TableOf(device, "cmap");
  int bestRank = 0;
  for (std::uint32_t i = 0; i < Read16(table, 2); ++i) {
    const std::size_t entry = 4 + 8 * std::size_t{i};
    const std::uint32_t platform = Read16(table, entry);
    const std::uint32_t encoding = Read16(table, entry + 2);
    const std::size_t begin = Read32(table, entry + 4);
    const std::uint32_t format = Read16(table, begin);
    const bool isSymbolic = platform == kWindows && encoding == 0;
    const bool isUnicode =
        platform == kUnicode || (platform == kWindows && (encoding == 1 || encoding == 10));
    int rank = 0;
    if (isUnicode && format == kGroups) rank = 3;
    if (isUnicode && format == kSegments) rank = 2;
    if (isSymbolic && format == kSegments) rank = 1;
    if (rank <= bestRank || begin >= table.size()) continue;
    bestRank = rank;
    const std::size_t size =
        format == kGroups ? Read32(table, begin + 4) : Read16(table, begin + 2);
    characters_ = table.substr(begin, size);
    isGrouped_ = format == kGroups;
    isSymbolic_ = isSymbolic;
  }
}

std::uint32_t FontTables::GlyphOf(char32_t character) const {
  if (isGrouped_) return GlyphInGroups(character);
  if (isSymbolic_ && character < 0x100) return GlyphInSegments(0xF000 + character);
  return character <= 0xFFFF ? GlyphInSegments(character) : 0;
}

std::uint32_t FontTables::GlyphInGroups(char32_t character) const {
  std::uint32_t first = 0;
  std::uint32_t behind = Read32(characters_, 12);
  while (first < behind) {
    const std::uint32_t middle = first + (behind - first) / 2;
    const std::size_t group = 16 + 12 * std::size_t{middle};
    if (character < Read32(characters_, group)) {
      behind = middle;
    } else if (character > Read32(characters_, group + 4)) {
      first = middle + 1;
    } else {
      return Read32(characters_, group + 8) + character - Read32(characters_, group);
    }
  }
  return 0;
}

// Four parallel lists: the last characters of the segments, a gap, their first characters, what is
// to be added, and where the glyphs are listed if adding isn't enough.
std::uint32_t FontTables::GlyphInSegments(char32_t character) const {
  const std::size_t bytes = Read16(characters_, 6);  // of one list
  for (std::size_t i = 0; i < bytes; i += 2) {
    if (character > Read16(characters_, 14 + i)) continue;
    const std::uint32_t begin = Read16(characters_, 16 + bytes + i);
    if (character < begin) return 0;
    const std::uint32_t delta = Read16(characters_, 16 + 2 * bytes + i);
    const std::size_t offsetAt = 16 + 3 * bytes + i;
    const std::uint32_t offset = Read16(characters_, offsetAt);
    if (offset == 0) return (character + delta) & 0xFFFFU;
    const std::uint32_t glyph = Read16(characters_, offsetAt + offset + 2 * (character - begin));
    return glyph == 0 ? 0 : (glyph + delta) & 0xFFFFU;
  }
  return 0;
}

int FontTables::AdvanceOf(std::uint32_t glyph) const {
  if (advanceCount_ == 0) return 0;
  const std::size_t entry = std::min<std::size_t>(glyph, advanceCount_ - 1);
  return static_cast<int>(Read16(advances_, 4 * entry));
}

}  // namespace td
