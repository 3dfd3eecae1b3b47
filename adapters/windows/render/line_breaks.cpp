#include "windows/render/line_breaks.h"

#include <cstddef>

#include "windows/api/windows_api.h"
#include "windows/render/character_kinds.h"

// Behind the system's other headers.
#include <usp10.h>

namespace td {
namespace {

// The stretches of a text that are of one script each. Nothing where the system can't tell.
std::vector<SCRIPT_ITEM> ItemsOf(std::wstring_view text) {
  std::vector<SCRIPT_ITEM> items(16);
  for (;;) {
    int count = 0;
    const HRESULT result =
        ScriptItemize(text.data(), static_cast<int>(text.size()),
                      static_cast<int>(items.size()) - 1, nullptr, nullptr, items.data(), &count);
    if (result == E_OUTOFMEMORY) {
      items.resize(2 * items.size());
      continue;
    }
    items.resize(SUCCEEDED(result) ? static_cast<std::size_t>(count) + 1 : 0);
    return items;
  }
}

bool IsOneOf(wchar_t unit, std::wstring_view units) {
  return units.find(unit) != std::wstring_view::npos;
}

bool IsDigit(wchar_t unit) {
  return unit >= L'0' && unit <= L'9';
}

// Characters of the scripts that put no blanks between words. Halves of pairs count, as what lies
// beyond U+FFFF is mostly such a character.
bool IsIdeographic(wchar_t unit) {
  return (unit >= 0x2E80 && unit <= 0xA4CF) || (unit >= 0xAC00 && unit <= 0xDFFF) ||
         (unit >= 0xF900 && unit <= 0xFAFF) || (unit >= 0xFE30 && unit <= 0xFE4F) ||
         (unit >= 0xFF01 && unit <= 0xFF60) || (unit >= 0xFFE0 && unit <= 0xFFE6);
}

bool IsLowHalf(wchar_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

// What can't begin a line, and what can't end one.
bool IsClosing(wchar_t unit) {
  return IsOneOf(unit,
                 L",.:;!?)]}%/|’”…‥、。，．：；！？）］｝％〉》」』】〕〗〙〛｠»›°′″℃¢％"
                 L"々〻ーぁぃぅぇぉっゃゅょゎァィゥェォッャュョヮヵヶゝゞヽヾ・－～");
}
bool IsOpening(wchar_t unit) {
  return IsOneOf(unit, L"([{‘“（［｛〈《「『【〔〖〘〚｟«‹$￥¥£€＄￡№");
}

bool IsBreakingBlank(wchar_t unit) {
  return IsBlank(unit) && unit != 0x00A0 && unit != 0x2007 && unit != 0x202F;
}

// Whether a line may end between two neighbours.
bool MayBreakBetween(wchar_t before, wchar_t behind) {
  if (IsBlank(behind) || IsLowHalf(behind)) return false;
  if (IsBreakingBlank(before)) return true;
  if (IsBlank(before) || IsClosing(behind) || IsOpening(before)) return false;
  if (IsIdeographic(before) || IsIdeographic(behind)) return true;
  const bool isDash = before == L'-' || (before >= 0x2010 && before <= 0x2014);
  if (isDash || before == L'/' || before == L'|') return !IsDigit(behind) && behind != before;
  return before == L'!' || before == L'?' || before == L'}';
}

}  // namespace

std::vector<BreakPoint> BreakPointsOf(std::wstring_view text) {
  std::vector<BreakPoint> points(text.size() + 1);
  std::vector<SCRIPT_ITEM> items = ItemsOf(text);
  for (std::size_t i = 0; i + 1 < items.size(); ++i) {
    const auto begin = static_cast<std::size_t>(items[i].iCharPos);
    const auto end = static_cast<std::size_t>(items[i + 1].iCharPos);
    std::vector<SCRIPT_LOGATTR> attributes(end - begin);
    if (FAILED(ScriptBreak(text.data() + begin, static_cast<int>(end - begin), &items[i].a,
                           attributes.data()))) {
      continue;
    }
    for (std::size_t at = begin; at < end; ++at) {
      points[at].ofLetter = attributes[at - begin].fCharStop != 0;
    }
  }
  for (std::size_t at = 1; at < text.size(); ++at) {
    points[at].ofLine = MayBreakBetween(text[at - 1], text[at]);
  }
  points.front() = points.back() = {true, true};
  return points;
}

}  // namespace td
