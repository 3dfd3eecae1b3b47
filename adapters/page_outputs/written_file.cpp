#include "page_outputs/written_file.h"

#include "files/file_error.h"
#include "files/output_file.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"

namespace td {

void WriteFile(const std::string& path, const FileWriter& write) {
  try {
    WriteOutput(path, write);
  } catch (const FileError& error) {
    throw Failure(kDeviceIo,
                  WithoutLockCharacter("无法写入文件“" + path + "”：" + error.what() + "。"));
  }
}

void RequirePages(std::size_t count) {
  if (count == 0) throw Failure(kInvalidCall, "文档中没有页");
}

}  // namespace td
