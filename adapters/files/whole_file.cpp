#include "files/whole_file.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdio>

#include "files/file_error.h"
#include "files/leftovers.h"

namespace td {
namespace {

constexpr std::string_view kPrefix = ".qbtdprinter-";

void Require(bool succeeded) {
  if (!succeeded) throw FileError(errno);
}

// A file that isn't finished. What it is removed by is its own random name, if it has one.
class Draft {
 public:
  Draft(const Descriptor& folder, const FileRights& rights)
      : folder_(folder), file_(OpenUnnamed(FirstMode(rights))) {
    if (!file_.IsOpen() || access(OwnPath().c_str(), F_OK) != 0) OpenNamed(FirstMode(rights));
    HoldInUse(file_);
    if (rights.like != nullptr) TakeRightsOf(*rights.like);
  }
  ~Draft() {
    if (!name_.empty()) unlinkat(folder_.Number(), name_.c_str(), 0);
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  void Fill(const FileWriter& write) {
    write([this](std::string_view bytes) { WriteBytes(file_, bytes); });
  }

  void SyncToDisk() { Require(fsync(file_.Number()) == 0); }

  // A network's file system tells of some failed writes only when a file is closed.
  void SyncToServer() {
    Descriptor twin(fcntl(file_.Number(), F_DUPFD_CLOEXEC, 0));
    Require(twin.IsOpen() && twin.Close());
  }

  void PutInPlaceOf(const std::string& name) {
    if (name_.empty()) {
      if (Link(name)) return;
      if (errno != EEXIST) throw FileError(errno);
      GiveRandomName([this](const std::string& random) { return Link(random); });
    }
    Require(renameat(folder_.Number(), name_.c_str(), folder_.Number(), name.c_str()) == 0);
    name_.clear();
  }

  void PutUnder(const std::string& name) {
    if (name_.empty()) {
      Require(Link(name));
    } else if (MoveUnder(name)) {
      name_.clear();
    } else {
      throw FileError(errno);
    }
  }

 private:
  // Nobody may open the file before it has the rights that it shall have.
  [[nodiscard]] static mode_t FirstMode(const FileRights& rights) {
    return rights.like == nullptr ? rights.mode : S_IRUSR | S_IWUSR;
  }

  [[nodiscard]] Descriptor OpenUnnamed(mode_t mode) const {
    return Descriptor(openat(folder_.Number(), ".", O_WRONLY | O_TMPFILE | O_CLOEXEC, mode));
  }

  void OpenNamed(mode_t mode) {
    GiveRandomName([&](const std::string& random) {
      constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
      file_ = Descriptor(openat(folder_.Number(), random.c_str(), kFlags, mode));
      return file_.IsOpen();
    });
  }

  // `make` puts something under a name that is free, or fails with errno.
  template <class Make>
  void GiveRandomName(Make make) {
    SweepLeftovers(folder_, kPrefix, [this](const std::string& leftover) {
      unlinkat(folder_.Number(), leftover.c_str(), 0);
    });
    for (;;) {
      const std::string random = RandomName(kPrefix);
      if (make(random)) {
        name_ = random;
        return;
      }
      if (errno != EEXIST) throw FileError(errno);
    }
  }

  void TakeRightsOf(const struct stat& other) {
    // Only the administrator can give a file away; for anybody else it stays the user's.
    [[maybe_unused]] const int given = fchown(file_.Number(), other.st_uid, other.st_gid);
    Require(fchmod(file_.Number(), other.st_mode & 0777) == 0);
  }

  [[nodiscard]] std::string OwnPath() const {
    return "/proc/self/fd/" + std::to_string(file_.Number());
  }

  [[nodiscard]] bool Link(const std::string& name) const {
    return linkat(AT_FDCWD, OwnPath().c_str(), folder_.Number(), name.c_str(), AT_SYMLINK_FOLLOW) ==
           0;
  }

  // Not every file system can move a file without replacing another; those can link.
  [[nodiscard]] bool MoveUnder(const std::string& name) {
    const int folder = folder_.Number();
    if (renameat2(folder, name_.c_str(), folder, name.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    if (linkat(folder, name_.c_str(), folder, name.c_str(), 0) != 0) return false;
    return unlinkat(folder, name_.c_str(), 0) == 0;
  }

  const Descriptor& folder_;
  Descriptor file_;
  std::string name_;  // empty: none, or the one that it shall keep
};

// Without this a new name could be lost by a power cut; the file is whole either way.
void SyncNames(const Descriptor& folder) {
  const Descriptor opened(openat(folder.Number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.IsOpen()) fsync(opened.Number());
}

}  // namespace

void ReplaceFile(const Descriptor& folder, const std::string& name, const FileRights& rights,
                 const FileWriter& write) {
  Draft draft(folder, rights);
  draft.Fill(write);
  draft.SyncToDisk();
  draft.PutInPlaceOf(name);
  SyncNames(folder);
}

void CreateNewFile(const Descriptor& folder, const std::string& name, const FileRights& rights,
                   const FileWriter& write) {
  Draft draft(folder, rights);
  draft.Fill(write);
  draft.SyncToServer();
  draft.PutUnder(name);
}

}  // namespace td
