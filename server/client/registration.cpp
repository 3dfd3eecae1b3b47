#include "client/registration.h"

#include <fcntl.h>
#include <pwd.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <sstream>

#include "client/result_failure.h"
#include "client/trusted_files.h"
#include "files/file_error.h"
#include "files/read_file.h"

namespace td {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestFile = 65536;

fs::path HomeFolder() {
  if (const char* home = secure_getenv("HOME"); home != nullptr && *home == '/') return home;
  const passwd* user = getpwuid(geteuid());
  return user == nullptr ? fs::path() : fs::path(user->pw_dir);
}

fs::path CheckedRegistrationFile() {
  fs::path file = RegistrationFile();
  if (file.empty()) throw ResultFailure(TD_FAILURE, "找不到用户的主文件夹。");
  return file;
}

std::string ReadWhole(const fs::path& file) {
  const Descriptor opened = OpenTrustedFile(file);
  try {
    return ReadRegularFile(opened, kLargestFile);
  } catch (const FileError& error) {
    throw ResultFailure(TD_FAILURE, "组件的登记文件无法读取：" + std::string(error.what()) + "。");
  }
}

bool HasFormOfGuid(std::string_view text) {
  constexpr std::string_view kForm = "{00000000-0000-0000-0000-000000000000}";
  return std::ranges::equal(text, kForm, [](char given, char expected) {
    return expected == '0' ? std::isxdigit(static_cast<unsigned char>(given)) != 0
                           : given == expected;
  });
}

std::optional<TdGuid> GuidOfText(const std::string& text) {
  if (!HasFormOfGuid(text)) return std::nullopt;
  TdGuid id{};
  std::sscanf(text.c_str(), "{%8x-%4hx-%4hx-%2hhx%2hhx-%2hhx%2hhx%2hhx%2hhx%2hhx%2hhx}", &id.first,
              &id.second, &id.third, &id.rest[0], &id.rest[1], &id.rest[2], &id.rest[3],
              &id.rest[4], &id.rest[5], &id.rest[6], &id.rest[7]);
  return id;
}

RegisteredClass ReadLine(const std::string& line) {
  std::istringstream parts(line);
  std::string name;
  std::string id;
  std::string module;
  std::getline(parts, name, '\t');
  std::getline(parts, id, '\t');
  std::getline(parts, module);
  const std::optional<TdGuid> guid = GuidOfText(id);
  const bool hasPath = fs::path(module).is_absolute() && module.find('\0') == module.npos;
  if (name.empty() || !guid || !hasPath) {
    throw ResultFailure(TD_FAILURE, "组件的登记文件已损坏，请重新登记。");
  }
  return {name, *guid, module};
}

}  // namespace

fs::path RegistrationFile() {
  fs::path data;
  if (const char* folder = secure_getenv("XDG_DATA_HOME"); folder != nullptr && *folder == '/') {
    data = folder;
  } else if (const fs::path home = HomeFolder(); !home.empty()) {
    data = home / ".local" / "share";
  } else {
    return {};
  }
  return data / "qbtdprinter" / "classes";
}

std::vector<RegisteredClass> ReadRegistration() {
  std::vector<RegisteredClass> classes;
  try {
    std::istringstream lines(ReadWhole(CheckedRegistrationFile()));
    for (std::string line; std::getline(lines, line);) {
      if (!line.empty() && line[0] != '#') classes.push_back(ReadLine(line));
    }
  } catch (const ResultFailure& failure) {
    if (failure.Result() != TD_FILE_NOT_FOUND) throw;
  }
  return classes;
}

void WriteRegistration(const std::vector<RegisteredClass>& classes) {
  std::string content = "# The classes of QbTdPrinter and the modules that hold them.\n";
  for (const RegisteredClass& one : classes) {
    if (one.module.string().find('\n') != std::string::npos) {
      throw ResultFailure(TD_FAILURE, "模块的路径含有换行，无法登记。");
    }
    (void)OpenTrustedFile(one.module);
    content += one.name + "\t" + TextOfGuid(one.id) + "\t" + one.module.string() + "\n";
  }
  ReplaceTrustedFile(CheckedRegistrationFile(), content);
}

void RemoveRegistration(const fs::path& /*module*/) {
  const fs::path file = CheckedRegistrationFile();
  try {
    const Descriptor folder = OpenTrustedFolder(file.parent_path(), MissingFolders::kFail);
    if (unlinkat(folder.Number(), file.filename().c_str(), 0) != 0 && errno != ENOENT) {
      throw ResultFailure(TD_NO_ACCESS,
                          "无法删除“" + file.string() + "”：" + std::strerror(errno) + "。");
    }
  } catch (const ResultFailure& failure) {
    if (failure.Result() != TD_FILE_NOT_FOUND) throw;
  }
}

}  // namespace td
