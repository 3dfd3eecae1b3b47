// Outputs hand a long document over page by page and hold no copy of it.
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "render/outputs.h"
#include "sample_page.h"

namespace td {
namespace {

constexpr std::size_t kMegabyte = 1024 * 1024;

// Pages with the texts and lines of 25 rows.
std::vector<Page> LongDocument(int count) {
  std::vector<Page> pages;
  const FontRef font = Font("宋体", 9);
  for (int number = 0; number < count; ++number) {
    Page page = PageOf(210, 297);
    for (int row = 0; row < 25; ++row) {
      const double top = 1000.0 + 480 * row;
      for (int column = 0; column < 10; ++column) {
        page.commands.emplace_back(BoxText{"镀锌水管" + std::to_string(number * row + column),
                                           500.0 + 1000 * column, top, 900, 300, false,
                                           TextAlignment::kRight, font});
      }
      page.commands.emplace_back(Line{500, top, 10000, top, 14});
    }
    page.commands.ShrinkToFit();
    pages.push_back(std::move(page));
  }
  return pages;
}

std::size_t UsedMemory() {
  const struct mallinfo2 memory = mallinfo2();
  return memory.uordblks + memory.hblkhd;
}

// What a sink has seen of a document.
struct Handed {
  std::size_t bytes = 0;
  std::size_t longestPart = 0;
  std::size_t mostMemory = 0;  // above what was used before
};

template <typename Stream>
Handed HandOver(const Stream& stream) {
  Handed handed;
  const std::size_t before = UsedMemory();
  stream([&](std::string_view part) {
    handed.bytes += part.size();
    handed.longestPart = std::max(handed.longestPart, part.size());
    handed.mostMemory = std::max(handed.mostMemory, UsedMemory() - std::min(before, UsedMemory()));
  });
  return handed;
}

TEST(Streaming, HtmlNeedsNoMoreMemoryForMorePages) {
  const auto pages = LongDocument(1200);
  (void)ToHtml({pages.front()}, "fonts and glyphs that are kept");
  const Handed handed = HandOver([&](const ByteSink& sink) { StreamHtml(pages, "long", sink); });
  EXPECT_GT(handed.bytes, 20 * kMegabyte);
  EXPECT_LT(handed.longestPart, kMegabyte / 4);
  EXPECT_LT(handed.mostMemory, kMegabyte);
}

// As many pages as 30,000 rows have.
TEST(Streaming, PdfNeedsNoMoreMemoryForMorePages) {
  const auto pages = LongDocument(1200);
  const auto stream = [](const PageRefs& refs) {
    return HandOver([&](const ByteSink& sink) { StreamPdf(refs, "long", sink); });
  };
  const Handed few = stream(PageRefs(10, &pages.front()));
  const Handed many = stream(RefsTo(pages));
  EXPECT_GT(many.bytes, few.bytes + kMegabyte);
  EXPECT_LT(many.longestPart, kMegabyte / 2);
  EXPECT_LT(many.mostMemory, few.mostMemory + kMegabyte);
}

TEST(Streaming, WhatASinkThrowsEndsTheDocumentAndGoesThrough) {
  const auto pages = LongDocument(3);
  const auto refuse = [](std::string_view) { throw std::runtime_error("full"); };
  EXPECT_THROW(StreamPdf(RefsTo(pages), "title", refuse), std::runtime_error);
  EXPECT_THROW(StreamHtml(pages, "title", refuse), std::runtime_error);
}

TEST(Streaming, SomePagesOfADocumentAreWrittenWhereTheyLie) {
  const auto pages = LongDocument(3);
  std::string pdf;
  StreamPdf({&pages[2], &pages[0]}, "title", [&pdf](std::string_view part) { pdf += part; });
  std::size_t count = 0;
  for (auto at = pdf.find("/MediaBox"); at != std::string::npos;
       at = pdf.find("/MediaBox", at + 1)) {
    ++count;
  }
  EXPECT_EQ(count, 2U);
}

}  // namespace
}  // namespace td
