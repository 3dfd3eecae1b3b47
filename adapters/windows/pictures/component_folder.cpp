#include "windows/pictures/component_folder.h"

#include "files/path_text.h"
#include "platform/failure.h"
#include "windows/api/modules.h"

namespace td {

std::string FolderOfLoadedComponent() {
  const std::filesystem::path file = FileOf(OwnModule());
  if (file.empty()) throw Failure(kPathNotFound, "无法确定组件所在的文件夹。");
  return TextOf(file.parent_path());
}

}  // namespace td
