#include <gtest/gtest.h>

#include <QDir>
#include <cmath>
#include <filesystem>

#include "page_document/pictures.h"
#include "render/outputs.h"
#include "sample_page.h"
#include "test_tools.h"

namespace td {
namespace {

constexpr double kDotsPerInch = 508;  // a pixel is 0.05 millimetres

TEST(ImageOutput, ItemsLieWhereThePdfHasThem) {
  const Folder folder;
  WritePdf({SamplePage()}, folder.Path("sample.pdf"), "");
  const QImage pdf = ImageOf(folder.Path("sample.pdf"), kDotsPerInch);
  const QImage image = RenderPage(SamplePage(), kDotsPerInch);
  EXPECT_NEAR(image.width(), pdf.width(), 1);
  EXPECT_NEAR(image.height(), pdf.height(), 1);
  for (const SampleItem& item : SampleItems()) {
    const QRectF expected = InkIn(pdf, kDotsPerInch, item.region);
    const QRectF actual = InkIn(image, kDotsPerInch, item.region);
    EXPECT_FALSE(expected.isEmpty()) << item.name;
    EXPECT_NEAR(actual.left(), expected.left(), kTolerance) << item.name;
    EXPECT_NEAR(actual.top(), expected.top(), kTolerance) << item.name;
    EXPECT_NEAR(actual.right(), expected.right(), kTolerance) << item.name;
    EXPECT_NEAR(actual.bottom(), expected.bottom(), kTolerance) << item.name;
  }
}

TEST(ImageOutput, LinesAndPicturesLieAtTheirCoordinates) {
  const QImage image = RenderPage(SamplePage(), kDotsPerInch);
  const QRectF line = InkIn(image, kDotsPerInch, QRectF(212, 5, 16, 60));
  EXPECT_NEAR(line.center().x(), 220, kTolerance);
  EXPECT_NEAR(line.width(), 54 / kTwipsPerMillimetre, kTolerance);
  const QRectF picture = InkIn(image, kDotsPerInch, QRectF(55, 71, 30, 30));
  EXPECT_NEAR(picture.left(), 60, kTolerance);
  EXPECT_NEAR(picture.top(), 75, kTolerance);
  EXPECT_NEAR(picture.right(), 80, kTolerance);
  EXPECT_NEAR(picture.bottom(), 90, kTolerance);
}

TEST(ImageOutput, LinesCloseTheCornersOfATable) {
  for (const double penWidth : {14.0, 54.0}) {
    ExpectClosedCorners(RenderPage(TablePage(penWidth), kDotsPerInch), kDotsPerInch, penWidth);
  }
}

TEST(ImageOutput, LaterItemsLieOnTopOfEarlierOnes) {
  const auto white = std::make_shared<VectorPicture>(
      PictureSize{100, 100},
      std::vector<VectorPicture::Rectangle>{{0, 0, 100, 100, {255, 255, 255}}},
      std::vector<VectorPicture::Text>());
  const PlacedPicture cover{white, 0, 0, 6000, 6000};
  const BoxText text = Box("字", 10, 10, 50, 50);
  const auto inked = [](std::vector<DrawingCommand> commands) {
    const QImage image = RenderPage(PageOf(100, 100, std::move(commands)), 100);
    return !InkIn(image, 100, QRectF(0, 0, 100, 100)).isEmpty();
  };
  EXPECT_FALSE(inked({text, cover}));
  EXPECT_TRUE(inked({cover, text}));
}

TEST(ImageOutput, ABoldThatTheFamilyLacksIsDrawnBolder) {
  const auto ink = [](bool bold) {
    const QImage image = RenderPage(
        PageOf(60, 20, {Box("楷体", 5, 5, 50, 10, TextAlignment::kLeft, Font("楷体", 20, bold))}),
        200);
    int dark = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    }
    return dark;
  };
  EXPECT_GT(ink(true), ink(false) * 1.1);
}

TEST(ImageOutput, ALargePhotographIsReducedWithoutLosingItsThinLines) {
  const Page page = PageOf(30, 30, {PlacedPicture{Image(3000, 3000), 300, 300, 600, 600}});
  const QImage image = RenderPage(page, 96);
  const QColor middle = image.pixelColor(40, 40);  // on the white cross, 3 of 75 pixels wide
  const QColor beside = image.pixelColor(30, 30);
  EXPECT_EQ(beside, QColor(Qt::black));
  EXPECT_GT(middle.red(), 3);
}

TEST(ImageOutput, WritesNumberedFilesOfTheRightSizeAndResolution) {
  const Folder folder;
  const auto paths = WritePngPages({PageOf(241, 140), PageOf(148, 210)}, folder.Path("pages"), 150);
  ASSERT_EQ(paths, (std::vector<std::string>{folder.Path("pages/page-001.png"),
                                             folder.Path("pages/page-002.png")}));
  const QImage first(QString::fromStdString(paths[0]));
  EXPECT_EQ(first.size(), QSize(1423, 827));
  EXPECT_NEAR(first.dotsPerMeterX() * 0.0254, 150, 0.1);
  EXPECT_EQ(QImage(QString::fromStdString(paths[1])).size(), QSize(874, 1240));
}

TEST(ImageOutput, LeavesNoPageOfALongerDocumentInTheFolder) {
  const Folder folder;
  const Page page = PageOf(50, 50);
  WritePngPages({page, page, page, page}, folder.Path("pages"), 50);
  WritePngPages({page, page}, folder.Path("pages"), 50);
  EXPECT_EQ(QDir(QString::fromStdString(folder.Path("pages"))).entryList(QDir::Files),
            (QStringList{"page-001.png", "page-002.png"}));
}

TEST(ImageOutput, RemovesNothingThatIsNoPage) {
  const Folder folder;
  const Page page = PageOf(50, 50);
  std::filesystem::create_directory(folder.Path("pages"));
  std::filesystem::create_symlink("elsewhere", folder.Path("pages/page-002.png"));
  WritePngPages({page}, folder.Path("pages"), 50);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("pages/page-002.png")));
}

TEST(ImageOutput, RefusesFoldersAndResolutionsThatDoNotWork) {
  const Folder folder;
  const std::vector<Page> pages = {PageOf(100, 100)};
  EXPECT_EQ(NumberOf([&] { WritePngPages(pages, folder.Path("a/b"), 100); }), kPathNotFound);
  EXPECT_EQ(NumberOf([&] { WritePngPages({}, folder.Path("a"), 100); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { RenderPage(pages[0], 0); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { RenderPage(pages[0], std::nan("")); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { RenderPage(PageOf(5000, 5000), 2400); }), kOutOfMemory);
}

}  // namespace
}  // namespace td
