#include "picture_headers/picture_headers.h"

#include <gtest/gtest.h>

#include "sample_pictures.h"

namespace td {
namespace {

TEST(PictureHeaders, FormatsAreKnownByTheirFirstBytes) {
  EXPECT_EQ(FormatOf(SamplePicture("jpeg", 8, 8)), PictureFormat::kJpeg);
  EXPECT_EQ(FormatOf(SamplePicture("png", 8, 8)), PictureFormat::kPng);
  EXPECT_EQ(FormatOf(SamplePicture("bmp", 8, 8)), PictureFormat::kBmp);
  EXPECT_EQ(FormatOf(SamplePicture("tiff", 8, 8)), PictureFormat::kTiff);
  EXPECT_EQ(FormatOf(SampleGif()), PictureFormat::kGif);
  EXPECT_EQ(FormatOf(BytesOf("<svg/>")), PictureFormat::kUnknown);
  EXPECT_EQ(FormatOf(BytesOf("B")), PictureFormat::kUnknown);
  EXPECT_EQ(FormatOf({}), PictureFormat::kUnknown);
}

TEST(PictureHeaders, TheSizeIsReadFromEveryFormat) {
  for (const char* format : {"jpeg", "png", "bmp", "tiff"}) {
    const PixelSize size = SizeOf(SamplePicture(format, 31, 17));
    EXPECT_EQ(size.width, 31) << format;
    EXPECT_EQ(size.height, 17) << format;
  }
  EXPECT_EQ(SizeOf(SampleGif()).width, 10);
  EXPECT_EQ(SizeOf(SampleGif()).height, 6);
  EXPECT_EQ(SizeOf(BytesOf("nothing")).width, 0);
}

TEST(PictureHeaders, ABitmapFromTheTopDownHasAPositiveHeight) {
  Bytes bmp = SamplePicture("bmp", 8, 6);
  for (std::size_t i = 22; i < 26; ++i) bmp.at(i) = std::byte{0xFF};
  bmp.at(22) = std::byte{0xFA};  // -6
  EXPECT_EQ(SizeOf(bmp).height, 6);
  EXPECT_TRUE(IsComplete(bmp));
}

TEST(PictureHeaders, TheResolutionIsTheFilesOwn) {
  for (const char* format : {"jpeg", "png", "bmp", "tiff"}) {
    const PictureResolution resolution = ResolutionOf(SamplePicture(format, 8, 8, 200));
    EXPECT_NEAR(resolution.x, 200, 0.5) << format;
    EXPECT_NEAR(resolution.y, 200, 0.5) << format;
  }
}

TEST(PictureHeaders, AGifStatesNoResolution) {
  EXPECT_EQ(ResolutionOf(SampleGif()).x, 0);
  EXPECT_EQ(ResolutionOf(SampleGif()).y, 0);
}

TEST(PictureHeaders, AnAspectRatioIsNoResolution) {
  Bytes jpeg = SamplePicture("jpeg", 8, 8, 200);
  jpeg.at(13) = std::byte{0};  // the unit of the density: none
  EXPECT_EQ(ResolutionOf(jpeg).x, 0);
}

TEST(PictureHeaders, DotsPerCentimetreAreConverted) {
  Bytes jpeg = SamplePicture("jpeg", 8, 8, 100);
  jpeg.at(13) = std::byte{2};
  EXPECT_NEAR(ResolutionOf(jpeg).x, 254, 0.01);
}

TEST(PictureHeaders, APhotographsResolutionFollowsItsTurn) {
  const Bytes jpeg = SamplePicture("jpeg", 8, 8);
  EXPECT_EQ(OrientationOf(jpeg), 1);
  EXPECT_EQ(OrientationOf(WithExif(jpeg, 6, 72, 144)), 6);
  EXPECT_EQ(OrientationOf(WithExif(jpeg, 9, 72, 144)), 1);
  const PictureResolution upright = ResolutionOf(WithExif(jpeg, 1, 72, 144));
  EXPECT_EQ(upright.x, 72);
  EXPECT_EQ(upright.y, 144);
  const PictureResolution turned = ResolutionOf(WithExif(jpeg, 6, 72, 144));
  EXPECT_EQ(turned.x, 144);
  EXPECT_EQ(turned.y, 72);
}

TEST(PictureHeaders, AFileThatEndsEarlyIsIncomplete) {
  for (const Bytes& file :
       {SamplePicture("bmp", 40, 40), SamplePicture("png", 40, 40), SampleGif()}) {
    EXPECT_TRUE(IsComplete(file));
    EXPECT_FALSE(IsComplete(Shortened(file, file.size() / 2)));
    EXPECT_FALSE(IsComplete(Shortened(file, file.size() - 3)));
  }
}

TEST(PictureHeaders, AJpegFileIsIncompleteUntilItsCodedDataBegin) {
  const Bytes file = SamplePicture("jpeg", 40, 40);
  EXPECT_TRUE(IsComplete(file));
  EXPECT_TRUE(IsComplete(Shortened(file, file.size() - 3)));
  EXPECT_FALSE(IsComplete(Shortened(file, file.size() / 2))) << "in its headers";
  const JpegParts parts = JpegPartsOf(file);
  EXPECT_TRUE(parts.isClosed);
  EXPECT_EQ(parts.end, file.size() - 2);
  EXPECT_EQ(parts.firstScanEnd, parts.end);
}

TEST(PictureHeaders, TheScansOfAJpegFileAreToldApart) {
  const Bytes file = DetailedJpeg(Scans::kSeveral);
  const JpegParts parts = JpegPartsOf(file);
  EXPECT_TRUE(parts.isClosed);
  EXPECT_EQ(parts.end, file.size() - 2);
  EXPECT_LT(parts.firstScanEnd, file.size() / 2);
  const JpegParts cut = JpegPartsOf(Shortened(file, parts.firstScanEnd + 10));
  EXPECT_FALSE(cut.isClosed);
  EXPECT_EQ(cut.end, parts.firstScanEnd) << "a header that is cut off belongs to nothing";
}

TEST(PictureHeaders, BytesBehindThePictureDoNoHarm) {
  for (Bytes file : {SamplePicture("jpeg", 40, 40), SamplePicture("bmp", 40, 40),
                     SamplePicture("png", 40, 40), SampleGif()}) {
    file.resize(file.size() + 100);
    EXPECT_TRUE(IsComplete(file));
  }
}

TEST(PictureHeaders, NoCutOfAFileIsReadBeyondItsEnd) {
  const Bytes jpeg = SamplePicture("jpeg", 8, 8);
  for (const Bytes& file : {WithExif(jpeg, 6, 72, 72), SamplePicture("png", 8, 8),
                            SamplePicture("bmp", 8, 8), SamplePicture("tiff", 8, 8), SampleGif()}) {
    for (std::size_t size = 0; size < file.size(); ++size) {
      const Bytes cut = Shortened(file, size);
      const PictureResolution resolution = ResolutionOf(cut);
      EXPECT_GE(resolution.x, 0);
      EXPECT_GE(resolution.y, 0);
      (void)IsComplete(cut);
    }
  }
}

}  // namespace
}  // namespace td
