#include "checker/text_checks.h"

#include <algorithm>
#include <set>

#include "checker/drawn_text.h"
#include "page_document/commands.h"
#include "store/template_item.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

using enum FindingKind;

// What no reader sees.
constexpr double kBoxTolerance = 0.5 * kTwipsPerMillimetre;  // on one side
constexpr double kOverlapTolerance = 0.4 * kTwipsPerMillimetre;

// Of two overflows the larger one is told.
template <typename Overflow>
void Keep(std::map<std::size_t, Overflow>& overflows, std::size_t item, const Overflow& overflow) {
  const auto [found, isNew] = overflows.try_emplace(item, overflow);
  if (!isNew && overflow.excess > found->second.excess) found->second = overflow;
}

}  // namespace

void TextCheck::Draws(const Drawing& drawing) {
  if (drawing.isBarcode) {
    const TextInk box{drawing.left, drawing.top, drawing.right, drawing.bottom, 1};
    page_.push_back(
        {drawing.item, std::string(drawing.barcode), box, drawing.band, drawing.page, true});
  }
  if (drawing.what != DrawnAs::kText || drawing.box == nullptr) return;
  if (!hasValues_ && !drawing.isFixedText) return;
  const BoxText& box = *drawing.box;
  const TextInk ink = InkOf(box);
  if (ink.lines == 0) return;
  const double width = ink.right - ink.left;
  const double height = ink.bottom - ink.top;
  const bool hasBox = box.width > 0 && box.height > 0;
  const double outside = std::max(box.left - ink.left, ink.right - box.left - box.width);
  const double above = std::max(box.top - ink.top, ink.bottom - box.top - box.height);
  if (hasBox && !box.wordWrap && outside > kBoxTolerance) {
    Keep(tooLong_, drawing.item, {box.text, outside, width, box.width, ink.lines});
  }
  if (hasBox && ink.lines > 1 && above > kBoxTolerance) {
    Keep(tooHigh_, drawing.item, {box.text, above, height, box.height, ink.lines});
  }
  page_.push_back({drawing.item, box.text, ink, drawing.band, drawing.page});
}

void TextCheck::Compare(const Text& a, const Text& b) {
  if (a.isBarcode && b.isBarcode) return;
  const double width = std::min(a.ink.right, b.ink.right) - std::max(a.ink.left, b.ink.left);
  const double height = std::min(a.ink.bottom, b.ink.bottom) - std::max(a.ink.top, b.ink.top);
  if (width <= kOverlapTolerance || height <= kOverlapTolerance) return;
  // The same twice over shows as one.
  if (a.text == b.text && a.ink.left == b.ink.left && a.ink.top == b.ink.top) return;
  const auto [found, isNew] = overlaps_.try_emplace(std::minmax(a.item, b.item));
  Overlap& overlap = found->second;
  overlap.isBarcode = overlap.isBarcode || a.isBarcode || b.isBarcode;
  if (a.page == 1 || a.band == b.band) overlap.isOfLaterPages = false;
  if (width * height <= overlap.width * overlap.height) return;
  const bool isInOrder = a.item <= b.item;
  overlap.text = isInOrder ? a.text : b.text;
  overlap.other = isInOrder ? b.text : a.text;
  overlap.width = width;
  overlap.height = height;
}

void TextCheck::PageEnds(const PaperExtent& /*page*/) {
  std::ranges::sort(page_, {}, [](const Text& text) { return text.ink.top; });
  for (std::size_t i = 0; i < page_.size(); ++i) {
    for (std::size_t j = i + 1; j < page_.size() && page_[j].ink.top < page_[i].ink.bottom; ++j) {
      Compare(page_[i], page_[j]);
    }
  }
  page_.clear();
}

void TextCheck::Report(FindingList& findings) const {
  if (findings.Has(kItemsMillimetres) || findings.Has(kPaperMillimetres)) return;
  for (const auto& [item, overflow] : tooLong_) {
    findings.AddItem(item, kTextTooLong,
                     {Shortened(overflow.text), MillimetresText(overflow.size),
                      MillimetresText(overflow.box), MillimetresText(overflow.excess)});
  }
  for (const auto& [item, overflow] : tooHigh_) {
    findings.AddItem(item, kTextTooHigh,
                     {Shortened(overflow.text), ToText(overflow.lines),
                      MillimetresText(overflow.size), MillimetresText(overflow.box)});
  }
  const double shift = format_.Bill().Number("FAdjuctHeader").value_or(0);
  for (const auto& [items, overlap] : overlaps_) {
    const bool isShifted = shift != 0 && overlap.isOfLaterPages;
    findings.AddItem(
        items.first, kTextsOverlap,
        {Shortened(overlap.text), Shortened(NameOf(format_.Item(items.second))),
         Shortened(overlap.other), MillimetresText(overlap.width), MillimetresText(overlap.height),
         isShifted ? MillimetresText(shift) : "", !isShifted && overlap.isBarcode ? "barcode" : "",
         !isShifted && !overlap.isBarcode ? "text" : ""});
  }
}

void CheckFonts(const FormatRows& format, FindingList& findings) {
  std::map<std::string, std::int64_t> fonts;
  for (std::size_t i = 0; i < format.ItemCount(); ++i) {
    const StoredRow item = format.Item(i);
    const bool isText = item.Number("FTypeID") == static_cast<double>(ItemKind::kText);
    if (isText && !item.HasNull("FFontName")) ++fonts[item.Text("FFontName")];
  }
  for (const auto& [name, count] : fonts) {
    if (HasFont(name)) continue;
    findings.Add(kFontMissing, {name, StandInFont(name), ToText(count)});
  }
}

}  // namespace td::checker
