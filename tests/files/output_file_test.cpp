#include "files/output_file.h"

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/sysmacros.h>
#include <sys/un.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <thread>

#include "file_tools.h"

namespace td {
namespace {

namespace fs = std::filesystem;

int WriteTo(const fs::path& path, const std::string& content) {
  return ErrorOf([&] { WriteOutput(path.string(), WriterOf(content)); });
}

// All that comes out of a pipe or a socket until its writers have gone.
std::string Drained(int descriptor) {
  std::string all;
  std::array<char, 4096> part{};
  for (ssize_t count = 0; (count = read(descriptor, part.data(), part.size())) > 0;) {
    all.append(part.data(), static_cast<std::size_t>(count));
  }
  return all;
}

TEST(OutputFile, IsMadeOrReplacedWhole) {
  const TestFolder folder;
  EXPECT_EQ(WriteTo(folder / "bill.pdf", "a long first document"), 0);
  EXPECT_EQ(WriteTo(folder / "bill.pdf", "second"), 0);
  EXPECT_EQ(ContentOf(folder / "bill.pdf"), "second");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"bill.pdf"});
}

TEST(OutputFile, KeepsTheRightsAndTheOwnerOfTheFileThatItReplaces) {
  const TestFolder folder;
  Put(folder / "bill.pdf", "old");
  fs::permissions(folder / "bill.pdf", fs::perms(0640));
  if (geteuid() == 0) {
    ASSERT_EQ(chown((folder / "bill.pdf").c_str(), 65534, 65534), 0);
  }
  const struct stat before = StateOf(folder / "bill.pdf");
  EXPECT_EQ(WriteTo(folder / "bill.pdf", "new"), 0);
  const struct stat after = StateOf(folder / "bill.pdf");
  EXPECT_EQ(ContentOf(folder / "bill.pdf"), "new");
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_EQ(after.st_uid, before.st_uid);
  EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST(OutputFile, ThatIsProtectedIsRefused) {
  const TestFolder folder;
  Put(folder / "bill.pdf", "old");
  fs::permissions(folder / "bill.pdf", fs::perms(0444));
  chmod(folder.Path().c_str(), 0777);
  const int status = StatusOf([&] {
    if (geteuid() == 0 && setuid(65534) != 0) return 99;
    return WriteTo(folder / "bill.pdf", "new");
  });
  EXPECT_EQ(status, EACCES);
  EXPECT_EQ(ContentOf(folder / "bill.pdf"), "old");
}

TEST(OutputFile, BehindALinkIsReplacedAndTheLinkStays) {
  const TestFolder folder;
  fs::create_directory(folder / "archive");
  Put(folder / "archive/bill.pdf", "old");
  fs::create_symlink("archive/bill.pdf", folder / "near");
  fs::create_symlink(folder / "near", folder / "far");
  EXPECT_EQ(WriteTo(folder / "far", "new"), 0);
  EXPECT_EQ(ContentOf(folder / "archive/bill.pdf"), "new");
  EXPECT_TRUE(fs::is_symlink(folder / "far"));
  EXPECT_TRUE(fs::is_symlink(folder / "near"));

  fs::create_symlink("archive/later.pdf", folder / "ahead");
  EXPECT_EQ(WriteTo(folder / "ahead", "made"), 0);
  EXPECT_EQ(ContentOf(folder / "archive/later.pdf"), "made");
  EXPECT_TRUE(fs::is_symlink(folder / "ahead"));

  fs::create_symlink("round", folder / "round");
  EXPECT_EQ(WriteTo(folder / "round", "x"), ELOOP);
}

TEST(OutputFile, AFolderOrNoPlaceAtAllIsRefused) {
  const TestFolder folder;
  fs::create_directory(folder / "bills");
  EXPECT_EQ(WriteTo(folder / "bills", "x"), EISDIR);
  EXPECT_EQ(WriteTo((folder / "bills").string() + "/", "x"), EISDIR);
  EXPECT_EQ(WriteTo("/", "x"), EISDIR);
  EXPECT_EQ(WriteTo(".", "x"), EISDIR);
  EXPECT_EQ(WriteTo("", "x"), ENOENT);
  EXPECT_EQ(WriteTo(folder / "none/bill.pdf", "x"), ENOENT);
  Put(folder / "file", "x");
  EXPECT_EQ(WriteTo(folder / "file/bill.pdf", "x"), ENOTDIR);
  EXPECT_EQ(folder.Names(), (std::set<std::string>{"bills", "file"}));
}

TEST(OutputFile, ADeviceStaysADevice) {
  const TestFolder folder;
  const fs::path null = folder / "null";
  if (mknod(null.c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0) {
    GTEST_SKIP() << "only root can make a device";
  }
  EXPECT_EQ(WriteTo(null, "bytes"), 0);
  EXPECT_TRUE(S_ISCHR(StateOf(null).st_mode));
  EXPECT_EQ(folder.Names(), std::set<std::string>{"null"});
}

TEST(OutputFile, AFullDeviceIsAFailureWithItsReason) {
  EXPECT_EQ(WriteTo("/dev/full", "bytes"), ENOSPC);
  EXPECT_EQ(std::string(FileError(ENOSPC).what()), "磁盘空间不足");
}

TEST(OutputFile, APipeReceivesTheBytesAndStaysAPipe) {
  const TestFolder folder;
  const fs::path pipe = folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string content(300'000, 'x');  // more than a pipe holds
  std::string received;
  std::thread reader([&] {
    const Descriptor end(open(pipe.c_str(), O_RDONLY));
    received = Drained(end.Number());
  });
  EXPECT_EQ(WriteTo(pipe, content), 0);
  reader.join();
  EXPECT_EQ(received, content);
  EXPECT_TRUE(S_ISFIFO(StateOf(pipe).st_mode));
}

TEST(OutputFile, APipeWhoseReaderGoesAwayIsAFailureAndNoEnd) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  close(ends[0]);
  EXPECT_EQ(WriteTo("/dev/fd/" + std::to_string(ends[1]), "bytes"), EPIPE);
  close(ends[1]);
  sigset_t pending;
  sigpending(&pending);
  EXPECT_EQ(sigismember(&pending, SIGPIPE), 0);
}

TEST(OutputFile, ASlowReaderOfAPipeThatDoesNotWaitIsWaitedFor) {
  int ends[2];
  ASSERT_EQ(pipe2(ends, O_NONBLOCK), 0);
  fcntl(ends[0], F_SETFL, 0);
  const std::string content(300'000, 'x');
  std::string received;
  std::thread reader([&] { received = Drained(ends[0]); });
  EXPECT_EQ(WriteTo("/dev/fd/" + std::to_string(ends[1]), content), 0);
  close(ends[1]);
  reader.join();
  close(ends[0]);
  EXPECT_EQ(received, content);
}

TEST(OutputFile, ASocketReceivesTheBytes) {
  const TestFolder folder;
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  (folder / "socket").string().copy(address.sun_path, sizeof address.sun_path - 1);
  const Descriptor listener(socket(AF_UNIX, SOCK_STREAM, 0));
  ASSERT_EQ(bind(listener.Number(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  ASSERT_EQ(listen(listener.Number(), 1), 0);
  EXPECT_EQ(WriteTo(folder / "socket", "bytes"), 0);
  const Descriptor accepted(accept(listener.Number(), nullptr, nullptr));
  EXPECT_EQ(Drained(accepted.Number()), "bytes");
  EXPECT_TRUE(S_ISSOCK(StateOf(folder / "socket").st_mode));
}

TEST(OutputFile, WhatTheProcessHasOpenGoesOnWhereItStands) {
  const TestFolder folder;
  const int status = StatusOf([&] {
    const int file = open((folder / "log").c_str(), O_WRONLY | O_CREAT, 0600);
    if (dup2(file, STDOUT_FILENO) < 0 || write(STDOUT_FILENO, "before ", 7) != 7) return 1;
    if (WriteTo("/dev/stdout", "document") != 0) return 2;
    return write(STDOUT_FILENO, " behind", 7) == 7 ? 0 : 3;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(ContentOf(folder / "log"), "before document behind");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"log"});
  EXPECT_EQ(WriteTo("/dev/fd/999", "x"), EBADF);
}

TEST(OutputFile, BeyondTheLargestSizeIsAFailureAndTheOldFileStays) {
  const TestFolder folder;
  Put(folder / "bill.pdf", "old");
  const int status = StatusOf([&] {
    const rlimit limit{100'000, 100'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    return WriteTo(folder / "bill.pdf", std::string(300'000, 'x'));
  });
  EXPECT_EQ(status, EFBIG);
  EXPECT_EQ(ContentOf(folder / "bill.pdf"), "old");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"bill.pdf"});
}

}  // namespace
}  // namespace td
