#include "windows/render/installed_families.h"

#include <algorithm>
#include <cwctype>
#include <map>
#include <utility>

#include "windows/api/windows_api.h"
#include "windows/render/screen_device.h"

namespace td {
namespace {

constexpr LONG kLightestBold = 600;

std::wstring Key(std::wstring_view name) {
  std::wstring key(name);
  std::ranges::transform(key, key.begin(), [](wchar_t c) { return std::towlower(c); });
  return key;
}

using Families = std::map<std::wstring, InstalledFamily>;

int CALLBACK AddFamily(const LOGFONTW* font, const TEXTMETRICW*, DWORD kind, LPARAM target) {
  if ((kind & TRUETYPE_FONTTYPE) == 0 || font->lfFaceName[0] == L'@') return 1;
  auto& families = *reinterpret_cast<Families*>(target);  // NOLINT(performance-no-int-to-ptr)
  families[Key(font->lfFaceName)].name = font->lfFaceName;
  return 1;
}

int CALLBACK AddStyle(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM target) {
  auto& family = *reinterpret_cast<InstalledFamily*>(target);  // NOLINT(performance-no-int-to-ptr)
  if (font->lfWeight >= kLightestBold) family.hasBold = true;
  return 1;
}

void Enumerate(std::wstring_view name, FONTENUMPROCW add, void* target) {
  LOGFONTW wanted{};
  wanted.lfCharSet = DEFAULT_CHARSET;
  name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  EnumFontFamiliesExW(ScreenDevice(), &wanted, add, reinterpret_cast<LPARAM>(target), 0);
}

std::vector<InstalledFamily> ReadFamilies() {
  Families found;
  Enumerate({}, AddFamily, &found);
  std::vector<InstalledFamily> families;
  for (auto& [key, family] : found) {
    Enumerate(family.name, AddStyle, &family);
    families.push_back(std::move(family));
  }
  return families;
}

const InstalledFamily* Listed(const std::wstring& key) {
  const auto& families = InstalledFamilies();
  const auto found = std::ranges::find_if(
      families, [&key](const InstalledFamily& family) { return Key(family.name) == key; });
  return found == families.end() ? nullptr : &*found;
}

// Families have a name for each language, and the list tells one of them; the system knows all.
const InstalledFamily* FamilyOfOtherName(const std::wstring& name) {
  static std::map<std::wstring, Families> known;
  const auto [found, isNew] = known.try_emplace(name);
  Families& meant = found->second;
  if (isNew && !name.empty()) {
    Enumerate(name, AddFamily, &meant);
    for (auto& [key, family] : meant) Enumerate(name, AddStyle, &family);
  }
  if (meant.empty()) return nullptr;
  const auto& [key, family] = *meant.begin();
  const InstalledFamily* listed = Listed(key);
  return listed == nullptr ? &family : listed;
}

}  // namespace

const std::vector<InstalledFamily>& InstalledFamilies() {
  static const std::vector<InstalledFamily> families = ReadFamilies();
  return families;
}

const InstalledFamily* FindFamily(std::wstring_view name) {
  const std::wstring key = Key(name);
  const InstalledFamily* listed = Listed(key);
  return listed == nullptr ? FamilyOfOtherName(key) : listed;
}

}  // namespace td
