#include "files/file_error.h"

#include <cerrno>

namespace td {

std::string ReasonOf(int number) {
  switch (number) {
    case ENOENT:
      return "文件或文件夹不存在";
    case ENOTDIR:
      return "路径中有一部分不是文件夹";
    case EISDIR:
      return "这是一个文件夹";
    case EEXIST:
      return "文件已经存在";
    case EACCES:
    case EPERM:
      return "没有权限";
    case EROFS:
      return "磁盘是只读的";
    case ENOSPC:
      return "磁盘空间不足";
    case EFBIG:
      return "文件太大";
    case ENAMETOOLONG:
      return "文件名太长";
    case ELOOP:
      return "链接太多";
    case EINVAL:
      return "不是普通文件";
    case EPIPE:
      return "接收的程序已经退出";
    case EBADF:
      return "没有打开，无法写入";
    case EIO:
      return "设备读写失败";
    default:
      return SystemReasonOf(number);
  }
}

}  // namespace td
