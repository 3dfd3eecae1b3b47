// Pages as pictures: what stands on them, and where.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "files/path_text.h"
#include "page_outputs/document_files.h"
#include "platform/failure.h"
#include "sample_page.h"
#include "windows/render/image_output.h"
#include "windows/render/picture_pixels.h"
#include "windows/render/text_layout.h"

namespace td {
namespace {

constexpr double kDotsPerInch = 254;  // ten pixels a millimetre

struct Extent {
  int left = 1'000'000;
  int top = 1'000'000;
  int right = -1;
  int bottom = -1;
};

bool IsDark(std::uint32_t pixel) {
  return (pixel & 0xFFU) < 0x80;
}

// What is dark on a page, in pixels; the last ones included.
Extent InkOf(const Pixels& pixels) {
  Extent ink;
  for (int y = 0; y < pixels.height; ++y) {
    for (int x = 0; x < pixels.width; ++x) {
      if (!IsDark(pixels.data[static_cast<std::size_t>(y * pixels.width + x)])) continue;
      ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x),
             std::max(ink.bottom, y)};
    }
  }
  return ink;
}

Extent InkOf(std::vector<DrawingCommand> commands, double dotsPerInch = kDotsPerInch) {
  return InkOf(RenderPage(PageOf(100, 80, std::move(commands)), dotsPerInch));
}

TEST(PagePicture, HasTheSizeOfThePageAndIsWhite) {
  const Pixels pixels = RenderPage(PageOf(100, 80, {}), kDotsPerInch);
  EXPECT_EQ(pixels.width, 1000);
  EXPECT_EQ(pixels.height, 800);
  EXPECT_EQ(InkOf(pixels).right, -1);
}

TEST(PagePicture, ALineLiesAroundItsPointsWithSquareEnds) {
  const double pen = 10 * kTwipsPerMillimetre / 10;  // one millimetre
  const Extent level = InkOf({LineOf(20, 30, 60, 30, pen)});
  EXPECT_EQ(level.left, 195);
  EXPECT_EQ(level.right, 604);
  EXPECT_EQ(level.top, 295);
  EXPECT_EQ(level.bottom, 304);
  const Extent askew = InkOf({LineOf(20, 30, 60, 60, pen)});
  EXPECT_NEAR(askew.left, 193, 2);
  EXPECT_NEAR(askew.right, 607, 2);
  EXPECT_NEAR(askew.top, 293, 2);
  EXPECT_NEAR(askew.bottom, 607, 2);
}

TEST(PagePicture, LinesOfOnePenAreEquallyThickWhereverTheyLie) {
  for (const double at : {10.0, 10.03, 10.07, 10.13, 10.2}) {
    const Extent level = InkOf({LineOf(20, at, 60, at, 14)}, 180);
    EXPECT_EQ(level.bottom - level.top, 1) << at;
    const Extent upright = InkOf({LineOf(at, 20, at, 60, 14)}, 180);
    EXPECT_EQ(upright.right - upright.left, 1) << at;
  }
}

TEST(PagePicture, ACharacterOfTwoUnitsIsOneLetter) {
  const Extent ink = InkOf({Box("\U00020021", 10, 10, 60, 30, TextAlignment::kLeft,
                                Font("宋体", 72))});  // 25.4 millimetres
  EXPECT_GT(ink.right - ink.left, 150);
  EXPECT_LT(ink.right - ink.left, 260);
}

TEST(PagePicture, TheThinnestLineIsStillThere) {
  EXPECT_EQ(InkOf({LineOf(20, 30, 60, 30, 0)}, 72).top,
            InkOf({LineOf(20, 30, 60, 30, 0)}, 72).bottom);
  EXPECT_GT(InkOf({LineOf(20, 30, 60, 30, 0)}, 72).right, 0);
}

// The letters stand where they were laid out: within a pixel at any resolution, to the line's end.
TEST(PagePicture, LettersStandWhereTheyWereLaidOutAtAnyResolution) {
  const BoxText text = Box("IIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIIII|", 10, 20, 80, 10,
                           TextAlignment::kLeft, Font("Liberation Mono", 9));
  const std::vector<PlacedText> placed = LayOut(text);
  ASSERT_EQ(placed.size(), 1U);
  const double lastLetter = placed[0].x + placed[0].width - placed[0].advances.back() / 2;
  for (const double dotsPerInch : {72.0, 96.0, 120.0, 180.0, 254.0, 600.0}) {
    const Extent ink = InkOf({text}, dotsPerInch);
    const double pixel = kTwipsPerInch / dotsPerInch;
    EXPECT_NEAR(ink.right * pixel, lastLetter, 40 + pixel) << dotsPerInch;
    EXPECT_NEAR(ink.bottom * pixel, placed[0].y, 80 + pixel) << dotsPerInch;
  }
}

TEST(PagePicture, ABoldThatTheFamilyLacksIsStruckTwice) {
  const auto inkOf = [](bool bold) {
    const Pixels pixels = RenderPage(
        PageOf(100, 80,
               {Box("粗", 10, 10, 60, 40, TextAlignment::kLeft, Font("AR PL UMing CN", 60, bold))}),
        kDotsPerInch);
    return std::ranges::count_if(pixels.data, IsDark);
  };
  EXPECT_GT(inkOf(true), inkOf(false) * 105 / 100);
}

TEST(PagePicture, AnItalicThatTheFamilyLacksLeans) {
  const auto inkOf = [](bool italic) {
    return InkOf({Box("I", 10, 10, 60, 40, TextAlignment::kLeft,
                      Font("AR PL UMing CN", 60, false, italic))});
  };
  EXPECT_GT(inkOf(true).right, inkOf(false).right + 20);
}

TEST(PagePicture, APictureFillsItsBoxWhateverItsProportions) {
  const Extent ink = InkOf({Placed(CrossPicture(61, 41), 20, 30, 40, 20)});
  EXPECT_NEAR(ink.left, 200, 1);
  EXPECT_NEAR(ink.right, 599, 1);
  EXPECT_NEAR(ink.top, 300, 1);
  EXPECT_NEAR(ink.bottom, 499, 1);
}

TEST(PagePicture, WhatLiesBelowShowsThroughAPictureThatIsOpenThere) {
  const Pixels pixels = RenderPage(
      PageOf(100, 80,
             {LineOf(0, 40, 100, 40, 200), Placed(CrossPicture(61, 41, true), 20, 30, 40, 20)}),
      kDotsPerInch);
  const auto at = [&pixels](int x, int y) {
    return pixels.data[static_cast<std::size_t>(y * pixels.width + x)] & 0xFFFFFFU;
  };
  EXPECT_EQ(at(550, 400), 0U) << "the line";
  EXPECT_EQ(at(550, 320), 0xFFFFFFU) << "the paper";
  EXPECT_EQ(at(250, 320), 0U) << "the picture";
  EXPECT_GT(at(250, 400) & 0xFFU, 0x40U) << "the picture's cross on the line";
}

// Such a picture has as many separate parts as pixels.
TEST(PagePicture, APictureIsOpenInEachPlaceWhereItIs) {
  constexpr int kSide = 320;
  Pixels chequered{kSide, kSide, {}};
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) chequered.data.push_back((x + y) % 2 == 0 ? 0xFF000000 : 0);
  }
  const Pixels page =
      RenderPage(PageOf(100, 80,
                        {Placed(std::make_shared<ImagePicture>(ToPng(chequered, 96), kSide, kSide),
                                20, 30, kSide / 10.0, kSide / 10.0)}),
                 kDotsPerInch);
  int wrong = 0;
  for (int y = 0; y < page.height; ++y) {
    for (int x = 0; x < page.width; ++x) {
      const bool isInside = x >= 200 && x < 200 + kSide && y >= 300 && y < 300 + kSide;
      const bool isDark = IsDark(page.data[static_cast<std::size_t>(y * page.width + x)]);
      if (isDark != (isInside && (x + y) % 2 == 0)) ++wrong;
    }
  }
  EXPECT_EQ(wrong, 0);
}

TEST(PagePicture, BarsAreExactAndTheirLineStretchesWithThem) {
  const Extent ink = InkOf({Placed(Bars(), 10, 10, 80, 20)});
  EXPECT_NEAR(ink.left, 100 + 100.0 / 2955 * 800, 1);
  EXPECT_EQ(ink.top, 100);
  const double textBottom = 100 + 735.0 / 735 * 200;
  EXPECT_LT(ink.bottom, textBottom);
  EXPECT_GT(ink.bottom, 100 + 480.0 / 735 * 200 + 10) << "the letters below";
}

TEST(PagePicture, OfAWrongResolutionOrSizeIsRefused) {
  const Page page = PageOf(100, 80, {});
  for (const double wrong : {0.0, -5.0, 2401.0, std::nan("")}) {
    EXPECT_THROW((void)RenderPage(page, wrong), Failure) << wrong;
  }
  EXPECT_THROW((void)RenderPage(PageOf(3000, 3000, {}), 2400), Failure);
}

TEST(PagePicture, FilesAreNumberedAndThoseOfALongerDocumentGo) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                       PathOf("页面-" + std::to_string(GetCurrentProcessId()));
  const std::vector<Page> three = {SamplePage(), PageOf(50, 50, {}), PageOf(50, 50, {})};
  EXPECT_EQ(WritePngPages(three, TextOf(folder), 96).size(), 3U);
  EXPECT_TRUE(std::filesystem::exists(folder / "page-003.png"));
  const auto paths = WritePngPages({three.front()}, TextOf(folder), 96);
  EXPECT_EQ(paths, std::vector<std::string>{TextOf(folder / "page-001.png")});
  EXPECT_FALSE(std::filesystem::exists(folder / "page-002.png"));
  // For a look at it.
  if (const wchar_t* shown = _wgetenv(L"QBTD_SAMPLE_PICTURES")) {
    WritePngPages({SamplePage()}, TextOf(shown), 150);
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace td
