// What stands inside a PDF file: objects, fonts, characters and pictures.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QFontDatabase>
#include <QRawFont>
#include <QRegularExpression>
#include <cstring>

#include "page_document/pictures.h"
#include "render/outputs.h"
#include "sample_page.h"
#include "test_tools.h"

namespace td {
namespace {

class PdfContents : public testing::Test {
 protected:
  std::string Write(const std::vector<Page>& pages, const std::string& title = "销售订单") {
    WritePdf(pages, Path(), title);
    return ReadFile(Path());
  }
  [[nodiscard]] std::string Path() const { return folder_.Path("out.pdf"); }
  [[nodiscard]] std::string Text() const {
    std::string text = OutputOf("pdftotext", {Path(), "-"});
    return text.substr(0, text.find('\n'));
  }

 private:
  Folder folder_;
};

BoxText Sample(const std::string& text, const std::string& font, bool bold = false,
               bool italic = false) {
  return Box(text, 10, 10, 80, 10, TextAlignment::kLeft, Font(font, 12, bold, italic));
}

PictureRef PictureOf(const QImage& image, const char* format) {
  QByteArray file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&buffer, format));
  Bytes bytes(static_cast<std::size_t>(file.size()));
  std::memcpy(bytes.data(), file.data(), bytes.size());
  return std::make_shared<ImagePicture>(std::move(bytes), image.width(), image.height());
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST_F(PdfContents, EachObjectBeginsWhereTheTableSays) {
  const std::string pdf = Write({SamplePage(), TablePage(14)});
  const std::size_t table = std::stoul(pdf.substr(pdf.rfind("startxref\n") + 10));
  ASSERT_EQ(pdf.substr(table, 7), "xref\n0 ");
  const std::size_t count = std::stoul(pdf.substr(table + 7));
  const std::size_t entries = pdf.find('\n', table + 7) + 1;
  ASSERT_GT(count, 10U);
  for (std::size_t number = 1; number < count; ++number) {
    const std::size_t offset = std::stoul(pdf.substr(entries + 20 * number, 10));
    const std::string begin = std::to_string(number) + " 0 obj\n";
    EXPECT_EQ(pdf.substr(offset, begin.size()), begin);
  }
  EXPECT_EQ(pdf.substr(entries + 20 * count, 7), "trailer");
}

TEST_F(PdfContents, TheTitleIsAProperty) {
  Write({PageOf(100, 100)}, "单据 (1) 𠀀\\");
  EXPECT_NE(OutputOf("pdfinfo", {Path()}).find("单据 (1) 𠀀\\\n"), std::string::npos);
}

TEST_F(PdfContents, CharactersThatShareAGlyphAreReadAsTheyWereWritten) {
  const std::string both = "\u2FA6\u91D1";  // the sign as a radical, and as a word
  const auto glyphs = QRawFont::fromFont(QFont("Noto Serif CJK SC"))
                          .glyphIndexesForString(QString::fromStdString(both));
  ASSERT_EQ(glyphs[0], glyphs[1]);
  Write({PageOf(100, 50, {Sample(both + "a" + both, "宋体")})});
  EXPECT_EQ(Text(), both + "a" + both);
}

TEST_F(PdfContents, BytesThatDelimitStringsAreGlyphsLikeAnyOther) {
  std::string text;  // more different characters than a byte has values
  for (char32_t character = 0x4E00; character < 0x4F20; ++character) {
    text += QString::fromUcs4(&character, 1).toStdString();
  }
  Write({PageOf(5000, 50, {Sample(text, "宋体")})});
  EXPECT_EQ(Text(), text);
}

TEST_F(PdfContents, ABoldThatTheFamilyLacksIsStruckTwiceAndReadOnce) {
  constexpr double kDotsPerInch = 600;
  const auto ink = [this](bool bold) {
    Write({PageOf(100, 50, {Sample("量", "楷体", bold)})});
    EXPECT_EQ(Text(), "量");
    const QImage image = ImageOf(Path(), kDotsPerInch).convertToFormat(QImage::Format_Grayscale8);
    int dark = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    }
    return dark;
  };
  EXPECT_GT(ink(true), ink(false) * 11 / 10);
}

TEST_F(PdfContents, ASlantThatTheFamilyLacksIsMade) {
  constexpr double kDotsPerInch = 600;
  const QRectF region(5, 5, 90, 20);
  const auto width = [&](bool italic) {
    Write({PageOf(100, 50, {Sample("丨", "黑体", false, italic)})});
    EXPECT_EQ(Text(), "丨");
    return InkIn(ImageOf(Path(), kDotsPerInch), kDotsPerInch, region).width();
  };
  EXPECT_GT(width(true), width(false) + 0.5);
}

TEST_F(PdfContents, AFaceOfTheFamilyIsTakenAsItIs) {
  constexpr double kDotsPerInch = 600;
  const QRectF region(5, 5, 90, 20);
  for (const bool bold : {false, true}) {
    for (const bool italic : {false, true}) {
      const Page page = PageOf(100, 50, {Sample("Hill|", "DejaVu Sans", bold, italic)});
      Write({page});
      const QRectF shown = InkIn(ImageOf(Path(), kDotsPerInch), kDotsPerInch, region);
      const QRectF painted = InkIn(RenderPage(page, kDotsPerInch), kDotsPerInch, region);
      EXPECT_NEAR(shown.left(), painted.left(), kTolerance) << bold << italic;
      EXPECT_NEAR(shown.right(), painted.right(), kTolerance) << bold << italic;
    }
  }
}

// Installs Forbidding Mono, a font whose maker does not let it be put into documents. Before any
// test: families are listed once.
class ForbiddingFont : public testing::Environment {
 public:
  void SetUp() override {
    QFile installed("/usr/share/fonts/truetype/liberation/LiberationMono-Regular.ttf");
    ASSERT_TRUE(installed.open(QIODevice::ReadOnly));
    QByteArray font = installed.readAll();
    const auto rename = [&font](auto encoded) {
      font.replace(encoded("Liberation"), encoded("Forbidding"));
    };
    rename([](const char* name) { return QByteArray(name); });
    rename([](const char* name) {
      QByteArray units;
      for (; *name != 0; ++name) units.append('\0').append(*name);
      return units;
    });
    const QRawFont raw(font, 12);
    const qsizetype rights = font.indexOf(raw.fontTable("OS/2")) + 8;
    font[rights] = 0;
    font[rights + 1] = 2;
    ASSERT_GE(QFontDatabase::addApplicationFontFromData(font), 0);
  }
};
[[maybe_unused]] const auto* const kForbiddingFont =
    testing::AddGlobalTestEnvironment(new ForbiddingFont);

TEST_F(PdfContents, AFontThatMustNotBeEmbeddedIsDrawnAsShapes) {
  constexpr double kDotsPerInch = 300;
  const auto inkOf = [&](const std::string& family) {
    Write({PageOf(100, 50, {Sample("Mj85%", family)})});
    return InkIn(ImageOf(Path(), kDotsPerInch), kDotsPerInch, QRectF(0, 0, 100, 50));
  };
  const QRectF shapes = inkOf("Forbidding Mono");
  EXPECT_EQ(CountOf(OutputOf("pdffonts", {Path()}), "+"), 0U);
  const QRectF letters = inkOf("Liberation Mono");
  EXPECT_EQ(CountOf(OutputOf("pdffonts", {Path()}), "+LiberationMono"), 1U);
  EXPECT_NEAR(shapes.left(), letters.left(), kTolerance);
  EXPECT_NEAR(shapes.top(), letters.top(), kTolerance);
  EXPECT_NEAR(shapes.right(), letters.right(), kTolerance);
  EXPECT_NEAR(shapes.bottom(), letters.bottom(), kTolerance);
}

TEST_F(PdfContents, AJpegFileStandsInThePdfAsItIs) {
  for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_Grayscale8}) {
    QImage image(60, 40, QImage::Format_RGB32);
    image.fill(QColor(200, 30, 60));
    image = image.convertToFormat(format);
    const int grey = qGray(image.pixel(20, 20));
    const PictureRef picture = PictureOf(image, "JPEG");
    const Bytes& encoded = dynamic_cast<const ImagePicture&>(*picture).Encoded();
    const std::string bytes(reinterpret_cast<const char*>(encoded.data()), encoded.size());
    const std::string pdf =
        Write({PageOf(100, 50, {PlacedPicture{picture, 100, 100, 2000, 2000}})});
    EXPECT_EQ(CountOf(pdf, bytes), 1U);
    const QImage shown = ImageOf(Path(), 72);
    EXPECT_NEAR(qGray(shown.pixel(50, 50)), grey, 3);
  }
}

TEST_F(PdfContents, WhatIsTransparentShowsWhatLiesBelow) {
  QImage image(20, 20, QImage::Format_ARGB32);
  image.fill(Qt::white);
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 10; ++x) image.setPixelColor(x, y, Qt::transparent);
  }
  const Line below{0, 1100, 4000, 1100, 1000};
  Write({PageOf(100, 50, {below, PlacedPicture{PictureOf(image, "PNG"), 100, 100, 2000, 2000}})});
  const QImage shown = ImageOf(Path(), 72);
  EXPECT_EQ(qGray(shown.pixel(30, 55)), 0);
  EXPECT_EQ(qGray(shown.pixel(80, 55)), 255);
}

TEST_F(PdfContents, APictureWithoutATransparentPixelHasNoOpacity) {
  QImage image(20, 20, QImage::Format_ARGB32);
  image.fill(QColor(10, 200, 30));
  EXPECT_EQ(
      CountOf(Write({PageOf(100, 50, {PlacedPicture{PictureOf(image, "PNG"), 0, 0, 20, 20}})}),
              "/SMask"),
      0U);
}

TEST_F(PdfContents, ABlackAndWhitePictureHasOneBitAPixel) {
  for (const bool isInverted : {false, true}) {
    QImage image(40, 40, QImage::Format_Mono);
    image.setColorTable(
        {isInverted ? 0xFFFFFFFF : 0xFF000000, isInverted ? 0xFF000000 : 0xFFFFFFFF});
    image.fill(0);
    for (int y = 0; y < 40; ++y) {
      for (int x = 20; x < 40; ++x) image.setPixel(x, y, 1);
    }
    const std::string pdf =
        Write({PageOf(100, 50, {PlacedPicture{PictureOf(image, "PNG"), 100, 100, 2000, 2000}})});
    EXPECT_EQ(CountOf(pdf, "/BitsPerComponent 1/"), 1U);
    const QImage shown = ImageOf(Path(), 72);
    EXPECT_EQ(qGray(shown.pixel(30, 55)), isInverted ? 255 : 0);
    EXPECT_EQ(qGray(shown.pixel(80, 55)), isInverted ? 0 : 255);
  }
}

// Squares of a code that touch are one shape: no reader shows a seam between them.
TEST_F(PdfContents, RectanglesThatTouchShowNoSeam) {
  std::vector<VectorPicture::Rectangle> squares;
  for (int i = 0; i < 33; ++i) {
    for (int j = 0; j < 33; ++j) squares.push_back({i * 10.0, j * 10.0, 10, 10, {}});
  }
  const auto picture = std::make_shared<VectorPicture>(PictureSize{330, 330}, std::move(squares),
                                                       std::vector<VectorPicture::Text>{});
  Write({PageOf(100, 50, {PlacedPicture{picture, 103, 107, 1777, 1777}})});
  const QImage shown = ImageOf(Path(), 150);
  for (int y = 15; y < 190; ++y) {
    for (int x = 15; x < 190; ++x) ASSERT_EQ(qGray(shown.pixel(x, y)), 0) << x << ' ' << y;
  }
}

}  // namespace
}  // namespace td
