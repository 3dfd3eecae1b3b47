#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QImage>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "expect_failure.h"
#include "page_document/pictures.h"
#include "picture_headers/picture_headers.h"
#include "pictures/component_folder.h"
#include "pictures/qt_picture_files.h"
#include "sample_pictures.h"

namespace td {
namespace {

class PictureFiles : public testing::Test {
 protected:
  PictureFiles() {
    std::string name = testing::TempDir() + "picture_files_XXXXXX";
    folder_ = mkdtemp(name.data());
  }
  ~PictureFiles() override { std::filesystem::remove_all(folder_); }

  std::string In(const std::string& name) const { return folder_ + "/" + name; }

  void Write(const std::string& name, const Bytes& bytes) const {
    std::ofstream(In(name), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
  }
  Bytes ReadBack(const std::string& name) const {
    std::ifstream stream(In(name), std::ios::binary);
    return BytesOf(std::string(std::istreambuf_iterator<char>(stream), {}));
  }
  std::shared_ptr<const ImagePicture> Loaded(const std::string& name) {
    return std::dynamic_pointer_cast<const ImagePicture>(files_.Load(In(name)));
  }

  std::string folder_;
  QtPictureFiles files_{"/opt/component"};
};

TEST_F(PictureFiles, TheComponentFolderIsTheOneThatWasSet) {
  EXPECT_EQ(files_.ComponentFolder(), "/opt/component");
  EXPECT_EQ(QtPictureFiles("/opt/component///").ComponentFolder(), "/opt/component");
  EXPECT_EQ(QtPictureFiles("/").ComponentFolder(), "/");
  EXPECT_EQ(QtPictureFiles().ComponentFolder(), FolderOfLoadedComponent());
}

TEST_F(PictureFiles, ASavedBlobIsFoundLoadedAndDeletedAgain) {
  const Bytes jpeg = SamplePicture("jpeg", 48, 32);
  EXPECT_FALSE(files_.FileExists(In("7.jpg")));
  files_.SaveNewFile(In("7.jpg"), jpeg);
  EXPECT_TRUE(files_.FileExists(In("7.jpg")));
  EXPECT_EQ(ReadBack("7.jpg"), jpeg);
  EXPECT_EQ(Loaded("7.jpg")->Encoded(), jpeg);
  files_.DeleteFile(In("7.jpg"));
  EXPECT_FALSE(files_.FileExists(In("7.jpg")));
}

TEST_F(PictureFiles, BackslashesSeparateFoldersToo) {
  std::filesystem::create_directory(In("picture"));
  files_.SaveNewFile(folder_ + "\\picture\\7.jpg", SampleGif());
  EXPECT_TRUE(files_.FileExists(folder_ + "\\picture\\7.jpg"));
  EXPECT_EQ(ReadBack("picture/7.jpg"), SampleGif());
  EXPECT_NE(files_.Load(folder_ + "\\picture\\7.jpg"), nullptr);
  files_.DeleteFile(folder_ + "\\picture\\7.jpg");
  EXPECT_FALSE(std::filesystem::exists(In("picture/7.jpg")));
}

TEST_F(PictureFiles, TheContentCountsAndNotTheName) {
  Write("png.jpg", SamplePicture("png", 12, 8));
  Write("图片.jpg", SampleGif());
  Write("no ending", SamplePicture("tiff", 5, 4));
  EXPECT_EQ(Loaded("png.jpg")->WidthPixels(), 12);
  EXPECT_EQ(Loaded("图片.jpg")->HeightPixels(), 6);
  EXPECT_EQ(Loaded("no ending")->WidthPixels(), 5);
}

TEST_F(PictureFiles, FilesOfTheSameBytesGiveOnePictureAsLongAsItIsHeld) {
  Write("a.jpg", SamplePicture("jpeg", 48, 32));
  Write("b.jpg", SamplePicture("jpeg", 48, 32));
  Write("c.jpg", SamplePicture("jpeg", 48, 31));
  auto first = Loaded("a.jpg");
  EXPECT_EQ(Loaded("b.jpg"), first);
  EXPECT_NE(Loaded("c.jpg"), first);
  Write("a.jpg", SamplePicture("jpeg", 20, 10));
  EXPECT_EQ(Loaded("a.jpg")->WidthPixels(), 20);  // the name doesn't count

  const std::weak_ptr<const ImagePicture> released = first;
  first.reset();
  EXPECT_TRUE(released.expired());
  EXPECT_EQ(Loaded("b.jpg")->HeightPixels(), 32);
}

TEST_F(PictureFiles, TheNaturalSizeFollowsTheFilesResolution) {
  for (const char* format : {"jpeg", "png", "bmp", "tiff"}) {
    Write("picture", SamplePicture(format, 300, 150, 300));
    const PictureSize size = Loaded("picture")->NaturalSize();
    EXPECT_NEAR(size.width, 1440, 1) << format;
    EXPECT_NEAR(size.height, 720, 1) << format;
  }
}

TEST_F(PictureFiles, WithoutAResolutionThereAre96PixelsToTheInch) {
  Write("picture.gif", SampleGif());
  const PictureSize size = Loaded("picture.gif")->NaturalSize();
  EXPECT_DOUBLE_EQ(size.width, 150);
  EXPECT_DOUBLE_EQ(size.height, 90);
}

TEST_F(PictureFiles, ATurnedPhotographHasItsSizeAsShown) {
  Write("photo.jpg", WithExif(SamplePicture("jpeg", 48, 16), 6, 72, 144));
  EXPECT_EQ(Loaded("photo.jpg")->WidthPixels(), 16);
  EXPECT_EQ(Loaded("photo.jpg")->HeightPixels(), 48);
  const PictureSize size = Loaded("photo.jpg")->NaturalSize();
  EXPECT_DOUBLE_EQ(size.width, 16 / 144.0 * 1440);
  EXPECT_DOUBLE_EQ(size.height, 48 / 72.0 * 1440);
}

TEST_F(PictureFiles, ATurnedPhotographDecodesUprightForReadersThatKnowNoOrientation) {
  Write("photo.jpg", WithExif(SamplePicture("jpeg", 48, 16), 6, 72, 72));
  const auto picture = Loaded("photo.jpg");
  const Bytes& encoded = picture->Encoded();
  const QImage image = QImage::fromData(reinterpret_cast<const uchar*>(encoded.data()),
                                        static_cast<int>(encoded.size()));
  EXPECT_EQ(image.size(), QSize(16, 48));
  EXPECT_GT(qRed(image.pixel(8, 3)), 200);
  EXPECT_GT(qBlue(image.pixel(8, 44)), 200);
}

TEST_F(PictureFiles, ADamagedPhotographIsKeptAsEveryReaderDecodesIt) {
  const Bytes file = DetailedJpeg(Scans::kOne);
  Write("photo.jpg", Shortened(file, file.size() / 2));
  const auto picture = Loaded("photo.jpg");
  EXPECT_EQ(picture->WidthPixels(), 256);
  const JpegParts parts = JpegPartsOf(picture->Encoded());
  EXPECT_TRUE(parts.isClosed);
  EXPECT_EQ(parts.end, picture->Encoded().size() - 2);
}

TEST_F(PictureFiles, LoadingWhatIsMissingSaysWhatIsMissing) {
  ExpectFailure(kFileNotFound, [&] { files_.Load(In("nothing.jpg")); });
  ExpectFailure(kPathNotFound, [&] { files_.Load(In("nowhere/nothing.jpg")); });
  ExpectFailure(kFileNotFound, [&] { files_.Load(""); });
  ExpectFailure(kPathNotFound, [&] { files_.Load(std::string("a\0b", 3)); });
  ExpectFailure(kPathNotFound, [&] { files_.Load(std::string(100000, 'a')); });
  Write("file", SampleGif());
  ExpectFailure(kPathNotFound, [&] { files_.Load(In("file/below.jpg")); });
}

TEST_F(PictureFiles, LoadingWhatIsNoPictureFails) {
  Write("empty.jpg", {});
  Write("text.jpg", BytesOf("not a picture"));
  std::filesystem::create_directory(In("folder.jpg"));
  ASSERT_EQ(mkfifo(In("pipe.jpg").c_str(), 0600), 0);
  for (const char* name : {"empty.jpg", "text.jpg", "folder.jpg", "pipe.jpg"}) {
    const std::string description = ExpectFailure(kInvalidPicture, [&] { files_.Load(In(name)); });
    EXPECT_NE(description.find(name), std::string::npos) << description;
  }
  ExpectFailure(kInvalidPicture, [&] { files_.Load("/dev/zero"); });
}

TEST_F(PictureFiles, AHugeFileIsRefusedWithoutReadingItWhole) {
  Write("huge.png", SamplePicture("png", 8, 8));
  std::filesystem::resize_file(In("huge.png"), std::uintmax_t{1} << 40);
  ExpectFailure(kInvalidPicture, [&] { files_.Load(In("huge.png")); });
}

TEST_F(PictureFiles, ANameWithTheLockCharacterDoesNotLookLikeALockConflict) {
  ExpectFailure(kFileNotFound, [&] { files_.Load(In("门锁.jpg")); });
  ExpectFailure(kFileNotFound, [&] { files_.DeleteFile(In("锁锁.jpg")); });
  Write("锁.jpg", BytesOf("not a picture"));
  ExpectFailure(kInvalidPicture, [&] { files_.Load(In("锁.jpg")); });
  ExpectFailure(QtPictureFiles::kFileExists,
                [&] { files_.SaveNewFile(In("锁.jpg"), SampleGif()); });
}

TEST_F(PictureFiles, DeletingWhatIsMissingFails) {
  ExpectFailure(kFileNotFound, [&] { files_.DeleteFile(In("nothing.jpg")); });
  ExpectFailure(kPathNotFound, [&] { files_.DeleteFile(In("nowhere/nothing.jpg")); });
}

TEST_F(PictureFiles, AFolderIsNoFileAndIsNotDeleted) {
  std::filesystem::create_directory(In("7.jpg"));
  EXPECT_FALSE(files_.FileExists(In("7.jpg")));
  EXPECT_THROW(files_.DeleteFile(In("7.jpg")), Failure);
  EXPECT_TRUE(std::filesystem::is_directory(In("7.jpg")));
}

TEST_F(PictureFiles, SavingWithoutBytesFailsAndMakesNoFile) {
  ExpectFailure(kInvalidUseOfNull, [&] { files_.SaveNewFile(In("7.jpg"), Null{}); });
  ExpectFailure(kTypeMismatch, [&] { files_.SaveNewFile(In("7.jpg"), std::string("text")); });
  ExpectFailure(kInvalidPicture, [&] { files_.SaveNewFile(In("7.jpg"), Bytes{}); });
  EXPECT_FALSE(std::filesystem::exists(In("7.jpg")));
}

TEST_F(PictureFiles, SavingIntoAMissingFolderFails) {
  ExpectFailure(kPathNotFound, [&] { files_.SaveNewFile(In("picture/7.jpg"), SampleGif()); });
  EXPECT_FALSE(std::filesystem::exists(In("picture")));
}

TEST_F(PictureFiles, SavingNeverOverwrites) {
  Write("7.jpg", BytesOf("old"));
  ExpectFailure(QtPictureFiles::kFileExists, [&] { files_.SaveNewFile(In("7.jpg"), SampleGif()); });
  EXPECT_EQ(ReadBack("7.jpg"), BytesOf("old"));
}

TEST_F(PictureFiles, SavingFollowsNoLink) {
  Write("target", BytesOf("old"));
  std::filesystem::create_symlink(In("target"), In("7.jpg"));
  std::filesystem::create_symlink(In("not yet there"), In("8.jpg"));
  for (const char* name : {"7.jpg", "8.jpg"}) {
    ExpectFailure(QtPictureFiles::kFileExists, [&] { files_.SaveNewFile(In(name), SampleGif()); });
    EXPECT_TRUE(files_.FileExists(In(name)));
    files_.DeleteFile(In(name));
  }
  EXPECT_EQ(ReadBack("target"), BytesOf("old"));
  EXPECT_FALSE(std::filesystem::exists(In("not yet there")));
}

TEST_F(PictureFiles, AFailedSaveLeavesNoPartOfTheFile) {
  rlimit usual = {};
  getrlimit(RLIMIT_FSIZE, &usual);
  const rlimit small = {1000, usual.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  ExpectFailure(kDeviceIo, [&] { files_.SaveNewFile(In("7.jpg"), Bytes(5000)); });
  setrlimit(RLIMIT_FSIZE, &usual);
  std::signal(SIGXFSZ, handler);
  EXPECT_FALSE(std::filesystem::exists(In("7.jpg")));
}

}  // namespace
}  // namespace td
