#include <pwd.h>
#include <stdlib.h>
#include <unistd.h>

#include <QGuiApplication>
#include <array>

#include "desktop/who_prints.h"

namespace td {

std::string UserName() {
  std::array<char, 4096> texts{};
  passwd user{};
  passwd* found = nullptr;
  if (getpwuid_r(geteuid(), &user, texts.data(), texts.size(), &found) == 0 && found != nullptr) {
    return user.pw_name;
  }
  return std::to_string(geteuid());
}

std::string MachineName() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : std::string();
}

std::string NameOfProgram() {
  return QGuiApplication::applicationDisplayName().toStdString();
}

std::filesystem::path LogFileOfEnvironment() {
  const char* file = secure_getenv("QBTDPRINTER_LOG_FILE");
  return file == nullptr ? "" : file;
}

}  // namespace td
