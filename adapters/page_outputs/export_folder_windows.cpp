#include <filesystem>
#include <system_error>

#include "files/path_text.h"
#include "files/windows_files.h"
#include "page_outputs/export_folder.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

namespace fs = std::filesystem;

Failure SavingFailure(int number, const fs::path& path, const std::string& reason) {
  return {number, WithoutLockCharacter("无法保存文件“" + TextOf(path) + "”：" + reason + "。")};
}

}  // namespace

std::string DefaultStateFolder() {
  if (const fs::path chosen = AbsolutePathFrom(L"QBTDPRINTER_STATE_DIR"); !chosen.empty()) {
    return TextOf(chosen);
  }
  const fs::path local = AbsolutePathFrom(L"LOCALAPPDATA");
  return local.empty() ? std::string() : TextOf(local / "QbTdPrinter");
}

void WritePrivateFile(const std::string& folder, const std::string& name, const FileWriter& write) {
  const fs::path path = PathOf(folder);
  std::error_code error;
  fs::create_directories(path, error);
  if (!fs::is_directory(path, error)) {
    throw SavingFailure(kPathNotFound, path, "文件夹不存在，也无法建立");
  }
  try {
    ReplaceWholeFile(path / PathOf(name), write);
  } catch (const FileError& failure) {
    throw SavingFailure(kDeviceIo, path / PathOf(name), failure.what());
  }
}

}  // namespace td
