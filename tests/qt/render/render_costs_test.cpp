// What each text of a long document costs an output: layouts and allocations, counted.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "render/outputs.h"
#include "render/text_layout.h"
#include "sample_page.h"

namespace {

long laidOut = 0;
long allocated = 0;

}  // namespace

void* operator new(std::size_t size) {
  ++allocated;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace td {

// The linker sends the outputs' calls of LayOut here; see CMakeLists.txt.
std::vector<PlacedText> RealLayOut(const BoxText& command) asm(
    "__real__ZN2td6LayOutERKNS_7BoxTextE");
std::vector<PlacedText> CountedLayOut(const BoxText& command) asm(
    "__wrap__ZN2td6LayOutERKNS_7BoxTextE");

std::vector<PlacedText> CountedLayOut(const BoxText& command) {
  ++laidOut;
  return RealLayOut(command);
}

namespace {

constexpr int kTextsOfAPage = 200;

std::vector<Page> Pages(int count) {
  std::vector<Page> pages;
  const FontRef font = Font("宋体", 9);
  for (int number = 0; number < count; ++number) {
    pages.push_back(PageOf(210, 297));
    for (int text = 0; text < kTextsOfAPage; ++text) {
      pages.back().commands.emplace_back(BoxText{"镀锌水管六分 " + std::to_string(text * number),
                                                 500, 50.0 * text, 900, 300, false,
                                                 TextAlignment::kRight, font});
    }
  }
  return pages;
}

struct Costs {
  double layouts = 0;  // of a text
  double allocations = 0;
};

// What a text of ten pages costs beyond those of the first one, which begin fonts and files.
template <typename Stream>
Costs CostsOf(const Stream& stream) {
  const auto pages = Pages(11);
  const std::vector<Page> first(1, pages.front());
  const auto count = [&stream](const std::vector<Page>& some) {
    laidOut = allocated = 0;
    stream(some);
    return Costs{static_cast<double>(laidOut), static_cast<double>(allocated)};
  };
  count(pages);  // finds all glyphs
  const Costs few = count(first);
  const Costs many = count(pages);
  const double texts = 10 * kTextsOfAPage;
  return {(many.layouts - few.layouts) / texts, (many.allocations - few.allocations) / texts};
}

void Ignore(std::string_view) {}

TEST(RenderCosts, APdfLaysEachTextOutOnceAndAllocatesLittle) {
  const Costs costs =
      CostsOf([](const std::vector<Page>& pages) { StreamPdf(RefsTo(pages), "costs", Ignore); });
  EXPECT_EQ(costs.layouts, 1);
  EXPECT_GT(costs.allocations, 0);
  EXPECT_LE(costs.allocations, 6);
}

TEST(RenderCosts, HtmlLaysEachTextOutOnceAndAllocatesLittle) {
  const Costs costs =
      CostsOf([](const std::vector<Page>& pages) { StreamHtml(pages, "costs", Ignore); });
  EXPECT_EQ(costs.layouts, 1);
  EXPECT_GT(costs.allocations, 0);
  EXPECT_LE(costs.allocations, 6);
}

}  // namespace
}  // namespace td
