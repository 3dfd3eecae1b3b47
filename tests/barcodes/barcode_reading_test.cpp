// What stands on a rendered page is read back by a barcode reader of another maker.
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <string>

#include "barcodes/zint_barcode.h"
#include "page_document/drawing.h"
#include "render/outputs.h"

namespace td {
namespace {

constexpr double kTwipsPerMillimetre = kTwipsPerInch / 25.4;

// A page of 150 by 50 mm with the barcode of `text` in a box that begins at no whole pixel.
Page PageWith(const std::string& text, double widthMm, double heightMm,
              const BarcodeSettings& settings = {}) {
  ZintBarcode barcode(settings);
  barcode.PutData(text);
  Page page{150 * kTwipsPerMillimetre, 50 * kTwipsPerMillimetre, {}};
  page.commands.push_back(PlacedPicture{barcode.GetPicture(), 301.3, 207.7,
                                        widthMm * kTwipsPerMillimetre,
                                        heightMm * kTwipsPerMillimetre});
  return page;
}

class BarcodeReading : public testing::Test {
 protected:
  QString InFolder(const char* name) const { return folder_.filePath(name); }

  static std::string Run(const char* program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program << " is not installed";
    return process.readAllStandardOutput().trimmed().toStdString();
  }

  static std::string ReadImage(const QString& file) {
    return Run("zbarimg", {"--quiet", "--raw", file});
  }

  std::string ReadFromImage(const Page& page, double dotsPerInch) const {
    EXPECT_TRUE(RenderPage(page, dotsPerInch).save(InFolder("page.png")));
    return ReadImage(InFolder("page.png"));
  }

  std::string ReadFromPdf(const Page& page, int dotsPerInch) const {
    WritePdf({page}, InFolder("page.pdf").toStdString(), "");
    Run("pdftoppm", {"-png", "-singlefile", "-r", QString::number(dotsPerInch),
                     InFolder("page.pdf"), InFolder("page")});
    return ReadImage(InFolder("page.png"));
  }

  QTemporaryDir folder_;
};

TEST_F(BarcodeReading, BillNumbersAreReadAtTheStoredExtentAtEveryPrinterResolution) {
  for (const char* text :
       {"110101-234234-1/6", "SO-2024/000123", "1", "12345678901234567890", "A1-b/2"}) {
    for (const int dotsPerInch : {203, 300, 600}) {
      const Page page = PageWith(text, 52.12, 12.96);
      EXPECT_EQ(ReadFromImage(page, dotsPerInch), text) << dotsPerInch << " dpi";
      EXPECT_EQ(ReadFromPdf(page, dotsPerInch), text) << dotsPerInch << " dpi, PDF";
    }
  }
}

TEST_F(BarcodeReading, BoxesOfAnyProportionAreRead) {
  const std::pair<double, double> boxes[] = {{35, 8}, {40, 30}, {70, 5}, {90, 20}, {120, 10}};
  for (const auto& [width, height] : boxes) {
    const Page page = PageWith("110101-234234-1/6", width, height);
    EXPECT_EQ(ReadFromImage(page, 300), "110101-234234-1/6") << width << " by " << height;
    EXPECT_EQ(ReadFromPdf(page, 300), "110101-234234-1/6") << width << " by " << height << ", PDF";
  }
}

TEST_F(BarcodeReading, EveryLengthUpTo40IsRead) {
  const std::string letters = "A1-/b2-/C3-/d4-/E5-/f6-/G7-/h8-/I9-/j0-/";
  for (std::size_t length = 1; length <= letters.size(); ++length) {
    const std::string text = letters.substr(0, length);
    EXPECT_EQ(ReadFromImage(PageWith(text, 120, 20), 300), text);
  }
}

TEST_F(BarcodeReading, FortyCharactersAreReadFromThePdf) {
  for (const char* text :
       {"A1-/b2-/C3-/d4-/E5-/f6-/G7-/h8-/I9-/j0-/", "1234567890123456789012345678901234567890",
        "----------------------------------------", "1/2/3/4/5/6/7/8/9/0/1/2/3/4/5/6/7/8/9/0/"}) {
    EXPECT_EQ(ReadFromPdf(PageWith(text, 120, 20), 203), text);
    EXPECT_EQ(ReadFromPdf(PageWith(text, 52.12, 12.96), 600), text);
  }
}

TEST_F(BarcodeReading, OtherSymbologiesAreRead) {
  EXPECT_EQ(ReadFromImage(PageWith("110101-234", 80, 15, {.symbology = "code39"}), 300),
            "110101-234");
  EXPECT_EQ(ReadFromImage(PageWith("6901234567892", 50, 15, {.symbology = "ean"}), 300),
            "6901234567892");
  EXPECT_EQ(ReadFromImage(PageWith("订单 110101/6", 25, 25, {.symbology = "qrcode"}), 300),
            "订单 110101/6");
}

TEST_F(BarcodeReading, ATextOfChineseCharactersIsReadAsTheBytesOfUtf8) {
  for (const char* text : {"订单", "订单2024-7/1"}) {
    std::string read = text;  // this reader leaves out the bit that makes a byte higher than 127
    for (char& unit : read) unit = static_cast<char>(unit & 0x7F);
    EXPECT_EQ(ReadFromImage(PageWith(text, 120, 20), 300), read);
    EXPECT_EQ(ReadFromPdf(PageWith(text, 120, 20), 300), read);
  }
}

TEST_F(BarcodeReading, ATextThatNoCodeCarriesStandsInLettersOnThePage) {
  const std::string text(70, 'W');
  WritePdf({PageWith(text, 52.12, 12.96)}, InFolder("page.pdf").toStdString(), "");
  QString letters = QString::fromStdString(Run("pdftotext", {InFolder("page.pdf"), "-"}));
  EXPECT_EQ(letters.remove(QChar('\n')).toStdString(), text);
  EXPECT_EQ(ReadFromImage(PageWith(text, 52.12, 12.96), 300), "") << "no bars";
}

TEST_F(BarcodeReading, WithoutBackgroundAndTextTheBarsAreStillRead) {
  const BarcodeSettings settings{.background = std::nullopt, .showText = false};
  EXPECT_EQ(ReadFromImage(PageWith("110101-234234-1/6", 52.12, 12.96, settings), 203),
            "110101-234234-1/6");
}

}  // namespace
}  // namespace td
