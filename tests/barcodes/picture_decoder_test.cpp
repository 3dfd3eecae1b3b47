#include "pictures/picture_decoder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <random>

#include "expect_failure.h"
#include "sample_pictures.h"

namespace td {
namespace {

bool IsRed(QRgb pixel) {
  return qRed(pixel) > 200 && qBlue(pixel) < 60;
}
bool IsBlue(QRgb pixel) {
  return qBlue(pixel) > 200 && qRed(pixel) < 60;
}

TEST(PictureDecoder, EveryFormatIsDecoded) {
  for (const char* format : {"jpeg", "png", "bmp", "tiff"}) {
    const QImage image = DecodePicture(SamplePicture(format, 30, 20)).image;
    EXPECT_EQ(image.size(), QSize(30, 20)) << format;
    EXPECT_TRUE(IsRed(image.pixel(3, 10))) << format;
    EXPECT_TRUE(IsBlue(image.pixel(26, 10))) << format;
  }
  const QImage gif = DecodePicture(SampleGif()).image;
  EXPECT_EQ(gif.size(), QSize(10, 6));
  EXPECT_TRUE(IsRed(gif.pixel(1, 3)));
  EXPECT_TRUE(IsBlue(gif.pixel(8, 3)));
}

TEST(PictureDecoder, APhotographIsTurnedAsItsOrientationAsks) {
  const Bytes jpeg = SamplePicture("jpeg", 48, 16);
  const QImage turned = DecodePicture(WithExif(jpeg, 6, 72, 72)).image;  // a quarter to the right
  EXPECT_EQ(turned.size(), QSize(16, 48));
  EXPECT_TRUE(IsRed(turned.pixel(8, 3)));
  EXPECT_TRUE(IsBlue(turned.pixel(8, 44)));
  const QImage half = DecodePicture(WithExif(jpeg, 3, 72, 72)).image;
  EXPECT_TRUE(IsBlue(half.pixel(3, 8)));
}

TEST(PictureDecoder, OnlyAPictureThatHadToBeTurnedSaysSo) {
  const Bytes jpeg = SamplePicture("jpeg", 48, 16);
  EXPECT_FALSE(DecodePicture(jpeg).turned);
  EXPECT_FALSE(DecodePicture(WithExif(jpeg, 1, 72, 72)).turned);
  EXPECT_TRUE(DecodePicture(WithExif(jpeg, 8, 72, 72)).turned);
}

TEST(PictureDecoder, AnEncodedImageDecodesToItself) {
  const QImage image = DecodePicture(SamplePicture("png", 30, 20)).image;
  EXPECT_EQ(FormatOf(EncodePicture(image, PictureFormat::kTiff)), PictureFormat::kPng);
  EXPECT_EQ(DecodePicture(EncodePicture(image, PictureFormat::kTiff)).image, image);
  EXPECT_EQ(FormatOf(EncodePicture(image, PictureFormat::kJpeg)), PictureFormat::kJpeg);
  ExpectFailure(kInvalidPicture, [] { (void)EncodePicture({}, PictureFormat::kPng); });
}

TEST(PictureDecoder, WhatIsNoPictureIsRefused) {
  ExpectFailure(kInvalidPicture, [] { (void)DecodePicture({}); });
  for (const char* text : {"x", "hello", "<svg xmlns='http://www.w3.org/2000/svg'/>", "%PDF-1.4"}) {
    const std::string description =
        ExpectFailure(kInvalidPicture, [&] { (void)DecodePicture(BytesOf(text)); });
    EXPECT_NE(description.find("JPEG"), std::string::npos) << description;
  }
}

TEST(PictureDecoder, TruncatedPicturesAreRefused) {
  for (const Bytes& file : {SamplePicture("png", 60, 60), SamplePicture("bmp", 60, 60),
                            SamplePicture("tiff", 60, 60), SampleGif()}) {
    for (const std::size_t percent : {1U, 5U, 20U, 50U, 80U}) {
      ExpectFailure(kInvalidPicture,
                    [&] { (void)DecodePicture(Shortened(file, file.size() * percent / 100)); });
    }
  }
}

TEST(PictureDecoder, AJpegFileThatIsCutInItsHeadersIsRefused) {
  for (const Scans scans : {Scans::kOne, Scans::kSeveral}) {
    const Bytes file = DetailedJpeg(scans);
    const auto size = static_cast<std::size_t>(
        std::ranges::search(file, BytesOf("\xFF\xDA")).begin() - file.begin());
    for (const std::size_t part : {10U, 100U, 200U}) {
      ExpectFailure(kInvalidPicture, [&] { (void)DecodePicture(Shortened(file, part)); });
    }
    ExpectFailure(kInvalidPicture, [&] { (void)DecodePicture(Shortened(file, size + 2)); });
  }
}

// Whether the upper part of a picture, in hundredths, is that of another.
bool HasUpperPart(const QImage& image, const QImage& whole, int percent) {
  const QRect part(0, 0, whole.width(), whole.height() * percent / 100);
  return image.size() == whole.size() && image.copy(part) == whole.copy(part);
}

TEST(PictureDecoder, AJpegFileWithoutItsEndMarkerIsDrawnWhole) {
  for (const Scans scans : {Scans::kOne, Scans::kSeveral}) {
    const Bytes file = DetailedJpeg(scans);
    const QImage whole = DecodePicture(file).image;
    EXPECT_FALSE(DecodePicture(file).mended);
    const DecodedPicture picture = DecodePicture(Shortened(file, file.size() - 2));
    EXPECT_EQ(picture.image, whole);
    EXPECT_TRUE(picture.mended);
  }
}

TEST(PictureDecoder, AJpegFileThatEndsEarlyIsDrawnAsFarAsItGoes) {
  const Bytes file = DetailedJpeg(Scans::kOne);
  const QImage whole = DecodePicture(file).image;
  for (const std::size_t percent : {30U, 50U, 90U}) {
    const QImage image = DecodePicture(Shortened(file, file.size() * percent / 100)).image;
    EXPECT_TRUE(HasUpperPart(image, whole, static_cast<int>(percent) - 20)) << percent;
    EXPECT_FALSE(HasUpperPart(image, whole, 100)) << percent;
  }
  const Bytes several = DetailedJpeg(Scans::kSeveral);
  const QImage coarse = DecodePicture(Shortened(several, JpegPartsOf(several).firstScanEnd)).image;
  EXPECT_EQ(coarse.size(), whole.size());
  EXPECT_NEAR(qGreen(coarse.pixel(128, 250)), 250, 40);
}

TEST(PictureDecoder, DamageBehindTheCodedDataOfAJpegFileDoesNotMatter) {
  for (const Scans scans : {Scans::kOne, Scans::kSeveral}) {
    const Bytes file = DetailedJpeg(scans);
    const QImage whole = DecodePicture(file).image;
    for (const char* damage : {"\xFF\x02\x10\x20", "\xFF\xD8\xFF\xE0", "\xFF\xC0\x01", "\xFF"}) {
      Bytes damaged = Shortened(file, file.size() - 2);
      const Bytes behind = BytesOf(damage);
      damaged.insert(damaged.end(), behind.begin(), behind.end());
      EXPECT_EQ(DecodePicture(damaged).image, whole);
      damaged.insert(damaged.end(), {std::byte{0xFF}, std::byte{0xD9}});
      EXPECT_EQ(DecodePicture(damaged).image, whole);
    }
    Bytes followed = file;
    followed.resize(file.size() + 1000, std::byte{0x7F});
    EXPECT_EQ(DecodePicture(followed).image, whole);
  }
}

TEST(PictureDecoder, AMarkerInTheCodedDataEndsTheJpegPictureThere) {
  Bytes file = DetailedJpeg(Scans::kOne);
  const QImage whole = DecodePicture(file).image;
  file.at(file.size() / 2) = std::byte{0xFF};
  file.at(file.size() / 2 + 1) = std::byte{0x02};
  const DecodedPicture picture = DecodePicture(file);
  EXPECT_TRUE(HasUpperPart(picture.image, whole, 30));
  EXPECT_TRUE(picture.mended);
}

TEST(PictureDecoder, ALaterScanThatIsDamagedLeavesTheCoarserPicture) {
  Bytes file = DetailedJpeg(Scans::kSeveral);
  const std::size_t second = JpegPartsOf(file).firstScanEnd;
  for (std::size_t i = second + 4; i < second + 24; ++i) file.at(i) = std::byte{0xEE};
  const DecodedPicture picture = DecodePicture(file);
  EXPECT_EQ(picture.image.size(), QSize(256, 256));
  EXPECT_NEAR(qRed(picture.image.pixel(200, 100)), 200, 60);
}

TEST(PictureDecoder, BombsAreRefusedWithTheirSizeBeforeTheyTakeMemory) {
  for (const Bytes& bomb : {PngBomb(), GifBomb(), BmpBomb(), JpegBomb(), TiffBomb()}) {
    ASSERT_LT(bomb.size(), 5000U);
    const std::string description =
        ExpectFailure(kInvalidPicture, [&] { (void)DecodePicture(bomb); });
    EXPECT_NE(description.find("60000×60000"), std::string::npos) << description;
    EXPECT_NE(description.find("128 MB"), std::string::npos) << description;
  }
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  EXPECT_LT(usage.ru_maxrss, 1 << 20) << "kilobytes";
}

TEST(PictureDecoder, APartThatClaimsToBeHugeTakesNoMemory) {
  Bytes png = SamplePicture("png", 4, 4);
  constexpr std::size_t kFirstPartBehindTheHeader = 33;
  png.at(kFirstPartBehindTheHeader) = std::byte{0x60};  // 1.6 gigabytes
  const std::string description = ExpectFailure(kInvalidPicture, [&] { (void)DecodePicture(png); });
  EXPECT_NE(description.find("不完整"), std::string::npos) << description;
}

TEST(PictureDecoder, TheLargestPictureThatFitsIsDecoded) {
  constexpr int kSide = 5792;  // squared and times four, just below 128 MB
  EXPECT_EQ(DecodePicture(SamplePicture("png", kSide, kSide)).image.width(), kSide);
  ExpectFailure(kInvalidPicture,
                [] { (void)DecodePicture(SamplePicture("png", kSide + 1, kSide + 1)); });
}

TEST(PictureDecoder, DeepPixelsCountWithAllTheirBytes) {
  constexpr int kSide = 5000;  // 100 MB at four bytes to the pixel, 200 MB at eight
  QImage deep(kSide, kSide, QImage::Format_RGBA64);
  deep.fill(Qt::red);
  const Bytes file = EncodePicture(deep, PictureFormat::kPng);
  const std::string description =
      ExpectFailure(kInvalidPicture, [&] { (void)DecodePicture(file); });
  EXPECT_NE(description.find("5000×5000"), std::string::npos) << description;
}

TEST(PictureDecoder, AFileThatIsTooLargeIsRefused) {
  Bytes file = SamplePicture("png", 8, 8);
  file.resize(kLargestFileBytes + 1);
  const std::string description =
      ExpectFailure(kInvalidPicture, [&] { (void)DecodePicture(file); });
  EXPECT_NE(description.find("64 MB"), std::string::npos) << description;
}

TEST(PictureDecoder, DamagedFilesDecodeOrFailButDoNoHarm) {
  std::mt19937 random(20240607);
  for (const Bytes& file :
       {SamplePicture("jpeg", 20, 20), SamplePicture("png", 20, 20), SamplePicture("bmp", 20, 20),
        SamplePicture("tiff", 20, 20), SampleGif()}) {
    for (int round = 0; round < 300; ++round) {
      Bytes damaged = file;
      for (int i = 0; i < 4; ++i) damaged[random() % file.size()] = std::byte(random() % 256);
      try {
        EXPECT_FALSE(DecodePicture(damaged).image.isNull());
      } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), kInvalidPicture);
      }
    }
  }
}

}  // namespace
}  // namespace td
