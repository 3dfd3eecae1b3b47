#include "render/written_file.h"

#include <QSaveFile>

#include "platform/failure.h"
#include "platform/lock_character.h"

namespace td {

FileWriter WriterOf(std::string_view bytes) {
  return [bytes](const ByteSink& sink) { sink(bytes); };
}

void WriteFile(const std::string& path, const FileWriter& write) {
  QSaveFile file(QString::fromStdString(path));
  const auto require = [&](bool isDone) {
    if (isDone) return;
    throw Failure(kDeviceIo, WithoutLockCharacter("无法写入文件“" + path + "”：" +
                                                  file.errorString().toStdString()));
  };
  require(file.open(QIODevice::WriteOnly));
  write([&](std::string_view bytes) {
    const auto size = static_cast<qint64>(bytes.size());
    require(file.write(bytes.data(), size) == size);
  });
  require(file.commit());
}

void RequirePages(const std::vector<Page>& pages) {
  if (pages.empty()) throw Failure(kInvalidCall, "文档中没有页");
}

}  // namespace td
