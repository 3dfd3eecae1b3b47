#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string_view>

#include "files/path_text.h"
#include "platform/failure.h"
#include "windows/pictures/windows_picture_files.h"
#include "windows/render/gdiplus_session.h"
#include "windows/render/picture_pixels.h"

// Behind the system's other headers.
#include <shlwapi.h>

namespace td {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kRed = 0xFFFF0000;

Bytes PngOf(int width, int height) {
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  return ToPng({width, height, std::vector<std::uint32_t>(count, kRed)}, 300);
}

// A JPEG file that says it lies on its side.
Bytes TurnedJpeg(int width, int height) {
  const GdiplusSession session;
  constexpr CLSID kJpegEncoder = {
      0x557cf401, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
  const StreamOwner stream(SHCreateMemStream(nullptr, 0));
  Gdiplus::Bitmap bitmap(width, height, PixelFormat24bppRGB);
  EXPECT_EQ(bitmap.Save(stream.get(), &kJpegEncoder, nullptr), Gdiplus::Ok);
  STATSTG state{};
  stream->Stat(&state, STATFLAG_NONAME);
  Bytes file(static_cast<std::size_t>(state.cbSize.QuadPart));
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  stream->Read(file.data(), static_cast<ULONG>(file.size()), nullptr);
  // A segment with one entry: orientation 6.
  constexpr std::string_view kExif(
      "\xFF\xE1\x00\x22"
      "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x06\0\0\0\0\0\0\0",
      36);
  const auto* exif = reinterpret_cast<const std::byte*>(kExif.data());
  file.insert(file.begin() + 2, exif, exif + kExif.size());
  return file;
}

class PictureFiles : public testing::Test {
 protected:
  PictureFiles() {
    std::random_device random;
    do {
      folder_ = fs::temp_directory_path() / PathOf("图片-" + std::to_string(random()));
    } while (!fs::create_directory(folder_));
  }
  ~PictureFiles() override { fs::remove_all(folder_); }

  [[nodiscard]] std::string Path(const std::string& name) const {
    return TextOf(folder_ / PathOf(name));
  }

  [[nodiscard]] std::string Put(const std::string& name, const Bytes& bytes) const {
    std::ofstream(folder_ / PathOf(name), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return Path(name);
  }

  template <typename Action>
  int NumberOf(const Action& action) {
    try {
      action();
      return 0;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Description().find("锁"), std::string::npos) << failure.Description();
      return failure.Number();
    }
  }

  fs::path folder_;
  WindowsPictureFiles files_;
};

TEST_F(PictureFiles, APictureHasTheSizeAndTheResolutionOfItsFile) {
  const std::string path = Put("货.jpg", PngOf(600, 300));
  const auto picture = std::dynamic_pointer_cast<const ImagePicture>(files_.Load(path));
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->WidthPixels(), 600);
  EXPECT_NEAR(picture->NaturalSize().width, 2 * kTwipsPerInch, 5);
  EXPECT_NEAR(picture->NaturalSize().height, kTwipsPerInch, 5);
  const PixelsRef pixels = PixelsOf(*picture);
  ASSERT_NE(pixels, nullptr);
  EXPECT_EQ(pixels->data.front(), kRed);
}

TEST_F(PictureFiles, APhotographThatLiesOnItsSideIsTurnedUpright) {
  const auto picture = std::dynamic_pointer_cast<const ImagePicture>(
      files_.Load(Put("photo.jpg", TurnedJpeg(40, 20))));
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->WidthPixels(), 20);
  EXPECT_EQ(picture->HeightPixels(), 40);
  EXPECT_EQ(PixelsOf(*picture)->width, 20) << "in the bytes that it keeps, too";
}

TEST_F(PictureFiles, ADamagedPhotographIsDrawnAsFarAsItGoes) {
  Bytes file = TurnedJpeg(400, 200);
  file.resize(file.size() - 40);
  const auto picture =
      std::dynamic_pointer_cast<const ImagePicture>(files_.Load(Put("cut.jpg", file)));
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->HeightPixels(), 400);
}

TEST_F(PictureFiles, FilesOfTheSameBytesAreOnePicture) {
  const PictureRef first = files_.Load(Put("a.png", PngOf(10, 10)));
  EXPECT_EQ(files_.Load(Put("b.png", PngOf(10, 10))), first);
  EXPECT_NE(files_.Load(Put("c.png", PngOf(10, 11))), first);
}

TEST_F(PictureFiles, WhatIsNoWholePictureIsRefused) {
  Bytes cut = PngOf(600, 300);
  cut.resize(cut.size() / 2);
  EXPECT_EQ(NumberOf([&] { files_.Load(Put("锁.png", cut)); }), kInvalidPicture);
  EXPECT_EQ(NumberOf([&] { files_.Load(Put("empty.png", {})); }), kInvalidPicture);
  EXPECT_EQ(NumberOf([&] { files_.Load(Put("text.png", Bytes(100, std::byte{'x'}))); }),
            kInvalidPicture);
  EXPECT_EQ(NumberOf([&] { files_.Load(TextOf(folder_)); }), kInvalidPicture);
}

TEST_F(PictureFiles, WhatIsMissingIsToldApart) {
  EXPECT_EQ(NumberOf([&] { files_.Load(Path("none.png")); }), kFileNotFound);
  EXPECT_EQ(NumberOf([&] { files_.Load(Path("none/none.png")); }), kPathNotFound);
  EXPECT_EQ(NumberOf([&] { files_.Load(""); }), kFileNotFound);
  EXPECT_EQ(NumberOf([&] { files_.DeleteFile(Path("none.png")); }), kFileNotFound);
}

TEST_F(PictureFiles, ANewFileIsWrittenOnceAndDeleted) {
  const std::string path = Path("picture.jpg");
  EXPECT_FALSE(files_.FileExists(path));
  files_.SaveNewFile(path, PngOf(5, 5));
  EXPECT_TRUE(files_.FileExists(path));
  EXPECT_EQ(NumberOf([&] { files_.SaveNewFile(path, PngOf(6, 6)); }),
            WindowsPictureFiles::kFileExists);
  EXPECT_NE(files_.Load(path), nullptr);
  files_.DeleteFile(path);
  EXPECT_FALSE(files_.FileExists(path));
  EXPECT_FALSE(files_.FileExists(TextOf(folder_)));
}

TEST_F(PictureFiles, AValueThatIsNoPictureLeavesNoFile) {
  const std::string path = Path("锁.jpg");
  EXPECT_EQ(NumberOf([&] { files_.SaveNewFile(path, Null{}); }), kInvalidUseOfNull);
  EXPECT_EQ(NumberOf([&] { files_.SaveNewFile(path, std::string("x")); }), kTypeMismatch);
  EXPECT_EQ(NumberOf([&] { files_.SaveNewFile(path, Bytes()); }), kInvalidPicture);
  EXPECT_EQ(NumberOf([&] { files_.SaveNewFile(Path("none/a.jpg"), PngOf(5, 5)); }), kPathNotFound);
  EXPECT_FALSE(files_.FileExists(path));
}

TEST_F(PictureFiles, TheComponentsFolderIsThatOfTheProgramOrTheOneThatIsGiven) {
  EXPECT_TRUE(fs::exists(PathOf(files_.ComponentFolder()) / "windows_pictures_test.exe"));
  EXPECT_EQ(WindowsPictureFiles("C:\\应用\\").ComponentFolder(), "C:\\应用");
}

}  // namespace
}  // namespace td
