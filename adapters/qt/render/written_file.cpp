#include "render/written_file.h"

#include <QSaveFile>

#include "platform/failure.h"
#include "platform/lock_character.h"

namespace td {

void WriteWholeFile(const std::string& path, const std::string& bytes) {
  QSaveFile file(QString::fromStdString(path));
  const auto size = static_cast<qint64>(bytes.size());
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), size) != size ||
      !file.commit()) {
    throw Failure(kDeviceIo, WithoutLockCharacter("无法写入文件“" + path + "”：" +
                                                  file.errorString().toStdString()));
  }
}

void RequirePages(const std::vector<Page>& pages) {
  if (pages.empty()) throw Failure(kInvalidCall, "文档中没有页");
}

}  // namespace td
