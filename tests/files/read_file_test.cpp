#include "files/read_file.h"

#include <cerrno>

#include "file_tools.h"

namespace td {
namespace {

int ErrorOfReading(const std::filesystem::path& path, std::size_t largest) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK));
  return ErrorOf([&] { (void)ReadRegularFile(file, largest); });
}

TEST(RegularFile, IsReadWholeUpToItsBound) {
  const TestFolder folder;
  Put(folder / "file", "12345");
  const Descriptor file(open((folder / "file").c_str(), O_RDONLY));
  EXPECT_EQ(ReadRegularFile(file, 5), "12345");
  EXPECT_EQ(ErrorOfReading(folder / "file", 4), EFBIG);
  Put(folder / "empty", "");
  EXPECT_EQ(ErrorOfReading(folder / "empty", 0), 0);
}

TEST(RegularFile, IsNothingElse) {
  const TestFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(ErrorOfReading(folder / "pipe", 10), EINVAL);
  EXPECT_EQ(ErrorOfReading("/dev/zero", 10), EINVAL);
  EXPECT_EQ(ErrorOfReading(folder.Path(), 10), EISDIR);
  EXPECT_EQ(ErrorOfReading(folder / "none", 10), EBADF);
}

}  // namespace
}  // namespace td
