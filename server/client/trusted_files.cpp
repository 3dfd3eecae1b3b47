#include "client/trusted_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "client/result_failure.h"
#include "files/file_error.h"
#include "files/whole_file.h"

namespace td {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& path, int error) {
  // What these two say of a path that was opened without following links.
  const bool isLink = error == ELOOP || error == ENOTDIR;
  TdResult result = TD_FAILURE;
  if (error == ENOENT) result = TD_FILE_NOT_FOUND;
  if (error == EACCES || isLink) result = TD_NO_ACCESS;
  const std::string reason = isLink ? "不能是链接" : ReasonOf(error);
  throw ResultFailure(result, "“" + path.string() + "”：" + reason + "。");
}

bool IsOfUserOrRoot(const struct stat& state) {
  return state.st_uid == 0 || state.st_uid == geteuid();
}

bool IsWritableByOthers(const struct stat& state) {
  return (state.st_mode & (S_IWGRP | S_IWOTH)) != 0;
}

void CheckState(const Descriptor& descriptor, const fs::path& path, bool isOnTheWay) {
  struct stat state {};
  if (fstat(descriptor.Number(), &state) != 0) Fail(path, errno);
  if (!IsOfUserOrRoot(state)) {
    throw ResultFailure(TD_NO_ACCESS, "“" + path.string() + "”属于其他用户，不能使用。");
  }
  const bool isSticky = (state.st_mode & S_ISVTX) != 0;
  if (IsWritableByOthers(state) && !(isOnTheWay && isSticky)) {
    throw ResultFailure(TD_NO_ACCESS, "“" + path.string() + "”可被其他用户修改，不能使用。");
  }
}

// The path with the links on the way resolved; parts that are missing stay as they are.
fs::path Resolved(const fs::path& folder) {
  std::error_code error;
  const fs::path parent = fs::weakly_canonical(folder.parent_path(), error);
  if (error) Fail(folder, error.value());
  return parent / folder.filename();
}

Descriptor OpenFolder(int parent, const std::string& name) {
  return Descriptor(openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

}  // namespace

Descriptor OpenTrustedFolder(const fs::path& folder, MissingFolders missing) {
  const fs::path resolved = Resolved(folder);
  fs::path sofar = "/";
  Descriptor current = OpenFolder(AT_FDCWD, sofar);
  CheckState(current, sofar, true);
  for (const fs::path& part : resolved.relative_path()) {
    sofar /= part;
    if (missing == MissingFolders::kCreate &&
        mkdirat(current.Number(), part.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
      Fail(sofar, errno);
    }
    Descriptor next = OpenFolder(current.Number(), part);
    if (next.Number() < 0) Fail(sofar, errno);
    CheckState(next, sofar, sofar != resolved);
    current = std::move(next);
  }
  return current;
}

Descriptor OpenTrustedFile(const fs::path& file) {
  const Descriptor folder = OpenTrustedFolder(file.parent_path(), MissingFolders::kFail);
  Descriptor opened(openat(folder.Number(), file.filename().c_str(),
                           O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (opened.Number() < 0) Fail(file, errno);
  struct stat state {};
  if (fstat(opened.Number(), &state) != 0) Fail(file, errno);
  if (!S_ISREG(state.st_mode)) Fail(file, EINVAL);
  CheckState(opened, file, false);
  return opened;
}

void ReplaceTrustedFile(const fs::path& file, const std::string& content) {
  const Descriptor folder = OpenTrustedFolder(file.parent_path(), MissingFolders::kCreate);
  try {
    ReplaceFile(folder, file.filename(), {.mode = S_IRUSR | S_IWUSR}, WriterOf(content));
  } catch (const FileError& error) {
    Fail(file, error.Number());
  }
}

}  // namespace td
